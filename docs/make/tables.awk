# Reads the command tables of a source file ("dcp_cmd <name>[] = {" to "};"); prints a line a command, separated by
# tabs: room, module, name, range, format, call, group. Wants -v room= -v module=.

# The fields of one row into field[1..], texts without their quotes; the position behind the row.
function read_row(text, at,    c, in_text, value)
{
    fields = 0
    for (value = ""; at <= length(text); at++) {
        c = substr(text, at, 1)
        if (in_text && c == "\\") {
            value = value substr(text, ++at, 1)
        } else if (c == "\"") {
            in_text = !in_text
        } else if (in_text) {
            value = value c
        } else if (c == "," || c == "}") {
            field[++fields] = value
            value = ""
            if (c == "}")
                return at + 1
        } else if (c != " ") {
            value = value c
        }
    }
    return at
}

function read_table(text,    at, group)
{
    for (at = 1; at <= length(text);) {
        if (substr(text, at, 1) != "{") {
            at++
            continue
        }
        at = read_row(text, at + 1)
        if (fields < 6 || field[1] == "nullptr")
            continue
        group = tolower(field[6])
        gsub(/dcp_grp_/, "", group)
        gsub(/\|/, " and ", group)
        print room "\t" module "\t" field[1] "\t" field[2] "\t" field[3] "\t" field[4] "\t" group
    }
}

/dcp_cmd [a-z0-9_]*\[\] = \{$/ { inside = 1; rows = ""; next }
inside && /^};/ { inside = 0; read_table(rows) }
inside && !/^ *\/\// { rows = rows $0 " " }
