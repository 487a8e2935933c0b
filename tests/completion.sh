#!/bin/bash
# What bash offers for a line of the script, in a checkout and where it is installed.
# Usage: completion.sh BUILD_FOLDER
set -u
build=$1
top=$(cd "$(dirname "$0")/.." && pwd)
dir=$(mktemp -d)
trap 'kill "$(cat "$dir/phone/hvt.pid" 2>/dev/null)" 2>/dev/null; sleep 0.3; rm -rf "$dir"' EXIT
failed=0

# A checkout as the completion finds it: the script, whose usual phone is the one here, and below it the build.
mkdir -p "$dir/build" "$dir/my phone" "$dir/cases/inner"
cat >"$dir/hvt" <<HVT
#!/bin/sh
"$top/hvt" "\$@" | sed '1s|folder, .* unless given|folder, $dir/phone unless given|'
HVT
chmod +x "$dir/hvt"
ln -s "$build" "$dir/build/release"
touch "$dir/my phone/phone.conf" "$dir/cases/one.t" "$dir/cases/two.t" "$dir/cases/other.txt"
cd "$dir" || exit 1
"$build/phone/hvt-virtual" --background phone || exit 1
. "$top/desk/completion.bash"

# offers WANTED WORD...: the last of the words becomes one of the wanted ones, which are sorted.
offers() {
    local wanted=$1
    shift
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    COMPREPLY=()
    _hvt
    local told
    told=$(printf '%s\n' "${COMPREPLY[@]}" | sort | tr '\n' ' ')
    [[ ${told% } == "$wanted" ]] && return
    echo "$*: \"${told% }\" instead of \"$wanted\""
    failed=1
}

verbs=$("$top/hvt" help | grep -oE '^  [a-z-]+' | tr -d ' ' | sort | tr '\n' ' ')
offers "${verbs% }" ./hvt ""
offers "package phone play" ./hvt p
offers "record run" ./hvt r
offers "" ./hvt nosuch
offers "--check" ./hvt run -
offers "--case --json --junit --limit" ./hvt play --
offers "--case --fresh --json --junit --limit -n" ./hvt station -
offers "" ./hvt down --
offers "$dir/phone build/ cases/ my\\ phone phone" ./hvt up ""
offers "my\\ phone" ./hvt view my
offers "my\\ phone" ./hvt view 'my\ p'
offers "cases/inner/ cases/one.t cases/two.t" ./hvt play cases/
offers "build/ cases/ my\\ phone phone" ./hvt record ""
offers "cases/inner/ cases/one.t cases/two.t" ./hvt record cases/
offers "cases/one.t" ./hvt record phone cases/o
offers "phone/" ./hvt record phone p
offers "" ./hvt play -n ""
offers "cases/inner/ cases/one.t cases/other.txt cases/two.t" ./hvt play --json cases/
offers "phone/ttyGS0" ./hvt station --limit 500 phone/tty
offers "cases/one.t" ./hvt station --limit 500 phone/ttyGS0 cases/on
offers "fail files from" ./hvt phone phone f
offers "off on" ./hvt phone phone usb ""
offers "battery broadcast" ./hvt phone phone help b
offers "" ./hvt phone nosuch ""
offers "environment examples exit" ./hvt help e
# All words that the phone tells are offered.
words=$("$build/phone/hvt-ask" phone help | sed 's/ .*//' | sort | tr '\n' ' ')
offers "${words% }" ./hvt phone phone ""

# bash finds it for a script that is called by a path, too.
[[ $(complete -p hvt) == "complete -F _hvt hvt" ]] || { echo "bash isn't told: $(complete -p hvt)"; failed=1; }
exit $failed
