// Reading the password.
#include "password.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "descriptor.h"
#include "exit_status.h"
#include "prompt.h"

namespace cli {
namespace {

constexpr const char* password_variable = "CIM_CLIENT_PASSWORD";
constexpr const char* file_variable = "CIM_CLIENT_PASSWORD_FILE";

// Takes the password out of the environment, so that no program started from here inherits it
// and nobody finds it there.
std::optional<Secret> taken_from_environment() {
  char* value = std::getenv(password_variable);
  if (value == nullptr) return std::nullopt;
  Secret secret{std::string_view(value)};
  explicit_bzero(value, std::strlen(value));
  unsetenv(password_variable);
  return secret;
}

// Says so when others than the owner can read a password file.
void warn_when_readable(int descriptor, const std::string& path) {
  struct stat status = {};
  if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return;
  if ((status.st_mode & (S_IRGRP | S_IROTH)) == 0) return;
  std::cerr << "cim-client: warning: other users can read the password file " << path << "\n";
}

Secret read_file(const std::string& path) {
  if (path == "-") return read_secret_line(STDIN_FILENO);
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.is_open())
    throw usage_failure("cannot read the password file " + path + ": " + std::strerror(errno));
  warn_when_readable(file.number(), path);
  return read_secret_line(file.number());
}

Secret ask_for(const Target& target) {
  return ask_secret("Password of " + target.user + " at " + target.host + ": ");
}

}  // namespace

Secret read_secret_line(int descriptor) {
  Secret secret;
  char letter = '\0';
  while (true) {
    const ssize_t count = read(descriptor, &letter, 1);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0)
      throw usage_failure(std::string("cannot read the password: ") + std::strerror(errno));
    if (count == 0 || letter == '\n' || letter == '\0') break;
    if (!secret.append(letter))
      throw usage_failure("the password is longer than " + std::to_string(Secret::limit) +
                          " bytes");
  }
  if (secret.length() > 0 && secret.text()[secret.length() - 1] == '\r') secret.drop_last();
  return secret;
}

Secret find_password(const PasswordSource& source, const Target& target) {
  std::optional<Secret> from_environment = taken_from_environment();
  if (source.ask) return ask_for(target);
  if (source.file) return read_file(*source.file);
  if (from_environment) return std::move(*from_environment);
  const char* path = std::getenv(file_variable);
  if (path != nullptr && *path != '\0') return read_file(path);
  if (target.user.empty()) return {};
  if (!terminal_at_hand())
    throw usage_failure("no password for user " + target.user +
                        ": give it with --password-file or CIM_CLIENT_PASSWORD; there is no "
                        "terminal to ask on");
  return ask_for(target);
}

}  // namespace cli
