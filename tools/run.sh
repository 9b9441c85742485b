#!/usr/bin/env bash
# Installs what is missing, builds, and starts the player: on FILE when given,
# otherwise on the bundled demo clip.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/tools/build.sh"
if [ $# -eq 0 ]; then
    set -- "$root/build/demo.mp4"
fi
exec "$root/build/quorvel" "$@"
