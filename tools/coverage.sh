#!/usr/bin/env bash
# Builds Quorvel with gcov instrumentation into a separate folder, runs the
# whole test suite there and prints line and branch coverage of src/.
#   tools/coverage.sh [ctest arguments...]
# QUORVEL_COVERAGE_BUILD overrides the build folder (build-coverage), JOBS the
# parallelism (2). The HTML report lands in the build folder's coverage/.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${QUORVEL_COVERAGE_BUILD:-$root/build-coverage}"
jobs="${JOBS:-2}"

"$root/tools/setup-debian.sh"
if ! command -v gcovr >/dev/null; then
    SUDO=""
    [ "$(id -u)" -ne 0 ] && SUDO="sudo"
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends gcovr
fi

# Each library includes its headers through a link in the build tree
# (include/<folder>/<folder> -> src/<folder>); the counters name them by
# their place in src/, so a header is one file however it was reached.
maps=""
for dir in "$root"/src/*/; do
    folder="$(basename "$dir")"
    maps+=" -fprofile-prefix-map=$build/include/$folder/$folder=$root/src/$folder"
done

# -O0 keeps every line its own; the programs started by the end-to-end tests
# write their counters too, as they are built from the same objects.
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DQUORVEL_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="--coverage$maps" -DCMAKE_C_FLAGS="--coverage" \
    -DCMAKE_EXE_LINKER_FLAGS="--coverage" -DCMAKE_SHARED_LINKER_FLAGS="--coverage" \
    -DCMAKE_MODULE_LINKER_FLAGS="--coverage" >/dev/null
# Objects of sources that were moved or deleted stay behind with their notes
# files, which gcovr cannot match to a source any more: drop them, and every
# counter of an earlier run.
ninja -C "$build" -t cleandead >/dev/null
find "$build" -name '*.gcda' -delete
find "$build" -name '*.gcno' | while read -r notes; do
    [ -e "${notes%.gcno}.o" ] || rm -f "$notes"
done
cmake --build "$build" -j"$jobs"

status=0
(cd "$build" && ctest -j"$jobs" "$@") || status=$?

mkdir -p "$build/coverage"
gcovr --root "$root" --filter "$root/src/" --exclude-unreachable-branches \
    --exclude-throw-branches --gcov-ignore-parse-errors \
    --html-details "$build/coverage/index.html" --print-summary "$build" |
    tail -n 3
exit "$status"
