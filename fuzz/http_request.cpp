// The sandbox's reader of HTTP requests, fed whole and byte by byte: both find the same.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "http/request_reader.h"

namespace {

using sandbox::http::Request;
using sandbox::http::RequestReader;

// What the reader finds in bytes fed in pieces of `piece`, as a text.
std::string found(std::string_view bytes, std::size_t piece) {
  RequestReader reader({.head = 1U << 12U, .body = 1U << 16U});
  std::string text;
  for (std::size_t at = 0; at < bytes.size(); at += piece) {
    reader.feed(bytes.substr(at, piece));
    while (reader.state() == RequestReader::State::Complete) {
      const Request request = reader.take();
      text += request.method + ' ' + request.target + ' ' + request.body + '\n';
    }
    if (reader.state() == RequestReader::State::Bad)
      return text + std::to_string(reader.problem().status);
    reader.body_looks_finished();
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (found(bytes, size + 1) != found(bytes, 1)) std::abort();
  return 0;
}
