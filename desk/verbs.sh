# What the script of a checkout and the installed one share: the verbs for who uses the phone, and their help. Both set
# before they read this file
#   script       how they are called in messages
#   version      what "version" tells
#   help_text    a function that prints the help, sections under titles in capitals
#   programs     the folder of the programs, laid out as a build's
#   default_dir  the phone's folder unless another is given; empty if there can't be one
#   private      not empty if default_dir and what leads to it are the owner's alone when they are made

export HVT_SCRIPT="$script" # for messages of the programs

say() { echo "hvt: $*" >&2; }
die() { say "$*"; exit 1; }
misused() { say "$*; \"$script help\" lists the verbs"; exit 2; }

# Ends the script with what is wrong unless the verb has from MIN to MAX arguments: MIN MAX WHAT "$@".
takes() {
    min=$1 max=$2 what=$3
    shift 3
    [ $# -ge "$min" ] && [ $# -le "$max" ] || misused "$verb takes $what"
    case ${1:-} in -*) misused "$verb takes $what, not $1" ;; esac
}

# The lines of the sections whose title begins so, without the two blanks in front of each.
help_section() {
    help_text | awk -v title="$1" '
        /^[A-Z]/ { inside = index($0, title) == 1; next }
        inside { print substr($0, 3) }'
}

usage() {
    echo "usage: $script VERB ...      [DIR] is the virtual phone's folder, ${default_dir:-none} unless given"
    echo
    text=$(help_section VERBS | sed 's/^./  &/')
    printf '%s\n' "$text"
}

# All verbs, or what the help has of a verb or under a title.
verb_help() {
    [ $# -gt 0 ] || { usage; exit; }
    text=$(help_section VERBS | awk -v wanted="$1" '/^[a-z]/ { inside = $1 == wanted } inside')
    [ -n "$text" ] || text=$(help_section "$(echo "$1" | tr 'a-z' 'A-Z')")
    [ -n "$text" ] || misused "there is no verb and no topic \"$1\""
    printf '%s\n' "$text"
}

# A phone is running in this folder.
is_up() {
    [ -e "$1/hvt.pid" ] && ! flock -n "$1/hvt.pid" true
}

verb_up() {
    "$programs/phone/hvt-virtual" --background "$1"
}

# Ends the phone of DIR; says so when there is none.
verb_down() {
    pid=$(cat "$1/hvt.pid" 2>/dev/null) || pid=
    [ -n "$pid" ] && ! flock -n "$1/hvt.pid" true || die "no phone is running in $1"
    kill "$pid" 2>/dev/null || die "process $pid of $1 can't be stopped"
    turns=0
    while ! flock -n "$1/hvt.pid" true; do
        turns=$((turns + 1))
        [ "$turns" -ne 100 ] || kill -9 "$pid" 2>/dev/null || true
        [ "$turns" -lt 120 ] || die "process $pid of $1 doesn't end"
        sleep 0.1
    done
}

verb_run() {
    if is_up "$1"; then
        "$programs/phone/hvt-station" $check --joined "$1"
        return
    fi
    verb_up "$1" || exit $?
    running=$1
    trap '(verb_down "$running") 2>/dev/null || true' EXIT
    trap : INT # the prompt's own; where there is none, it ends the station and so the script
    trap 'exit 143' TERM
    trap 'exit 129' HUP
    "$programs/phone/hvt-station" $check "$1"
}

# The port is the first word that is no option; what stands before it goes behind it.
verb_station() {
    left=$#
    while [ "$left" -gt 2 ]; do
        case $1 in -*) ;; *) break ;; esac
        option=$1 value=$2
        shift 2
        set -- "$@" "$option" "$value"
        left=$((left - 2))
    done
    port=$1
    shift
    exec "$programs/tests/transcripts" --port "$port" "$@"
}

# Until Ctrl-C, or until the phone goes off.
verb_record() {
    ask=$programs/phone/hvt-ask
    "$ask" "$1" record "$2" || exit 1
    interrupted=
    trap 'interrupted=yes' INT TERM HUP
    say "recording $1 into $2; Ctrl-C ends it"
    while [ -z "$interrupted" ] && now=$("$ask" "$1" record 2>/dev/null) && [ "$now" != off ]; do
        sleep 1 || true # which Ctrl-C ends
    done
    "$ask" "$1" record off 2>/dev/null || true
    say "$2 is written; \"$script play $2\" plays it"
}

is_user_verb() {
    case $1 in
    run | up | down | view | phone | play | record | station | help | -h | --help | version | --version) ;;
    *) return 1 ;;
    esac
}

# Ends the script unless the verb can have these arguments.
check_user_verb() {
    case $verb in
    run)
        [ "${1:-}" != --check ] || shift
        takes 0 1 "one folder at most" "$@"
        ;;
    up | down | view) takes 0 1 "one folder at most" "$@" ;;
    phone) takes 2 1000 "a folder and a request ($script phone ${default_dir:-DIR} help)" "$@" ;;
    play) [ $# -gt 0 ] || misused "play takes transcripts" ;;
    record)
        takes 1 2 "a folder, if it isn't the usual one, and a transcript" "$@"
        [ $# -eq 1 ] || shift
        case $1 in *.t) ;; *) misused "record takes a file whose name ends in .t, not $1" ;; esac
        ;;
    station) [ $# -gt 1 ] || misused "station takes a serial port and transcripts" ;;
    help | -h | --help) takes 0 1 "one verb or topic at most" "$@" ;;
    version | --version) takes 0 0 "nothing" "$@" ;;
    esac
}

# Sets dir to the phone's folder, the given one or the usual one.
find_dir() {
    dir=${1:-$default_dir}
    [ -n "$dir" ] ||
        die "neither XDG_STATE_HOME nor HOME says where a phone can live; name its folder: $script $verb DIR"
}

# The same, and makes the usual one, for who starts a phone.
make_dir() {
    find_dir "$@"
    [ -n "$private" ] && [ "$dir" = "$default_dir" ] && [ ! -d "$dir" ] || return 0
    wrong=$(umask 077 && mkdir -p "$dir" 2>&1) ||
        die "$dir can't be made (${wrong##*: }); name another folder: $script $verb DIR"
}

# Does the verb's work, with the programs there.
do_user_verb() {
    check=
    [ "$verb" != run ] || [ "${1:-}" != --check ] || { check=--check; shift; }
    case $verb in
    run | up | view) make_dir "$@" ;;
    down) find_dir "$@" ;;
    record) [ $# -eq 2 ] || { find_dir && set -- "$dir" "$1"; } ;;
    esac
    case $verb in
    run) verb_run "$dir" ;;
    up) verb_up "$dir" ;;
    down) verb_down "$dir" ;;
    view) exec "$programs/view/hvt-view" "$dir" ;;
    phone) exec "$programs/phone/hvt-ask" "$@" ;;
    play) exec "$programs/tests/transcripts" --phone "$programs/phone/hvt-virtual" "$@" ;;
    record) verb_record "$@" ;;
    station) verb_station "$@" ;;
    help | -h | --help) verb_help "$@" ;;
    version | --version) echo "hvt $version" ;;
    esac
}
