// A CIM-XML service over a test's own MOF.
#pragma once

#include <string>
#include <string_view>

#include "cimxml/service.h"
#include "support/documents.h"
#include "support/managed_objects.h"

namespace sandbox::test {

class ServicedObjects : public ManagedObjects {
 protected:
  explicit ServicedObjects(std::string_view mof) : ManagedObjects(mof), service_(manager_) {}

  // The whole response document, or the status and CIMError of a refusal.
  std::string answer(const std::string& document) {
    const auto answer = service_.answer(document);
    if (const auto* refusal = std::get_if<cimxml::Refusal>(&answer)) {
      return std::to_string(refusal->status) + ' ' + refusal->cim_error;
    }
    return std::get<cimxml::Response>(answer).document;
  }

  std::string call(const std::string& operation, const std::string& parameters) {
    return answer(intrinsic_request(operation, parameters));
  }

  // What an operation that fails answers.
  static std::string error(const std::string& operation, const std::string& code,
                           const std::string& description) {
    return intrinsic_response(
        operation, "<ERROR CODE=\"" + code + "\" DESCRIPTION=\"" + description + "\"/>\n");
  }

  cimxml::Service service_;
};

}  // namespace sandbox::test
