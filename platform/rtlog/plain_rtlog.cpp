// The exported functions, for machines without the C++ run-time library: they need libc alone.
#include <pthread.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "rotating_file.h"
#include "rtlog.h"
#include "settings.h"
#include "standard_error.h"
#include "system_log.h"
#include "undisturbed.h"

namespace {

using rtlog::Level;
using rtlog::Target;

struct Log {
  Target target = Target::Nowhere;
  Level level = Level::Info;
  rtlog::RotatingFile file;
  pthread_mutex_t mutex = PTHREAD_MUTEX_INITIALIZER;  // held while something is written
};
Log current_log;

// Set when current_log is complete.  <atomic> would need functions of the C library that not every
// one has.
bool is_logging_flag = false;

void start_logging() { __atomic_store_n(&is_logging_flag, true, __ATOMIC_RELEASE); }
bool is_logging() { return __atomic_load_n(&is_logging_flag, __ATOMIC_ACQUIRE); }

// A text on the heap, or null when there is no memory for it.
class Text {
 public:
  explicit Text(const char* format, ...) __attribute__((format(printf, 2, 3))) {
    va_list arguments;
    va_start(arguments, format);
    print(format, arguments);
    va_end(arguments);
  }
  Text(const char* format, va_list arguments) { print(format, arguments); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  ~Text() { std::free(text_); }

  explicit operator bool() const { return text_ != nullptr; }
  const char* get() const { return text_; }
  std::string_view view() const { return {text_, size_}; }

 private:
  void print(const char* format, va_list arguments) {
    const int size = ::vasprintf(&text_, format, arguments);
    if (size < 0)
      text_ = nullptr;
    else
      size_ = static_cast<std::size_t>(size);
  }

  char* text_ = nullptr;
  std::size_t size_ = 0;
};

void complain(const Text& what) {
  if (!what) return;
  const Text line("%s: %s; nothing is logged\n", rtlog::variable, what.get());
  if (line) rtlog::write_to_standard_error(line.view());
}

int size_of(std::string_view text) { return static_cast<int>(text.size()); }

void complain(const rtlog::Complaint& complaint) {
  const std::string_view what = complaint.what;
  const std::string_view part = complaint.part.value_or(std::string_view());
  const char* quote = complaint.part ? "\"" : "";
  complain(
      Text("%.*s%s%.*s%s", size_of(what), what.data(), quote, size_of(part), part.data(), quote));
}

bool open_file(const rtlog::Settings& settings) {
  const std::string_view path = settings.path;
  const rtlog::Opened opened = current_log.file.open(settings);
  if (opened == rtlog::Opened::CannotBe)
    complain(Text("cannot open %.*s: %s", size_of(path), path.data(), std::strerror(errno)));
  if (opened == rtlog::Opened::IsNoRegularFile)
    complain(Text("%.*s is not a regular file", size_of(path), path.data()));
  return opened == rtlog::Opened::Yes;
}

void open_log() {
  const rtlog::Undisturbed undisturbed;
  const char* value = rtlog::value_of_variable();
  if (!value) return;
  rtlog::Complaint complaint;
  const auto settings = rtlog::parse_settings(value, complaint);
  if (!settings) {
    complain(complaint);
    return;
  }
  if (settings->target == Target::File && !open_file(*settings)) return;
  current_log.target = settings->target;
  current_log.level = settings->level;
  if (settings->target != Target::Nowhere) start_logging();
}

const char* text_of(const char* text) { return text ? text : "(null)"; }

const char* name_of(Level level) {
  constexpr std::array names{"error", "warning", "info", "debug", "trace"};
  return names[static_cast<std::size_t>(level)];
}

// "2024-02-29T13:05:59.123+01:00"
using Time = std::array<char, 96>;

Time time_now() {
  timespec now = {};
  ::clock_gettime(CLOCK_REALTIME, &now);
  std::tm local = {};
  ::localtime_r(&now.tv_sec, &local);
  const long offset = local.tm_gmtoff / 60;  // minutes
  const long distance = offset < 0 ? -offset : offset;
  Time text;
  std::array<char, 32> seconds;
  std::strftime(seconds.data(), seconds.size(), "%Y-%m-%dT%H:%M:%S", &local);
  std::snprintf(text.data(), text.size(), "%s.%03ld%c%02ld:%02ld", seconds.data(),
                now.tv_nsec / 1000000, offset < 0 ? '-' : '+', distance / 60, distance % 60);
  return text;
}

void write(Level level, const Text& place, const Text& message) {
  if (current_log.target == Target::Syslog) {
    rtlog::write_to_system_log(level, place.view(), message.view());
    return;
  }
  const Text line("%s [%d] %s %s: %s\n", time_now().data(), ::getpid(), name_of(level), place.get(),
                  message.get());
  if (!line) return;
  if (current_log.target == Target::File)
    current_log.file.append(line.view());
  else
    rtlog::write_to_standard_error(line.view());
}

}  // namespace

void rt_log_init() {
  static pthread_once_t opened = PTHREAD_ONCE_INIT;
  ::pthread_once(&opened, open_log);
}

// The name is the interface's.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
void _rt_log(const char* sourceFile, int line, const char* module, const char* category, int level,
             const char* format, ...) {
  if (!is_logging() || rtlog::level_of(level) > current_log.level) return;
  const rtlog::Undisturbed undisturbed;
  const Text place("%s/%s %s:%d", text_of(module), text_of(category), text_of(sourceFile), line);
  va_list arguments;
  va_start(arguments, format);
  const Text message(text_of(format), arguments);
  va_end(arguments);
  if (!place || !message) return;
  ::pthread_mutex_lock(&current_log.mutex);
  write(rtlog::level_of(level), place, message);
  ::pthread_mutex_unlock(&current_log.mutex);
}
