// liboemcamera.so of the virtual phone: it has to be there, and nobody calls anything in it.
extern "C" {

void oemcamera_is_here() {}
}
