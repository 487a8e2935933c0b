// The accelerometer's command, acct.
#pragma once

void f_aclmr_init();
