// Writing and reading records.
#include "record/record.h"

#include <charconv>

#include "model/text.h"

namespace sandbox::record {
namespace {

constexpr std::string_view first_line = "cim-sandbox record 1\n";

// Takes a record apart from its front; the first mistake stays in `problem`.
class RecordReader {
 public:
  explicit RecordReader(std::string_view text) : rest_(text) {}

  std::vector<Exchange> read() {
    std::vector<Exchange> exchanges;
    expect(first_line);
    while (problem_.empty() && !rest_.empty()) exchanges.push_back(read_exchange());
    return exchanges;
  }

  const std::string& problem() const { return problem_; }

 private:
  void fail(const std::string& text) {
    if (problem_.empty()) problem_ = text;
  }

  void expect(std::string_view text) {
    if (rest_.starts_with(text)) {
      rest_.remove_prefix(text.size());
    } else {
      fail("expected \"" + std::string(trimmed(text)) + '"');
    }
  }

  std::string_view take_line() {
    const std::size_t end = rest_.find('\n');
    const std::string_view line = rest_.substr(0, end);
    if (end == std::string_view::npos) fail("a line has no end");
    rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
    return line;
  }

  Exchange read_exchange() {
    Exchange exchange;
    expect("exchange ");
    const std::string_view line = take_line();
    const std::size_t blank = line.find(' ');
    if (blank != std::string_view::npos) exchange.operation = line.substr(blank + 1);
    exchange.request = take_bytes("request ");
    exchange.answer = take_bytes("answer ");
    return exchange;
  }

  std::string take_bytes(std::string_view label) {
    expect(label);
    const std::string_view line = take_line();
    std::size_t size = 0;
    const auto read = std::from_chars(line.data(), line.data() + line.size(), size);
    if (read.ec != std::errc() || read.ptr != line.data() + line.size()) {
      fail("expected a number of bytes");
    }
    if (!problem_.empty() || rest_.size() <= size || rest_[size] != '\n') {
      fail("bytes are missing");
      return {};
    }
    std::string bytes(rest_.substr(0, size));
    rest_.remove_prefix(size + 1);
    return bytes;
  }

  std::string_view rest_;
  std::string problem_;
};

void append_bytes(std::string& text, std::string_view label, std::string_view bytes) {
  text += label;
  text += std::to_string(bytes.size());
  text += '\n';
  text += bytes;
  text += '\n';
}

}  // namespace

bool Recorder::open(const std::string& path) {
  file_.reset(std::fopen(path.c_str(), "wb"));
  if (!file_) return false;
  std::fwrite(first_line.data(), 1, first_line.size(), file_.get());
  return std::fflush(file_.get()) == 0;
}

void Recorder::write(const Exchange& exchange) {
  if (!file_) return;
  std::string text = "exchange " + std::to_string(++count_);
  if (!exchange.operation.empty()) text += ' ' + exchange.operation;
  text += '\n';
  append_bytes(text, "request ", exchange.request);
  append_bytes(text, "answer ", exchange.answer);
  std::fwrite(text.data(), 1, text.size(), file_.get());
  std::fflush(file_.get());
}

std::variant<std::vector<Exchange>, std::string> read_record(std::string_view text) {
  RecordReader reader(text);
  std::vector<Exchange> exchanges = reader.read();
  if (!reader.problem().empty()) return reader.problem();
  return exchanges;
}

std::string without_credentials(const std::string& head) {
  std::string cleaned;
  std::string_view rest = head;
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n') + 1);
    const std::string_view taken = line.empty() ? rest : line;
    rest.remove_prefix(taken.size());
    const std::size_t colon = taken.find(':');
    if (colon != std::string_view::npos && same_name(taken.substr(0, colon), "Authorization")) {
      const std::size_t end = taken.find_first_of("\r\n");
      cleaned += "Authorization: Basic KjoqKg==";  // "*:**"
      if (end != std::string_view::npos) cleaned += taken.substr(end);
    } else {
      cleaned += taken;
    }
  }
  return cleaned;
}

}  // namespace sandbox::record
