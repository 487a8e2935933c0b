# Makes the reference from the lines of command_tables (tree.sh) and the transcripts. Wants -v top= (the tree),
# -v out= (where commands.md and commands/ go), -v rooms= (the rooms, lowest floor first). Complains on standard
# error, each complaint with what to do, and exits 1 if there was one.

BEGIN { FS = "\t"; how = "; see \"The reference of commands\" in tests/README.md" }

{
    name = $3
    names[$1] = names[$1] " " name
    module[name] = $2; range[name] = $4; format[name] = $5; call[name] = $6; group[name] = $7
    read_transcript(name, "tests/station/" $1 "/" name ".t")
}

END {
    n = split(rooms, room, " ")
    for (i = 1; i <= n; i++)
        if (room[i] in names)
            room_page(room[i], out "/commands/" room[i] ".md")
    index_page(out "/commands.md")
    exit failed
}

function complain(text)
{
    print "reference: " text how | "cat >&2"
    failed = 1
}

function trimmed(text)
{
    gsub(/^[ \t]+|[ \t\r]+$/, "", text)
    return text
}

# text[] is what stands before the forms, forms[] the rows of the table, notes[] what stands behind them and
# shown[] the exchanges; first[] is the sentence for the index.
function read_transcript(name, path,    line, number, verb, state)
{
    number = 0
    state = "text"
    open_exchange = ""
    while ((getline line < (top "/" path)) > 0) {
        number++
        where = path ":" number
        if (line ~ /^#:/)
            state = head_line(name, state, substr(line, 3))
        else if (line ~ /^[ \t]+#:/)
            mark(name, trimmed(substr(trimmed(line), 3)))
        else if (line ~ /^[ \t]+[^ \t#]/)
            steps(name, trimmed(line))
        else if (line ~ /^[^ \t#]/ || (answered && line ~ /^[ \t]+#/))
            end_exchange(name)
    }
    end_exchange(name)
    close(top "/" path)
    if (number == 0)
        complain("the command " name " has no transcript " path ": write one")
    else
        check_entry(name, path)
}

# The steps of a line: lines or requests in a row, what is sent with its answer, a time with what it brings.
function steps(name, line,    i, n, part, at, answer)
{
    answer = ""
    if (line ~ /^(send|after) .* ->( |$)/) {
        at = index(line, " ->")
        answer = trimmed(substr(line, at + 3))
        line = substr(line, 1, at - 1)
        sub(/^after +/, "phone clock +", line)
        at = 1
    } else
        at = 0
    n = line ~ /^(send|phone) / ? split(line, part, / [|] /) : split(line, part, "\n")
    for (i = 1; i <= n; i++)
        one_step(name, i == 1 ? part[i] : substr(line, 1, index(line, " ")) part[i], at, answer)
}

function one_step(name, line, answered_here, answer,    at)
{
    if (line ~ /^send / && answered_here && match(line, / after [0-9]+$/)) {
        at = RSTART
        step(name, trimmed(substr(line, 1, at)))
        line = "phone clock +" substr(line, at + 7)
    }
    step(name, trimmed(line))
    if (answered_here)
        step(name, "expect " answer)
}

function head_line(name, state, line,    at, form)
{
    if (line ~ /^   *[^ ]/ && (state == "forms" || state == "form of two lines")) {
        forms[name] = substr(forms[name], 1, length(forms[name]) - 3) " " trimmed(line) " |\n"
        return state
    }
    line = trimmed(line)
    if ((at = index(line, " | ")) > 0) {
        form = trimmed(substr(line, 1, at))
        if (form !~ ("^" name "($|[[=?])"))
            complain(where ": the form \"" form "\" doesn't begin with " name)
        forms[name] = forms[name] "| `" form "` | " trimmed(substr(line, at + 3)) " |\n"
        return "forms"
    }
    if (state == "text")
        text[name] = text[name] (text[name] == "" ? "" : line == "" ? "\n" : "\n") line
    else
        notes[name] = notes[name] (notes[name] == "" ? "" : "\n") line
    return state == "text" ? "text" : "notes"
}

function mark(name, caption)
{
    end_exchange(name)
    open_exchange = where
    if (caption != "")
        shown[name] = shown[name] (shown[name] == "" ? "" : "```\n\n") caption "\n\n```\n"
    else if (shown[name] == "")
        shown[name] = "```\n"
    pending = ""
    sent = ""
}

# A step of an open exchange. What stands behind the last answer isn't shown, nor what the phone is only asked.
function step(name, line,    verb, rest)
{
    if (open_exchange == "")
        return
    match(line, /^[^ \t]+/)
    verb = substr(line, 1, RLENGTH)
    rest = trimmed(substr(line, RLENGTH + 1))
    if (sent == "" && verb != "send") {
        complain(open_exchange ": the mark stands before \"" verb "\": put it before the \"send\" that is to be shown")
        open_exchange = ""
    } else if (verb == "send" && sent != "") {
        end_exchange(name)
    } else if (verb == "send") {
        sent = rest
        pending = "hvt> " rest
        if (tolower(rest) !~ ("^" name "($|[=?])"))
            complain(where ": the exchange that is shown for " name " doesn't send " name)
    } else if (verb == "+") {
        if (answer_open)
            shown[name] = substr(shown[name], 1, length(shown[name]) - 1) rest "\n"
        else
            pending = pending rest
    } else if (verb == "expect" || verb == "read") {
        shown[name] = shown[name] pending (pending == "" ? "" : "\n") rest "\n"
        pending = ""
        answered = 1
    } else if (verb == "phone" && rest !~ / ->( |$)/) {
        pending = pending (pending == "" ? "" : "\n") "$ ./hvt phone DIR " rest
    }
    answer_open = verb == "expect" || verb == "read" || (verb == "+" && answer_open)
}

function end_exchange(name)
{
    if (open_exchange != "" && !answered)
        complain(open_exchange ": the exchange that is marked has no answer")
    open_exchange = ""
    sent = ""
    answered = 0
}

function check_entry(name, path,    line)
{
    if (text[name] == "" && forms[name] == "") {
        complain(path ": the command " name " has no entry: begin the file with a line \"#: What " name " does.\", " \
                 "then a line \"#: " name "=... | what it does, ranges, units\" for each form, and put a line \"#:\" " \
                 "before one or two of its \"send\" steps")
        return
    }
    if (text[name] == "")
        complain(path ": the command " name " has no sentence: begin the file with a line \"#: What " name " does.\"")
    else if (text[name] !~ /^[A-Z]/ || text[name] !~ /\.(\n|$|  *[A-Z])/)
        complain(path ": \"" text[name] "\" is no sentence")
    if (forms[name] == "")
        complain(path ": the command " name " has no form: a line \"#: " name "=... | what it does, ranges, units\"")
    if (shown[name] == "")
        complain(path ": no exchange of " name " is shown: put a line \"#:\" before a \"send\" of it")
}

# What the values of a format are, in words.
function values(format,    i, c, list, word)
{
    word["d"] = "number"; word["v"] = "number"; word["p"] = "number"; word["x"] = "hexadecimal"
    word["f"] = "fraction"; word["c"] = "character"; word["s"] = "quoted text"; word["t"] = "rest of the line"
    for (i = 1; i < length(format); i++)
        if (substr(format, i, 1) == "%")
            list = list (list == "" ? "" : ", ") word[substr(format, i + 1, 1)]
    return list == "" ? "none" : list
}

function in_order(list, sorted,    n, i, j, swap)
{
    n = split(list, sorted, " ")
    for (i = 2; i <= n; i++)
        for (j = i; j > 1 && sorted[j - 1] > sorted[j]; j--) {
            swap = sorted[j]; sorted[j] = sorted[j - 1]; sorted[j - 1] = swap
        }
    return n
}

function room_page(room, path,    n, i, name, sorted, usage)
{
    n = in_order(names[room], sorted)
    print "<!-- Made by ./hvt commands from the command tables and tests/station/" room "; don't edit it. -->" > path
    print "# Commands: " room "\n\nHow to read this: [the reference of commands](../commands.md)." > path
    for (i = 1; i <= n; i++) {
        name = sorted[i]
        usage = name (range[name] == "" ? "" : "  " range[name]) "  " call[name]
        print "\n## " name "\n\n" text[name] "\n" > path
        print "| Form | What |\n|---|---|\n" forms[name] > path
        if (notes[name] != "")
            print notes[name] "\n" > path
        print "Usage: `" usage "`; values: " values(format[name]) "; group: " group[name] "; module: `" \
              module[name] "`.\n" > path
        print shown[name] "```" > path
    }
    close(path)
}

# Its first sentence, for the index: a link within the page of a room leads there.
function first_sentence(text, page)
{
    gsub(/\n/, " ", text)
    gsub(/\]\(#/, "](" page "#", text)
    return match(text, /\.( |$)/) ? substr(text, 1, RSTART) : text
}

function index_page(path,    n, i, j, m, line, room, sorted, page)
{
    print "<!-- Made by ./hvt commands: the text from docs/make/commands_head.md, the lists from the command tables " \
          "and transcripts. -->" > path
    while ((getline line < (top "/docs/make/commands_head.md")) > 0)
        print line > path
    n = split(rooms, room, " ")
    for (i = 1; i <= n; i++) {
        page = "commands/" room[i] ".md"
        if (!(room[i] in names)) {
            if ((getline line < (top "/" room[i] "/CMakeLists.txt")) < 0)
                print "\n### " room[i] "\n\nNo commands yet." > path
            continue
        }
        print "\n### [" room[i] "](" page ")\n\n| Command | What it does |\n|---|---|" > path
        m = in_order(names[room[i]], sorted)
        for (j = 1; j <= m; j++)
            print "| [`" sorted[j] "`](" page "#" sorted[j] ") | " first_sentence(text[sorted[j]], page) " |" > path
    }
    close(path)
}
