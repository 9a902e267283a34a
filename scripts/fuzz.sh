#!/usr/bin/env bash
# Usage: fuzz.sh [SECONDS [TARGET...]]. Builds the libFuzzer targets (tests/native/fuzz) with clang
# in build/fuzz and runs each in turn (or the TARGETs) for SECONDS (default 60), niced, on a
# scratch copy of its seed corpus. Prints per target the executions, coverage, libFuzzer's corpus
# (inputs/size) and crashes; a crash's input stays in build/fuzz/runs/TARGET/findings/. Exit
# status 1 when any target crashed.
set -euo pipefail
source "$(dirname "$0")/env.sh"
seconds=${1:-60}
only=" ${*:2} "
jobs=${KSTR_JOBS:-$(nproc)}

bash "$(dirname "$0")/install-deps.sh" clang-14 libclang-rt-14-dev cmake make libgtest-dev nlohmann-json3-dev

build=$KSTR_BUILD/fuzz
cmake -S "$KSTR_ROOT" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKSTR_SANITIZE=ON \
  -DCMAKE_C_COMPILER=clang-14 -DCMAKE_CXX_COMPILER=clang++-14 >/dev/null
nice -n 10 cmake --build "$build" -j "$jobs" --target fuzzers >/dev/null

status=0
printf '%-16s %12s %8s %8s %12s %8s\n' target executions cov ft corpus crashes
while IFS=$'\t' read -r name binary corpus; do
  [ "$only" = "  " ] || [[ $only == *" $name "* ]] || continue
  run=$build/runs/$name
  rm -rf "$run"
  mkdir -p "$run/corpus" "$run/findings"
  for dir in $corpus; do
    # Seeds of several folders may share a name: prefix each with its folder's.
    for seed in "$dir"/*; do cp "$seed" "$run/corpus/$(basename "$dir")-$(basename "$seed")"; done
  done
  nice -n 10 "$binary" -max_total_time="$seconds" -timeout=10 -print_final_stats=1 \
    -artifact_prefix="$run/findings/" "$run/corpus" </dev/null >"$run/log" 2>&1 || true
  executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$run/log")
  last=$(grep -E '^#[0-9]+' "$run/log" | tail -n 1)
  cov=$(sed -n 's/.* cov: \([0-9]*\).*/\1/p' <<<"$last")
  ft=$(sed -n 's/.* ft: \([0-9]*\).*/\1/p' <<<"$last")
  corp=$(sed -n 's/.* corp: \([0-9]*\/[0-9]*[a-zA-Z]*\).*/\1/p' <<<"$last")
  crashes=$(find "$run/findings" -type f | wc -l)
  printf '%-16s %12s %8s %8s %12s %8s\n' "$name" "${executions:-?}" "${cov:-?}" "${ft:-?}" \
    "${corp:-?}" "$crashes"
  if [ "$crashes" -gt 0 ]; then
    status=1
    find "$run/findings" -type f -printf '  %p\n'
    grep -m 3 -E 'ERROR|broken promise|runtime error|uncaught|deadly' "$run/log" | sed 's/^/  /'
  fi
done <"$build/fuzz-targets.tsv"
exit $status
