#include "fsm/fsm.h"

#include "check/check.h"

namespace {
constexpr fsm_event entry_msg{FSM_MSG_ENTRY};
constexpr fsm_event exit_msg{FSM_MSG_EXIT};
} // namespace

void fsm_init() {}

void fsm_ctor(fsm* p_me, const char* name)
{
    p_me->name = name;
}

void fsm_state_ctor(fsm_state* p_state, const char* name, fsm_hnd hnd)
{
    p_state->name = name;
    p_state->hnd = hnd;
}

void fsm_start(fsm* p_me, const fsm_state* p_state)
{
    p_me->p_state = p_state;
    p_me->p_next = nullptr;
    p_state->hnd(p_me, &entry_msg);
}

void fsm_evt(fsm* p_me, const fsm_event* p_evt)
{
    const int result = p_me->p_state->hnd(p_me, p_evt);
    if (result != 0 || p_me->p_next == nullptr)
        return;
    // Taken before the entry message: what the entry handler asks for is a transition of its own.
    const fsm_state* p_next = p_me->p_next;
    p_me->p_next = nullptr;
    p_next->hnd(p_me, &entry_msg);
    p_me->p_state = p_next;
}

int fsm_evt_get(const fsm_event* p_evt)
{
    return p_evt->code;
}

const fsm_state* fsm_state_curr(const fsm* p_me)
{
    return p_me->p_state;
}

void fsm_state_tran(fsm* p_me, const fsm_state* p_state)
{
    HVT_CHECK(p_me->p_next == nullptr);
    p_me->p_state->hnd(p_me, &exit_msg);
    p_me->p_next = p_state;
}

void fsm_state_init(fsm* p_me, const fsm_state* p_state)
{
    HVT_CHECK(p_me->p_next == nullptr);
    p_me->p_next = p_state;
}
