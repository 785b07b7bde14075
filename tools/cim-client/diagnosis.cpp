// Putting the outcome of an exchange into words.
#include "diagnosis.h"

#include <cstring>

#include "utf8.h"

namespace cli {
namespace {

constexpr int unauthorised = 401;

Failure no_answer(const std::string& text) {
  return {ExitStatus::NoAnswer, text + "; 'cim-client doctor' looks closer"};
}

}  // namespace

Failure diagnosed(const HttpExchange& exchange, const std::string& peer) {
  if (exchange.connect_error != 0)
    return {ExitStatus::NoAnswer,
            "the connection to " + peer + " failed: " + std::strerror(exchange.connect_error)};
  if (exchange.status() == unauthorised)
    return {ExitStatus::Unauthorised, peer + " refused the user name or the password"};
  if (exchange.answer.empty()) {
    if (exchange.timed_out) return no_answer(peer + " took the request and stayed silent");
    return no_answer(peer + " closed the connection without an answer");
  }
  if (exchange.status() == 0) return no_answer(peer + " answered, but not in HTTP");
  if (exchange.status() != 200)
    return no_answer(peer + " answered \"" + printable(exchange.status_line()) + "\"");
  if (exchange.is_chunked()) return no_answer(peer + " answers in chunks, which cannot be read");
  if (exchange.content_length() < 0) return no_answer(peer + " answered without a Content-Length");
  if (exchange.document().empty()) return no_answer(peer + " answered, but not with XML");
  if (!exchange.came_together())
    return no_answer(peer + " sends head and body of its answer apart, which cannot be read");
  return no_answer("the answer of " + peer + " was lost, cut short or is no CIM-XML response");
}

}  // namespace cli
