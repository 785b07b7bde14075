// Operations and their outcomes.
#include "session.h"

#include <algorithm>
#include <utility>

#include "diagnosis.h"
#include "document.h"
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
  handle_.reset(client_Configuration(address_.c_str(), target_.port, target_.name_space.c_str(), 0,
                                     target_.user.c_str(), password_.text()));
  if (handle_ == nullptr) throw std::bad_alloc();
}

void Session::set_namespace(const std::string& name_space) {
  target_.name_space = name_space;
  CIMC_SetNamespace(handle_.get(), name_space.c_str());
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

CimOwner Session::answer_document() const {
  if (!last_exchange().answered) fail_unanswered();
  return parse_document(last_exchange().answer);
}

void Session::require_answer() const {
  if (is_local()) return;
  const AnswerKind kind = kind_of(answer_document().get());
  if (kind == AnswerKind::Other) fail_unanswered();
}

void Session::require_empty_answer() const {
  if (is_local()) return;
  const AnswerKind kind = kind_of(answer_document().get());
  if (kind == AnswerKind::Filled)
    throw Failure(ExitStatus::NoAnswer,
                  peer() + " answered with something else than was asked for");
  if (kind != AnswerKind::Empty) fail_unanswered();
}

// Says why no answer came, or none that is understood: asks once more, for something that changes
// nothing, and looks at what happens.
void Session::fail_unanswered() const {
  const std::chrono::seconds limit =
      limit_.count() == 0 ? probe_limit : std::min(limit_, probe_limit);
  throw diagnosed(probe(address_, target_.port, target_.user, password_,
                        get_class_request(target_.name_space, probe_class), limit),
                  peer());
}

}  // namespace cli
