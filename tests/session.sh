#!/bin/sh
# Runs the sessions of a document as a transcript: "hvt> " sends a line, "$ ./hvt phone DIR " asks the control
# port, what follows is the answer. Usage: session.sh TRANSCRIPTS HVT_VIRTUAL DOCUMENT
set -eu
file=$(mktemp)
trap 'rm -f "$file"' EXIT
awk '
    function flush() {
        if (kind == "phone") print "  phone    " words " -> " answer
        kind = ""; answer = ""
    }
    /^```session/ { inside = 1; count++; print "session " count; next }
    /^```/ { if (inside) flush(); inside = 0; next }
    !inside { next }
    /^hvt> / { flush(); gsub(/\\/, "\\\\"); print "  send     " substr($0, 6); kind = "send"; next }
    /^\$ \.\/hvt phone DIR / { flush(); words = substr($0, 19); kind = "phone"; next }
    kind == "send" { print "  expect   " $0; next }
    { answer = answer (answer == "" ? "" : "\\n") $0 }
' "$3" >"$file"
"$1" --phone "$2" "$file"
