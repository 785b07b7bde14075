// From bytes and actions to a script.
#include "faults/misbehavior.h"

#include "http/response.h"

namespace sandbox::faults {
namespace {

std::size_t head_size(const std::string& response) {
  const std::size_t end = response.find("\r\n\r\n");
  return end == std::string::npos ? response.size() : end + 4;
}

// The number that takes the place of `length`, which may be below zero or beyond 64 bits.
std::string stated(std::uint64_t length, const StateLength& fault) {
  if (fault.kind == StateLength::Kind::Exactly) return std::to_string(fault.number);
  if (fault.kind == StateLength::Kind::More) return std::to_string(length + fault.number);
  return fault.number > length ? '-' + std::to_string(fault.number - length)
                               : std::to_string(length - fault.number);
}

void state_length(std::string& response, const StateLength& fault) {
  constexpr std::string_view label = "Content-Length: ";
  const std::size_t line = response.find(label);
  if (line == std::string::npos || line > head_size(response)) return;
  const std::size_t end = response.find("\r\n", line);
  if (fault.kind == StateLength::Kind::Not) {
    response.erase(line, end + 2 - line);
    return;
  }
  const std::size_t number = line + label.size();
  const std::uint64_t length = std::stoull(response.substr(number, end - number));
  response.replace(number, end - number, stated(length, fault));
}

// Changes the bytes of the answer.
class Alteration {
 public:
  explicit Alteration(std::string& response) : response_(response) {}

  void operator()(const ReplaceByStatus& fault) const {
    response_ =
        fault.status == 401 ? http::unauthorized_response() : http::status_response(fault.status);
  }
  void operator()(const Malform&) const {
    const std::size_t last = response_.rfind("</MESSAGE>");
    if (last != std::string::npos) response_.resize(last);
    const std::size_t body = response_.size() - head_size(response_);
    state_length(response_, {StateLength::Kind::Exactly, body});
  }
  void operator()(const StateLength& fault) const { state_length(response_, fault); }
  template <class Other>
  void operator()(const Other&) const {}

 private:
  std::string& response_;
};

// Cuts the script of an answer apart.
class Delivery {
 public:
  explicit Delivery(std::string response) : response_(std::move(response)) {}

  void operator()(const Delay& fault) { delay_ms_ += fault.milliseconds; }
  void operator()(const Split& fault) { (*this)(SplitAt{head_size(response_), fault.pause_ms}); }
  void operator()(const SplitAt& fault) { cut_ = fault; }
  void operator()(const Trickle& fault) { trickle_ = fault; }
  void operator()(const CloseAt& fault) { end_at(fault.position, http::Close{}); }
  void operator()(const ResetAt& fault) { end_at(fault.position, http::Reset{}); }
  void operator()(const StaySilent&) { end_at(0, http::Silence{}); }
  template <class Other>
  void operator()(const Other&) {}

  http::Script script() {
    http::Script script;
    if (delay_ms_ > 0) script.emplace_back(http::Wait{http::Milliseconds(delay_ms_)});
    if (cut_ && cut_->position < response_.size()) {
      append(script, response_.substr(0, cut_->position));
      script.emplace_back(http::Wait{http::Milliseconds(cut_->pause_ms)});
      response_.erase(0, cut_->position);
    }
    append(script, std::move(response_));
    if (end_) script.push_back(*end_);
    return script;
  }

 private:
  void end_at(std::size_t position, http::Step step) {
    if (position < response_.size()) response_.resize(position);
    end_ = std::move(step);
  }

  void append(http::Script& script, std::string bytes) const {
    if (!trickle_) {
      if (!bytes.empty()) script.emplace_back(http::Send{std::move(bytes)});
      return;
    }
    for (std::size_t i = 0; i < bytes.size(); i += trickle_->piece) {
      if (i > 0) script.emplace_back(http::Wait{http::Milliseconds(trickle_->pause_ms)});
      script.emplace_back(http::Send{bytes.substr(i, trickle_->piece)});
    }
  }

  std::string response_;
  int delay_ms_ = 0;
  std::optional<SplitAt> cut_;
  std::optional<Trickle> trickle_;
  std::optional<http::Step> end_;
};

}  // namespace

std::optional<int> replacing_error(const std::vector<Action>& actions) {
  std::optional<int> code;
  for (const Action& action : actions) {
    if (const auto* error = std::get_if<ReplaceByError>(&action)) code = error->code;
  }
  return code;
}

http::Script misbehave(std::string response, const std::vector<Action>& actions) {
  for (const Action& action : actions) std::visit(Alteration(response), action);
  Delivery delivery(std::move(response));
  for (const Action& action : actions) std::visit(delivery, action);
  return delivery.script();
}

}  // namespace sandbox::faults
