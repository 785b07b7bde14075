// Reading and choosing faults.
#include "faults/fault.h"

#include <array>
#include <charconv>

#include "model/text.h"

namespace sandbox::faults {
namespace {

constexpr std::uint64_t longest_pause = 600'000;  // milliseconds

// Takes a line apart; the first mistake stays in `problem`.
class LineReader {
 public:
  explicit LineReader(std::string_view line) : rest_(trimmed(line)) {}

  Fault read() {
    Fault fault;
    while (read_condition(fault)) {
    }
    while (!rest_.empty() && problem_.empty()) read_action(fault);
    if (fault.actions.empty()) expect("an action");
    return fault;
  }

  const std::string& problem() const { return problem_; }

 private:
  std::string_view peek() const { return rest_.substr(0, rest_.find_first_of(" \t")); }

  std::string_view take() {
    const std::string_view word = peek();
    rest_ = trimmed(rest_.substr(word.size()));
    return word;
  }

  void expect(const std::string& what) {
    if (!problem_.empty()) return;
    const std::string found =
        peek().empty() ? "the end of the line" : '"' + std::string(peek()) + '"';
    problem_ = "expected " + what + ", not " + found;
  }

  bool next_is_number() const {
    return !rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9';
  }

  std::uint64_t take_number(const std::string& what, std::uint64_t lowest, std::uint64_t highest) {
    const std::string_view word = peek();
    std::uint64_t number = 0;
    const auto read = std::from_chars(word.data(), word.data() + word.size(), number);
    const bool is_number = read.ec == std::errc() && read.ptr == word.data() + word.size();
    if (!is_number || number < lowest || number > highest) {
      expect(what + " from " + std::to_string(lowest) + " to " + std::to_string(highest));
      return lowest;
    }
    take();
    return number;
  }

  std::uint64_t take_count() { return take_number("a number", 1, UINT64_MAX); }
  std::size_t take_position() { return take_number("a number of bytes", 0, UINT32_MAX); }
  int take_pause() { return static_cast<int>(take_number("milliseconds", 0, longest_pause)); }
  int take_pause_or(int otherwise) { return next_is_number() ? take_pause() : otherwise; }

  bool read_condition(Fault& fault) {
    const std::string_view word = peek();
    if (!problem_.empty()) return false;
    if (word == "all") {
      take();
    } else if (word == "request") {
      take();
      fault.number = take_count();
    } else if (word == "every") {
      take();
      fault.every = take_count();
    } else if (word == "after") {
      take();
      fault.after = take_count();
    } else if (word == "operation") {
      take();
      if (!is_name(peek())) expect("the name of an operation");
      fault.operation = take();
    } else {
      return false;
    }
    return true;
  }

  void read_action(Fault& fault) {
    using Reader = Action (LineReader::*)();
    static constexpr std::array<std::pair<std::string_view, Reader>, 13> readers = {{
        {"delay", &LineReader::delay},
        {"split", &LineReader::split},
        {"split-at", &LineReader::split_at},
        {"trickle", &LineReader::trickle},
        {"close-at", &LineReader::close_at},
        {"reset-at", &LineReader::reset_at},
        {"drop", &LineReader::drop},
        {"silent", &LineReader::silent},
        {"status", &LineReader::status},
        {"error", &LineReader::error},
        {"malformed", &LineReader::malformed},
        {"length", &LineReader::length},
        {"no-length", &LineReader::no_length},
    }};
    for (const auto& [name, reader] : readers) {
      if (peek() != name) continue;
      take();
      fault.actions.push_back((this->*reader)());
      return;
    }
    expect(fault.actions.empty() ? "a condition or an action" : "an action");
  }

  Action delay() { return Delay{take_pause()}; }
  Action split() { return Split{take_pause_or(200)}; }
  Action split_at() {
    const std::size_t position = take_position();
    return SplitAt{position, take_pause_or(200)};
  }
  Action trickle() {
    const std::size_t piece = take_number("a number of bytes", 1, UINT32_MAX);
    return Trickle{piece, take_pause_or(10)};
  }
  Action close_at() { return CloseAt{take_position()}; }
  Action reset_at() { return ResetAt{take_position()}; }
  Action drop() { return CloseAt{0}; }
  Action silent() { return StaySilent{}; }
  Action status() { return ReplaceByStatus{static_cast<int>(take_number("a status", 100, 599))}; }
  Action error() { return ReplaceByError{static_cast<int>(take_number("a CIM code", 1, 255))}; }
  Action malformed() { return Malform{}; }
  Action no_length() { return StateLength{StateLength::Kind::Not, 0}; }
  Action length() {
    const char sign = rest_.empty() ? ' ' : rest_.front();
    if (sign == '+' || sign == '-') rest_.remove_prefix(1);
    const std::uint64_t number = take_number("a number", 0, UINT64_MAX);
    if (sign == '+') return StateLength{StateLength::Kind::More, number};
    if (sign == '-') return StateLength{StateLength::Kind::Less, number};
    return StateLength{StateLength::Kind::Exactly, number};
  }

  std::string_view rest_;
  std::string problem_;
};

bool meets(const Fault& fault, std::uint64_t number, std::string_view operation) {
  return (fault.number == 0 || fault.number == number) &&
         (fault.every == 0 || number % fault.every == 0) && number > fault.after &&
         (fault.operation.empty() || same_name(fault.operation, operation));
}

}  // namespace

std::optional<std::string> Plan::add(std::string_view name, std::string_view text) {
  for (int line_number = 1; !text.empty(); ++line_number) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    line = trimmed(line.substr(0, line.find('#')));
    if (line.empty()) continue;
    LineReader reader(line);
    Fault fault = reader.read();
    if (!reader.problem().empty()) {
      return std::string(name) + ':' + std::to_string(line_number) + ": " + reader.problem();
    }
    faults_.push_back(std::move(fault));
  }
  return std::nullopt;
}

std::vector<Action> Plan::next(std::string_view operation) {
  ++count_;
  std::vector<Action> actions;
  for (const Fault& fault : faults_) {
    if (!meets(fault, count_, operation)) continue;
    actions.insert(actions.end(), fault.actions.begin(), fault.actions.end());
  }
  return actions;
}

}  // namespace sandbox::faults
