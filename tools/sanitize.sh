#!/usr/bin/env bash
# Builds Quorvel with AddressSanitizer and UndefinedBehaviorSanitizer into a
# separate folder and runs the whole test suite there. Any sanitizer report,
# from a test binary or from a program a test starts, fails the run.
#   tools/sanitize.sh [ctest arguments...]
# QUORVEL_SANITIZE_BUILD overrides the build folder (build-sanitize), JOBS the
# parallelism (2).
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${QUORVEL_SANITIZE_BUILD:-$root/build-sanitize}"
jobs="${JOBS:-2}"
logs="$build/sanitizer-reports"

# Reports go to one file per process, so that those of programs started by
# tests (whose output nobody reads) are seen too. Memory errors and undefined
# behaviour abort the process at once. Leaks are found at exit without
# changing the exit code (the end-to-end tests check it) and are judged below
# from the report files.
export ASAN_OPTIONS="log_path=$logs/asan:halt_on_error=1:abort_on_error=1:detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1"
export UBSAN_OPTIONS="log_path=$logs/ubsan:halt_on_error=1:abort_on_error=1:print_stacktrace=1"
export LSAN_OPTIONS="suppressions=$root/tools/sanitize-lsan.supp:print_suppressions=0:exitcode=0"

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQUORVEL_SANITIZE=ON -DQUORVEL_BENCH=OFF >/dev/null
rm -rf "$logs"
mkdir -p "$logs"
# Test discovery runs the test binaries during the build, already sanitized.
cmake --build "$build" -j"$jobs"

status=0
(cd "$build" && ctest --output-on-failure -j"$jobs" "$@") 2>&1 | tee "$logs/ctest.out" || status=$?

# UBSan writes to the test's output when it runs inside ASan's runtime.
if grep -q -E "runtime error:|Sanitizer" "$logs/ctest.out"; then
    echo
    echo "Sanitizer reports in the test output:"
    grep -n -E "runtime error:|Sanitizer" "$logs/ctest.out"
    status=1
fi
# A leak counts unless every frame above the allocator lies in code that was
# unloaded before the check: libVLC drops its plugins at release, and nothing
# of Quorvel's own is ever unloaded. Leaks with frames in system libraries
# are kept out by sanitize-lsan.supp.
counted="$logs/counted.txt"
: >"$counted"
for r in $(find "$logs" -type f \( -name "asan.*" -o -name "ubsan.*" \) -size +0 | sort); do
    awk -v file="$r" '
        function flush() {
            if (block != "" && (!isleak || known)) { print "=== " file; print block; found = 1 }
            block = ""; isleak = 0; known = 0
        }
        /ERROR: LeakSanitizer/ { flush(); next }
        /^(Direct|Indirect) leak of/ { flush(); isleak = 1; block = $0; next }
        /ERROR: |runtime error:/ { flush(); block = $0; next }
        /^SUMMARY: / { if (!isleak) block = block "\n" $0; next }
        block != "" {
            block = block "\n" $0
            if (isleak && $1 ~ /^#[1-9]/ && $0 !~ /<unknown module>/) known = 1
        }
        END { flush() }
    ' "$r" >>"$counted"
done
if [ -s "$counted" ]; then
    echo
    echo "Sanitizer reports:"
    cat "$counted"
    status=1
fi
if [ "$status" -eq 0 ]; then
    echo "Sanitized suite passed without reports."
fi
exit "$status"
