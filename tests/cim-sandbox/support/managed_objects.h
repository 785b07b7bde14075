// An object manager over a test's own MOF.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "model/object_manager.h"
#include "model/scalar_text.h"
#include "support/mof_text.h"

namespace sandbox::test {

// "6" and the like for an error, "" for a success.
template <class T>
std::string code_of(const Outcome<T>& outcome) {
  return outcome ? "" : std::to_string(static_cast<int>(outcome.error().code));
}

template <class T>
std::string description_of(const Outcome<T>& outcome) {
  return outcome ? "" : outcome.error().description;
}

class ManagedObjects : public testing::Test {
 protected:
  explicit ManagedObjects(std::string_view mof) : manager_(repository_) {
    EXPECT_EQ(read_mof(repository_, mof), "");
  }

  // A path within root/cimv2 as clients send it: key values are text.
  static ObjectPath path(std::string_view text) {
    ObjectPath path = *object_path_from(text);
    if (path.name_space.empty()) path.name_space = "root/cimv2";
    return path;
  }

  static GivenValue given(std::string name, std::string text) {
    return {std::move(name), std::nullopt, std::nullopt, Value(Scalar(std::move(text)))};
  }

  // The text of a property of an existing instance; "null" when it is null.
  std::string value(std::string_view object, std::string_view property) {
    const auto found = manager_.get_instance(path(object));
    if (!found) return "no instance";
    const Value& held = *(*found)->find(property);
    if (held.null()) return "null";
    const Type type = (*found)->of_class->find_property(property)->type.type;
    if (!held.is_array()) return to_text(held.scalar(), type);
    std::string text;
    for (const Scalar& element : held.elements()) text += '[' + to_text(element, type) + ']';
    return text;
  }

  Repository repository_;
  ObjectManager manager_;
};

}  // namespace sandbox::test
