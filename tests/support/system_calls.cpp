// The socket calls of the library: watched, and made to fail.
#undef _FORTIFY_SOURCE  // its inline forms of the functions below would be defined twice
#include "support/system_calls.h"

#include <dlfcn.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <utility>

namespace support {
namespace {

thread_local SystemCalls* watcher = nullptr;

// libc's own function, behind the one of this program.
template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

std::string bytes_at(const void* address, std::size_t size) {
  return {static_cast<const char*>(address), size};
}

// Lets `call` happen as the script says.  `make` makes the call for so many bytes.
template <class Make>
long follow(SystemCall call, Make make) {
  SystemCalls* watching = std::exchange(watcher, nullptr);  // what happens here is not watched
  const SystemCalls::Action action = watching->next_action(call.name);
  if (action.what == SystemCalls::Action::Give) {
    call.result = action.result;
    call.error = action.error;
  } else {
    const bool shorter = action.what == SystemCalls::Action::Shorten;
    call.result = make(shorter ? std::min(action.size, call.size) : call.size);
    call.error = call.result < 0 ? errno : 0;
    if (action.event) action.event();
  }
  const long result = call.result;
  const int error = call.error;
  watching->record(std::move(call));
  watcher = watching;
  if (result < 0) errno = error;
  return result;
}

}  // namespace

SystemCalls::SystemCalls() {
  if (watcher) throw std::logic_error("system calls are watched already");
  watcher = this;
}

SystemCalls::~SystemCalls() { watcher = nullptr; }

SystemCalls& SystemCalls::fail(const std::string& name, int error, int times) {
  for (; times > 0; --times)
    actions_[name].push_back({.what = Action::Give, .result = -1, .error = error});
  return *this;
}

SystemCalls& SystemCalls::give(const std::string& name, long result) {
  actions_[name].push_back({.what = Action::Give, .result = result});
  return *this;
}

SystemCalls& SystemCalls::shorten(const std::string& name, std::size_t size) {
  actions_[name].push_back({.what = Action::Shorten, .size = size});
  return *this;
}

SystemCalls& SystemCalls::pass(const std::string& name, int times) {
  for (; times > 0; --times) actions_[name].emplace_back();
  return *this;
}

SystemCalls& SystemCalls::pass_then(const std::string& name, std::function<void()> event) {
  actions_[name].push_back({.event = std::move(event)});
  return *this;
}

SystemCalls::Action SystemCalls::next_action(const std::string& name) {
  std::deque<Action>& actions = actions_[name];
  if (actions.empty()) return {};
  Action action = std::move(actions.front());
  actions.pop_front();
  return action;
}

std::vector<SystemCall> SystemCalls::made(const std::string& name) const {
  std::vector<SystemCall> calls;
  std::copy_if(made_.begin(), made_.end(), std::back_inserter(calls),
               [&](const SystemCall& call) { return call.name == name; });
  return calls;
}

}  // namespace support

using support::bytes_at;
using support::follow;
using support::next;
using support::watcher;

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): libc names them otherwise
extern "C" {

[[gnu::visibility("default")]] int socket(int family, int type, int protocol) noexcept {
  static auto* const own = next<decltype(socket)>("socket");
  if (!watcher) return own(family, type, protocol);
  return static_cast<int>(follow({.name = "socket", .numbers = {family, type, protocol}},
                                 [&](std::size_t) { return own(family, type, protocol); }));
}

[[gnu::visibility("default")]] int connect(int descriptor, const sockaddr* address,
                                           socklen_t size) {
  static auto* const own = next<decltype(connect)>("connect");
  if (!watcher) return own(descriptor, address, size);
  return static_cast<int>(follow(
      {.name = "connect", .descriptor = descriptor, .size = size, .bytes = bytes_at(address, size)},
      [&](std::size_t) { return own(descriptor, address, size); }));
}

[[gnu::visibility("default")]] ssize_t write(int descriptor, const void* bytes, size_t size) {
  static auto* const own = next<decltype(write)>("write");
  if (!watcher) return own(descriptor, bytes, size);
  return follow(
      {.name = "write", .descriptor = descriptor, .size = size, .bytes = bytes_at(bytes, size)},
      [&](std::size_t count) { return own(descriptor, bytes, count); });
}

[[gnu::visibility("default")]] ssize_t recv(int descriptor, void* bytes, size_t size, int flags) {
  static auto* const own = next<decltype(recv)>("recv");
  if (!watcher) return own(descriptor, bytes, size, flags);
  return follow({.name = "recv", .descriptor = descriptor, .numbers = {flags}, .size = size},
                [&](std::size_t count) { return own(descriptor, bytes, count, flags); });
}

[[gnu::visibility("default")]] int setsockopt(int descriptor, int level, int option,
                                              const void* value, socklen_t size) noexcept {
  static auto* const own = next<decltype(setsockopt)>("setsockopt");
  if (!watcher) return own(descriptor, level, option, value, size);
  return static_cast<int>(
      follow({.name = "setsockopt",
              .descriptor = descriptor,
              .numbers = {level, option},
              .size = size,
              .bytes = bytes_at(value, option == SO_RCVTIMEO ? sizeof(timeval) : size)},
             [&](std::size_t) { return own(descriptor, level, option, value, size); }));
}

[[gnu::visibility("default")]] int close(int descriptor) {
  static auto* const own = next<decltype(close)>("close");
  if (!watcher) return own(descriptor);
  return static_cast<int>(follow({.name = "close", .descriptor = descriptor},
                                 [&](std::size_t) { return own(descriptor); }));
}

}  // extern "C"

// NOLINTEND(readability-inconsistent-declaration-parameter-name)
