#!/bin/bash
# What script/bootstrap installs and says, with an apt of the test's own: a machine that has every package but those
# named in $FAKE/missing.
set -euo pipefail
cd "$(dirname "$0")/../.."

FAKE="$(mktemp -d)"
trap 'rm -rf "$FAKE"' EXIT
export FAKE PATH="$FAKE:$PATH"

cat >"$FAKE/dpkg-query" <<'END'
#!/bin/bash
sed -n 's/^\([a-z][^ ]*\) .*/\1/p' script/packages.txt | grep -vxFf "$FAKE/missing" | sed 's/.*/installed &, /'
END
cat >"$FAKE/apt-cache" <<'END'
#!/bin/bash
shift
for package in "$@"; do echo "  Candidate: 1"; done
END
cat >"$FAKE/apt-get" <<'END'
#!/bin/bash
if [[ " $* " == *" --print-uris "* ]]; then
    echo "The following packages will be upgraded:"
    echo "  perl-base"
    echo "The following NEW packages will be installed:"
    echo "  ${*: -1} libsome-other"
    echo "1 upgraded, 2 newly installed, 0 to remove and 5 not upgraded."
    echo "Need to get 5835 kB/14.8 MB of archives."
    echo "After this operation, 8328 kB of additional disk space will be used."
else
    echo "INSTALLING ${*: -1}"
    : >"$FAKE/missing"
fi
END
printf '#!/bin/bash\necho 0\n' >"$FAKE/id"
chmod +x "$FAKE"/*

# bootstrap MISSING OPTION...
bootstrap() {
    echo "$1" >"$FAKE/missing"
    script/bootstrap "${@:2}" </dev/null
}

# expect TEXT PATTERN: that the text matches, as a whole.
expect() {
    # shellcheck disable=SC2053 # it is a pattern
    [[ "$1" == $2 ]] || {
        printf 'expected: %s\ngot: %s\n' "$2" "$1" >&2
        exit 1
    }
}

expect "$(bootstrap none)" ""
expect "$(bootstrap cmake)" "*cmake *# build description*upgraded: perl-base*new: cmake libsome-other*1 upgraded, 2 newly \
installed*Need to get 5835 kB*8328 kB of additional disk space*INSTALLING cmake"
expect "$(bootstrap cmake --dry-run)" "*new: cmake libsome-other*additional disk space will be used."
expect "$(bootstrap doxygen)" ""
expect "$(bootstrap doxygen --docs)" "*INSTALLING doxygen"
expect "$(bootstrap git --lint)" "*INSTALLING git"
expect "$(bootstrap qemu-user)" ""
expect "$(bootstrap qemu-user --arm --dry-run)" "*new: qemu-user libsome-other*"
expect "$(bootstrap lld-19 --arm --dry-run)" "*new: lld-19 libsome-other*"
expect "$(bootstrap none --dance 2>&1 || true)" "*unknown argument: --dance*"
