#!/usr/bin/env bash
# Prints which folders of src/ include which: one line per folder,
#   folder -> other(count) other(count) ...
# counting the #include "other/..." lines of the folder's files (an include
# without a folder, or of the folder itself, stays inside). Ends with status 1
# and names the folders when the graph has a cycle, so CI can run it.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
src="$root/src"

mapfile -t folders < <(find "$src" -mindepth 1 -maxdepth 1 -type d -printf '%f\n' | sort)

# "from to" once per include line that crosses folders.
edges="$(
    for from in "${folders[@]}"; do
        grep -rhoE '^[[:space:]]*#[[:space:]]*include[[:space:]]+"[^"/]+/' "$src/$from" 2>/dev/null \
            | sed -E 's/.*"([^"/]+)\/$/\1/' \
            | while read -r to; do
                [ "$to" != "$from" ] && [ -d "$src/$to" ] && echo "$from $to"
            done || true
    done
)"

for from in "${folders[@]}"; do
    line="$(awk -v f="$from" '$1 == f { n[$2]++ } END { for (t in n) printf "%s(%d)\n", t, n[t] }' <<<"$edges" | sort | tr '\n' ' ')"
    printf '%-9s -> %s\n' "$from" "${line:-(none)}"
done

# Depth-first search for a cycle over the distinct arrows.
declare -A next state
while read -r from to; do
    [ -n "$from" ] && next[$from]+="$to "
done < <(sort -u <<<"$edges")

cycle=""
visit() {
    local node=$1 path=$2 to
    state[$node]=open
    for to in ${next[$node]:-}; do
        if [ "${state[$to]:-}" = open ]; then
            local full=" $path -> $to"
            cycle="$to -> ${full#*" $to -> "}"
            return 1
        fi
        if [ -z "${state[$to]:-}" ]; then
            visit "$to" "$path -> $to" || return 1
        fi
    done
    state[$node]=done
}
for f in "${folders[@]}"; do
    if [ -z "${state[$f]:-}" ] && ! visit "$f" "$f"; then
        echo "cycle: $cycle" >&2
        exit 1
    fi
done
echo "no cycle"
