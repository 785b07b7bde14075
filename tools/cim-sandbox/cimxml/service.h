// Answers CIM-XML request documents.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "cimxml/request.h"
#include "model/object_manager.h"

namespace sandbox::cimxml {

// A whole response document, and what it answers.
struct Response {
  std::string operation;  // "GetClass", or the name of an extrinsic method
  std::string document;
};

// Asked before an operation is carried out; an error takes its place.
using Interception = std::function<std::optional<Error>(std::string_view operation)>;

class Service {
 public:
  explicit Service(ObjectManager& manager) : manager_(manager) {}

  std::variant<Response, Refusal> answer(std::string_view document,
                                         const Interception& intercept = {});

 private:
  std::string answer(const Request& request, const std::optional<Error>& instead);

  ObjectManager& manager_;
};

}  // namespace sandbox::cimxml
