#!/usr/bin/env bash
# Which lines of src/ each test alone reaches, for deciding what a test cut
# would lose. Runs every test of the coverage build by itself (so it takes
# about 20 minutes), then prints one line per test, fewest first:
#   <lines only this test reaches> <lines it reaches> <test name>
# A test with 0 in the first column is covered elsewhere line for line; its
# checks may still be its own, so read it before dropping it.
#   tools/coverage-by-test.sh [ctest -R regex]
# Needs the build folder of tools/coverage.sh (QUORVEL_COVERAGE_BUILD, by
# default build-coverage); the per-test line lists stay in its by-test/.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${QUORVEL_COVERAGE_BUILD:-$root/build-coverage}"
[ -f "$build/CTestTestfile.cmake" ] || { echo "run tools/coverage.sh first" >&2; exit 1; }
out="$build/by-test"
rm -rf "$out" && mkdir -p "$out"
cd "$build"
ctest -N ${1:+-R "$1"} | sed -n 's/^ *Test *#[0-9]*: //p' >"$out/names.txt"
n=0
while read -r name; do
    n=$((n + 1))
    find . -name '*.gcda' -delete
    ctest -R "^${name//./\\.}\$" >"$out/$n.log" 2>&1 || echo "failed: $name" >&2
    gcovr --root "$root" --filter "$root/src/" --gcov-ignore-parse-errors -j2 --json "$out/$n.json" . >/dev/null 2>&1
done <"$out/names.txt"

python3 - "$out" <<'EOF'
import collections, json, sys
out = sys.argv[1]
names = open(f"{out}/names.txt").read().split("\n")[:-1]
reached = []
for i in range(1, len(names) + 1):
    data = json.load(open(f"{out}/{i}.json"))
    reached.append({f"{f['file']}:{l['line_number']}" for f in data["files"] for l in f["lines"]
                    if l["count"] > 0 and not l.get("gcovr/noncode")})
counts = collections.Counter(line for lines in reached for line in lines)
rows = sorted((sum(counts[l] == 1 for l in lines), len(lines), name) for name, lines in zip(names, reached))
for only, total, name in rows:
    print(only, total, name)
EOF
