#!/usr/bin/env bash
# Builds a libFuzzer target with clang and runs it for a while.
#   tests/fuzz/run_fuzz.sh [target] [seconds] [extra libFuzzer options...]
# target: fuzz_riff (default) or another target of tests/fuzz; seconds: 300.
# Needs clang and libclang-rt-14-dev. Findings land in build-fuzz/artifacts/.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)"
target="${1:-fuzz_riff}"
seconds="${2:-300}"
shift $(( $# > 2 ? 2 : $# ))
build="${QUORVEL_FUZZ_BUILD:-$root/build-fuzz}"

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DQUORVEL_FUZZ=ON -DQUORVEL_BENCH=OFF >/dev/null
cmake --build "$build" --target "$target" -j2

corpus="$build/corpus/$target"
seeds="$build/seeds/$target"
mkdir -p "$corpus" "$seeds" "$build/artifacts"

gen() { # name, ffmpeg arguments...
    local out="$seeds/$1"; shift
    [ -s "$out" ] || ffmpeg -hide_banner -loglevel error -y "$@" "$out"
}

dict=()
case "$target" in
fuzz_riff)
    v=(-f lavfi -i testsrc2=size=16x16:rate=5:duration=0.4)
    a=(-f lavfi -i sine=sample_rate=8000:duration=0.4)
    gen ac3.avi "${v[@]}" "${a[@]}" -c:v mpeg4 -c:a ac3
    gen mp3.avi "${v[@]}" "${a[@]}" -c:v mpeg4 -c:a libmp3lame -b:a 32k
    gen mp3vbr.avi "${v[@]}" "${a[@]}" -c:v mpeg4 -c:a libmp3lame
    gen mp2.avi "${a[@]}" -c:a mp2 -f avi
    gen pcm.avi "${a[@]}" -c:a pcm_u8 -f avi
    gen late.avi "${v[@]}" -itsoffset 0.2 "${a[@]}" -c:v mpeg4 -c:a ac3
    gen two.avi "${v[@]}" "${a[@]}" -f lavfi -i sine=sample_rate=8000:duration=0.4 \
        -map 0 -map 1 -map 2 -c:v mpeg4 -c:a:0 ac3 -c:a:1 libmp3lame -b:a:1 32k
    dict=(-dict="$root/tests/fuzz/riff.dict")
    ;;
fuzz_reports)
    dict=(-dict="$root/tests/fuzz/reports.dict")
    ;;
esac
if [ -x "$root/tests/fuzz/seeds-$target.sh" ]; then
    "$root/tests/fuzz/seeds-$target.sh" "$seeds"
fi

cd "$build/artifacts"
"$build/tests/fuzz/$target" "$corpus" "$seeds" "${dict[@]}" \
    -max_total_time="$seconds" -max_len=65536 -print_final_stats=1 "$@"
