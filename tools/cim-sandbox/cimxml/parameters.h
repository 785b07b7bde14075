// The parameters of an intrinsic operation.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cimxml/element.h"
#include "model/object_path.h"
#include "model/outcome.h"

namespace sandbox::cimxml {

// Looks parameters up in an IMETHODCALL.  What is wrong with a parameter shows at the end:
// ask `problem` after everything was read.
class Parameters {
 public:
  // `known`: the names that the operation has; any other one, or one given twice, is a problem.
  Parameters(const Element& call, std::initializer_list<std::string_view> known);

  bool boolean(std::string_view name, bool otherwise);
  std::optional<std::string> text(std::string_view name);
  std::optional<std::vector<std::string>> texts(std::string_view name);
  // The class that a CLASSNAME names.
  std::optional<std::string> class_name(std::string_view name);
  std::string required_class_name(std::string_view name);
  // The INSTANCENAME, within `name_space` unless it says otherwise.
  ObjectPath required_object(std::string_view name, const std::string& name_space);
  // The element within the parameter; null when the parameter is missing or empty.
  const Element* element(std::string_view name) const;

  const std::optional<Error>& problem() const { return problem_; }
  void fail(std::string text);

 private:
  const Element& call_;
  std::optional<Error> problem_;
};

}  // namespace sandbox::cimxml
