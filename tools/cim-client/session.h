// A connection's worth of settings: the library's handle, and operations run on it with their
// outcome made plain.
#pragma once

#include <chrono>
#include <string>
#include <utility>

#include "exchange.h"
#include "owners.h"
#include "secret.h"
#include "target.h"
#include "watch.h"

namespace cli {

// What an operation gave: the records that were asked for, or the document with a result of
// another kind; neither when nothing was found.
template <class Records>
struct Finding {
  Records records;
  CimOwner document;
};

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
    Finding<Records> finding = ask_openly<Records>(call);
    if (finding.document != nullptr) fail_misunderstood();
    return std::move(finding.records);
  }

  // The same, for operations that object managers answer in more than one way.
  template <class Records, class Call>
  Finding<Records> ask_openly(Call call) {
    Finding<Records> finding;
    Error* error = nullptr;
    {
      const Watch watch = begin();
      finding.records.reset(call(handle_.get(), &error));
    }
    throw_error(error);
    if (finding.records == nullptr) finding.document = filled_document();
    return finding;
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

  // Sends a request made by hand; throws as ask() does. The answer's document.
  CimOwner exchange(const std::string& request);

  // The document that the last operation was answered with; throws when none came, or none of an
  // object manager.
  CimOwner answer_document() const;

  // Whether operations go to the local broker, past host and port.
  bool is_local() const { return handle_->interface == 1; }

 private:
  Watch begin() const;
  std::string peer() const;
  static void throw_error(Error* error);
  void require_answer() const;
  CimOwner filled_document() const;
  [[noreturn]] void fail_unanswered() const;
  [[noreturn]] void fail_misunderstood() const;

  Target target_;
  Secret password_;
  std::chrono::seconds limit_;
  bool show_progress_;
  std::string address_;
  HandleOwner handle_;
};

}  // namespace cli
