// A connection's worth of settings: the library's handle, and operations run on it with their
// outcome made plain.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "backend.h"
#include "document.h"
#include "exchange.h"
#include "owners.h"
#include "secret.h"
#include "target.h"
#include "watch.h"
#include "wire.h"

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
  // Resolves the host and makes the handles. Throws a failure when there is no such host, or no
  // client library of the local broker where that is asked.
  Session(const Target& target, Secret password, std::chrono::seconds limit, bool show_progress,
          Backend backend = Backend::AsHandles);

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
      const Watch watch = begin(peer());
      finding.records.reset(call(handle(), &error));
    }
    throw_error(error);
    if (finding.records == nullptr) finding.document = filled_document();
    return finding;
  }

  // Runs an operation that reads a class: the library does that over CIM-XML whatever the back
  // end. Null when the answer holds none.
  template <class Call>
  ClassOwner ask_for_class(Call call) {
    ClassOwner definition;
    Error* error = nullptr;
    {
      const Watch watch = begin(http_peer());
      definition.reset(call(http_handle_.get(), &error));
    }
    throw_error(error);
    if (definition == nullptr && kind_of_answer() != AnswerKind::Empty) fail_misunderstood();
    return definition;
  }

  // Runs an operation that gives no records but 0 for success, and makes sure that it was answered.
  template <class Call>
  void tell(Call call) {
    Error* error = nullptr;
    intptr_t outcome = 0;
    {
      const Watch watch = begin(peer());
      outcome = call(handle(), &error);
    }
    throw_error(error);
    require_answer(outcome);
  }

  // Sends a request made by hand; throws as ask() does. The answer's document.
  CimOwner exchange(const std::string& request);

  // The document that the last operation was answered with; throws when none came, or none of an
  // object manager.
  CimOwner answer_document() const;

  // Whether operations go to the local broker, past host and port.
  bool is_local() const { return local_handle_ != nullptr; }

  // Makes sure that the local broker takes connections.
  void require_local_broker() const;

  // Makes texts and records fit to be sent: within XML they are escaped, the local broker takes
  // them as they are. `what` names the text in failures.
  std::string sendable(std::string_view text, std::string_view what) const;
  template <class Record>
  void make_sendable(Record* record) const {
    if (!is_local()) escape_texts(record);
  }

 private:
  struct client_Configuration* handle() const {
    return is_local() ? local_handle_.get() : http_handle_.get();
  }
  HandleOwner new_handle(const std::string& name_space, int interface) const;
  void make_handles(bool local);
  Watch begin(std::string peer) const;
  std::string peer() const;
  std::string http_peer() const;
  static void throw_error(Error* error);
  void require_answer(intptr_t outcome) const;
  AnswerKind kind_of_answer() const;
  CimOwner filled_document() const;
  [[noreturn]] void fail_unanswered() const;
  [[noreturn]] void fail_misunderstood() const;

  Target target_;
  Secret password_;
  std::chrono::seconds limit_;
  bool show_progress_;
  std::string address_;
  HandleOwner http_handle_;
  HandleOwner local_handle_;  // null: operations go over HTTP
};

}  // namespace cli
