// The texts of CIM date-times and intervals.
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "cim_client.h"

namespace {

// Appends formatted numbers to a text that has room for them.
[[gnu::format(printf, 2, 3)]] void append(char* text, const char* format, ...) {
  char piece[160];  // eight numbers of 11 characters at most, and the rest of the form
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(piece, sizeof piece, format, arguments);
  va_end(arguments);
  std::strcat(text, piece);
}

}  // namespace

extern "C" {

int CIMC_ConvertDateTimeToString(const CIMDateTime* dateTime, char* text) {
  if (!dateTime || !text) return -1;
  append(text, "%.4d%.2d%.2d%.2d%.2d%.2d.000000", dateTime->year, dateTime->month, dateTime->day,
         dateTime->hour, dateTime->minute, dateTime->second);
  append(text, dateTime->utcOffset >= 0 ? "+%.3d" : "%.3d", dateTime->utcOffset);
  return 0;
}

int CIMC_ConvertIntervalToString(const CIMInterval* interval, char* text) {
  if (!interval || !text) return -1;
  append(text, "%.8d%.2d%.2d%.2d.000000:000", interval->days, interval->hours, interval->minutes,
         interval->seconds);
  return 0;
}

}  // extern "C"
