#!/usr/bin/env bash
# Formats the C++ sources with the repository's .clang-format.
#   tools/format.sh          rewrites the files in place
#   tools/format.sh --check  changes nothing; lists the differences and fails if there are any
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$root"
formatter="$(command -v clang-format-14 || command -v clang-format || true)"
if [ -z "$formatter" ]; then
    echo "format.sh: clang-format is not installed (apt-get install clang-format)" >&2
    exit 2
fi
mapfile -t files < <(git ls-files -- src tests bench tools packaging | grep -E '\.(cpp|cc|c|h|hpp)$')
case "${1:-}" in
    "") "$formatter" -i "${files[@]}" ;;
    --check) "$formatter" --dry-run -Werror "${files[@]}" ;;
    *) echo "usage: tools/format.sh [--check]" >&2; exit 2 ;;
esac
