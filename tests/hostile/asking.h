// Asking an object manager that means no good, within bounds of time and memory.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "support/scripted_server.h"

namespace hostile {

// Ends the process when the test takes longer; fails it when the process takes more memory
// meanwhile than at the beginning.  With a sanitizer only the time counts, ten times as long.
class Bounds {
 public:
  Bounds(unsigned seconds, std::size_t mebibytes);
  Bounds(const Bounds&) = delete;
  Bounds& operator=(const Bounds&) = delete;
  ~Bounds();

 private:
  std::size_t limit_;  // KiB, at the peak
};

// What EnumerateInstances() gives: "null", or the number of instances, how many bytes the first
// value of the first one has, and the Error: "2 instances", "1 instance, 4 bytes",
// "null, error 401 Unauthorized User".
std::string ask(const support::ServerScript& script);

// The answer to one request, in one piece; the object manager closes then.
std::string ask(const std::string& http);

// The whole document of an answer with this in its IRETURNVALUE.
std::string document(const std::string& content);

// An instance with a property of this value; `named(n)` is that of n instances without properties.
std::string instance_with(const std::string& value);
std::string instances(int count);

// A head with this text for the length, or with the length of `body` and `body` behind it.
std::string head(const std::string& length);
std::string answer(const std::string& body);

}  // namespace hostile
