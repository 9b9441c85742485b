#!/usr/bin/env bash
# Builds the tests that probe files on worker threads with ThreadSanitizer
# into a separate folder and runs them there. Any data race or other thread
# report fails the run.
#   tools/tsan.sh [ctest arguments...]
# QUORVEL_TSAN_BUILD overrides the build folder (build-tsan), JOBS the
# parallelism (2). Qt, libVLC and ffmpeg are not built with the sanitizer;
# tools/tsan.supp keeps out what happens entirely inside them.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${QUORVEL_TSAN_BUILD:-$root/build-tsan}"
jobs="${JOBS:-2}"
logs="$build/tsan-reports"
# The probe (both ways of reading, many at once) and the playlist, whose
# probes run on its thread pool and come back to the event loop.
targets=(media_probe_tests playlist_model_tests)
tests='^(Probe|LibavProbe|PlaylistFixture|Playlist)\.'

# One report file per process; the run goes on after a report so that one
# run shows them all, and the process ends with a failing code.
export TSAN_OPTIONS="log_path=$logs/tsan:halt_on_error=0:exitcode=66:second_deadlock_stack=1:ignore_noninstrumented_modules=1:suppressions=$root/tools/tsan.supp"

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQUORVEL_BENCH=OFF \
    -DCMAKE_CXX_FLAGS="-fsanitize=thread -fno-omit-frame-pointer" \
    -DCMAKE_C_FLAGS="-fsanitize=thread -fno-omit-frame-pointer" \
    -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=thread" >/dev/null
rm -rf "$logs"
mkdir -p "$logs"
# Test discovery runs the test binaries during the build, already sanitized.
cmake --build "$build" --target "${targets[@]}" -j"$jobs"

status=0
(cd "$build" && ctest --output-on-failure -j"$jobs" -R "$tests" "$@") 2>&1 | tee "$logs/ctest.out" || status=$?

reports=$(find "$logs" -type f -name "tsan.*" -size +0 | sort)
if [ -n "$reports" ]; then
    echo
    echo "ThreadSanitizer reports:"
    for r in $reports; do
        echo "=== $r"
        cat "$r"
    done
    status=1
fi
if [ "$status" -eq 0 ]; then
    echo "Probe and playlist tests passed under ThreadSanitizer without reports."
fi
exit "$status"
