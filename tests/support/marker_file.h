// The marker file "/etc/Binary.txt", which chooses the back end of a new handle.
#pragma once

#include <string>
#include <vector>

namespace support {

// While it exists, opening the marker file opens another file instead, or fails.  Only the latest
// one counts.  A program that has this file in it puts its fopen in the place of libc's.
class MarkerFile {
 public:
  // Opens `path` in its place.
  explicit MarkerFile(std::string path);
  // Fails with `error`.
  explicit MarkerFile(int error);
  MarkerFile(const MarkerFile&) = delete;
  MarkerFile& operator=(const MarkerFile&) = delete;
  ~MarkerFile();

  // The modes in which it was opened, or tried, so far.
  const std::vector<std::string>& modes() const { return modes_; }

  // For the fopen that stands in for libc's: the path to open instead, null to fail with errno.
  const char* open(const char* mode);

 private:
  void start();

  std::string path_;
  int error_ = 0;
  std::vector<std::string> modes_;
};

}  // namespace support
