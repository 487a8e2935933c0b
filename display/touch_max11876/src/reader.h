// The thread that reads the controller's reports into the queue. It ends by itself when none come for 2
// seconds, or when what comes isn't a report.
#pragma once

// Starts the reader unless it runs, and waits until it listens. False when it can't.
bool reader_start();
