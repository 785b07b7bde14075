// The local operations in one table, for what holds for all of them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "cim_client.h"
#include "support/scripted_broker.h"

namespace support {

// What an operation gave: its return value and the record that it stored, if any.
class Answer {
 public:
  template <auto write, auto release, class R>
  static Answer of(int result, R* record) {
    Answer answer(result);
    answer.record_ = record;
    answer.write_ = [](void* stored, char** bytes) { write(static_cast<R*>(stored), bytes); };
    answer.release_ = [](void* stored) { release(static_cast<R*>(stored)); };
    return answer;
  }
  explicit Answer(int result) : result_(result) {}
  Answer(Answer&& other) noexcept
      : result_(other.result_),
        record_(std::exchange(other.record_, nullptr)),
        write_(other.write_),
        release_(other.release_) {}
  Answer(const Answer&) = delete;
  Answer& operator=(const Answer&) = delete;
  ~Answer() {
    if (record_) release_(record_);
  }

  int result() const { return result_; }

  // The return value, and the bytes of the record: "0 <CLASS ...>", or "-1" without a record.
  std::string text() const;

 private:
  int result_;
  void* record_ = nullptr;
  void (*write_)(void*, char**) = nullptr;
  void (*release_)(void*) = nullptr;
};

struct LocalOperation {
  const char* name;

  // Calls it with complete arguments; null for `name_space` leaves out one that it needs.
  Answer (*call)(Error** error, const char* name_space);

  const char* entry;  // what it logs when it begins; "" for nothing
  int failure;        // without connection, or with a missing argument
  int after_error;    // after an error of status 5, with a text
  int after_silent_error;
  const char* broker_call;
};

const std::vector<LocalOperation>& local_operations();

// A broker with everything that operations ask for: instances and paths with values of every
// type, nulls, references, arrays and embedded instances.
BrokerScript rich_script();

}  // namespace support
