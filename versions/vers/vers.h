// The versions of the phone: of the modem, of the application system and of this program. Drivers supply the
// first two. A text stays valid until the same version is asked for again; two threads mustn't ask at a time.
#pragma once

constexpr int VERS_TYPE_MODEM = 0;
constexpr int VERS_TYPE_OS = 1;
constexpr int VERS_TYPE_QAT = 2;
constexpr int VERS_TYPE_LAST = 3;

using vers_fn = const char* (*)(void* arg);

// Empties the slots but the program's own.
void vers_init();

// The version's text; "No version info available" if no driver supplies it, null if its driver can't read it.
// `type` is below VERS_TYPE_LAST.
const char* vers_get(int type, void* arg);

// Supplies a version.
void vers_co_attach(int type, vers_fn fn);
