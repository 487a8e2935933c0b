// What the keys are called. Codes are those of the kernel's input layer.
#include "kbd/kbd.h"

#include <cstddef>

namespace {

struct kbd_name {
    int code;
    const char* name;
};

struct kbd_char {
    int code;
    char c;
};

// The first match counts.
// clang-format off
constexpr kbd_name kbd_fn_key_tab[] = {
    { 102, "O" },        { 158, "B" },         { 139, "M" },      { 115, "V" },     { 114, "W" },
    { 212, "E" },        { 528, "K" },         { 217, "S" },      { 116, "P" },     { 106, "RIGHT" },
    { 100, "ALT" },      { 310, "GL" },        { 311, "GR" },     { 105, "LEFT" },  { 106, "RIGHT" },
    {  28, "RETURN" },   {  14, "BACKSPACE" }, { 216, "SYMBOL" }, {  42, "SHIFT" }, { 179, "!" },
    { 180, "?" },        {  40, "-" },         { 215, "@" },
    {  59, "F1" },       {  60, "F2" },        {  61, "F3" },     {  62, "F4" },    {  63, "F5" },
    {  64, "F6" },       {  65, "F7" },        {  66, "F8" },     {  67, "F9" },    {  68, "F10" },
    {  87, "F11" },      {  88, "F12" },       { 183, "F13" },
    { 103, "UP" },       { 108, "DOWN" },      { 308, "A" },      { 305, "B" },     { 304, "C" },
    { 307, "D" },        { 368, "LANGUAGE" },  { 408, "HW" },     { 373, "MODE" },  {  93, "SYMBOL" },
    { 214, "QUESTION" },
};

constexpr kbd_char kbd_sc_ascii_tab[] = {
    { 30, 'a' }, { 48, 'b' }, { 46, 'c' }, { 32, 'd' }, { 18, 'e' }, { 33, 'f' }, { 34, 'g' }, { 35, 'h' },
    { 23, 'i' }, { 36, 'j' }, { 37, 'k' }, { 38, 'l' }, { 50, 'm' }, { 49, 'n' }, { 24, 'o' }, { 25, 'p' },
    { 16, 'q' }, { 19, 'r' }, { 31, 's' }, { 20, 't' }, { 22, 'u' }, { 47, 'v' }, { 17, 'w' }, { 45, 'x' },
    { 21, 'y' }, { 44, 'z' },
    { 11, '0' }, {  2, '1' }, {  3, '2' }, {  4, '3' }, {  5, '4' }, {  6, '5' }, {  7, '6' }, {  8, '7' },
    {  9, '8' }, { 10, '9' },
    { 57, ' ' }, { 43, '\\' }, { 26, '(' }, { 27, ')' }, { 51, ',' }, { 12, '-' }, { 52, '.' }, { 53, '/' },
    { 39, ';' }, { 13, '=' },
    { 32786, '#' }, { 32785, '*' }, { 32787, ':' },
};
// clang-format on
static_assert(sizeof kbd_fn_key_tab / sizeof kbd_fn_key_tab[0] == 47);
static_assert(sizeof kbd_sc_ascii_tab / sizeof kbd_sc_ascii_tab[0] == 49);

std::uint32_t kbd_ctrl;

constexpr std::uint32_t UPPER_CASE = 1;

} // namespace

void kbd_ctrl_set(std::uint32_t bits)
{
    kbd_ctrl = bits;
}

const char* kbd_sc_nm_get(int code)
{
    for (const kbd_name& row : kbd_fn_key_tab)
        if (row.code == code)
            return row.name;
    return "";
}

int kbd_cnv_to_char(int code, char* p_out)
{
    for (const kbd_char& row : kbd_sc_ascii_tab) {
        if (row.code != code)
            continue;
        const bool letter = row.c >= 'a' && row.c <= 'z';
        *p_out = letter && (kbd_ctrl & UPPER_CASE) != 0 ? static_cast<char>(row.c - 'a' + 'A') : row.c;
        return 0;
    }
    return 2;
}

int kbd_cnv_to_scancode(char c)
{
    const char wanted = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    for (const kbd_char& row : kbd_sc_ascii_tab)
        if (row.c == wanted)
            return row.code;
    return KBD_NO_CODE;
}
