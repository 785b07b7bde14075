// Standard error, the system log, and a file that rotates.
#include "sinks.h"

#include <fcntl.h>
#include <poll.h>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <sys/stat.h>
#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <mutex>
#include <string>
#include <utility>

namespace rtlog {
namespace {

// The library's own stream buffers are not used: the application may have closed or replaced
// them.
class StandardErrorSink : public spdlog::sinks::base_sink<std::mutex> {
 protected:
  void sink_it_(const spdlog::details::log_msg& message) override {
    spdlog::memory_buf_t line;
    formatter_->format(message, line);
    write_to_standard_error({line.data(), line.size()});
  }

  void flush_() override {}
};

// ---- System log ----

// What any syslog daemon takes in one message, less room for its own head and ours
// (RFC 3164: 1024 bytes in all).
constexpr std::size_t longest_part = 800;  // bytes

// The first part of `line` that fits, without cutting a UTF-8 character.
std::string_view first_part(std::string_view line) {
  if (line.size() <= longest_part) return line;
  const auto continues = [&](std::size_t at) {
    return (static_cast<unsigned char>(line[at]) & 0xC0U) == 0x80U;
  };
  std::size_t end = longest_part;
  while (end > longest_part - 3 && continues(end)) --end;
  return line.substr(0, end);
}

int priority(spdlog::level::level_enum level) {
  switch (level) {
    case spdlog::level::err:
      return LOG_ERR;
    case spdlog::level::warn:
      return LOG_WARNING;
    case spdlog::level::info:
      return LOG_INFO;
    default:
      return LOG_DEBUG;
  }
}

// Leaves openlog() alone, which would change the application's own entries.
class SyslogSink : public spdlog::sinks::base_sink<std::mutex> {
 protected:
  void sink_it_(const spdlog::details::log_msg& message) override {
    std::string_view rest(message.payload.data(), message.payload.size());
    do {
      const std::size_t line_end = std::min(rest.find('\n'), rest.size());
      write_line(message, rest.substr(0, line_end));
      rest.remove_prefix(std::min(line_end + 1, rest.size()));
    } while (!rest.empty());
  }

  void flush_() override {}

 private:
  static void write_line(const spdlog::details::log_msg& message, std::string_view line) {
    do {
      const std::string_view part = first_part(line);
      ::syslog(priority(message.level), "[%d] %.*s: %.*s", ::getpid(),
               static_cast<int>(message.logger_name.size()), message.logger_name.data(),
               static_cast<int>(part.size()), part.data());
      line.remove_prefix(part.size());
    } while (!line.empty());
  }
};

// ---- File ----

// Messages hold management data: a new file is for its owner alone.  A pipe nobody reads must
// not hold the application up, so other kinds of files are not opened.
void create_private_file(const spdlog::filename_t& path) {
  const int file =
      ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0600);
  if (file < 0) spdlog::throw_spdlog_ex("cannot open " + path, errno);
  struct stat status = {};
  const bool regular = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
  ::close(file);
  if (!regular) spdlog::throw_spdlog_ex(path + " is not a regular file");
}

std::unique_ptr<Sink> open_file(const Settings& settings) {
  spdlog::file_event_handlers handlers;
  handlers.before_open = create_private_file;
  return std::make_unique<spdlog::sinks::rotating_file_sink_mt>(
      settings.path, settings.size, settings.keep, /*rotate_on_open=*/false, handlers);
}

std::unique_ptr<Sink> make_sink(const Settings& settings) {
  switch (settings.target) {
    case Target::StandardError:
      return std::make_unique<StandardErrorSink>();
    case Target::Syslog:
      return std::make_unique<SyslogSink>();
    case Target::File:
      return open_file(settings);
    case Target::Nowhere:
      break;
  }
  return nullptr;
}

}  // namespace

std::unique_ptr<Sink> open_sink(const Settings& settings) {
  std::unique_ptr<Sink> sink = make_sink(settings);
  if (sink) sink->set_pattern("%Y-%m-%dT%H:%M:%S.%e%z [%P] %l %n: %v");
  return sink;
}

void write_to_standard_error(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
    if (written >= 0) {
      text.remove_prefix(static_cast<std::size_t>(written));
      continue;
    }
    if (errno == EINTR) continue;
    if (errno != EAGAIN) return;
    pollfd standard_error = {STDERR_FILENO, POLLOUT, 0};
    constexpr int patience = 100;  // milliseconds; then the rest is dropped
    if (::poll(&standard_error, 1, patience) == 0) return;
  }
}

}  // namespace rtlog
