#!/bin/bash
# That every script says how it is used when it is asked with --help, and at once.
#   tests/scripts/help.sh FOLDER
set -euo pipefail

checked=0
for script in "$1"/*; do
    [[ -x "$script" && ! -d "$script" ]] || continue
    name="$(basename "$script")"
    help="$(timeout 10 "$script" --help)" || {
        echo "$name --help failed" >&2
        exit 1
    }
    [[ "$help" == *"script/$name"* || "$help" == "usage: $name "* ]] || {
        echo "$name --help does not say how it is used: $help" >&2
        exit 1
    }
    [ "$(wc -l <<<"$help")" -gt 2 ] || {
        echo "$name --help says nothing but the usage" >&2
        exit 1
    }
    checked=$((checked + 1))
done
[ "$checked" -gt 10 ] || {
    echo "only $checked scripts were found in $1" >&2
    exit 1
}
