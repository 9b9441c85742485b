#!/usr/bin/env bash
# Builds Quorvel and its Debian package: build/quorvel_<version>_<arch>.deb.
# Install it with `sudo apt-get install ./build/quorvel_*.deb`, which brings
# what it needs. Arguments go to tools/build.sh (CMake options).
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
"$root/tools/build.sh" "$@"
cd "$root/build"
rm -f quorvel_*.deb
cpack -G DEB >/dev/null
ls "$root"/build/quorvel_*.deb
