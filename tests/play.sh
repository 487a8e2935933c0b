#!/bin/sh
# A session that is recorded can be played, and what is played reports as it should.
# Usage: play.sh FOLDER_OF_THE_PHONE TRANSCRIPTS
set -eu
phone=$1 play=$2
dir=$(mktemp -d)
cleanup() {
    kill "$(cat "$dir/phone/hvt.pid" 2>/dev/null)" 2>/dev/null || true
    sleep 0.3
    rm -rf "$dir"
}
trap cleanup EXIT
bad() { echo "$1"; [ ! -f "$dir/out" ] || cat "$dir/out"; exit 1; }
cd "$dir"

# A session with a request, a refused one, a late report after a pause, and the phone's end.
mkdir phone
echo "battery 3900 -100" >phone/phone.conf
"$phone/hvt-virtual" --background phone
ask() { "$phone/hvt-ask" phone "$@"; }
ask record "my session.t"
[ "$(ask record)" = "$dir/my session.t" ] || bad "record doesn't tell its file"
printf 'batc=1\n!battery 3812 -200\nbatc=1\n!usb sideways\n!tool echo -v a | b\ndtch=1\n' | "$phone/hvt-station" phone >out 2>&1
ask clock hold
ask clock +1000
ask touch 540 960 down
ask clock +100
ask idle
ask clock run
printf 'poff\n' | "$phone/hvt-station" phone >>out 2>&1
grep -q '^  conf     battery 3900 -100$' "my session.t" || bad "$(cat my*.t)"
grep -q '^  fails    usb sideways -> on, off or off hangup is wanted$' "my session.t" || bad "$(cat my*.t)"
grep -q '^  phone    tool echo -v a \\x7C b$' "my session.t" || bad "$(cat my*.t)"
grep -q '^  expect   DTCH:540,960,540,960,OK$' "my session.t" || bad "$(cat my*.t)"
tail -n 1 "my session.t" | grep -q '^  off$' || bad "$(cat my*.t)"
"$play" --phone "$phone/hvt-virtual" -n 2 "my session.t" >out 2>&1 || bad "the recorded session fails"
grep -q '^2 passed, 0 failed, 0 skipped$' out || bad "it isn't played twice"

# A late report that comes by itself, with the pause before it.
"$phone/hvt-virtual" --background phone
ask record late.t
sleep 0.7 # before anything is said: no pause of the session
printf 'dtch=1\n' | "$phone/hvt-station" phone >out 2>&1
sleep 1.2
ask touch 10 20 down
ask idle
ask record off
grep -Eq '^  phone    clock \+1[0-9]{3}$' late.t || bad "$(cat late.t)"
grep '^  [a-z]' late.t | sed -n 2p | grep -q '^  send     dtch=1$' || bad "$(cat late.t)"
"$play" --phone "$phone/hvt-virtual" late.t >out 2>&1 || bad "the late report isn't played"

# On a port the phone is made fresh before each case, if somebody says how; one that can't be is no phone to test.
printf 'one\n  send     case? -> CASE:false,OK\ntwo\n  send     batc=1 -> BATC:3700,OK\n' >fresh.t
"$play" --port phone/ttyGS0 --fresh "$phone/hvt-ask phone battery 3700 -100; echo once >>told" fresh.t >out 2>&1 ||
    bad "a phone that is made fresh isn't as it should be"
[ "$(wc -l <told)" -eq 2 ] || bad "it isn't made fresh twice"
"$play" --port phone/ttyGS0 --fresh false fresh.t >out 2>&1 && bad "a phone that can't be made fresh passes"
grep -q "^fresh.t:1: one: the phone can't be made fresh$" out || bad "not what is wrong"

# What fails, in all forms.
cat >fails.t <<'END'
passes
  phone    clock hold | tool ->
  send     dtch=1 -> DTCH: ,OK
  phone    touch 10 20 down
  after    1000 -> DTCH:10,20,10,20,OK
waits for "more" & fails
  send     case? -> CASE:false,OK
  expect   MORE
the second of a row fails
  send     case? | case=1 | case? -> CASE:false,OK
isn't silent
  phone    clock hold
  send     dtch=1 -> DTCH: ,OK
  phone    touch 10 20 down
  silence  1000
END
printf 'no time\n  after    soon -> TP,OK\n' >wrong.t
"$play" --phone "$phone/hvt-virtual" wrong.t >out 2>&1 && bad "no time is taken for one"
grep -q '^.*wrong.t:2: after takes milliseconds, not "soon"$' out || bad "another complaint"
status=0
start=$(date +%s)
"$play" --phone "$phone/hvt-virtual" --limit 500 --junit out.xml --json out.json fails.t >out 2>&1 || status=$?
[ "$status" -eq 1 ] || bad "status $status"
[ $(($(date +%s) - start)) -lt 25 ] || bad "the limit isn't kept"
grep -q '^1 passed, 3 failed, 0 skipped$' out || bad "other counts"
grep -q "^fails.t:8: waits for \"more\" & fails: the reply isn't whole after 500 ms$" out || bad "no line and limit"
grep -q "^fails.t:15: isn't silent: the phone sent more than the steps read: DTCH:10,20,10,20,OK" out || bad "not silent"
grep -q '^fails.t:10: the second of a row fails: "case=1": the reply differs$' out || bad "not which of a row"
python3 - <<'END' || bad "the reports can't be read"
import json, xml.etree.ElementTree as tree
rows = [json.loads(line) for line in open("out.json")]
assert [(r["result"], r["line"]) for r in rows] == [("passed", 1), ("failed", 8), ("failed", 10), ("failed", 15)], rows
top = tree.parse("out.xml").getroot()
assert (top.get("tests"), top.get("failures")) == ("4", "3"), top.attrib
cases = top.find("testsuite").findall("testcase")
assert cases[1].get("name") == 'waits for "more" & fails' and "line 8" in cases[1].find("failure").get("message")
assert cases[0].find("failure") is None
END
