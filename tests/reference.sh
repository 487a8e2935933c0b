#!/bin/sh
# Holds the reference of commands (docs/commands.md, docs/commands/) against the command tables and transcripts that
# it is made from, and the tables' rows against the help of the running program.
# Usage: reference.sh HVT_VIRTUAL HVT_STATION
set -eu
virtual=$1 station=$2
top=$(cd "$(dirname "$0")/.." && pwd)
. "$top/docs/make/tree.sh"
dir=$(mktemp -d)
trap 'kill "$(cat "$dir/phone/hvt.pid" 2>/dev/null)" 2>/dev/null || true; rm -rf "$dir"' EXIT

"$top/docs/make/commands" "$dir/docs"
for page in commands.md commands; do
    diff -ru "$top/docs/$page" "$dir/docs/$page" >"$dir/diff" || {
        head -n 40 "$dir/diff"
        echo "docs/$page isn't what the command tables and transcripts give: run ./hvt commands and commit the result"
        exit 1
    }
done

command_tables | awk -F '\t' '{ printf "%-10s%-50s%s\n", substr($3, 1, 10), substr($4, 1, 57), substr($6, 1, 32) }' |
    sort >"$dir/read"
"$virtual" --background "$dir/phone"
# Each row of the help on a line of its own.
printf 's3=a,d\ns4=0,a\nhelp="",255\n' | "$station" "$dir/phone" | grep -vE '^(TP,OK|S3:.*|S4:.*|OK)?$' | sort >"$dir/told"
diff "$dir/read" "$dir/told" || {
    echo "docs/make/tables.awk (<) doesn't read from the sources what the program's help tells (>)"
    exit 1
}
