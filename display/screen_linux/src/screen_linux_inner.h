// What the parts of the back end share: the selected record, its drawing, and the readers beside it.
#pragma once

#include "screen/screen.h"
#include "screen_linux/screen_linux.h"

extern screen_linux_info* p_si; // the selected slot's record; it is open, or null before the first start

// The video mode now set, -1 for none.
extern int mCurrentID;

// Puts the drawing operations that fit the layout of the selected record into `*p_co`; without a record they
// do nothing.
void draw_select(screen_callouts* p_co);

// True if two pages of the record's frame size fit its memory.
bool draw_two_pages(const screen_linux_info& info);

// Sets the video mode of this id on the selected record: 0, or -1.
int setresolution(int id);

int platform_screen_get_lcd_id(std::uint8_t mode, std::uint8_t sub_mode, char* text);
