#!/bin/sh
# docs/phone_conf.md has every key of phone.conf. Usage: keys.sh HVT_VIRTUAL DOCUMENT
set -eu
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
echo "nonsense" >"$dir/phone.conf"
said=$("$1" "$dir" 2>&1) && { echo "a phone with a nonsense key starts"; exit 1; }
case $said in *"the keys are "*) ;; *) echo "no list of keys: $said"; exit 1 ;; esac
for key in $(printf '%s' "$said" | sed 's/.*the keys are //; s/,/ /g'); do
    grep -q "^|.*\`$key[ \`]" "$2" || { echo "$2 lacks the key $key"; lacking=1; }
done
[ -z "${lacking:-}" ]
