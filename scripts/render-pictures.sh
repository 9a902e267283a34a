#!/usr/bin/env bash
# Renders every picture listed in resources/pictures/manifest.txt into OUTDIR:
#   OUTDIR/bitmaps/<id>.bmp    resource bitmaps (24-bit, or 8-bit with magenta transparency)
#   OUTDIR/icons/<id>.ico      resource icons (16, 32 and 48 px)
#   OUTDIR/kstrmouse/<n>.png   pictures the module reads at run time (32-bit RGBA)
#   OUTDIR/pictures.rc         BITMAP and ICON statements for every resource above
#   OUTDIR/contact-sheet.png   every picture, enlarged where small, with its name
# Output is byte-for-byte repeatable; any missing source, failed tool or size
# that differs from the manifest stops the run with a message.
set -euo pipefail

usage() { echo "usage: $0 OUTDIR" >&2; exit 2; }
die() { echo "render-pictures: $*" >&2; exit 1; }

[ $# -eq 1 ] || usage
OUTDIR=$1
SRCDIR=$(cd "$(dirname "${BASH_SOURCE[0]}")/../resources/pictures" && pwd)
MANIFEST=$SRCDIR/manifest.txt
[ -f "$MANIFEST" ] || die "no manifest at $MANIFEST"

# /usr/local/bin may hold a stand-in called convert; use ImageMagick's own tools.
IM_BIN=${KSTR_IMAGEMAGICK_BIN:-/usr/bin}
CONVERT=$IM_BIN/convert
IDENTIFY=$IM_BIN/identify
MONTAGE=$IM_BIN/montage
"$CONVERT" -version 2>/dev/null | grep -q ImageMagick || die "$CONVERT is not ImageMagick"
command -v rsvg-convert >/dev/null || die "rsvg-convert not found (package librsvg2-bin)"

# The face colour of classic dialogs; opaque bitmaps are flattened onto it.
DIALOG_FACE='#F0F0F0'
MAGENTA='#FF00FF'
# Strip everything that would make two runs differ (dates, tool comments).
PNG_STABLE=(-strip -define png:exclude-chunks=date,time)

WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT

mkdir -p "$OUTDIR"
rm -rf "$OUTDIR/bitmaps" "$OUTDIR/icons" "$OUTDIR/kstrmouse"
mkdir -p "$OUTDIR/bitmaps" "$OUTDIR/icons" "$OUTDIR/kstrmouse"

# svg_to_png SOURCE OUT [SIZE]: rasterise with transparency kept, at the
# drawing's own size (which the manifest check then holds it to) or, for
# icon frames, scaled to SIZE x SIZE.
svg_to_png() {
  local scale=()
  [ $# -eq 3 ] && scale=(--width "$3" --height "$3")
  rsvg-convert "${scale[@]}" --format png --output "$2" "$1" || die "rsvg-convert failed on $1"
}

# palette8: the 16 system colours (what a 4-bit image list keeps) and the
# web-safe colours; more than 16 entries makes the BMP writer use 8 bits.
# Prints the palette image's path.
palette8() {
  local pal=$WORK/palette8.png
  if [ ! -f "$pal" ]; then
    local vga=(000000 800000 008000 808000 000080 800080 008080 C0C0C0
               808080 FF0000 00FF00 FFFF00 0000FF FF00FF 00FFFF FFFFFF) cols=() r g b
    for c in "${vga[@]}"; do cols+=("xc:#$c"); done
    for r in 00 33 66 99 CC FF; do for g in 00 33 66 99 CC FF; do for b in 00 33 66 99 CC FF; do
      [[ " ${vga[*]} " == *" $r$g$b "* ]] || cols+=("xc:#$r$g$b")
    done; done; done
    "$CONVERT" -size 1x1 "${cols[@]}" +append "$pal"
    local n; n=$("$IDENTIFY" -format '%k' "$pal")
    (( n > 16 && n <= 256 )) || die "palette has $n colours"
  fi
  echo "$pal"
}

# bmp_field FILE OFFSET BYTES: little-endian unsigned field of a BMP header.
bmp_field() { od -An -tu"$3" -j"$2" -N"$3" "$1" | tr -d ' '; }

# check_size FILE EXPECTED: every frame of FILE against "WxH" or "16,32,48".
check_size() {
  local got want
  got=$("$IDENTIFY" -format '%wx%h\n' "$1" | paste -sd, -) || die "cannot read $1"
  if [[ $2 == *x* ]]; then want=$2; else want=$(tr ',' '\n' <<<"$2" | sed 's/.*/&x&/' | paste -sd, -); fi
  [ "$got" = "$want" ] || die "$1 is $got, manifest says $want"
}

# check_bmp FILE BITS: an uncompressed BMP with a 40-byte header at BITS per pixel.
check_bmp() {
  [ "$(head -c2 "$1")" = BM ] || die "$1 is not a BMP"
  [ "$(bmp_field "$1" 14 4)" = 40 ] || die "$1 has not the plain 40-byte BMP header"
  [ "$(bmp_field "$1" 28 2)" = "$2" ] || die "$1 is not $2 bits per pixel"
  [ "$(bmp_field "$1" 30 4)" = 0 ] || die "$1 is compressed"
}

PALETTE8=$(palette8)
rc_lines=()
sheet=()
count=0
while read -r out src size fmt extra; do
  [[ -z ${out:-} || $out == \#* ]] && continue
  [ -n "${fmt:-}" ] && [ -z "${extra:-}" ] || die "manifest line for '$out' needs exactly: output source size format"
  [ -f "$SRCDIR/$src" ] || die "missing source $SRCDIR/$src for $out"
  dest=$OUTDIR/$out
  name=$(basename "$out"); name=${name%.*}
  raw=$WORK/$name.raw.png
  case $fmt in
    png)
      [[ $out == kstrmouse/*.png ]] || die "$out: png output belongs in kstrmouse/"
      svg_to_png "$SRCDIR/$src" "$raw"
      "$CONVERT" "$raw" "${PNG_STABLE[@]}" -define png:color-type=6 -define png:bit-depth=8 "PNG32:$dest"
      "$IDENTIFY" -format '%[channels]' "$dest" | grep -q '^srgba' || die "$dest is not RGBA"
      ;;
    bmp24)
      [[ $out == bitmaps/*.bmp ]] || die "$out: bitmaps belong in bitmaps/"
      svg_to_png "$SRCDIR/$src" "$raw"
      "$CONVERT" "$raw" -background "$DIALOG_FACE" -alpha remove -alpha off \
        -type TrueColor -compress None "BMP3:$dest"
      check_bmp "$dest" 24
      rc_lines+=("$name BITMAP \"$out\"")
      ;;
    bmp8-magenta)
      [[ $out == bitmaps/*.bmp ]] || die "$out: bitmaps belong in bitmaps/"
      svg_to_png "$SRCDIR/$src" "$raw"
      # Hard edges: a half-transparent pixel blended with magenta would show
      # as a pink fringe once the magenta is keyed out. The fixed palette
      # keeps the file at 8 bits however few colours the drawing has.
      "$CONVERT" "$raw" -channel A -threshold 50% +channel \
        -background "$MAGENTA" -alpha remove -alpha off \
        +dither -remap "$PALETTE8" -type Palette -compress None "BMP3:$dest"
      check_bmp "$dest" 8
      [ "$("$CONVERT" "$dest" -format '%[hex:p{0,0}]' info:)" = FF00FF ] \
        || die "$dest: background is not exactly magenta"
      rc_lines+=("$name BITMAP \"$out\"")
      ;;
    ico)
      [[ $out == icons/*.ico ]] || die "$out: icons belong in icons/"
      svg_to_png "$SRCDIR/$src" "$raw"
      [ "$("$IDENTIFY" -format '%w' "$raw")" = "$("$IDENTIFY" -format '%h' "$raw")" ] \
        || die "$src: an icon drawing must be square"
      frames=()
      for s in ${size//,/ }; do
        svg_to_png "$SRCDIR/$src" "$WORK/$name.$s.png" "$s"
        frames+=("PNG32:$WORK/$name.$s.png")
      done
      "$CONVERT" "${frames[@]}" -strip "ICO:$dest"
      rc_lines+=("$name ICON \"$out\"")
      ;;
    *) die "$out: unknown format '$fmt'" ;;
  esac
  [ -s "$dest" ] || die "$dest was not written"
  check_size "$dest" "$size"
  sheet+=("$dest")
  count=$((count + 1))
done <"$MANIFEST"
[ "$count" -gt 0 ] || die "manifest lists no pictures"

{
  echo "// Generated by scripts/render-pictures.sh from resources/pictures/manifest.txt."
  printf '%s\n' "${rc_lines[@]}"
} >"$OUTDIR/pictures.rc"

# Contact sheet: small pictures enlarged with whole factors (hard pixels, so
# what is seen is what the module shows), transparent ones on a checkerboard.
cells=()
i=0
for f in "${sheet[@]}"; do
  i=$((i + 1))
  frame=$f
  [[ $f == *.ico ]] && frame="$f[2]"
  read -r w h < <("$IDENTIFY" -format '%w %h\n' "$frame")
  big=$(( w > h ? w : h ))
  factor=$(( 160 / big )); (( factor < 1 )) && factor=1; (( factor > 4 )) && factor=4
  cell=$WORK/cell$(printf %03d $i).png
  "$CONVERT" -size "$((w * factor))x$((h * factor))" pattern:checkerboard -fill white -colorize 75% \
    \( "$frame" -filter point -resize "$((factor * 100))%" \) -compose over -composite \
    -bordercolor '#808080' -border 1 "$cell"
  cells+=(-label "$(basename "$f")\n${w}x${h}" "$cell")
done
"$MONTAGE" -font DejaVu-Sans -pointsize 10 -background white -tile 6x -geometry '320x230>+6+6' \
  "${cells[@]}" "${PNG_STABLE[@]}" "$OUTDIR/contact-sheet.png" || die "montage failed"

echo "render-pictures: $count pictures in $OUTDIR"
