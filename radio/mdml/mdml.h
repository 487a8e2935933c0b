// The modem's own log on the phone: switching it, its mask, its files. A driver does the work
// (mdml_cmd_co_attach); this board has none, so mdml_present comes before any other call. Operations give 0
// on success, and fail where the driver has no such operation.
#pragma once

struct mdml_co {
    int (*off)();
    int (*on)(const char* timestamp);
    int (*set_mask)(const char* path);
    int (*rm_log)(const char* timestamp); // null: all logs
};

void mdml_init();
void mdml_cmd_co_attach(const mdml_co* p_co);

// Whether a driver is attached.
bool mdml_present();

int mdml_off();
int mdml_on(const char* timestamp);
int mdml_set_mask(const char* path);
int mdml_rm_log(const char* timestamp);
