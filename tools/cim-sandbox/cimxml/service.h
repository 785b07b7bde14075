// Answers CIM-XML request documents.
#pragma once

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

class Service {
 public:
  explicit Service(ObjectManager& manager) : manager_(manager) {}

  std::variant<Response, Refusal> answer(std::string_view document);

 private:
  std::string answer(const Request& request);

  ObjectManager& manager_;
};

}  // namespace sandbox::cimxml
