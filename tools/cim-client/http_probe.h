// One HTTP exchange looked at closely: the library only says whether it worked.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "secret.h"

namespace cli {

// What an object manager did with a request.
struct HttpExchange {
  int connect_error = 0;   // errno of the failed connection; 0: connected
  int write_error = 0;     // errno of the failed write; 0: all was written
  std::size_t first = 0;   // bytes of `answer` that came with the first read, at most 2047
  std::string answer;      // head and body as far as they came
  bool closed = false;     // the peer closed the connection
  bool timed_out = false;  // the answer was not complete in time

  // The status of the answer, such as 200; 0 when there is none.
  int status() const;
  // The first line of the answer.
  std::string_view status_line() const;
  // The Content-Length of the answer; -1: none, or none that is a number.
  long content_length() const;
  // Whether the answer says that it comes in chunks, which the library does not read.
  bool is_chunked() const;
  // Whether Content-Length and the beginning of the document came with the first read: the
  // library looks for both there and nowhere else.
  bool came_together() const;
  // The document in the answer; empty when there is none.
  std::string_view document() const;
};

// Sends `request` to the address exactly as the library sends it, and reads until the answer is
// complete, the connection is closed or the time is over.
HttpExchange probe(const std::string& address, std::uint16_t port, const std::string& user,
                   const Secret& password, const std::string& request,
                   std::chrono::milliseconds limit);

}  // namespace cli
