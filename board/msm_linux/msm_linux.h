// The driver of msm over two debugfs files. Attaches itself; call msm.
#pragma once

void msm_linux_init();
