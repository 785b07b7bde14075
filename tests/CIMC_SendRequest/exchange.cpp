// What the tests of the exchange have in common.
#include "exchange.h"

#include <cstdlib>
#include <ostream>
#include <utility>

#include "cim_client.h"
#include "support/open_descriptors.h"

namespace exchange {

const std::string request =
    "POST  /cimom HTTP/1.1 \r\n"
    "Content-Type: application/xml; charset=\"utf-8\"\r\n"
    "Content-Length: 10\r\n"
    "Authorization: Basic dTpw\r\n"
    "\n\r"
    "<?xml a?>";

std::size_t Test::count() { return support::open_descriptors(); }

void Test::TearDown() { EXPECT_EQ(count(), before_); }

bool operator==(const Outcome& left, const Outcome& right) {
  return left.result == right.result && left.touched == right.touched &&
         left.has_body == right.has_body && left.body == right.body;
}

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  out << outcome.result << (outcome.touched ? ", touched" : ", untouched");
  if (outcome.has_body) out << ", " << outcome.body.size() << " bytes: " << outcome.body;
  return out;
}

Outcome failure() { return {.result = -1}; }

Outcome refusal() { return {.result = 401}; }

Outcome success(std::string text) { return {0, true, true, std::move(text)}; }

Outcome send(std::uint16_t port) {
  char untouched[] = "";
  char* body = untouched;
  Outcome outcome;
  outcome.result = CIMSendRequest("<?xml a?>", &body, "127.0.0.1", port, "u", "p", 1500);
  outcome.touched = body != untouched;
  outcome.has_body = outcome.touched && body;
  if (!outcome.has_body) return outcome;
  outcome.body = body;
  std::free(body);
  return outcome;
}

std::string head(const std::string& length) {
  return "HTTP/1.1 200 OK\r\n"
         "Content-Type: application/xml; charset=\"utf-8\"\r\n"
         "Content-Length: " +
         length +
         "\r\n"
         "Cache-Control: no-cache\r\n"
         "CIMOperation: MethodResponse\r\n"
         "\r\n";
}

std::string body(std::size_t size) {
  std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n";
  const std::string filling(56, '.');
  while (text.size() < size) text.append(std::to_string(text.size())).append(filling).append("\n");
  return text.substr(0, size);
}

std::string answer(std::size_t size) { return head(std::to_string(size)) + body(size); }

}  // namespace exchange
