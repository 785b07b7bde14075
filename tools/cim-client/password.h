// Where the password comes from: a file, the environment or the terminal, never the command line.
#pragma once

#include <optional>
#include <string>

#include "secret.h"
#include "target.h"

namespace cli {

// What was said about the password.
struct PasswordSource {
  std::optional<std::string> file;  // its first line is the password; "-" is standard input
  bool ask = false;                 // ask on the terminal, whatever else is there
};

// The password for `target`: asked for, else read from the file, else taken from the environment
// (CIM_CLIENT_PASSWORD, then the file that CIM_CLIENT_PASSWORD_FILE names), else, when a user is
// named, asked for on the terminal; without a user it is empty. The variable is wiped from the
// environment on the way. Throws a usage failure when none can be had.
Secret find_password(const PasswordSource& source, const Target& target);

// Reads bytes up to a line end, the end of the input or a NUL. Throws a usage failure when reading
// fails or the line is longer than a password may be.
Secret read_secret_line(int descriptor);

}  // namespace cli
