// Text and numbers: the scanners that define what a number is at the command line, numbers and bytes as text,
// cleaning, cutting and case of strings. Plain functions without state. They don't check bounds unless they
// take a size: text and buffers are the caller's to bound.
#pragma once

#include <cstddef>
#include <cstdint>

// Digit `n` (0 to 15) as a character.
char slo_digit_lc(unsigned n);
char slo_digit_uc(unsigned n);

// A number of digits of `radix` (2 to 16) at `*pp`, which is left at the first character not used. A `-` may
// precede it; an X anywhere starts it anew in radix 16. No digit gives 0, overflow wraps in 32 bits.
std::int32_t scf_ascii_to_bin(const char** pp, unsigned radix);

// A decimal fraction at `*pp` times `scale`, cut and not rounded; `*pp` is left at the first character not
// used.
std::int32_t scf_ascii_to_fixedpoint(const char** pp, std::int32_t scale);

// Up to `count` numbers, any one character between two of them, into an array: how many were stored.
int scf_str_to_uint8(std::uint8_t* p_dst, int count, const char* text, unsigned radix);
int scf_str_to_uint16(std::uint16_t* p_dst, int count, const char* text, unsigned radix);
int scf_str_to_int32(std::int32_t* p_dst, int count, const char* text, unsigned radix);

// A number as digits of `radix` (2 to 16), lower case, with NUL: gives where the NUL is. At most 33
// characters, 34 with a sign.
char* scf_uint_to_ascii(char* p_dst, std::uint32_t value, unsigned radix);
char* scf_sint_to_ascii(char* p_dst, std::int32_t value, unsigned radix);

// `count` bytes as two upper-case hex digits each, `sep` between them unless it is 0, and NUL: the characters
// written without the NUL.
int scf_bin_to_ascii(char* p_dst, const void* p_src, int count, char sep);

// `count` bytes as two lower-case digits each, no separator. Stops, the last character written replaced by
// NUL, when less than the room for an item, its prefix and NUL is left of `size`. Characters written.
int scf_bin_to_hex(char* p_dst, int size, const void* p_src, int count);

// `count` items of `width` 1, 2, 4 or 8 bytes in this machine's byte order, each with "0x", `sep` between
// them unless it is 0. Room and result as for scf_bin_to_hex.
int scf_bin_to_hexstr(char* p_dst, int size, const void* p_src, int count, int width, char sep);

// Removes, in place, every character of `chars`, and lets byte 0x08 remove the kept character before it. The
// new length.
std::size_t scf_clean(char* str, const char* chars);

// Cuts `str` in place at each `sep` and stores pointers to the items that aren't empty, at most `max`: their
// number.
int scf_split(char* str, char** p_ptrs, int max, char sep);

// Case of ASCII letters, over `count` bytes.
void scf_case_to_upper(char* p, std::size_t count);
void scf_case_to_lower(char* p, std::size_t count);

// 16-bit characters to bytes, up to `max` or to a zero, which isn't written; bytes to 16-bit characters, up
// to `max` or to a zero, which is. The characters written.
int scf_t_to_c(char* p_dst, const std::uint16_t* p_src, int max);
int scf_c_to_t(std::uint16_t* p_dst, const char* p_src, int max);
