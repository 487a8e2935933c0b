#!/bin/sh
# Holds the map of the house and the glossary against the tree: each module has a first sentence, each part of its
# name is explained, and what the map tells of a command, a word, a module, a device and an abbreviation is where it says.
set -eu
top=$(cd "$(dirname "$0")/.." && pwd)
. "$top/docs/make/tree.sh"
failed=0
bad() { echo "$1"; failed=1; }

told=
says() {
    [ "$told" = "$1" ] || text=$("$top/docs/make/map" "$1")
    told=$1
    printf '%s\n' "$text" | grep -qF -e "$2" || bad "./hvt map $1 doesn't tell: $2"
    case $2 in */*) [ -e "$top/${2%%[:#]*}" ] || bad "./hvt map $1 names $2, which isn't there" ;; esac
}
says lctr "display/f_light/f_light.h"
says lctr "tests/station/display/lctr.t"
says lctr "docs/commands/display.md#lctr"
says lctr "phone/display/leds.h: The lamps"
says led "phone/display/leds.cpp:"
says led "N good|short|open"
says light "used by     light_linux"
says battery "tests/unit/power/battery_test.cpp"
says rtc0 "phone/board/rtc.cpp:"
says insmod "phone/runtime/insmod.cpp:"
says scf "docs/glossary.md"
"$top/docs/make/map" nosuchword >/dev/null 2>&1 && bad "./hvt map finds a word that isn't there"

bare=$("$top/docs/make/map" | awk '/^  [a-z]/ && NF < 2 { print $1 }')
[ -z "$bare" ] || bad "these modules have no sentence at the top of their door: $bare"

for module in $(modules | cut -f2,3 | tr '\t' '/'); do
    comments=$(cat "$top/$module"/*.h | awk '/^\/\// { print; next } /^#include|^$|^#pragma/ { next } { exit }' | tr 'A-Z' 'a-z')
    for part in $(basename "$module" | sed 's/^[fts]_//' | tr '_' ' '); do
        case $comments in *"$part"*) continue ;; esac
        grep -q "^| .*\`$part\`.* |" "$top/docs/glossary.md" ||
            bad "$module: the opening comment of its door doesn't have \"$part\"; explain it in docs/glossary.md: | \`$part\` | what it is |"
    done
done
exit "$failed"
