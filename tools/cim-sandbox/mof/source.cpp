// Words, numbers and texts of MOF files.
#include "mof/source.h"

#include <array>
#include <charconv>
#include <limits>
#include <utility>

#include "model/scalar_text.h"
#include "model/text.h"

namespace sandbox::mof {
namespace {

// Instances as values within instances; a model needs two or three.
constexpr int deepest_instance = 32;
constexpr std::uint32_t largest_array = 1U << 20U;  // elements

constexpr std::array<std::pair<char, char>, 8> escapes = {{
    {'b', '\b'},
    {'t', '\t'},
    {'n', '\n'},
    {'f', '\f'},
    {'r', '\r'},
    {'"', '"'},
    {'\'', '\''},
    {'\\', '\\'},
}};

Parser::symbol_type keyword_or_name(const std::string& word, const Place& place) {
  using Make = Parser::symbol_type (*)(Place);
  static constexpr std::array<std::pair<std::string_view, Make>, 9> keywords = {{
      {"class", [](Place at) { return Parser::make_CLASS(at); }},
      {"instance", [](Place at) { return Parser::make_INSTANCE(at); }},
      {"of", [](Place at) { return Parser::make_OF(at); }},
      {"as", [](Place at) { return Parser::make_AS(at); }},
      {"ref", [](Place at) { return Parser::make_REF(at); }},
      {"qualifier", [](Place at) { return Parser::make_QUALIFIER(at); }},
      {"null", [](Place at) { return Parser::make_NULL_VALUE(at); }},
      {"true", [](Place at) { return Parser::make_TRUE_VALUE(at); }},
      {"false", [](Place at) { return Parser::make_FALSE_VALUE(at); }},
  }};
  for (const auto& [keyword, make] : keywords) {
    if (same_name(keyword, word)) return make(place);
  }
  const std::optional<Type> type = type_named(word);
  if (type && *type != Type::Reference) return Parser::make_TYPE(*type, place);
  return Parser::make_IDENTIFIER(word, place);
}

// How a message shows a word that the grammar expects: as itself, or by its nature.
std::string shown_expectation(const std::string& name) {
  const bool is_nature =
      name.starts_with("a ") || name.starts_with("an ") || name.starts_with("the ");
  return is_nature ? name : '"' + name + '"';
}

}  // namespace

std::string to_text(const Problem& problem) {
  const std::string file = problem.place.file ? *problem.place.file : std::string();
  return file + ':' + std::to_string(problem.place.line) + ':' +
         std::to_string(problem.place.column) + ": " + problem.text;
}

void Source::advance(const char* word, std::size_t length) {
  place_ = next_;
  word_.assign(word, length);
  for (const char letter : word_) {
    if (letter == '\n') {
      ++next_.line;
      next_.column = 1;
    } else if ((static_cast<unsigned char>(letter) & 0xc0U) != 0x80) {
      ++next_.column;  // bytes that continue a character do not count
    }
  }
}

void Source::begin_text() {
  text_.clear();
  text_place_ = place_;
}

std::optional<char32_t> Source::escaped(std::string_view escape) {
  const char letter = escape[1];
  if (escape.size() > 2) {
    std::uint32_t code = 0;
    std::from_chars(escape.data() + 2, escape.data() + escape.size(), code, 16);
    if (is_xml_character(code)) return code;
    fail(place_, "expected a character that XML can carry, not " + std::string(escape));
    return std::nullopt;
  }
  for (const auto& [name, character] : escapes) {
    if (name != letter) continue;
    if (is_xml_character(static_cast<char32_t>(character))) {
      return static_cast<char32_t>(character);
    }
    fail(place_, "expected a character that XML can carry, not " + std::string(escape));
    return std::nullopt;
  }
  fail(place_, R"(expected one of \b \t \n \f \r \" \' \\ \x, not )" + std::string(escape));
  return std::nullopt;
}

bool Source::append_escape(std::string_view escape) {
  const std::optional<char32_t> character = escaped(escape);
  if (character) append_character(text_, *character);
  return character.has_value();
}

Parser::symbol_type Source::end_text() {
  if (!is_xml_text(text_)) {
    return lexical_error(text_place_, "expected UTF-8 text without control characters");
  }
  return Parser::make_TEXT(std::exchange(text_, {}), text_place_);
}

Parser::symbol_type Source::word(const char* word) {
  const std::string text(word);
  if (!is_xml_text(text)) return lexical_error(place_, "expected a name in UTF-8");
  return keyword_or_name(text, place_);
}

Parser::symbol_type Source::integer(std::string_view word, int base) {
  std::string_view digits = word;
  Integer integer;
  integer.negative = digits.starts_with('-');
  if (integer.negative || digits.starts_with('+')) digits.remove_prefix(1);
  if (base == 16) digits.remove_prefix(2);
  if (base == 2) digits.remove_suffix(1);
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, integer.magnitude, base);
  if (read.ec != std::errc()) {
    return lexical_error(place_,
                         "expected an integer of at most 64 bits, not " + std::string(word));
  }
  return Parser::make_INTEGER(integer, place_);
}

Parser::symbol_type Source::real(std::string_view word) {
  const std::optional<Scalar> scalar = scalar_from(word, Type::Real64);
  const double* number = scalar ? std::get_if<double>(&*scalar) : nullptr;
  if (!number) {
    return lexical_error(place_, "expected a real number within range, not " + std::string(word));
  }
  return Parser::make_REAL(*number, place_);
}

Parser::symbol_type Source::character(std::string_view word) {
  std::string_view inside = word.substr(1, word.size() - 2);
  std::optional<char32_t> character;
  if (inside.starts_with('\\')) {
    character = escaped(inside);
    if (!character) return Parser::make_YYerror(place_);
  } else {
    character = take_character(inside);
    if (!inside.empty() || !is_xml_character(*character)) character = no_character;
  }
  if (*character > std::numeric_limits<char16_t>::max()) {
    return lexical_error(place_, "expected one character of 16 bits between the quotes");
  }
  return Parser::make_CHARACTER(static_cast<char16_t>(*character), place_);
}

Parser::symbol_type Source::unknown_character(std::string_view word) {
  constexpr std::string_view hexadecimal = "0123456789abcdef";
  const auto byte = static_cast<unsigned char>(word.front());
  std::string shown(word);
  if (byte < 0x20 || byte > 0x7e) {
    shown = {'\\', 'x', hexadecimal[byte >> 4U], hexadecimal[byte & 0x0fU]};
  }
  return lexical_error(place_, "expected MOF, not \"" + shown + '"');
}

Parser::symbol_type Source::lexical_error(const Place& place, std::string text) {
  fail(place, std::move(text));
  return Parser::make_YYerror(place);
}

bool Source::take_array_size(const Integer& size, const Place& place, DataType& type) {
  if (size.negative || size.magnitude == 0 || size.magnitude > largest_array) {
    fail(place, "expected an array size from 1 to " + std::to_string(largest_array));
    return false;
  }
  type.array_size = static_cast<std::uint32_t>(size.magnitude);
  return true;
}

bool Source::enter_instance(const Place& place) {
  if (++instance_depth_ <= deepest_instance) return true;
  fail(place,
       "expected at most " + std::to_string(deepest_instance) + " instances within each other");
  return false;
}

void Source::fail(const Place& place, std::string text) {
  if (!problem_) problem_ = Problem{place, std::move(text)};
}

// How a message shows the word just read; strings and the end of the file by their nature.
std::string Source::shown_token(std::string_view nature) const {
  constexpr std::size_t longest = 60;
  if (nature == "a string" || nature == "the end of the file") return std::string(nature);
  return word_.size() > longest ? std::string(nature) : '"' + word_ + '"';
}

void Source::fail_at_token(const Place& place, const std::vector<std::string>& expected,
                           std::string_view found) {
  std::string text = "expected ";
  for (std::size_t i = 0; i < expected.size(); ++i) {
    if (i != 0) text += i + 1 == expected.size() ? " or " : ", ";
    text += shown_expectation(expected[i]);
  }
  fail(place, text + ", not " + shown_token(found));
}

}  // namespace sandbox::mof
