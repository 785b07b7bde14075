// Values as people read and type them.
#pragma once

#include <string>
#include <string_view>

#include "views.h"

namespace cli {

// Whether values of a CIM type are texts: string, datetime and char16, and what has no known type.
bool is_text_type(std::string_view type);

// Whether values of a CIM type are numbers.
bool is_number_type(std::string_view type);

// A value: a text as it is, `["a", "b"]` for an array, the path of a reference,
// `CIM_Thing{Name="a", Size=3}` for an embedded instance, `null`. May hold any character.
std::string value_text(const TypedView& view);

// The same with a single text in double quotes.
std::string quoted_value_text(const TypedView& view);

}  // namespace cli
