// Standard error, the system log, and a file that rotates.
#include "sinks.h"

#include <fcntl.h>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/base_sink.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <mutex>
#include <string>
#include <utility>

#include "standard_error.h"
#include "system_log.h"

namespace rtlog {
namespace {

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

Level level_of(spdlog::level::level_enum level) {
  switch (level) {
    case spdlog::level::err:
      return Level::Error;
    case spdlog::level::warn:
      return Level::Warning;
    case spdlog::level::info:
      return Level::Info;
    default:
      return Level::Debug;
  }
}

class SyslogSink : public spdlog::sinks::base_sink<std::mutex> {
 protected:
  void sink_it_(const spdlog::details::log_msg& message) override {
    write_to_system_log(level_of(message.level),
                        {message.logger_name.data(), message.logger_name.size()},
                        {message.payload.data(), message.payload.size()});
  }

  void flush_() override {}
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
  return std::make_unique<spdlog::sinks::rotating_file_sink_mt>(spdlog::filename_t(settings.path),
                                                                settings.size, settings.keep,
                                                                /*rotate_on_open=*/false, handlers);
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

}  // namespace rtlog
