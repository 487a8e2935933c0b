# What the tree says of itself, for the scripts beside this one, which have set $top.

# The rooms, lowest floor first: one line a room, "<number of its floor> <room>".
rooms() {
    awk '/^hvt_floors\(/ { inside = 1; next }
         inside && match($0, /"[^"]*"/) {
             floor++
             n = split(substr($0, RSTART + 1, RLENGTH - 2), room, " ")
             for (i = 1; i <= n; i++) print floor, room[i]
         }
         inside && /\)/ { exit }' "$top/CMakeLists.txt"
}

# The commands of all tables, one line a command, separated by tabs: room, module, name, range, format, call, group.
command_tables() {
    rooms | while read -r _ room; do
        [ -d "$top/$room" ] || continue
        find "$top/$room" -name '*.cpp' -exec grep -l 'dcp_cmd [a-z0-9_]*\[\]' {} + | sort | while read -r file; do
            module=${file#"$top/$room/"}
            awk -v room="$room" -v module="${module%%/*}" -f "$top/docs/make/tables.awk" "$file"
        done
    done
}

# The first sentence of each file's opening comment, one line a file: path and sentence, separated by a tab.
first_sentences() {
    awk 'function tell() {
             if (path == "")
                 return
             if (match(text, /\.( |$)/))
                 text = substr(text, 1, RSTART)
             print path "\t" text
         }
         FNR == 1 { tell(); path = FILENAME; text = ""; over = 0 }
         !over && /^\/\/ ?/ { sub(/^\/\/ ?/, ""); text = text (text == "" ? "" : " ") $0; next }
         { over = 1 }
         END { tell() }' "$@" /dev/null
}

# The modules as the build lists name them, one line a module, separated by tabs: floor, room, module, what its door
# opens, what its inside needs besides.
modules() {
    rooms | while read -r floor room; do
        [ -f "$top/$room/CMakeLists.txt" ] || continue
        awk -v floor="$floor" -v room="$room" '
            /^hvt_module\(/ { inside = 1; text = "" }
            inside { text = text " " $0 }
            inside && /\)/ {
                inside = 0
                sub(/^ *hvt_module\(/, "", text)
                sub(/\).*/, "", text)
                n = split(text, word, " ")
                list["OPENS"] = list["STANDS_ON"] = list["LINKS"] = ""
                for (i = 2; i <= n; i++)
                    if (word[i] ~ /^(OPENS|STANDS_ON|LINKS)$/)
                        kind = word[i]
                    else
                        list[kind] = list[kind] (list[kind] == "" ? "" : " ") \
                                     (word[i] == "${all}" ? "every other module" : word[i])
                print floor "\t" room "\t" word[1] "\t" list["OPENS"] "\t" list["STANDS_ON"]
            }' "$top/$room/CMakeLists.txt"
    done
}

# What the virtual phone registers by name (word_add, conf_add, tool_add), one line a call, separated by tabs: call,
# file, line, then the texts that it names.
registered() {
    find "$top/phone" -name '*.cpp' | sort | xargs awk -v skipped=$((${#top} + 2)) '
        !inside && match($0, /(^|[^a-z_])(word|conf|tool)_add\("/) {
            inside = 1
            from = FNR
            text = ""
            match($0, /(word|conf|tool)_add\("/)
            call = substr($0, RSTART, RLENGTH - 2)
        }
        inside { text = text " " $0 }
        inside && /;/ {
            inside = 0
            out = call "\t" substr(FILENAME, skipped) "\t" from
            text = substr(text, index(text, call "("))
            while (match(text, /"([^"\\]|\\.)*"/)) {
                part = substr(text, RSTART + 1, RLENGTH - 2)
                between = substr(text, 1, RSTART - 1)
                gsub(/\\"/, "\"", part)
                out = out (between ~ /^ *$/ && out != "" ? "" : "\t") part
                text = substr(text, RSTART + RLENGTH)
            }
            print out
        }'
}
