#!/bin/bash
# That every path of this repository which the documentation mentions exists: the targets of its links, and what stands
# in backquotes or commands and begins with one of the repository's folders. Names with capitals for "any", such as
# VERB, are left alone.
#   tests/documentation/paths.sh FILE.md...
set -euo pipefail

FOLDERS='src|simulator|script|tests|docs|samples|resources|device|bench|fuzz|cmake'

# linked FILE: the targets of its links and pictures, without those on the net and the places within a page.
linked() {
    grep -oE '\]\([^)]+\)' "$1" | sed -E 's/^\]\(//; s/\)$//; s/#.*//' | grep -vE '^(https?:|$)' || true
}

# mentioned FILE: paths in its text, {a,b} written out.
mentioned() {
    local word
    grep -oE "(^|[^A-Za-z0-9_/.-])($FOLDERS)/[][A-Za-z0-9_/.{},+*-]*[A-Za-z0-9_/}*]" "$1" |
        sed -E "s/^[^A-Za-z]//" | sort -u | while IFS= read -r word; do
        [[ "$word" =~ ^[][A-Za-z0-9_/.{},+*-]+$ ]] && eval "printf '%s\n' $word"
    done
}

missing=0
checked=0
complain() {
    echo "$1: there is no $2" >&2
    missing=$((missing + 1))
}

for document in "$@"; do
    folder="$(dirname "$document")"
    while IFS= read -r target; do
        checked=$((checked + 1))
        [ -e "$folder/$target" ] || complain "$document" "$target"
    done < <(linked "$document")
    while IFS= read -r path; do
        checked=$((checked + 1))
        compgen -G "$path" >/dev/null || complain "$document" "$path"
    done < <(mentioned "$document")
done
[ "$checked" -gt 10 ] || {
    echo "only $checked paths were found in the documentation" >&2
    exit 1
}
exit $((missing > 0))
