# Completion for bash of hvt, installed or in a checkout (". desk/completion.bash" there): verbs and options come from
# the script's own help, words of the control port from the phone.

# A line for each verb of the help: the verb and its options.
_hvt_help() {
    "$1" help 2>/dev/null | awk '
        /^  [a-z]/ { if (verb != "") print ""; verb = $1; printf "%s", verb }
        verb == "" { next }
        {
            text = $0
            while (match(text, /[ [(]--?[a-z][a-z-]*/)) {
                option = substr(text, RSTART + 1, RLENGTH - 1)
                text = substr(text, RSTART + RLENGTH)
                if (!seen[verb, option]++)
                    printf " %s", option
            }
        }
        END { print "" }'
}

# What the word can become of lines of paths: those that pass the test, and folders to go on in.
_hvt_paths() {
    local path
    while IFS= read -r path; do
        [[ $path != */.* && $path != .* || ${word##*/} == .* ]] || continue
        if "$@" "$path"; then
            COMPREPLY+=("$(printf %q "$path")")
        elif [[ -d $path ]]; then
            COMPREPLY+=("$(printf %q "$path")/")
        fi
    done
    # A folder to go on in is no end.
    if [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == */ ]]; then
        compopt -o nospace 2>/dev/null
    fi
}

_hvt_is_phone() { [[ -e $1/hvt.pid || -e $1/phone.conf ]]; }
_hvt_is_phone_or_case() { _hvt_is_phone "$1" || _hvt_ends_in .t "$1"; }
_hvt_ends_in() { [[ -f $2 || -c $2 ]] && [[ $2 == *$1 ]]; }

_hvt_folders() {
    # The usual phone of this script, if it runs and nothing else is said.
    local usual
    usual=$("$program" help 2>/dev/null | sed -n '1s/.* folder, \(.*\) unless given$/\1/p')
    _hvt_paths _hvt_is_phone < <(
        compgen -d -- "$word"
        [[ -n $word || ! -e $usual/hvt.pid ]] || flock -n "$usual/hvt.pid" true || echo "$usual"
    )
}

_hvt_files() {
    _hvt_paths _hvt_ends_in "$1" < <(compgen -f -- "$word")
}

_hvt_of() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$word")
}

# The words of the control port of the phone, or what can stand behind the one that is given.
_hvt_words() {
    local place ask
    place=$(dirname "$(readlink -f "$(type -P "$program")")")
    for ask in "$place/build/release/phone/hvt-ask" "$place/../lib/hvt/phone/hvt-ask"; do
        [[ -x $ask ]] || continue
        "$ask" "$1" help 2>/dev/null | awk -v word="${2-}" '
            {
                sub(/  .*/, "")
                name = $1
                sub(/^[^ ]* */, "")
                if (word == "" || word == "help")
                    print name
                if (name != word)
                    next
                n = split($0, form, / \| /)
                for (i = 1; i <= n; i++) {
                    sub(/^[[ ]*/, "", form[i])
                    sub(/[] ].*/, "", form[i])
                    m = split(form[i], part, /[|]/)
                    for (k = 1; k <= m; k++)
                        if (part[k] ~ /^[a-z]+$/)
                            print part[k]
                }
            }'
        return
    done
}

# The word without the marks of the command line.
_hvt_bare() {
    local text=${1//\\/}
    echo "${text/#\~/$HOME}"
}

_hvt() {
    local word program dir verb=${COMP_WORDS[1]} before=${COMP_WORDS[COMP_CWORD - 1]} i
    word=$(_hvt_bare "${COMP_WORDS[COMP_CWORD]}")
    program=$(_hvt_bare "${COMP_WORDS[0]}")
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        _hvt_of "$(_hvt_help "$program" | cut -d' ' -f1)"
        return
    elif [[ $word == -* ]]; then
        # "station" has the options of "play", too.
        _hvt_of "$(_hvt_help "$program" | awk -v verb="$verb" '
            $1 == verb || (verb == "station" && $1 == "play") { $1 = ""; print }')"
        return
    fi
    case $verb:$before in
    play:--junit | play:--json | station:--junit | station:--json) _hvt_files "" ;;
    play:-[!-]* | play:--* | station:-[!-]* | station:--*) ;; # a number, or a shell line
    run:* | up:* | down:* | view:*) _hvt_folders ;;
    play:*) _hvt_files .t ;;
    record:record) _hvt_paths _hvt_is_phone_or_case < <(compgen -f -- "$word") ;;
    record:*) _hvt_files .t ;;
    station:*)
        # The port is the first word that is no option and no value of one.
        for ((i = 2; i < COMP_CWORD; i += 2)); do
            [[ ${COMP_WORDS[i]} == -* ]] || break
        done
        if ((i < COMP_CWORD)); then
            _hvt_files .t
        else
            _hvt_files ttyGS0
            mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(
                compgen -f -- "${word:-/dev/tty}" | grep -E '/tty(USB|ACM)[0-9]+$'
            )
        fi
        ;;
    phone:*)
        dir=$(_hvt_bare "${COMP_WORDS[2]}")
        case $COMP_CWORD in
        2) _hvt_folders ;;
        3) _hvt_of "$(_hvt_words "$dir")" ;;
        4) _hvt_of "$(_hvt_words "$dir" "$before")" ;;
        esac
        ;;
    help:*) ((COMP_CWORD > 2)) || _hvt_of "$(_hvt_help "$program" | cut -d' ' -f1) files environment exit examples" ;;
    esac
}
complete -F _hvt hvt
