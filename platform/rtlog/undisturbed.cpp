// errno, cancellation and SIGPIPE of the calling thread.
#include "undisturbed.h"

#include <pthread.h>

#include <cerrno>
#include <csignal>
#include <ctime>

namespace rtlog {
namespace {

sigset_t sigpipe() {
  sigset_t set;
  ::sigemptyset(&set);
  ::sigaddset(&set, SIGPIPE);
  return set;
}

bool sigpipe_is_pending() {
  sigset_t pending;
  ::sigemptyset(&pending);
  ::sigpending(&pending);
  return ::sigismember(&pending, SIGPIPE) == 1;
}

}  // namespace

Undisturbed::Undisturbed() : errno_(errno), was_pending_(sigpipe_is_pending()) {
  ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &cancel_state_);
  const sigset_t set = sigpipe();
  sigset_t before;
  ::pthread_sigmask(SIG_BLOCK, &set, &before);
  was_blocked_ = ::sigismember(&before, SIGPIPE) == 1;
}

Undisturbed::~Undisturbed() {
  const sigset_t set = sigpipe();
  const timespec at_once = {};
  if (!was_pending_ && sigpipe_is_pending())
    while (::sigtimedwait(&set, nullptr, &at_once) < 0 && errno == EINTR) continue;
  if (!was_blocked_) ::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
  ::pthread_setcancelstate(cancel_state_, nullptr);
  errno = errno_;
}

}  // namespace rtlog
