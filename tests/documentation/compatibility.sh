#!/bin/bash
# usage: tests/documentation/compatibility.sh FILE.md
#
# That each row of the page's tables has a place and a test, that the names of a place occur in the file behind them, and
# that the tests exist.
set -euo pipefail

page="$1"
missing=0
rows=0
complain() {
    echo "$page: $1" >&2
    missing=$((missing + 1))
}

# quoted TEXT: what stands in backquotes, one a line.
quoted() { grep -oE "[\`][^\`]+[\`]" <<<"$1" | tr -d "\`"; }

# checkPlaces TITLE CELL: "`name` and `name` in `file`, `name` in `file`".
checkPlaces() {
    local word names=() files=0
    while IFS= read -r word; do
        if [[ "$word" != */* ]]; then
            names+=("$word")
            continue
        fi
        files=$((files + 1))
        [ "${#names[@]}" -gt 0 ] || complain "$1: nothing in $word is named"
        for name in "${names[@]}"; do
            grep -qsw -- "$name" "$word" || complain "$1: there is no $name in $word"
        done
        names=()
    done < <(quoted "$2")
    if [ "$files" -eq 0 ] || [ "${#names[@]}" -gt 0 ]; then complain "$1: the place is not complete"; fi
}

# checkTests TITLE CELL
checkTests() {
    local test count=0
    while IFS= read -r test; do
        count=$((count + 1))
        grep -qrE "^TEST(_F|_P)?\(${test%.*}, ${test#*.}\)" tests || complain "$1: there is no test $test"
    done < <(quoted "$2")
    [ "$count" -gt 0 ] || complain "$1: no test is named"
}

while IFS='|' read -r _ behaviour noticed reason place tests _; do
    [[ "$behaviour" == " Behaviour "* || "$behaviour" == ---* ]] && continue
    rows=$((rows + 1))
    title="${behaviour:1:40}..."
    if [ -z "${noticed// /}" ] || [ -z "${reason// /}" ]; then complain "$title: a cell is empty"; fi
    checkPlaces "$title" "$place"
    checkTests "$title" "$tests"
done < <(grep '^|' "$page")

[ "$rows" -gt 40 ] || complain "only $rows rows were found"
exit $((missing > 0))
