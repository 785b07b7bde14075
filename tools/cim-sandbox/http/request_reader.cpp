// Request lines, headers and framing.
#include "http/request_reader.h"

#include <algorithm>
#include <charconv>

#include "model/text.h"

namespace sandbox::http {
namespace {

std::string_view without_line_end(std::string_view line) {
  if (line.ends_with('\n')) line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// The next blank-delimited word, taken from the front of `line`.
std::string_view take_word(std::string_view& line) {
  line = trimmed(line);
  const std::string_view word = line.substr(0, line.find(' '));
  line.remove_prefix(word.size());
  return word;
}

// The characters that may make up a header's name (RFC 9110, section 5.6.2).
bool is_token(std::string_view text) {
  constexpr std::string_view special = "!#$%&'*+-.^_`|~";
  return !text.empty() && std::all_of(text.begin(), text.end(), [&](char letter) {
    return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= 'a' && letter <= 'z') || special.find(letter) != std::string_view::npos;
  });
}

bool is_header_text(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return (byte < 0x20 && letter != '\t') || byte == 0x7f;
  });
}

// True when a list of words separated by commas holds that word.
bool lists(std::string_view list, std::string_view word) {
  while (!list.empty()) {
    const std::string_view item = list.substr(0, list.find(','));
    if (same_name(trimmed(item), word)) return true;
    list.remove_prefix(std::min(item.size() + 1, list.size()));
  }
  return false;
}

BadRequest malformed(std::string reason) { return {400, std::move(reason)}; }

}  // namespace

const std::string* Request::header(std::string_view name) const {
  for (const auto& [key, value] : headers) {
    if (same_name(key, name)) return &value;
  }
  return nullptr;
}

void RequestReader::feed(std::string_view bytes) {
  buffer_ += bytes;
  advance();
}

Request RequestReader::take() {
  request_.body = buffer_.substr(0, body_size_);
  buffer_.erase(0, body_size_);
  Request taken = std::exchange(request_, {});
  state_ = State::Head;
  body_size_ = 0;
  expects_continue_ = false;
  advance();
  return taken;
}

bool RequestReader::take_expectation() {
  return state_ == State::Body && std::exchange(expects_continue_, false);
}

bool RequestReader::body_looks_finished() const {
  return state_ == State::Body && trimmed(buffer_).ends_with("</CIM>");
}

void RequestReader::advance() {
  if (state_ == State::Head && find_head_end()) {
    request_.raw_head = buffer_.substr(0, scanned_);
    buffer_.erase(0, scanned_);
    scanned_ = 0;
    if (auto problem = read_head(request_.raw_head)) return fail(std::move(*problem));
    state_ = State::Body;
  }
  if (state_ == State::Body && buffer_.size() >= body_size_) state_ = State::Complete;
}

// Steps over whole lines until an empty one; true when the head is there.
bool RequestReader::find_head_end() {
  std::size_t line_end = 0;
  while ((line_end = buffer_.find('\n', scanned_)) != std::string::npos) {
    const std::string_view line(buffer_.data() + scanned_, line_end + 1 - scanned_);
    const bool is_empty = without_line_end(line).empty();
    if (is_empty && scanned_ == 0) {
      buffer_.erase(0, line_end + 1);  // empty lines before a request are no part of it
      continue;
    }
    scanned_ = line_end + 1;
    if (scanned_ > limits_.head) break;
    if (is_empty) return true;
  }
  if (buffer_.size() > limits_.head) fail({431, "the header block is too large"});
  return false;
}

std::optional<BadRequest> RequestReader::read_head(std::string_view head) {
  bool is_first = true;
  while (!head.empty()) {
    const std::string_view line = head.substr(0, head.find('\n') + 1);
    head.remove_prefix(line.size());
    const std::string_view text = without_line_end(line);
    if (text.empty()) break;
    auto problem = is_first ? read_request_line(text) : read_header(text);
    if (problem) return problem;
    is_first = false;
  }
  return read_framing();
}

// Some clients put more blanks around the target than one, and one at the line's end.
std::optional<BadRequest> RequestReader::read_request_line(std::string_view line) {
  if (!is_header_text(line)) return malformed("the request line holds control characters");
  request_.method = take_word(line);
  request_.target = take_word(line);
  const std::string_view version = take_word(line);
  if (!is_token(request_.method) || request_.target.empty() || !trimmed(line).empty()) {
    return malformed("the request line is not METHOD TARGET VERSION");
  }
  if (version != "HTTP/1.1" && version != "HTTP/1.0") {
    if (version.starts_with("HTTP/")) return BadRequest{505, "the version is not HTTP/1.x"};
    return malformed("the request line is not METHOD TARGET VERSION");
  }
  request_.keep_alive = version == "HTTP/1.1";
  return std::nullopt;
}

std::optional<BadRequest> RequestReader::read_header(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return malformed("a header line has no colon");
  const std::string_view name = line.substr(0, colon);
  const std::string_view value = trimmed(line.substr(colon + 1));
  if (!is_token(name)) return malformed("a header's name is not valid");
  if (!is_header_text(value)) return malformed("a header's value is not valid");
  request_.headers.emplace_back(name, value);
  return std::nullopt;
}

std::optional<BadRequest> RequestReader::read_framing() {
  if (const std::string* connection = request_.header("Connection")) {
    if (lists(*connection, "close")) {
      request_.keep_alive = false;
    } else if (lists(*connection, "keep-alive")) {
      request_.keep_alive = true;
    }
  }
  if (const std::string* expect = request_.header("Expect")) {
    if (!same_name(*expect, "100-continue")) return BadRequest{417, "unknown expectation"};
    expects_continue_ = true;
  }
  if (request_.header("Transfer-Encoding")) {
    return BadRequest{501, "transfer encodings are not supported"};
  }
  const std::string* length = request_.header("Content-Length");
  if (!length) {
    if (request_.method.ends_with("POST")) return BadRequest{411, "there is no Content-Length"};
    return std::nullopt;
  }
  for (const auto& [key, value] : request_.headers) {
    if (same_name(key, "Content-Length") && value != *length) {
      return malformed("there are two different Content-Lengths");
    }
  }
  const char* const end = length->data() + length->size();
  const auto read = std::from_chars(length->data(), end, body_size_);
  const bool all_read = read.ptr == end && !length->empty();
  const bool too_large = read.ec == std::errc::result_out_of_range;
  if (!all_read || (read.ec != std::errc() && !too_large)) {
    return malformed("the Content-Length is no number");
  }
  if (too_large || body_size_ > limits_.body) return BadRequest{413, "the body is too large"};
  return std::nullopt;
}

void RequestReader::fail(BadRequest problem) {
  state_ = State::Bad;
  problem_ = std::move(problem);
  buffer_.clear();
}

}  // namespace sandbox::http
