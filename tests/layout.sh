#!/bin/sh
# What "cmake --install" lays out works in any folder, for a user who has nothing else of the tree: its verbs, their
# help and manual page, where phones live, the Python client.
# Usage: layout.sh CMAKE BUILD_FOLDER
set -eu
cmake=$1 build=$2
top=$(cd "$(dirname "$0")/.." && pwd)
dir=$(mktemp -d)
state=$dir/home/.local/state/hvt/phone
cleanup() {
    for phone in "$state" "$dir/else/hvt/phone"; do
        kill "$(cat "$phone/hvt.pid" 2>/dev/null)" 2>/dev/null || true
    done
    kill "${server:-}" 2>/dev/null || true
    sleep 0.3
    rm -rf "$dir"
}
trap cleanup EXIT
bad() { echo "$1"; [ ! -f "$dir/out" ] || cat "$dir/out"; exit 1; }
is() { [ "$2" = "$3" ] || bad "$1: \"$2\" instead of \"$3\""; }

"$cmake" --install "$build" --prefix "$dir/first" --component desk >"$dir/out" 2>&1 || bad "it can't be laid out"
mv "$dir/first" "$dir/usr"
mkdir "$dir/home"
cd "$dir/home"
export HOME="$dir/home"
unset XDG_STATE_HOME HVT_SCRIPT
PATH=$dir/usr/bin:$PATH

# Help and manual page have the verbs that it knows, and of a checkout's no others.
verbs() { grep -oE '^  [a-z][a-z-]*' | tr -d ' '; }
hvt help >"$dir/help"
"$top/hvt" help >"$dir/checkout"
verbs <"$dir/help" >"$dir/verbs"
is "the installed verbs" "$(tr '\n' ' ' <"$dir/verbs")" "run up down view phone play record station help version "
for verb in $(cat "$dir/verbs"); do
    grep -q "^\\\\fB$verb\\\\fR" "$dir/usr/share/man/man1/hvt.1" || bad "the manual page lacks $verb"
    hvt help "$verb" | head -n 1 | grep -q "^$verb\b" || bad "help lacks $verb"
    verbs <"$dir/checkout" | grep -qx "$verb" || bad "a checkout lacks $verb"
done
status=0
hvt run --nonsense >"$dir/out" 2>&1 || status=$?
is "the status of what isn't understood" $status 2
for verb in $(verbs <"$dir/checkout" | grep -vxFf "$dir/verbs"); do
    hvt "$verb" >"$dir/out" 2>&1 && bad "the installed script has $verb"
    is "what it says" "$(cat "$dir/out")" "hvt: there is no verb \"$verb\"; \"hvt help\" lists the verbs"
done
for section in NAME SYNOPSIS DESCRIPTION VERBS FILES ENVIRONMENT "EXIT STATUS" EXAMPLES "SEE ALSO"; do
    grep -qx ".SH $section" "$dir/usr/share/man/man1/hvt.1" || bad "the manual page lacks $section"
done
version=$(sed -n '1s/.*(\(.*\)).*/\1/p' "$top/debian/changelog")
is "the version" "$(hvt --version)" "hvt $version"
grep -q "^\.TH HVT 1 .* \"hvt $version\"" "$dir/usr/share/man/man1/hvt.1" || bad "the manual page has another version"

# A phone in the folder of states, and nowhere else.
is "replies" "$(printf 'case?\ns3?\n' | hvt run)" "TP,OK
CASE:false,OK
S3:0x2c, 0x0d,OK"
is "rights of what is made" "$(stat -c %a "$HOME/.local" "$state" | tr '\n' ' ')" "700 700 "
is "what lies in HOME" "$(ls -A)" .local
is "the menu scripts of a phone" "$(ls "$state/root/system/scripts")" "$(cd "$top/scripts" && ls -- *.lua)"
status=0
printf 'nosuch\n' | hvt run --check >"$dir/out" 2>&1 || status=$?
is "the status of a check" $status 1
hvt phone "$state" help >"$dir/out" 2>&1 && bad "a phone that is off is asked"
is "what it says" "$(cat "$dir/out")" "hvt: no phone is running in $state; \"hvt up $state\" starts one"

# Each file that the manual page names is there while a phone runs, but for those that somebody makes.
hvt up
hvt help files | sed -n '/^[^ ]/s/^\([^ ]*,\? \?[^ ]*\)  .*/\1/p' | sed 's/ *$//; s/, /\n/' >"$dir/files"
is "the files of the manual page" "$(wc -l <"$dir/files")" 10
for file in $(grep -vxE 'phone.conf|history|view/files/' "$dir/files"); do
    [ -e "$state/$file" ] || bad "a phone has no $file"
done

# Browser, transcripts, recording, Python.
if [ -x "$dir/usr/lib/hvt/view/hvt-view" ]; then
    : >"$dir/view"
    hvt view >"$dir/view" 2>&1 &
    server=$!
    address=
    for _ in $(seq 100); do
        address=$(sed -n 's/^The phone is at //p' "$dir/view")
        [ -z "$address" ] || break
        sleep 0.1
    done
    python3 -c 'import sys, urllib.request; sys.stdout.buffer.write(urllib.request.urlopen(sys.argv[1]).read())' \
        "$address" 2>&1 | cmp - "$top/view/page/index.html" || bad "the page isn't served"
    kill "$server"
    grep -q '("hvt down" stops it)' "$dir/view" || bad "the server names another script"
fi
cat >"$HOME/mine.t" <<'CASE'
the case
  send     case?
  expect   CASE:false,OK
CASE
hvt play mine.t >"$dir/out" 2>&1 && grep -q '^1 passed' "$dir/out" || bad "a transcript fails"
hvt station --limit 5000 --json out.json "$state/ttyGS0" mine.t >"$dir/out" 2>&1 || bad "it fails on a port"
grep -q '"result": "passed"' out.json || bad "options before the port are lost"
PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=$dir/usr/lib/python3/dist-packages python3 -c '
import hvt, sys
print(hvt.open(sys.argv[1]).ask("case?").text)' "$state/ttyGS0" >"$dir/out" 2>&1 || bad "the client can't be used"
is "what the client is told" "$(cat "$dir/out")" "CASE:false,OK"
hvt down
hvt down >"$dir/out" 2>&1 && bad "a phone that is off is stopped"

# Other folders of states, and none.
export XDG_STATE_HOME="$dir/else"
is "a folder of states that is named" "$(printf 'case?\n' | hvt run | tail -n 1)" "CASE:false,OK"
[ -d "$dir/else/hvt/phone/root" ] || bad "the phone lives elsewhere"
export XDG_STATE_HOME=relative
hvt help | head -n 1 | grep -qF "$state" || bad "a relative folder of states counts"
unset XDG_STATE_HOME
: >"$dir/file"
HOME=$dir/file hvt up >"$dir/out" 2>&1 && bad "a phone starts in a file"
is "what it says" "$(cat "$dir/out")" \
    "hvt: $dir/file/.local/state/hvt/phone can't be made (Not a directory); name another folder: hvt up DIR"
unset HOME
hvt up >"$dir/out" 2>&1 && bad "a phone starts without a home"
is "what it says" "$(cat "$dir/out")" \
    "hvt: neither XDG_STATE_HOME nor HOME says where a phone can live; name its folder: hvt up DIR"
