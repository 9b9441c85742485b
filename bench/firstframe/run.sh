#!/bin/sh
# Time to the first video frame against mpv. mpv is needed only here:
# it is installed on first use, never by the project's setup script.
# Usage: bench/firstframe/run.sh [build dir] [rounds]
set -e
build=${1:-build}
command -v mpv >/dev/null || apt-get install -y --no-install-recommends mpv
cmake --build "$build" --target bench_firstframe -j2
exec "$build/bench/firstframe/bench_firstframe" "${2:-7}"
