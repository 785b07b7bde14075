// The socket calls of the library: watched, and made to fail.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace support {

// One call that was made.
struct SystemCall {
  std::string name{};          // such as "recv"
  int descriptor = -1;         // -1 for socket()
  std::vector<int> numbers{};  // family, type, protocol; level, option; flags of recv
  std::size_t size = 0;        // bytes asked for; of an address or an option
  std::string bytes{};         // given to write, connect or setsockopt (there a whole timeval)
  long result = 0;
  int error = 0;  // errno when the result is -1
};

// While it exists, socket, connect, write, recv, setsockopt and close of the thread that made it
// are recorded and follow its script; a call without script is the system's own.  At most one at
// a time in each thread.  A program that has this file in it puts its calls in the place of libc's,
// also for the shared libraries that it uses.
class SystemCalls {
 public:
  SystemCalls();
  SystemCalls(const SystemCalls&) = delete;
  SystemCalls& operator=(const SystemCalls&) = delete;
  ~SystemCalls();

  // What becomes of the next calls of a name, in the order given:
  // the call fails with `error`, without being made;
  SystemCalls& fail(const std::string& name, int error, int times = 1);
  // the call gives `result`, without being made;
  SystemCalls& give(const std::string& name, long result);
  // the call is made for `size` bytes at most;
  SystemCalls& shorten(const std::string& name, std::size_t size);
  // the call is made as it is.
  SystemCalls& pass(const std::string& name, int times = 1);
  // the call is made as it is, and `event` happens before the library goes on.
  SystemCalls& pass_then(const std::string& name, std::function<void()> event);

  // Every call so far, or those of a name.
  const std::vector<SystemCall>& made() const { return made_; }
  std::vector<SystemCall> made(const std::string& name) const;

  // For the calls that stand in for libc's.
  struct Action {
    enum { Pass, Give, Shorten } what = Pass;
    long result = 0;
    int error = 0;
    std::size_t size = 0;
    std::function<void()> event{};
  };
  Action next_action(const std::string& name);
  void record(SystemCall call) { made_.push_back(std::move(call)); }

 private:
  std::map<std::string, std::deque<Action>> actions_;
  std::vector<SystemCall> made_;
};

}  // namespace support
