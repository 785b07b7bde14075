// Values as text, and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/data_type.h"
#include "model/value.h"

namespace sandbox {

// The text of a value of `type` as CIM-XML writes it: TRUE, 42, 1.5, the text itself, a path.
// Null and embedded instances have none.
void append_text(std::string& out, const Scalar& scalar, Type type);
std::string to_text(const Scalar& scalar, Type type);

// Reads such a text; white space around numbers, booleans and date-times is skipped, integers may
// be hexadecimal ("0x1F").  Nothing when the text is no value of `type`.
std::optional<Scalar> scalar_from(std::string_view text, Type type);

// The integer with this sign and magnitude as a value of `type`, if it lies within its limits.
std::optional<Scalar> integer_of(bool negative, std::uint64_t magnitude, Type type);

}  // namespace sandbox
