// The classes of one namespace.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/class.h"

namespace sandbox {

// What is wrong with a declaration.
struct DeclarationError {
  std::string element;  // the property, method or superclass at fault; empty: the class itself
  std::string text;
};

class ClassTable {
 public:
  // Takes in a class that holds only what its own declaration says, and completes it with what it
  // inherits.  On an error nothing is taken in.
  std::optional<DeclarationError> add(Class declared);

  // Null when there is no class of that name.
  const Class* find(std::string_view name) const;

  // Classes without a superclass, in order of declaration.
  const std::vector<Class*>& roots() const { return roots_; }

 private:
  std::unordered_map<std::string, std::unique_ptr<Class>, NameHash, NameEqual> classes_;
  std::vector<Class*> roots_;
};

// Calls `visit` with `top` and every class below it, each class before its subclasses.
template <class Visitor>
void for_each_class(const Class& top, const Visitor& visit) {
  std::vector<const Class*> waiting{&top};
  while (!waiting.empty()) {
    const Class* next = waiting.back();
    waiting.pop_back();
    visit(*next);
    waiting.insert(waiting.end(), next->subclasses.rbegin(), next->subclasses.rend());
  }
}

}  // namespace sandbox
