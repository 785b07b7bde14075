// Trace lines: texts for EmptyPrintf(), which a program may replace to see them.
#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

namespace cim {

using TracePrinter = int (*)(const char* format, ...);

// What EmptyPrintf() is in this process, and the library's own function of that name.  The
// dynamic linker fills both in.  They stand in variables because compilers take functions of
// different names for different functions.
[[gnu::visibility("hidden")]] extern const TracePrinter trace_printer;
[[gnu::visibility("hidden")]] extern const TracePrinter silent_printer;

// True when the program has put its own function in the place of EmptyPrintf(): guards what is
// costly to prepare for a trace line.
inline bool is_traced() { return trace_printer != silent_printer; }

// Not defined: a trace line with the wrong arguments does not compile.
void trace_arguments_do_not_match_the_format();

// A trace line's printf format, held against its arguments when it is compiled.  Conversions:
// %s, %d, %u, %ld, %lu, %p and %%.
template <class... Arguments>
class TraceFormat {
 public:
  template <std::size_t Size>
  consteval TraceFormat(const char (&text)[Size])  // NOLINT: converts, as a format does
      : text_(text) {
    if (!matches(text)) trace_arguments_do_not_match_the_format();
  }

  const char* text() const { return text_; }

 private:
  template <class T>
  static consteval const char* conversion_of() {
    if (std::is_same_v<T, char*> || std::is_same_v<T, const char*>) return "s";
    if (std::is_same_v<T, void*> || std::is_same_v<T, const void*>) return "p";
    if (std::is_same_v<T, long>) return "ld";
    if (std::is_same_v<T, unsigned long>) return "lu";
    if (std::is_same_v<T, unsigned>) return "u";
    return std::is_integral_v<T> && sizeof(T) <= sizeof(int) ? "d" : "a type without conversion";
  }

  static consteval bool matches(const char* text) {
    const std::array<const char*, sizeof...(Arguments) + 1> expected = {
        conversion_of<Arguments>()..., "no further argument"};
    std::size_t argument = 0;
    for (; *text; ++text) {
      if (*text != '%') continue;
      if (*++text == '%') continue;
      for (const char* wanted = expected[argument]; *wanted; ++wanted, ++text)
        if (*wanted != *text) return false;
      --text;
      ++argument;
    }
    return argument == sizeof...(Arguments);
  }

  const char* text_;
};

// Hands a trace line to EmptyPrintf() when that has been replaced; otherwise costs one test.
template <class... Arguments>
void trace(TraceFormat<std::type_identity_t<Arguments>...> format, Arguments... arguments) {
  if (is_traced()) trace_printer(format.text(), arguments...);
}

// The same for a line known at run time only, without conversions.
inline void trace_line(const char* line) {
  if (is_traced()) trace_printer(line);
}

}  // namespace cim
