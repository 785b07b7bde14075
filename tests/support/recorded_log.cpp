// What the library hands to the logger.
#include "support/recorded_log.h"

#include <cstdarg>
#include <utility>

#include "support/allocations.h"

namespace support {
namespace {

thread_local RecordedLog* recorder = nullptr;

}  // namespace

RecordedLog::RecordedLog() { recorder = this; }

RecordedLog::~RecordedLog() { recorder = nullptr; }

}  // namespace support

using support::recorder;
using support::UncountedAllocations;

extern "C" {

[[gnu::visibility("default")]] void rt_log_init();
[[gnu::visibility("default")]] void _rt_log(const char* file, int line, const char* module,
                                            const char* category, int level, const char* format,
                                            ...);

void rt_log_init() {
  const UncountedAllocations uncounted;
  if (recorder) recorder->add("init");
}

void _rt_log(const char* file, int line, const char* module, const char* category, int level,
             const char* format, ...) {
  if (!recorder) return;
  const UncountedAllocations uncounted;
  va_list arguments;
  va_start(arguments, format);
  const char* argument = va_arg(arguments, const char*);
  va_end(arguments);
  std::string call;
  for (const std::string& part :
       {std::string(file), std::to_string(line), std::string(module), std::string(category),
        std::to_string(level), std::string(format)})
    call += part + "|";
  recorder->add(call + argument);
}

}  // extern "C"
