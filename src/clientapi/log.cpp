// Writing the lines, and the error record that goes with them.
#include "clientapi/log.h"

#include <unistd.h>

#include <cstdarg>
#include <cstdlib>

#include "base/memory.h"
#include "clientapi/interface.h"
#include "rtlog.h"

namespace cim::broker {

void log_entry(const char* format, ...) {
  char line[256];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line, sizeof line, format, arguments);
  va_end(arguments);
  cimc_debug(1, line);
}

}  // namespace cim::broker

namespace {

bool is_log_ready = false;

// A decimal number of any int, which the caller frees.
char* decimal(int number) {
  constexpr std::size_t room = 12;
  char* text = static_cast<char*>(std::calloc(room, 1));
  if (text) std::snprintf(text, room, "%d", number);
  return text;
}

}  // namespace

extern "C" {

// Every line says that it comes from line 72: log filters on devices look for it.
void cimc_debug(int entering, const char* functionName) {
  if (!is_log_ready) {
    rt_log_init();
    is_log_ready = true;
  }
  _rt_log("src/clientapi", 72, "BINCIMCLIENT", functionName, 2, "[%d] ---%s",
          static_cast<int>(getpid()), entering ? "Entering" : "Leaving");
}

int log_err_msgs(int code, const void* message, Error** errorOut) {
  const auto* string = static_cast<const cim::broker::CIMCString*>(message);
  if (!string || !string->hdl || !errorOut) return -1;
  Error* error = *errorOut = cim::allocate<Error>();
  if (!error) return -1;
  error->code = decimal(code);
  if (!error->code) return -1;
  error->description = cim::duplicate(static_cast<const char*>(string->hdl));
  return error->description ? 0 : -1;
}

}  // extern "C"
