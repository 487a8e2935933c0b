// What the files of the camera's commands share.
#pragma once

#include "dcp/dcp.h"

// Life cycle and picture: f_camera_picture.cpp.
int do_caml(int id, int action, int argc, const dcp_word* argv);
int do_camv(int id, int action, int argc, const dcp_word* argv);
int do_cams(int id, int action, int argc, const dcp_word* argv);
int do_caaf(int id, int action, int argc, const dcp_word* argv);

// Image tests: f_camera_tests.cpp.
int do_camf(int id, int action, int argc, const dcp_word* argv);
int do_camb(int id, int action, int argc, const dcp_word* argv);
int do_camc(int id, int action, int argc, const dcp_word* argv);
int do_caii(int id, int action, int argc, const dcp_word* argv);
int do_camg(int id, int action, int argc, const dcp_word* argv);
int do_cama(int id, int action, int argc, const dcp_word* argv);

// The camera module itself: f_camera_module.cpp.
int do_ispd(int id, int action, int argc, const dcp_word* argv);
int do_cwbc(int id, int action, int argc, const dcp_word* argv);
int do_crom(int id, int action, int argc, const dcp_word* argv);
int do_caid(int id, int action, int argc, const dcp_word* argv);

// The end of most commands: the bare name and the status of a result of 1 or 0.
inline int f_camera_answer(int id, const char* name, int result)
{
    return dcp_answer(id, name, "", result == 1 ? DCP_OK : DCP_ERROR);
}
