// Waiting within bounds: the library waits for an answer without limit.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace cli {

// While it lives, a thread of its own keeps the time. When that is over, it says so on standard
// error and ends the process with the status "no answer": a read that the library is in cannot be
// interrupted any other way. Meanwhile it shows the progress of long waits on a terminal.
class Watch {
 public:
  // `whom` names the peer in texts. A time of 0 is no limit.
  Watch(std::string whom, std::chrono::seconds limit, bool show_progress);
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch();

 private:
  void keep_time();
  void show(std::chrono::seconds elapsed);
  void erase() const;
  [[noreturn]] void give_up() const;

  std::string whom_;
  std::chrono::seconds limit_;
  bool show_progress_;
  bool shown_ = false;  // whether a line of progress stands on the terminal
  bool over_ = false;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::thread thread_;
};

}  // namespace cli
