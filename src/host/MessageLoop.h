#pragma once
// Waiting, the one way there is: a loop that hands out the messages of this thread.

namespace host {

class Form;

/// Handles all messages that wait now; returns how many forms are visible. A WM_QUIT stays for the loop.
short DoEvents();

/// Handles messages until the last visible form is gone or the program quits; returns the exit code.
int run();

/// Shows the form and runs.
int run(Form& form);

/// Waits for one message and handles it; false when the program quits.
bool waitAndDispatch();

} // namespace host
