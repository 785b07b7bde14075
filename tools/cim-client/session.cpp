// Operations and their outcomes.
#include "session.h"

#include <algorithm>
#include <utility>

#include "diagnosis.h"
#include "document.h"
#include "escape.h"
#include "exit_status.h"
#include "http_probe.h"
#include "resolve.h"

namespace cli {
namespace {

// How long the second look at a silent object manager may take, whatever the limit.
constexpr std::chrono::seconds probe_limit(5);

// A class that many object managers have; any answer about it will do.
constexpr const char* probe_class = "CIM_ManagedElement";

// Values of a handle's selector.
constexpr int http_interface = 0;
constexpr int local_interface = 1;

}  // namespace

Session::Session(const Target& target, Secret password, std::chrono::seconds limit,
                 bool show_progress, Backend backend)
    : target_(target),
      password_(std::move(password)),
      limit_(limit),
      show_progress_(show_progress) {
  {
    const Watch watch("name resolution of " + target_.host, limit_, show_progress_);
    address_ = resolve(target_.host);
  }
  if (cli::is_local(backend)) local_library();
  make_handles(cli::is_local(backend));
}

HandleOwner Session::new_handle(const std::string& name_space, int interface) const {
  HandleOwner handle(client_Configuration(address_.c_str(), target_.port, name_space.c_str(), 0,
                                          target_.user.c_str(), password_.text()));
  if (handle == nullptr) throw std::bad_alloc();
  handle->interface = interface;
  return handle;
}

void Session::make_handles(bool local) {
  http_handle_ = new_handle(escaped(target_.name_space, "the namespace"), http_interface);
  if (local) local_handle_ = new_handle(target_.name_space, local_interface);
}

void Session::set_namespace(const std::string& name_space) {
  target_.name_space = name_space;
  make_handles(is_local());
}

std::string Session::sendable(std::string_view text, std::string_view what) const {
  return is_local() ? std::string(text) : escaped(text, what);
}

Watch Session::begin(std::string peer) const {
  last_exchange().clear();
  return Watch(std::move(peer), limit_, show_progress_);
}

std::string Session::peer() const { return is_local() ? "the local broker" : http_peer(); }

std::string Session::http_peer() const { return target_.host + ":" + std::to_string(target_.port); }

void Session::throw_error(Error* error) {
  const ErrorOwner owner(error);
  if (error != nullptr) throw cim_failure(error->code, error->description);
}

CimOwner Session::exchange(const std::string& request) {
  Exchange& exchange = last_exchange();
  char* body = nullptr;
  int outcome = -1;
  {
    const Watch watch = begin(http_peer());
    outcome = CIMSendRequest(request.c_str(), &body, address_.c_str(), target_.port,
                             target_.user.c_str(), password_.text(), 0);
  }
  const TextOwner owner(body);
  if (outcome == 0 && body != nullptr) {
    exchange.answered = true;
    exchange.answer = body;
  }
  return answer_document();
}

CimOwner Session::answer_document() const {
  if (!last_exchange().answered) fail_unanswered();
  CimOwner document = parse_document(last_exchange().answer);
  if (kind_of(document.get()) == AnswerKind::Other) fail_unanswered();
  return document;
}

void Session::require_answer(intptr_t outcome) const {
  if (!is_local()) {
    answer_document();
  } else if (outcome != 0) {
    require_local_broker();
    throw Failure(ExitStatus::CimError, "the local broker failed without saying why");
  }
}

// The broker tells of a connection that it did not take on standard output alone. Reading a class
// gives -1 only then, whether there is such a class or not.
void Session::require_local_broker() const {
  const ClassNameOwner name(CIMC_CreateClassName(probe_class));
  if (name == nullptr) throw std::bad_alloc();
  Class* definition = nullptr;
  Error* error = nullptr;
  const Watch watch = begin(peer());
  const int outcome = CIMC_GetClass(&definition, name.get(), 0, 0, 0, nullptr, target_.user.c_str(),
                                    password_.text(), target_.name_space.c_str(), &error);
  const ClassOwner definition_owner(definition);
  const ErrorOwner error_owner(error);
  if (outcome == -1 && error == nullptr)
    throw Failure(ExitStatus::NoAnswer, "the connection to the local broker failed");
}

AnswerKind Session::kind_of_answer() const { return kind_of(answer_document().get()); }

// The answer when there is something in it; null when there is nothing.
CimOwner Session::filled_document() const {
  if (is_local()) {
    require_local_broker();
    return nullptr;
  }
  CimOwner document = answer_document();
  return kind_of(document.get()) == AnswerKind::Empty ? nullptr : std::move(document);
}

void Session::fail_misunderstood() const {
  throw Failure(ExitStatus::NoAnswer, peer() + " answered with something else than was asked for");
}

// Says why no answer came, or none that is understood: asks once more, for something that changes
// nothing, and looks at what happens.
void Session::fail_unanswered() const {
  const std::chrono::seconds limit =
      limit_.count() == 0 ? probe_limit : std::min(limit_, probe_limit);
  throw diagnosed(probe(address_, target_.port, target_.user, password_,
                        get_class_request(http_handle_->namespace_, probe_class), limit),
                  http_peer());
}

}  // namespace cli
