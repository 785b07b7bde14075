// Values of properties, parameters and qualifiers.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace sandbox {

struct Instance;
struct ObjectPath;

// A reference and an embedded instance never change once they are part of a value, so copies of
// the value share them.
using Reference = std::shared_ptr<const ObjectPath>;
using EmbeddedInstance = std::shared_ptr<const Instance>;

// One value without its type; monostate is null.  Unsigned types are held as uint64, signed ones
// as sint64, reals as double, strings and date-times as text.
using Scalar = std::variant<std::monostate, bool, char16_t, std::uint64_t, std::int64_t, double,
                            std::string, Reference, EmbeddedInstance>;

inline bool is_null(const Scalar& scalar) { return scalar.index() == 0; }

// Null, one scalar, or an array of scalars (whose elements may be null).
class Value {
 public:
  Value() = default;
  explicit Value(Scalar scalar) : content_(std::move(scalar)) {}
  explicit Value(std::vector<Scalar> elements) : content_(std::move(elements)) {}

  bool null() const { return !is_array() && is_null(scalar()); }
  bool is_array() const { return content_.index() == 1; }
  // Only of a value that is no array, or is one.
  const Scalar& scalar() const { return *std::get_if<Scalar>(&content_); }
  const std::vector<Scalar>& elements() const {
    return *std::get_if<std::vector<Scalar>>(&content_);
  }

 private:
  std::variant<Scalar, std::vector<Scalar>> content_;
};

}  // namespace sandbox
