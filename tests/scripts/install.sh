#!/bin/bash
# What script/install does to a phone and says of one that will not do. The phone is a folder of this machine with an
# SSH server as old as the phones (phone_server.py) and commands that stand in for the phone's.
#   tests/scripts/install.sh
set -euo pipefail
cd "$(dirname "$0")/../.."

PHONE="$(mktemp -d)"
mkfifo "$PHONE/end"
tests/scripts/phone_server.py "$PHONE" <"$PHONE/end" &
exec 9>"$PHONE/end"
trap 'exec 9>&-; wait; rm -rf "$PHONE"' EXIT

mkdir -p "$PHONE"/{bin,tmp,package/DEBIAN,Applications/CallBarScreen.app,Applications/Other.app}
printf 'bplist00\x01net.vantrel.callbarviewservice\x01' >"$PHONE/Applications/CallBarScreen.app/Info.plist"
printf 'bplist00\x01com.example.other\x01' >"$PHONE/Applications/Other.app/Info.plist"

# command NAME: one of the phone's commands, from standard input.
command_of_phone() {
    { echo '#!/bin/sh' && cat; } >"$PHONE/bin/$1"
    chmod +x "$PHONE/bin/$1"
}

model_of_phone() {
    command_of_phone uname <<<"[ \"\$1\" = -s ] && echo Darwin || echo $1"
}

# A phone that will do: each test changes what it needs to.
good_phone() {
    rm -rf "${PHONE:?}"/{bin,var,done,commands}
    mkdir -p "$PHONE/bin"
    echo "old line" >"$PHONE/tmp/ZelkaCB.log"
    model_of_phone iPhone7,2
    command_of_phone sw_vers <<<'echo 8.4.1'
    command_of_phone dpkg <<'END'
[ "$1" != -i ] || cp "$2" "$FOLDER/installed.deb"
echo "dpkg $1 ${2##*/}" >>"$FOLDER/done"
END
    command_of_phone killall <<'END'
echo "killall $1" >>"$FOLDER/done"
[ "$1" != SpringBoard ] || echo "the library is loaded" >>"$FOLDER/tmp/ZelkaCB.log"
END
}

# package NAME: a package of that name.
package() {
    printf 'Package: %s\nVersion: 1\nArchitecture: iphoneos-arm\nMaintainer: nobody\nDescription: test\n' "$1" \
        >"$PHONE/package/DEBIAN/control"
    dpkg-deb --build "$PHONE/package" "$PHONE/$1.deb" >/dev/null
}

# install ARGUMENT...: what the script says, whether it succeeds or not.
install() {
    PATIENCE="${PATIENCE:-10}" script/install "$@" 2>&1 && echo "SUCCEEDED" || echo "FAILED"
}

# to_phone ARGUMENT...: the same with the phone and the keys of this test.
to_phone() {
    install "someone@127.0.0.1" --port "$(cat "$PHONE/port")" "$@" -- -i "$PHONE/user_key" -o IdentitiesOnly=yes \
        -o "UserKnownHostsFile=$PHONE/known_hosts" -o BatchMode=yes -F none
}

# expect TEXT PATTERN: that the text matches, as a whole.
expect() {
    # shellcheck disable=SC2053 # it is a pattern
    [[ "$1" == $2 ]] || {
        printf 'expected: %s\ngot: %s\n' "$2" "$1" >&2
        exit 1
    }
}

for _ in $(seq 100); do
    [ ! -e "$PHONE/port" ] || break
    sleep 0.2
done
echo "[127.0.0.1]:$(cat "$PHONE/port") $(cat "$PHONE/host_key.pub")" >"$PHONE/known_hosts"
package com.norvex.zelkacb
package org.example.other
DEB="$PHONE/com.norvex.zelkacb.deb"

# The server is one that today's ssh refuses by itself.
expect "$(ssh -F none -p "$(cat "$PHONE/port")" -o BatchMode=yes someone@127.0.0.1 true 2>&1)" \
    "Unable to negotiate*no matching*"

good_phone
said="$(to_phone --package "$DEB")"
expect "$said" "iPhone7,2, system 8.4.1*/tmp/ZelkaCB.log:*the library is loaded*SUCCEEDED"
[[ "$said" != *"old line"* ]] || { echo "an old line of the log was printed: $said" >&2 && exit 1; }
expect "$(cat "$PHONE/done")" $'dpkg -i zelkacb.deb\nkillall CallBarScreen\nkillall SpringBoard'
cmp "$DEB" "$PHONE/installed.deb"
[ ! -e "$PHONE/tmp/zelkacb.deb" ] || { echo "the package's copy was left on the phone" >&2 && exit 1; }

good_phone
expect "$(to_phone --remove)" "iPhone7,2, system 8.4.1*SUCCEEDED"
expect "$(cat "$PHONE/done")" $'dpkg -r com.norvex.zelkacb\nkillall CallBarScreen\nkillall SpringBoard'

# A system without the command says its version in a file.
good_phone
command_of_phone sw_vers <<<'exit 127'
mkdir -p "$PHONE/System/Library/CoreServices"
printf '<key>ProductVersion</key>\n<string>7.1.2</string>\n' >"$PHONE/System/Library/CoreServices/SystemVersion.plist"
expect "$(to_phone --package "$DEB")" "iPhone7,2, system 7.1.2*SUCCEEDED"

good_phone
command_of_phone sw_vers <<<'echo 6.1.3'
expect "$(to_phone --package "$DEB")" "*has system 6.1.3; 7.0 is the first that will do*FAILED"

good_phone
model_of_phone iPhone11,8
expect "$(to_phone --package "$DEB")" "*is too new (iPhone11,8)*FAILED"

good_phone
mkdir -p "$PHONE/var/jb"
expect "$(to_phone --package "$DEB")" "*packages go below /var/jb there*FAILED"

good_phone
command_of_phone uname <<<'echo Linux'
expect "$(to_phone --package "$DEB")" "*is no phone; its system is Linux*FAILED"
[ ! -e "$PHONE/done" ] || { echo "something was done to what is no phone" >&2 && exit 1; }

good_phone
command_of_phone dpkg <<<'echo "depends on preferenceloader" >&2; exit 1'
expect "$(to_phone --package "$DEB")" "*depends on preferenceloader*dpkg refused the package*FAILED"
[ ! -e "$PHONE/done" ] || { echo "SpringBoard was restarted although nothing was installed" >&2 && exit 1; }

good_phone
command_of_phone killall <<<'exit 0'
expect "$(PATIENCE=2 to_phone --package "$DEB")" "*has logged nothing in 2 seconds; docs/phone-build.md*FAILED"

# Nothing listens there; nobody has that key.
expect "$(install someone@127.0.0.1 --port 1 --package "$DEB")" "*Connection refused*cannot be reached over SSH*FAILED"
expect "$(install "someone@127.0.0.1" --port "$(cat "$PHONE/port")" --package "$DEB" -- -F none -o IdentitiesOnly=yes \
    -o "UserKnownHostsFile=$PHONE/known_hosts" -o BatchMode=yes)" "*Permission denied*cannot be reached over SSH*FAILED"

expect "$(to_phone --package "$PHONE/none.deb")" "*none.deb: is not there; script/package makes it*FAILED"
expect "$(to_phone --package "$PHONE/org.example.other.deb")" "*is not this project's package*FAILED"
expect "$(install)" "*which phone?*FAILED"
expect "$(install 127.0.0.1 --dance)" "*unknown option: --dance*FAILED"
expect "$(install 127.0.0.1 10.0.0.1)" "*10.0.0.1: there is one phone already*FAILED"
