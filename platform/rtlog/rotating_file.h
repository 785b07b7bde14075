// A log file that is set aside before it grows beyond a size.
#pragma once

#include <cstddef>
#include <string_view>

#include "settings.h"

namespace rtlog {

// What opening a file has come to.
enum class Opened { Yes, CannotBe, IsNoRegularFile };  // errno tells of CannotBe

// Never closed: threads may log until the process ends.  One at a time uses it.
class RotatingFile {
 public:
  // Opens the file that `settings` name.
  Opened open(const Settings& settings);

  // Appends a line.  One for which there is no room or no memory is dropped.
  void append(std::string_view line);

 private:
  Opened open_path(int flags);
  void rotate();
  char* name_of(std::size_t number) const;

  char* path_ = nullptr;
  std::size_t limit_ = 0;  // bytes
  std::size_t keep_ = 0;
  std::size_t size_ = 0;  // bytes
  int file_ = -1;
};

}  // namespace rtlog
