// The texts of CIM date-times and intervals.
#include <cstdio>
#include <cstring>

#include "cim_client.h"

namespace {

// Bytes that hold either form, whatever its numbers: seven of them, of 11 characters at most.
constexpr int longest_form = 128;

}  // namespace

extern "C" {

int CIMC_ConvertDateTimeToString(const CIMDateTime* dateTime, char* text) {
  if (!dateTime || !text) return -1;
  char form[longest_form];
  // A negative offset brings its own sign.
  std::snprintf(form, sizeof form, "%.4d%.2d%.2d%.2d%.2d%.2d.000000%s%.3d", dateTime->year,
                dateTime->month, dateTime->day, dateTime->hour, dateTime->minute, dateTime->second,
                dateTime->utcOffset >= 0 ? "+" : "", dateTime->utcOffset);
  std::strcat(text, form);
  return 0;
}

int CIMC_ConvertIntervalToString(const CIMInterval* interval, char* text) {
  if (!interval || !text) return -1;
  char form[longest_form];
  std::snprintf(form, sizeof form, "%.8d%.2d%.2d%.2d.000000:000", interval->days, interval->hours,
                interval->minutes, interval->seconds);
  std::strcat(text, form);
  return 0;
}

}  // extern "C"
