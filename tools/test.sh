#!/usr/bin/env bash
# Installs what is missing, builds, and runs the whole test suite (unit and
# end-to-end; the end-to-end tests start their own Xvfb).
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/tools/build.sh"
cd "$root/build"
ctest --output-on-failure -j"$(nproc)" "$@"
