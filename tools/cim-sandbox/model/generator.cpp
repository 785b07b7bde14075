// Values for synthetic instances.
#include "model/generator.h"

#include <array>
#include <cstdio>
#include <string>

namespace sandbox {
namespace {

constexpr std::size_t array_length = 3;

Error impossible(std::string text) { return {ErrorCode::InvalidParameter, std::move(text)}; }

std::string date_time_of(std::size_t number) {
  std::array<char, 32> text{};
  const auto seconds = static_cast<unsigned>(number % 86400);
  std::snprintf(text.data(), text.size(), "20240101%02u%02u%02u.000000+000", seconds / 3600,
                seconds / 60 % 60, seconds % 60);
  return text.data();
}

// A value that stays within any integer type: small types repeat.
Scalar integer_for(Type type, std::size_t number) {
  const std::uint64_t value =
      highest(type) == ~std::uint64_t{0} ? number : std::uint64_t{number} % (highest(type) + 1);
  if (is_unsigned(type)) return value;
  return static_cast<std::int64_t>(value);
}

Scalar scalar_for(const Property& property, std::size_t number) {
  switch (property.type.type) {
    case Type::Boolean:
      return number % 2 == 1;
    case Type::String:
      return property.name + '-' + std::to_string(number);
    case Type::Char16:
      return static_cast<char16_t>(u'A' + number % 26);
    case Type::Real32:
    case Type::Real64:
      return static_cast<double>(number % 1000) / 4;
    case Type::DateTime:
      return date_time_of(number);
    case Type::Reference:
      return {};
    default:
      return integer_for(property.type.type, number);
  }
}

Value value_for(const Property& property, std::size_t number) {
  if (property.is_embedded || property.type.type == Type::Reference) return {};
  if (!property.type.is_array) return Value(scalar_for(property, number));
  const std::size_t limit = property.type.array_size;
  std::vector<Scalar> elements;
  for (std::size_t i = 0; i < array_length && (limit == 0 || i < limit); ++i) {
    elements.push_back(scalar_for(property, number + i));
  }
  return Value(std::move(elements));
}

}  // namespace

Outcome<Done> generate_instances(Repository& repository, std::string_view name_space,
                                 std::string_view class_name, std::size_t count) {
  NameSpace& home = repository.open(name_space);
  const Class* of_class = home.classes.find(class_name);
  const std::string shown = '"' + std::string(class_name) + '"';
  if (!of_class) return impossible("unknown class " + shown);
  if (of_class->is_abstract) return impossible("class " + shown + " is abstract");
  if (of_class->keys.empty()) return impossible("class " + shown + " has no key");
  for (std::size_t number = 1; number <= count; ++number) {
    Instance instance = new_instance(*of_class);
    for (std::size_t i = 0; i < of_class->properties.size(); ++i) {
      const Property& property = of_class->properties[i];
      if (property.initial.null()) instance.values[i] = value_for(property, number);
      if (property.is_key && instance.values[i].null()) {
        return impossible("key \"" + property.name + "\" of class " + shown + " is a reference");
      }
    }
    if (!home.instances.add(std::move(instance))) {
      return impossible("class " + shown + " has too few different keys for " +
                        std::to_string(count) + " instances");
    }
  }
  return Done{};
}

}  // namespace sandbox
