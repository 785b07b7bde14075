// Converting values, type by type.
#include "model_values.h"

#include <array>
#include <numeric>
#include <utility>

#include "handed_out.h"

namespace sandbox_local {
namespace {

using sandbox::Scalar;
using sandbox::Type;

// The codes of the model's types, in the order of sandbox::Type.
constexpr std::array<CIMCType, 15> codes = {
    code::boolean, code::string, code::char16, code::uint8,    code::uint16,
    code::uint32,  code::uint64, code::sint8,  code::sint16,   code::sint32,
    code::sint64,  code::real32, code::real64, code::datetime, code::reference};

CIMCType code_of(Type type) { return codes[static_cast<std::size_t>(type)]; }

std::optional<Type> type_of(CIMCType wanted) {
  for (std::size_t i = 0; i < codes.size(); ++i)
    if (codes[i] == wanted) return static_cast<Type>(i);
  return std::nullopt;
}

CIMCValue integer(CIMCType type, std::uint64_t bits) {
  CIMCValue value{};
  switch (type) {
    case code::uint8:
    case code::sint8:
      value.uint8 = static_cast<std::uint8_t>(bits);
      break;
    case code::uint16:
    case code::sint16:
      value.uint16 = static_cast<std::uint16_t>(bits);
      break;
    case code::uint32:
    case code::sint32:
      value.uint32 = static_cast<std::uint32_t>(bits);
      break;
    default:
      value.uint64 = bits;
      break;
  }
  return value;
}

// Makes a datum of whatever a scalar holds.
struct ToDatum {
  CIMCType type;

  Datum operator()(std::monostate) const { return null_of(type); }
  Datum operator()(bool truth) const {
    CIMCValue value{};
    value.boolean = truth;
    return number(type, value);
  }
  Datum operator()(char16_t character) const {
    CIMCValue value{};
    value.char16 = character;
    return number(type, value);
  }
  Datum operator()(std::uint64_t bits) const { return number(type, integer(type, bits)); }
  Datum operator()(std::int64_t number_value) const {
    return number(type, integer(type, static_cast<std::uint64_t>(number_value)));
  }
  Datum operator()(double real) const {
    CIMCValue value{};
    if (type == code::real32) {
      value.real32 = static_cast<float>(real);
    } else {
      value.real64 = real;
    }
    return number(type, value);
  }
  Datum operator()(const std::string& content) const {
    return type == code::datetime ? time(content) : text(content);
  }
  Datum operator()(const sandbox::Reference& path) const { return reference(path_of(*path)); }
  Datum operator()(const sandbox::EmbeddedInstance& embedded) const {
    return instance(instance_of({"", embedded->of_class->name, {}}, *embedded));
  }
};

Datum scalar_datum(const Scalar& scalar, Type type) {
  return std::visit(ToDatum{code_of(type)}, scalar);
}

std::int64_t signed_bits(CIMCType type, const CIMCValue& value) {
  switch (type) {
    case code::sint8:
      return value.sint8;
    case code::sint16:
      return value.sint16;
    case code::sint32:
      return value.sint32;
    default:
      return value.sint64;
  }
}

std::uint64_t unsigned_bits(CIMCType type, const CIMCValue& value) {
  switch (type) {
    case code::uint8:
      return value.uint8;
    case code::uint16:
      return value.uint16;
    case code::uint32:
      return value.uint32;
    default:
      return value.uint64;
  }
}

// A value that is no instance.
Scalar plain_scalar(const Datum& datum) {
  const auto type = type_of(datum.type);
  if (!type) return {};
  switch (*type) {
    case Type::Boolean:
      return datum.value.boolean != 0;
    case Type::Char16:
      return static_cast<char16_t>(datum.value.char16);
    case Type::Real32:
      return double{datum.value.real32};
    case Type::Real64:
      return datum.value.real64;
    case Type::String:
      return static_cast<const Text&>(*datum.inside).text;
    case Type::DateTime:
      return static_cast<const Time&>(*datum.inside).text;
    case Type::Reference:
      return std::make_shared<const sandbox::ObjectPath>(
          model_path(static_cast<const Path&>(*datum.inside)));
    default:
      if (sandbox::is_signed(*type)) return signed_bits(datum.type, datum.value);
      return unsigned_bits(datum.type, datum.value);
  }
}

}  // namespace

Datum datum_of(const sandbox::Value& value, const sandbox::DataType& type) {
  const CIMCType element = code_of(type.type);
  if (value.null())
    return null_of(type.is_array ? static_cast<CIMCType>(element | code::array) : element);
  if (!value.is_array()) return scalar_datum(value.scalar(), type.type);
  ArrayObject elements(0, element);
  for (const Scalar& scalar : value.elements()) {
    elements.elements.push_back(scalar_datum(scalar, type.type));
    // Embedded instances are declared as strings.
    if (elements.elements.back().type == code::instance) elements.element = code::instance;
  }
  return array(elements);
}

Path path_of(const sandbox::ObjectPath& path) {
  Path result(path.name_space, path.class_name);
  for (const sandbox::KeyBinding& key : path.keys)
    member(result.keys, key.name) = scalar_datum(key.value, key.type);
  return result;
}

sandbox::ObjectPath model_path(const Path& path) {
  sandbox::ObjectPath result{path.name_space, path.class_name, {}};
  for (const Member& key : path.keys)
    result.keys.push_back(
        {key.name, type_of(key.datum.type).value_or(Type::String), plain_scalar(key.datum)});
  return result;
}

InstanceObject instance_of(const sandbox::ObjectPath& path, const sandbox::Instance& instance) {
  std::vector<std::size_t> all(instance.of_class->properties.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  return instance_of(path, instance, all);
}

InstanceObject instance_of(const sandbox::ObjectPath& path, const sandbox::Instance& instance,
                           const std::vector<std::size_t>& positions) {
  InstanceObject result(path_of(path));
  const auto& properties = instance.of_class->properties;
  for (const std::size_t i : positions)
    member(result.properties, properties[i].name) =
        datum_of(instance.values[i], properties[i].type);
  return result;
}

Scalar GivenValues::embedded(const InstanceObject& object) const {
  const auto built = manager_.build_instance(object.path.name_space, instance(object));
  if (!built) return {};
  return std::make_shared<const sandbox::Instance>(*built);
}

Scalar GivenValues::scalar(const Datum& datum) const {
  if (datum.state != state_good) return {};
  if (datum.type == code::instance)
    return embedded(static_cast<const InstanceObject&>(*datum.inside));
  return plain_scalar(datum);
}

sandbox::GivenValue GivenValues::value(const Member& given) const {
  sandbox::GivenValue result;
  result.name = given.name;
  if (given.datum.state == state_good && (given.datum.type & code::array)) {
    std::vector<Scalar> elements;
    for (const Datum& element : static_cast<const ArrayObject&>(*given.datum.inside).elements)
      elements.push_back(scalar(element));
    result.value = sandbox::Value(std::move(elements));
  } else {
    result.value = sandbox::Value(scalar(given.datum));
  }
  return result;
}

sandbox::GivenInstance GivenValues::instance(const InstanceObject& object) const {
  sandbox::GivenInstance result{object.path.class_name, {}};
  for (const Member& property : object.properties) result.properties.push_back(value(property));
  return result;
}

ClassObject class_of(const sandbox::Class& model_class) {
  ClassObject result(model_class.name);
  result.superclass = model_class.superclass_name;
  result.is_abstract = model_class.is_abstract;
  result.is_association = model_class.is_association;
  result.is_indication = model_class.is_indication;
  for (const sandbox::Property& property : model_class.properties)
    member(result.properties, property.name) = datum_of(property.initial, property.type);
  return result;
}

}  // namespace sandbox_local
