// A state machine without a table: a state is a handler, which gets events and the messages of entry and
// exit. A machine has no lock and no thread: its events come from one thread at a time. Users put the machine
// at the start of a record of their own and keep the states beside it. Life: fsm_ctor, fsm_state_ctor for
// each state, fsm_start, then fsm_evt for ever.
#pragma once

// Codes of the framework's own messages; a user's events have positive codes.
constexpr int FSM_MSG_ENTRY = -2;
constexpr int FSM_MSG_EXIT = -3;

// An event, at the start of whatever a user sends along.
struct fsm_event {
    int code;
};

struct fsm;

// Gives 0 when the event was handled, so that a transition that it asked for may go ahead.
using fsm_hnd = int (*)(fsm* p_me, const fsm_event* p_evt);

struct fsm_state {
    fsm_hnd hnd;
    const char* name;
};

struct fsm {
    const char* name;
    const fsm_state* p_state; // current
    const fsm_state* p_next;  // to be entered, NULL if none
};

// Entry of the interface tier; nothing to do.
void fsm_init();

// The names are kept as pointers.
void fsm_ctor(fsm* p_me, const char* name);
void fsm_state_ctor(fsm_state* p_state, const char* name, fsm_hnd hnd);

// Makes `p_state` current and sends it the entry message.
void fsm_start(fsm* p_me, const fsm_state* p_state);

// Sends one event to the current state. When the handler gives 0 and has asked for a transition, the next
// state gets its entry message and then becomes the current one. What an entry handler asks for waits for the
// next event that is handled.
void fsm_evt(fsm* p_me, const fsm_event* p_evt);

int fsm_evt_get(const fsm_event* p_evt);
const fsm_state* fsm_state_curr(const fsm* p_me);

// Called by a handler: sends the exit message to the current state and notes the next. No transition may be
// pending. fsm_state_init does the same without the exit message.
void fsm_state_tran(fsm* p_me, const fsm_state* p_state);
void fsm_state_init(fsm* p_me, const fsm_state* p_state);
