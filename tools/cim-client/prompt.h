// Asking for a password on the terminal.
#pragma once

#include <string>

#include "secret.h"

namespace cli {

// Whether this process has a terminal to ask on, wherever its input and output go.
bool terminal_at_hand();

// Writes `question` to the terminal and reads one line from it without showing it. The terminal
// is put back as it was, also when a signal ends the program meanwhile. Throws a failure
// (usage) when there is no terminal, the line is too long, or the input ends.
Secret ask_secret(const std::string& question);

}  // namespace cli
