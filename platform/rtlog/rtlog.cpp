// The exported functions.
#include "rtlog.h"

#include <array>
#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "settings.h"
#include "sinks.h"
#include "standard_error.h"
#include "undisturbed.h"

namespace {

using rtlog::Level;

struct Log {
  std::unique_ptr<rtlog::Sink> sink;
  Level level;
};

// Null: nothing is logged.  Never released, so that threads may log until the process ends.
std::atomic<const Log*> current_log = nullptr;

void complain(const std::string& what) {
  rtlog::write_to_standard_error(std::string(rtlog::variable) + ": " + what +
                                 "; nothing is logged\n");
}

std::string text_of(const rtlog::Complaint& complaint) {
  const std::string what(complaint.what);
  return complaint.part ? what + '"' + std::string(*complaint.part) + '"' : what;
}

void open_log() {
  const char* value = rtlog::value_of_variable();
  if (!value) return;
  rtlog::Complaint complaint;
  const auto settings = rtlog::parse_settings(value, complaint);
  if (!settings) {
    complain(text_of(complaint));
    return;
  }
  try {
    auto sink = rtlog::open_sink(*settings);
    if (sink) current_log = new Log{std::move(sink), settings->level};
  } catch (const std::exception& problem) {
    complain(problem.what());
  }
}

// No exception may reach the C callers; what fails here is not logged.
template <class Action>
void contain(Action action) {
  const rtlog::Undisturbed undisturbed;
  try {
    action();
  } catch (...) {
  }
}

const char* text_of(const char* text) { return text ? text : "(null)"; }

spdlog::level::level_enum spdlog_level(Level level) {
  constexpr std::array levels{spdlog::level::err, spdlog::level::warn, spdlog::level::info,
                              spdlog::level::debug, spdlog::level::trace};
  return levels[static_cast<std::size_t>(level)];
}

// Both lists hold the arguments.  The format itself when it cannot be applied.
std::string formatted(const char* format, va_list to_measure, va_list to_write) {
  const int length = std::vsnprintf(nullptr, 0, format, to_measure);
  if (length < 0) return format;
  std::string text(static_cast<std::size_t>(length), '\0');
  std::vsnprintf(text.data(), text.size() + 1, format, to_write);
  return text;
}

}  // namespace

void rt_log_init() {
  static const bool opened = [] {
    contain(open_log);
    return true;
  }();
  (void)opened;
}

// The name is the interface's.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
void _rt_log(const char* sourceFile, int line, const char* module, const char* category, int level,
             const char* format, ...) {
  const Log* log = current_log;
  if (!log || rtlog::level_of(level) > log->level) return;

  va_list to_measure;
  va_list to_write;
  va_start(to_measure, format);
  va_start(to_write, format);
  contain([&] {
    const std::string place = std::string(text_of(module)) + '/' + text_of(category) + ' ' +
                              text_of(sourceFile) + ':' + std::to_string(line);
    const std::string message = formatted(text_of(format), to_measure, to_write);
    log->sink->log({spdlog::source_loc{}, place, spdlog_level(rtlog::level_of(level)), message});
    log->sink->flush();
  });
  va_end(to_write);
  va_end(to_measure);
}
