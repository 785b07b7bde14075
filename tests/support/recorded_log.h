// What the library hands to the logger.
#pragma once

#include <string>
#include <vector>

namespace support {

// While it exists, the logging calls of the thread that made it are recorded; at other times they
// do nothing.  A program that has this file in it stands in the place of the logging library.
class RecordedLog {
 public:
  RecordedLog();
  RecordedLog(const RecordedLog&) = delete;
  RecordedLog& operator=(const RecordedLog&) = delete;
  ~RecordedLog();

  // "init" for rt_log_init(); "file|line|module|category|level|format|argument" for _rt_log().
  const std::vector<std::string>& calls() const { return calls_; }

  // For the functions that stand in for the logging library's.
  void add(std::string call) { calls_.push_back(std::move(call)); }

 private:
  std::vector<std::string> calls_;
};

}  // namespace support
