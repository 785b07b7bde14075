// One thing that is measured.
#pragma once

#include <ctime>
#include <memory>
#include <string>
#include <string_view>

namespace bench {

// Work that is run and timed again and again, on what its constructor made ready.
class Work {
 public:
  Work() = default;
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  virtual ~Work() = default;

  virtual void before() {}  // not timed
  virtual void run() = 0;   // timed
  virtual void after() {}   // not timed

  // What counts as its time: the thread's processor time, which other programs do not
  // disturb, or real time where another process has a share.
  virtual clockid_t clock() const { return CLOCK_THREAD_CPUTIME_ID; }

  // How often run() does the work: what the clock alone takes must not count.
  virtual int repetitions() const { return 1; }

  // Tells results apart; every variant of one reading gives the same.
  virtual std::string digest() const { return {}; }
};

// The work of that name on that document; null when there is none.
std::unique_ptr<Work> reading_work(std::string_view name, std::string document);
std::unique_ptr<Work> record_work(std::string_view name, std::string document);
std::unique_ptr<Work> writing_work(std::string_view name, std::string document);
std::unique_ptr<Work> exchange_work(std::string_view name, std::string document);

// Work without a document, on that many instances.
std::unique_ptr<Work> local_work(std::string_view name, int instances);

}  // namespace bench
