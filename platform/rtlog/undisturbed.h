// Keeps what logging does to a thread from the application.
#pragma once

namespace rtlog {

// While it lives, the thread is not cancelled and gets no SIGPIPE; one that writing has
// caused is taken back, and errno is as it was.
class Undisturbed {
 public:
  Undisturbed();
  Undisturbed(const Undisturbed&) = delete;
  Undisturbed& operator=(const Undisturbed&) = delete;
  ~Undisturbed();

 private:
  int errno_;
  int cancel_state_ = 0;
  bool was_pending_;  // SIGPIPE, before
  bool was_blocked_ = false;
};

}  // namespace rtlog
