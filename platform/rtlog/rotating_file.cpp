// A log file that is set aside before it grows beyond a size.
#include "rotating_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace rtlog {
namespace {

// Where the number of a file that is set aside goes: before the extension of its name.
std::size_t end_of_stem(std::string_view path) {
  const std::size_t dot = path.rfind('.');
  const std::size_t name = path.rfind('/') + 1;  // 0 without a folder
  const bool has_extension = dot != std::string_view::npos && dot > name && dot + 1 < path.size();
  return has_extension ? dot : path.size();
}

}  // namespace

Opened RotatingFile::open(const Settings& settings) {
  limit_ = settings.size;
  keep_ = settings.keep;
  path_ = ::strndup(settings.path.data(), settings.path.size());
  if (!path_) return Opened::CannotBe;
  return open_path(0);
}

// Messages hold management data: a new file is for its owner alone.  A pipe nobody reads must
// not hold the application up, so other kinds of files are not opened.
Opened RotatingFile::open_path(int flags) {
  const int mode = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | flags;
  file_ = ::open(path_, mode, 0600);
  if (file_ < 0) return Opened::CannotBe;
  struct stat status = {};
  if (::fstat(file_, &status) != 0 || !S_ISREG(status.st_mode)) {
    ::close(file_);
    file_ = -1;
    return Opened::IsNoRegularFile;
  }
  size_ = static_cast<std::size_t>(status.st_size);
  return Opened::Yes;
}

void RotatingFile::append(std::string_view line) {
  if (size_ > 0 && size_ + line.size() > limit_) rotate();
  if (file_ < 0 && open_path(0) != Opened::Yes) return;
  while (!line.empty()) {
    const ssize_t written = ::write(file_, line.data(), line.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    size_ += static_cast<std::size_t>(written);
    line.remove_prefix(static_cast<std::size_t>(written));
  }
}

// log becomes log.1, that one log.2 and so on; the last one goes.
void RotatingFile::rotate() {
  if (file_ >= 0) ::close(file_);
  file_ = -1;
  for (std::size_t number = keep_; number > 0; --number) {
    char* from = name_of(number - 1);
    char* to = name_of(number);
    if (from && to) std::rename(from, to);  // one that is not there yet stays away
    std::free(from);
    std::free(to);
  }
  open_path(O_TRUNC);
}

// The name of a file set aside; 0: that of the file itself.  Null: no memory.
char* RotatingFile::name_of(std::size_t number) const {
  if (number == 0) return ::strdup(path_);
  const std::size_t stem = end_of_stem(path_);
  const std::size_t room = std::strlen(path_) + sizeof ".100";
  char* name = static_cast<char*>(std::malloc(room));
  if (name)
    std::snprintf(name, room, "%.*s.%zu%s", static_cast<int>(stem), path_, number, path_ + stem);
  return name;
}

}  // namespace rtlog
