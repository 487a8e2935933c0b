#!/bin/sh
# The files of an empty command, laid into a copy of the tree, are what the compiler and the reference want; and a
# missing arrow between modules is told as what it is. Usage: new_command.sh COMPILER DOORS
set -eu
compiler=$1 doors=$2
top=$(cd "$(dirname "$0")/.." && pwd)
dir=$(mktemp -d)
trap 'rm -rf "$dir" "$dir.before"' EXIT
bad() { echo "$1"; [ ! -s "$dir/out" ] || cat "$dir/out"; exit 1; }
cd "$top"
tar -cf - --exclude=./build --exclude=./.git . | tar -xf - -C "$dir"
cd "$dir"
find . -type f ! -name out -exec cksum {} + | sort >"$dir.before"

for wrong in "command Blink" "command b" "command tenletters" "command case" "command zzempty kitchen" "command zzempty runtime"; do
    # shellcheck disable=SC2086
    docs/make/new $wrong >out 2>&1 && bad "new $wrong isn't refused"
    grep -q "^hvt: " out || bad "new $wrong says nothing"
done
find . -type f ! -name out -exec cksum {} + | sort | diff "$dir.before" - >out || bad "what is refused leaves something"

docs/make/new command zzempty display >out 2>&1 || bad "new fails"
docs/make/new command zzempty display >out 2>&1 && bad "a second one isn't refused"
mkdir doors && ln -s "$dir/display/f_zzempty" doors/f_zzempty
"$compiler" -std=c++20 -D_GNU_SOURCE -Wall -Wextra -Wshadow -Werror -fsyntax-only -Idoors -I"$doors/dcp" -I"$doors/dlnk" \
    display/f_zzempty/src/f_zzempty.cpp >out 2>&1 || bad "it doesn't compile"
grep -q '^hvt_module(f_zzempty STANDS_ON dcp)$' display/CMakeLists.txt || bad "the build list lacks it"
[ "$(grep -c 'f_zzempty' product/s_qat_korvat/src/tiers.cpp)" = 2 ] || bad "the tier lacks it"
grep '^#include "f' product/s_qat_korvat/src/tiers.cpp | LC_ALL=C sort -c 2>out || bad "its include isn't in its place"
grep -B1 '^    f_zzempty_init,$' product/s_qat_korvat/src/tiers.cpp | grep -q 't_vreg_init' || bad "its row isn't the last"
grep -q '^## zzempty$' docs/commands/display.md || bad "the reference lacks it"
grep -q '^  send     zzempty -> ZZEMPTY:,OK$' tests/station/display/zzempty.t || bad "the transcript lacks its reply"
rm out

cat >log <<END
[5/9] Building CXX object display/CMakeFiles/m_f_zzempty.dir/f_zzempty/src/f_zzempty.cpp.o
$dir/display/f_zzempty/src/f_zzempty.cpp:3:10: fatal error: light/light.h: No such file or directory
$dir/build/sanitize/doors/f_rtc/f_rtc/f_rtc.h:5:10: fatal error: rtc/rtc.h: No such file or directory
$dir/display/f_zzempty/src/f_zzempty.cpp:4:10: fatal error: lihgt/lihgt.h: No such file or directory
$dir/display/f_zzempty/src/f_zzempty.cpp:5:10: fatal error: zlib.h: No such file or directory
END
cat >wanted <<'END'
hvt: f_zzempty includes the door of light, which hvt_module(f_zzempty ...) in display/CMakeLists.txt doesn't name: it belongs behind STANDS_ON
hvt: f_rtc includes the door of rtc, which hvt_module(f_rtc ...) in board/CMakeLists.txt doesn't name: it belongs behind OPENS, since its own door includes that
hvt: there is no module "lihgt", of which f_zzempty includes a door; "./hvt map" lists all
END
docs/make/explain log | diff wanted - >out || bad "a missing arrow is told otherwise"
