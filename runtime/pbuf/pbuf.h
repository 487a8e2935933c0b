// Byte-exact records by a format string, so that a wire or file format is one line ("whhwwwwhhwwwwww") and
// stands apart from this machine's alignment and byte order. One letter a field:
//   b B  one byte                         h / H  16 bits, low / high byte first
//   s S  nothing: the count for the next  w / W  32 bits, low / high byte first
//   d D  as many bytes as the s before it said; each needs its own, and 0 stops the process
#pragma once

// Writes the fields to `p_buf`: b, h and w take the value as an int or unsigned, s the count as an int, d a
// pointer to the data. The bytes written; -1 for an unknown letter, with the fields before it written.
int pbuf_pack(void* p_buf, const char* fmt, ...);

// Reads the fields from `p_buf`, which must hold them: b, h and w take a pointer to 8, 16 or 32 bits, s the
// count as an int, d a pointer to where the bytes go. The bytes read; -1 for an unknown letter.
int pbuf_unpack(const void* p_buf, const char* fmt, ...);
