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
