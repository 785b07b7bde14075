// What the tests of the exchange have in common.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace exchange {

// Every test leaves the descriptors as it found them, whatever happened.
class Test : public testing::Test {
 protected:
  void TearDown() override;

 private:
  std::size_t before_ = count();
  static std::size_t count();
};

// What CIMSendRequest() gave.  Its body pointer pointed at `untouched` before the call.
struct Outcome {
  int result = 0;
  bool touched = false;   // another pointer than before
  bool has_body = false;  // and not null
  std::string body{};     // as a text
};
bool operator==(const Outcome& left, const Outcome& right);
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

Outcome failure();  // -1, and the body pointer untouched
Outcome refusal();  // 401, and the body pointer untouched
Outcome success(std::string text);

// Sends "<?xml a?>" as user "u" with password "p", and 1500 ms.
Outcome send(std::uint16_t port);

// The request that send() makes.
extern const std::string request;

// The head of an answer as object managers write it, with this text for the length.
std::string head(const std::string& length);

// A body of `size` bytes that begins with "<?xml", no two places of which look the same.
std::string body(std::size_t size);

// A head and a body of `size` bytes.
std::string answer(std::size_t size);

}  // namespace exchange
