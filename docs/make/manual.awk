# Makes a manual page from a text of sections. A title is in capitals in column 0. Below it are, indented by two blanks,
#   a paragraph of lines;
#   an item: what it is called and, behind two blanks or more or on lines indented by 22, what it is;
# and, indented by six, lines as they are typed. Wants -v version= -v date=.

# A text so that it is shown as it is.
function plain(text)
{
    gsub(/\\/, "\\e", text)
    gsub(/-/, "\\-", text)
    gsub(/'/, "\\(aq", text)
    if (text ~ /^[.]/)
        text = "\\&" text
    return text
}

# A word of a synopsis: in italics what stands for something else, in bold what is typed.
function typed(text,    out, part, was)
{
    while (match(text, /[A-Z][A-Z_]*|[^][ .A-Z]+/)) {
        was = substr(text, 1, RSTART - 1)
        part = substr(text, RSTART, RLENGTH)
        text = substr(text, RSTART + RLENGTH)
        out = out plain(was) (part ~ /^[A-Z]/ ? "\\fI" : "\\fB") plain(part) "\\fR"
    }
    return out plain(text)
}

# Prose, its options in bold; hyphens of words stay hyphens.
function prose(text,    out, at)
{
    gsub(/\\/, "\\e", text)
    while (match(text, /(^|[ (])--?[a-z][a-z-]*/)) {
        at = RSTART + (substr(text, RSTART, 1) != "-")
        out = out substr(text, 1, at - 1) "\\fB" plain(substr(text, at, RSTART + RLENGTH - at)) "\\fR"
        text = substr(text, RSTART + RLENGTH)
    }
    text = out text
    if (text ~ /^[.']/)
        text = "\\&" text
    return text
}

# Ends lines that are shown as typed.
function end_literal()
{
    if (literal)
        print ".fi\n.RE"
    literal = 0
}

# One line of a section, without its two blanks; an item's body is indented by twenty more.
function show(text, next_line,    item, gap)
{
    if (section == "NAME") {
        sub(/ - /, " \\- ", text)
        print text
    } else if (section == "SYNOPSIS") {
        print typed(text)
    } else if (text ~ /^                    /) {
        sub(/^ */, "", text)
        print prose(text)
    } else if (text ~ /^    /) {
        if (!literal)
            print (first ? "" : ".PP\n") ".RS 4\n.nf"
        else if (gap_before)
            print ""
        literal = 1
        print plain(substr(text, 5))
    } else {
        end_literal()
        gap = match(text, /   *[^ ]/)
        if (gap || next_line ~ /^                      /) {
            item = gap ? substr(text, 1, RSTART - 1) : text
            text = gap ? substr(text, RSTART + RLENGTH - 1) : ""
            print ".TP\n" (section == "VERBS" ? typed(item) : "\\fB" plain(item) "\\fR")
            if (gap)
                print prose(text)
        } else {
            if (gap_before && !first)
                print ".PP"
            print prose(text)
        }
    }
    first = gap_before = 0
}

{ line[NR] = $0 }
END {
    print ".TH HVT 1 \"" date "\" \"hvt " version "\" \"User Commands\""
    print ".nh\n.ad l"
    for (i = 1; i <= NR; i++) {
        if (line[i] == "") {
            gap_before = 1
        } else if (line[i] ~ /^[A-Z]/) {
            end_literal()
            section = line[i]
            first = 1
            print ".SH " section
        } else {
            show(substr(line[i], 3), line[i + 1])
        }
    }
    end_literal()
}
