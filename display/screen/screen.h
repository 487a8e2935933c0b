// The one drawing interface: lines, boxes, ellipses, text and pictures on the active screen. It keeps no
// picture of its own; a back end does the drawing and owns the memory. Nothing drawn is visible before
// screen_invalidate. With no active screen every drawing operation does nothing. Coordinates are pixels from
// the top left, colours 0xRRGGBB (bits above are ignored). Calls aren't serialised: one side draws at a time,
// and holds screen_drawing where another thread may show what there is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>

constexpr std::uint32_t SCREEN_NONE = 4; // screen_get_active: no screen is active

// Room that screen_get_lcdid needs for its text.
constexpr std::size_t SCREEN_LCDID_SIZE = 256;

constexpr int SCREEN_CONTROL_BLANK = 0;
constexpr int SCREEN_CONTROL_UNBLANK = 1;
constexpr int SCREEN_CONTROL_MODE = 2; // value: the id of a video mode

// Rows of colours to draw a box with: row j of the box is row j / repeat % count of these, each colour OR-ed
// with the tint of row j.
struct screen_row_set {
    const std::uint32_t* p_colours; // of the first row
    std::uint32_t pitch = 0;        // words from one row to the next; rows may overlap
    std::uint32_t count = 1;
    std::uint32_t repeat = 1;
    const std::uint32_t* p_tints = nullptr; // one for each row of the box; null for none
};

// What a back end offers. hline and vline may be missing, and so may the operations on many pixels behind the
// thirteen: the core then does the same with what is there. Those get clipped, non-empty areas only.
struct screen_callouts {
    int (*start)(std::uint32_t slot);
    void (*set_active)(std::uint32_t slot, std::uint32_t value);
    int (*invalidate)();
    std::uint32_t (*width)();
    std::uint32_t (*height)();
    void (*put_pixel)(std::uint32_t x, std::uint32_t y, std::uint32_t colour);
    void (*hline)(std::uint32_t x0, std::uint32_t x1, std::uint32_t y, std::uint32_t colour);
    void (*vline)(std::uint32_t y0, std::uint32_t y1, std::uint32_t x, std::uint32_t colour);
    void (*clear)(std::uint32_t colour);
    int (*measure_vsync)(std::uint32_t* p_result);
    int (*control)(int op, int value);
    std::uint32_t (*active_framebuffer)();
    int (*get_lcd_id)(std::uint8_t mode, std::uint8_t sub_mode, char* text);

    // A box of one colour.
    void (*fill)(std::uint32_t x, std::uint32_t y, std::uint32_t w, std::uint32_t h, std::uint32_t colour);
    void (*rows)(std::uint32_t x, std::uint32_t y, std::uint32_t w, std::uint32_t h,
                 const screen_row_set& rows);
    // Where bit i % 8 of byte i / 8 is set, column i takes the colour, in `h` rows. The bytes go on to a
    // multiple of 8 of them.
    void (*mask)(std::uint32_t x, std::uint32_t y, std::uint32_t w, std::uint32_t h,
                 const std::uint8_t* p_bits, std::uint32_t colour);
    // One row of `w` pixels, each the bytes blue, green, red.
    void (*bgr)(std::uint32_t x, std::uint32_t y, std::uint32_t w, const std::uint8_t* p_bgr);
};

// Held by who draws, until the drawing is shown. Who shows a picture of its own over what others draw, on a
// thread of its own, tries it, and leaves it to them when they have it.
extern std::recursive_mutex screen_drawing;

void screen_init();

// Copies the table. A mandatory operation that is missing stops the process when it is first used.
void screen_register_platform_co(const screen_callouts* p_co);

// Starts screen `n` and makes it the active one; the start screen is drawn if `draw` isn't 0. 1, or what the
// back end gave instead, with everything as before.
int screen_start(std::uint32_t n, std::uint32_t draw);

// Leaves no screen active if `n` is; the device stays open. 1.
int screen_stop(std::uint32_t n);

std::uint32_t screen_get_active();
void screen_set_active(std::uint32_t n, std::uint32_t value);

// Shows what was drawn: 1, or 0.
int screen_invalidate();

// SCREEN_CONTROL_...: the back end's result, 0 for done; -1 if no screen is active.
int screen_control(int op, int value);

std::uint32_t screen_width(); // 0 if no screen is active, as for the next three
std::uint32_t screen_height();
std::uint32_t screen_char_width();
std::uint32_t screen_char_height();

void screen_put_pixel(std::uint32_t x, std::uint32_t y, std::uint32_t colour);
void screen_clear(std::uint32_t colour);

// A line with both ends; ends outside the screen are moved to its edge.
void screen_line(std::uint32_t x0, std::uint32_t y0, std::uint32_t x1, std::uint32_t y1,
                 std::uint32_t colour);

// A border one pixel wide, and what is inside it in `fill` if `filled` isn't 0. Made of lines, so it is
// moved in at the edge like them.
void screen_rectangle(std::uint32_t x, std::uint32_t y, std::uint32_t w, std::uint32_t h,
                      std::uint32_t border, std::uint32_t fill, int filled);

// A filled ellipse; without `filled` nothing.
void screen_ellipse(std::uint32_t cx, std::uint32_t cy, std::uint32_t w, std::uint32_t h,
                    std::uint32_t colour, int filled);

// Text from (x, y) to the right, without a background and without wrapping. A character that begins right of
// the screen or ends below it is left out.
void screen_print(const char* text, std::uint32_t x, std::uint32_t y, std::uint32_t colour);

// A box of given rows of colours, clipped like single pixels.
void screen_rows(std::uint32_t x, std::uint32_t y, std::uint32_t w, std::uint32_t h,
                 const screen_row_set& rows);

// Draws a BMP file in the top left corner: 1, or 0 with the picture unchanged.
int screen_load_image(const char* path);

// The VSYNC period as the panel measures it: 1, or 0.
int screen_measure_vsync(std::uint32_t* p_result);

// The panel's identity as text in `text` (SCREEN_LCDID_SIZE bytes): 1, or 0. Needs no active screen.
int screen_get_lcdid(std::uint8_t mode, std::uint8_t sub_mode, char* text);

std::uint32_t screen_get_active_framebuffer();

// Draws the start screen and shows it.
void screen_draw_startscreen();
