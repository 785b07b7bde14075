// A connection's worth of settings: the library's handle, and operations run on it with their
// outcome made plain.
#pragma once

#include <chrono>
#include <string>

#include "exchange.h"
#include "owners.h"
#include "secret.h"
#include "target.h"
#include "watch.h"

namespace cli {

class Session {
 public:
  // Resolves the host and makes the handle. Throws a failure when there is no such host.
  Session(const Target& target, Secret password, std::chrono::seconds limit, bool show_progress);

  struct client_Configuration* handle() const {
    return handle_.get();
  }
  const Target& target() const { return target_; }

  // The address of the host, dotted.
  const std::string& address() const { return address_; }

  // From here on operations address this namespace.
  void set_namespace(const std::string& name_space);

  // Runs an operation, `call(handle, &error)`, that gives records. Null: nothing was found. Throws
  // a failure for an error of the object manager, for refused credentials and when no answer
  // came.
  template <class Records, class Call>
  Records ask(Call call) {
    Records records;
    Error* error = nullptr;
    {
      const Watch watch = begin();
      records.reset(call(handle_.get(), &error));
    }
    throw_error(error);
    if (records == nullptr) require_empty_answer();
    return records;
  }

  // Runs an operation that gives no records, and makes sure that it was answered.
  template <class Call>
  void tell(Call call) {
    Error* error = nullptr;
    {
      const Watch watch = begin();
      call(handle_.get(), &error);
    }
    throw_error(error);
    require_answer();
  }

  // The document that the last operation was answered with; throws when there is none or it is
  // not understood.
  CimOwner answer_document() const;

 private:
  Watch begin() const;
  std::string peer() const;
  static void throw_error(Error* error);
  void require_answer() const;
  void require_empty_answer() const;
  bool is_local() const { return handle_->interface == 1; }
  [[noreturn]] void fail_unanswered() const;

  Target target_;
  Secret password_;
  std::chrono::seconds limit_;
  bool show_progress_;
  std::string address_;
  HandleOwner handle_;
};

}  // namespace cli
