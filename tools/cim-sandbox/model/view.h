// What a client wants to see of the instances and classes that it asks for.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/class.h"

namespace sandbox {

struct Wishes {
  bool local_only = false;
  bool deep = true;  // also properties of subclasses of the class asked for
  bool qualifiers = false;
  bool class_origin = false;
  std::optional<std::vector<std::string>> properties;  // only these; nothing: all

  bool names(std::string_view property) const;
};

// Chooses the properties that instances show.
class View {
 public:
  // `asked_for`: the class in whose name instances are listed; null: each instance's own class.
  View(Wishes wishes, const Class* asked_for) : wishes_(std::move(wishes)), asked_for_(asked_for) {}

  const Wishes& wishes() const { return wishes_; }

  // The positions of the properties that an instance of `of_class` shows.
  const std::vector<std::size_t>& positions(const Class& of_class) const;

 private:
  bool shows(const Class& of_class, const Property& property) const;

  Wishes wishes_;
  const Class* asked_for_;
  mutable std::unordered_map<const Class*, std::vector<std::size_t>> known_;
};

}  // namespace sandbox
