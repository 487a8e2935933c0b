// The widgets, as the host keeps them: userdata of the interpreter that begin with a luigi_canvas. What a
// widget holds (its parent, its children, its text, its handlers) is kept from the collector by references in
// a table of its own, so that whoever holds one widget of a tree holds the whole tree, and a tree that nobody
// holds goes as a whole. Also the stack of top canvases, `taboret`. Only the Lua thread comes here.
#pragma once

#include <cstdint>
#include <lua.hpp>

#include "luigi/luigi.h"

constexpr std::uint32_t LUIGI_TYPE_CANVAS = 1;
constexpr std::uint32_t LUIGI_TYPE_LABEL = 2;
constexpr std::uint32_t LUIGI_TYPE_BUTTON = 4;
constexpr std::uint32_t LUIGI_TYPE_CUSTOM = 8;

constexpr int LUIGI_NO_REF = LUA_NOREF; // a reference that was never made

struct luigi_canvas {
    std::uint32_t x;
    std::uint32_t y;
    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t padding;
    std::uint32_t placed; // a position or size was set
    std::uint32_t back_color;
    std::uint32_t border_color;
    std::uint32_t type; // all kinds that it is
    luigi_canvas* parent;
    luigi_canvas* first_child;
    luigi_canvas* last_child;
    luigi_canvas* next_sibling;
    void (*draw)(lua_State* L, luigi_canvas* p_me); // itself, not its children
    std::uint32_t (*get_height)(const luigi_canvas* p_me);
    int (*event)(lua_State* L, luigi_canvas* p_me, const luigi_message* p_msg); // 1: taken; null: none
};

struct luigi_label {
    luigi_canvas canvas;
    const char* text; // the Lua string behind text_ref
    std::uint32_t text_color;
    int text_ref;
};

struct luigi_button {
    luigi_label label;
    std::uint32_t text_color_pressed;
    int handler_ref;
};

struct luigi_custom {
    luigi_canvas canvas;
    int paint_ref;
    int touch_ref;
    int key_ref;
    int user_ref;
};

// A new widget of `size` bytes on top of the Lua stack, all zero but what every canvas has.
luigi_canvas* luigi_canvas_create(lua_State* L, std::size_t size, std::uint32_t type);

// The widget at `index`, which must be all of the kinds in `mask`; raises an error otherwise. The button that
// a handler was given counts as long as it exists.
luigi_canvas* luigi_checktype(lua_State* L, int index, std::uint32_t mask);

// Pushes the widget itself; it must exist.
void luigi_push(lua_State* L, const luigi_canvas* p_me);

// Keeps the value on top of the stack, which is popped, from the collector for as long as `p_me` exists: the
// reference. Fetching pushes the value.
int luigi_gc_retain(lua_State* L, const luigi_canvas* p_me);
void luigi_gc_release(lua_State* L, const luigi_canvas* p_me, int ref);
void luigi_gc_fetch(lua_State* L, const luigi_canvas* p_me, int ref);

// Where a widget is, in pixels of the panel; computed anew at each call.
std::uint32_t luigi_get_x(const luigi_canvas* p_me);
std::uint32_t luigi_get_y(const luigi_canvas* p_me);
std::uint32_t luigi_get_width(const luigi_canvas* p_me);
std::uint32_t luigi_get_height(const luigi_canvas* p_me);

std::uint32_t luigi_canvas_get_height_default(const luigi_canvas* p_me);
void luigi_canvas_draw_default(lua_State* L, luigi_canvas* p_me);

void luigi_label_init(lua_State* L, luigi_label* p_me);
void luigi_label_draw(lua_State* L, luigi_canvas* p_me);

// Where the line that `text` begins with ends: the number of its characters, or -1 when all of it fits.
int luigi_label_get_string_checkpoint(const luigi_label* p_me, const char* text);

// The libraries as globals, canvas first.
void luigi_canvas_register(lua_State* L);
void luigi_custom_register(lua_State* L);
void luigi_label_register(lua_State* L);
void luigi_button_register(lua_State* L);

// Adds the functions of `canvas` to the table on top of the stack.
extern const luaL_Reg luigi_canvas_functions[];
extern const luaL_Reg luigi_label_functions[];

// taboret: opens the library; empties the stack; passes an event to the tree on top, 1 when it was taken;
// draws that tree (white when there is none) and shows it.
int luigi_taboret_open(lua_State* L);
void luigi_taboret_init();
int luigi_pass_event(lua_State* L, const luigi_message* p_msg);
void luigi_taboret_update(lua_State* L);
