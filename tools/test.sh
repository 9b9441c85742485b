#!/usr/bin/env bash
# Installs what is missing, builds, and runs the whole test suite (unit and
# end-to-end; the end-to-end tests start their own Xvfb).
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
# CI (which sets CI) builds with warnings as errors; a developer's build only shows them.
if [ -n "${CI:-}" ]; then werror=ON; else werror=OFF; fi
"$root/tools/includegraph.sh"
"$root/tools/build.sh" -DQUORVEL_WERROR="$werror"
cd "$root/build"
ctest --output-on-failure -j"$(nproc)" "$@"
