"""Writes the solid test bitmaps (24-bit BMP) into the folder given as the only argument."""
import struct
import sys
from pathlib import Path

# name: (width, height, [(r, g, b) per stripe]); stripes split the width evenly.
BITMAPS = {
    "FACEU": (40, 30, [(255, 0, 0)]),
    "FACED": (40, 30, [(0, 255, 0)]),
    "FACEF": (40, 30, [(0, 0, 255)]),
    "FACEX": (40, 30, [(128, 128, 128)]),
    "HALFU": (24, 16, [(255, 255, 0)]),
    # Two 50-pixel drag images on the magenta mask colour.
    "drag": (100, 50, [(200, 0, 0), (255, 0, 255), (0, 0, 200), (255, 0, 255)]),
}


def bmp(width, height, stripes):
    row_size = (width * 3 + 3) // 4 * 4
    row = bytearray()
    for x in range(width):
        r, g, b = stripes[x * len(stripes) // width]
        row += bytes((b, g, r))
    row += bytes(row_size - len(row))
    pixels = bytes(row) * height
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels), 2835, 2835, 0, 0)
    file_header = struct.pack("<2sIHHI", b"BM", 14 + len(header) + len(pixels), 0, 0, 14 + len(header))
    return file_header + header + pixels


out = Path(sys.argv[1])
out.mkdir(parents=True, exist_ok=True)
for name, (w, h, stripes) in BITMAPS.items():
    (out / f"{name}.bmp").write_bytes(bmp(w, h, stripes))
