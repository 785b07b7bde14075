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

}  // namespace

Session::Session(const Target& target, Secret password, std::chrono::seconds limit,
                 bool show_progress)
    : target_(target),
      password_(std::move(password)),
      limit_(limit),
      show_progress_(show_progress) {
  {
    const Watch watch("name resolution of " + target_.host, limit_, show_progress_);
    address_ = resolve(target_.host);
  }
  const std::string name_space = escaped(target_.name_space, "the namespace");
  handle_.reset(client_Configuration(address_.c_str(), target_.port, name_space.c_str(), 0,
                                     target_.user.c_str(), password_.text()));
  if (handle_ == nullptr) throw std::bad_alloc();
}

void Session::set_namespace(const std::string& name_space) {
  target_.name_space = name_space;
  CIMC_SetNamespace(handle_.get(), escaped(name_space, "the namespace").c_str());
}

Watch Session::begin() const {
  last_exchange().clear();
  return Watch(peer(), limit_, show_progress_);
}

std::string Session::peer() const { return target_.host + ":" + std::to_string(target_.port); }

void Session::throw_error(Error* error) {
  const ErrorOwner owner(error);
  if (error != nullptr) throw cim_failure(error->code, error->description);
}

CimOwner Session::exchange(const std::string& request) {
  Exchange& exchange = last_exchange();
  char* body = nullptr;
  int outcome = -1;
  {
    const Watch watch = begin();
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

void Session::require_answer() const {
  if (!is_local()) answer_document();
}

// The answer when there is something in it; null when there is nothing.
CimOwner Session::filled_document() const {
  if (is_local()) return nullptr;
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
                        get_class_request(handle_->namespace_, probe_class), limit),
                  peer());
}

}  // namespace cli
