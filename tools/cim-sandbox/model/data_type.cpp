// Names and limits of the CIM data types.
#include "model/data_type.h"

#include <array>
#include <limits>

#include "model/text.h"

namespace sandbox {
namespace {

struct TypeFacts {
  std::string_view name;
  std::int64_t lowest;
  std::uint64_t highest;
};

template <class Integer>
constexpr TypeFacts integer(std::string_view name) {
  using Limits = std::numeric_limits<Integer>;
  return {name, static_cast<std::int64_t>(Limits::min()),
          static_cast<std::uint64_t>(Limits::max())};
}

// In the order of Type.
constexpr std::array<TypeFacts, 15> facts = {{
    {"boolean", 0, 1},
    {"string", 0, 0},
    {"char16", 0, 0},
    integer<std::uint8_t>("uint8"),
    integer<std::uint16_t>("uint16"),
    integer<std::uint32_t>("uint32"),
    integer<std::uint64_t>("uint64"),
    integer<std::int8_t>("sint8"),
    integer<std::int16_t>("sint16"),
    integer<std::int32_t>("sint32"),
    integer<std::int64_t>("sint64"),
    {"real32", 0, 0},
    {"real64", 0, 0},
    {"datetime", 0, 0},
    {"reference", 0, 0},
}};

const TypeFacts& facts_of(Type type) { return facts[static_cast<std::size_t>(type)]; }

}  // namespace

std::string_view name_of(Type type) { return facts_of(type).name; }

std::optional<Type> type_named(std::string_view name) {
  for (std::size_t i = 0; i < facts.size(); ++i) {
    if (same_name(facts[i].name, name)) return static_cast<Type>(i);
  }
  return std::nullopt;
}

bool is_unsigned(Type type) { return type >= Type::UInt8 && type <= Type::UInt64; }
bool is_signed(Type type) { return type >= Type::SInt8 && type <= Type::SInt64; }
bool is_real(Type type) { return type == Type::Real32 || type == Type::Real64; }

std::int64_t lowest(Type type) { return facts_of(type).lowest; }
std::uint64_t highest(Type type) { return facts_of(type).highest; }

std::string describe(const DataType& type) {
  std::string text(name_of(type.type));
  if (!type.reference_class.empty()) text += " to " + type.reference_class;
  if (!type.is_array) return text;
  text += '[';
  if (type.array_size != 0) text += std::to_string(type.array_size);
  return text + ']';
}

}  // namespace sandbox
