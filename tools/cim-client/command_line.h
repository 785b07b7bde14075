// The command line: what may be typed, and what was.
#pragma once

namespace cli {

// Reads the command line and runs the command that it names. Returns the exit status; every
// failure has then been said on standard error.
int run(int argc, const char* const* argv);

}  // namespace cli
