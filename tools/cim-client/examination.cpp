// Judging exchanges, and what to advise.
#include "examination.h"

#include <cerrno>
#include <cstring>

#include "document.h"
#include "utf8.h"

namespace cli {
namespace {

constexpr int unauthorised = 401;

Step failed(const char* name, const std::string& text, const std::string& advice) {
  return {name, Step::Result::Failed, text, advice, ExitStatus::NoAnswer};
}

Step answer_failed(const std::string& text, const std::string& advice) {
  return failed("HTTP answer", text, advice);
}

std::string connection_advice(int error) {
  switch (error) {
    case ECONNREFUSED:
      return "Nothing listens there: is the object manager running, and is this its port?";
    case ETIMEDOUT:
      return "Nothing answers at that address: is it right, and does a firewall stand between?";
    case EHOSTUNREACH:
    case ENETUNREACH:
      return "There is no way to that address: check the network.";
    default:
      return "";
  }
}

// A TLS alert, as servers send it to a client that speaks plain HTTP.
bool speaks_tls(const std::string& answer) {
  return answer.size() >= 2 && answer[0] == '\x15' && answer[1] == '\x03';
}

Step judge_silence(const HttpExchange& exchange) {
  if (exchange.timed_out)
    return answer_failed("the request was taken, and nothing came back in time",
                         "The object manager may be overloaded, or this port may be for "
                         "something else than CIM-XML.");
  return answer_failed("the connection was closed without an answer",
                       "Object managers close it on a request that they do not understand, and "
                       "servers for TLS on a plain one: is this the port for CIM-XML over HTTP "
                       "(usually 5988)?");
}

Step judge_protocol(const HttpExchange& exchange) {
  if (speaks_tls(exchange.answer))
    return answer_failed("the other end speaks TLS",
                         "Only plain HTTP is spoken here: try the port for it, usually 5988.");
  return answer_failed("what came is no HTTP: " + printable(exchange.status_line()),
                       "This port belongs to another service.");
}

Step judge_status(const HttpExchange& exchange) {
  return answer_failed("the object manager answered \"" + printable(exchange.status_line()) + "\"",
                       exchange.status() / 100 == 5
                           ? "The object manager has a problem of its own: look into its log."
                           : "It does not take requests for CIM-XML at the path /cimom.");
}

std::string pieces(const HttpExchange& exchange) {
  return "the first read held " + std::to_string(exchange.first) + " of " +
         std::to_string(exchange.answer.size()) + " bytes";
}

const char* const apart_advice =
    "The client library takes the head and the beginning of the body from one read, so programs "
    "made with it get no answers here. Have the object manager, or a proxy in between, write head "
    "and body together.";

// Whether a short body arrived behind the first read: of bodies of these lengths the library reads
// no more than that.
bool short_body_late(const HttpExchange& exchange) {
  const long length = exchange.content_length();
  const bool one_read_only = length <= 512 || length == 2048;
  return one_read_only && exchange.first < exchange.answer.size();
}

Step judge_body(const HttpExchange& exchange) {
  if (exchange.is_chunked())
    return answer_failed("the answer comes in chunks",
                         "The client library needs a Content-Length: switch chunked answers off.");
  if (exchange.content_length() < 0)
    return answer_failed("the answer has no Content-Length", "The client library needs one.");
  if (exchange.document().empty())
    return answer_failed("the answer holds no XML document", "This is no object manager.");
  if (!exchange.came_together())
    return answer_failed("head and body arrive apart: " + pieces(exchange), apart_advice);
  if (short_body_late(exchange))
    return answer_failed("the body arrives in pieces: " + pieces(exchange), apart_advice);
  if (kind_of(parse_document(std::string(exchange.document())).get()) == AnswerKind::Other)
    return answer_failed("the document is cut short or is no CIM-XML response",
                         "The object manager, or a proxy in between, sends something else.");
  return {"HTTP answer", Step::Result::Ok, printable(exchange.status_line()), "",
          ExitStatus::Success};
}

}  // namespace

const char* result_word(Step::Result result) {
  switch (result) {
    case Step::Result::Ok:
      return "ok";
    case Step::Result::Failed:
      return "failed";
    case Step::Result::Skipped:
      break;
  }
  return "skipped";
}

Step judge_connection(const HttpExchange& exchange, const std::string& peer) {
  if (exchange.connect_error == 0)
    return {"connection", Step::Result::Ok, peer + " takes connections", "", ExitStatus::Success};
  return failed("connection", peer + ": " + std::strerror(exchange.connect_error),
                connection_advice(exchange.connect_error));
}

Step judge_answer(const HttpExchange& exchange) {
  if (exchange.answer.empty()) return judge_silence(exchange);
  if (exchange.status() == 0) return judge_protocol(exchange);
  if (exchange.status() == unauthorised)
    return {"HTTP answer", Step::Result::Ok, printable(exchange.status_line()), "",
            ExitStatus::Success};
  if (exchange.status() != 200) return judge_status(exchange);
  return judge_body(exchange);
}

Step judge_authentication(const HttpExchange& exchange, const std::string& user) {
  const bool refused = exchange.status() == unauthorised;
  if (!refused)
    return {"authentication", Step::Result::Ok,
            user.empty() ? "no user is asked for" : "user " + printable(user) + " is let in", "",
            ExitStatus::Success};
  if (user.empty())
    return {"authentication", Step::Result::Failed, "the object manager asks for a user",
            "Name one with --user.", ExitStatus::Unauthorised};
  return {"authentication", Step::Result::Failed, "user " + printable(user) + " is refused",
          "Check the name and the password, and whether the user may use the object manager.",
          ExitStatus::Unauthorised};
}

}  // namespace cli
