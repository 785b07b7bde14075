// The names of the CIM status codes, and the failures made of them.
#include "exit_status.h"

#include <array>
#include <charconv>

#include "utf8.h"

namespace cli {
namespace {

struct StatusName {
  int code;
  std::string_view name;
};

// clang-format off
constexpr std::array status_names = {
    StatusName{1, "CIM_ERR_FAILED"},
    StatusName{2, "CIM_ERR_ACCESS_DENIED"},
    StatusName{3, "CIM_ERR_INVALID_NAMESPACE"},
    StatusName{4, "CIM_ERR_INVALID_PARAMETER"},
    StatusName{5, "CIM_ERR_INVALID_CLASS"},
    StatusName{6, "CIM_ERR_NOT_FOUND"},
    StatusName{7, "CIM_ERR_NOT_SUPPORTED"},
    StatusName{8, "CIM_ERR_CLASS_HAS_CHILDREN"},
    StatusName{9, "CIM_ERR_CLASS_HAS_INSTANCES"},
    StatusName{10, "CIM_ERR_INVALID_SUPERCLASS"},
    StatusName{11, "CIM_ERR_ALREADY_EXISTS"},
    StatusName{12, "CIM_ERR_NO_SUCH_PROPERTY"},
    StatusName{13, "CIM_ERR_TYPE_MISMATCH"},
    StatusName{14, "CIM_ERR_QUERY_LANGUAGE_NOT_SUPPORTED"},
    StatusName{15, "CIM_ERR_INVALID_QUERY"},
    StatusName{16, "CIM_ERR_METHOD_NOT_AVAILABLE"},
    StatusName{17, "CIM_ERR_METHOD_NOT_FOUND"},
    StatusName{20, "CIM_ERR_NAMESPACE_NOT_EMPTY"},
    StatusName{21, "CIM_ERR_INVALID_ENUMERATION_CONTEXT"},
    StatusName{22, "CIM_ERR_INVALID_OPERATION_TIMEOUT"},
    StatusName{23, "CIM_ERR_PULL_HAS_BEEN_ABANDONED"},
    StatusName{24, "CIM_ERR_PULL_CANNOT_BE_ABANDONED"},
    StatusName{25, "CIM_ERR_FILTERED_ENUMERATION_NOT_SUPPORTED"},
    StatusName{26, "CIM_ERR_CONTINUATION_ON_ERROR_NOT_SUPPORTED"},
    StatusName{27, "CIM_ERR_SERVER_LIMITS_EXCEEDED"},
    StatusName{28, "CIM_ERR_SERVER_IS_SHUTTING_DOWN"},
    StatusName{29, "CIM_ERR_QUERY_FEATURE_NOT_SUPPORTED"},
};
// clang-format on

constexpr std::string_view refused_code = "401";

}  // namespace

Failure usage_failure(const std::string& text) { return Failure(ExitStatus::Usage, text); }

std::string_view cim_status_name(int code) {
  for (const StatusName& entry : status_names) {
    if (entry.code == code) return entry.name;
  }
  return {};
}

Failure cim_failure(const char* code, const char* description) {
  const std::string_view digits = code == nullptr ? std::string_view("unknown") : code;
  if (digits == refused_code)
    return {ExitStatus::Unauthorised, "the object manager refused the user name or the password"};
  int number = 0;
  const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool whole = problem == std::errc() && end == digits.data() + digits.size();
  std::string text = "CIM error " + printable(digits);
  const std::string_view name = whole ? cim_status_name(number) : std::string_view();
  if (!name.empty()) text.append(" ").append(name);
  if (description != nullptr && *description != '\0')
    text.append(": ").append(printable(description));
  return {ExitStatus::CimError, text};
}

}  // namespace cli
