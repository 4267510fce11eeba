# Shared by the scripts beside it, which source it after `set -euo pipefail`.
# shellcheck shell=bash

# The comment at the top of a script is its help, if it says how the script is used.
case " $* " in
    *" --help "* | *" -h "*)
        if grep -q '^# usage: ' "$0"; then
            sed -n '2,${/^#/!q;s/^# \{0,1\}//p}' "$0"
            exit 0
        fi
        ;;
esac

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

JOBS="${JOBS:-$(nproc)}"

say() {
    printf '%s\n' "$*"
}

fail() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# step NAME COMMAND...: runs a command under a heading and says how long it took. A failing command ends the script.
step() {
    local name="$1" begin=$SECONDS
    shift
    say "== $name"
    "$@" || fail "$name failed"
    say "== $name took $((SECONDS - begin)) s"
}

# quietly LOG COMMAND...: keeps a command's output in a file, and shows its end only when the command fails.
quietly() {
    local log="$1"
    shift
    mkdir -p "$(dirname "$log")"
    "$@" >"$log" 2>&1 || {
        tail -n 60 "$log" >&2
        fail "see $log for the whole output"
    }
}
