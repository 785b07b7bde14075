// The library's records as JSON values.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "cim_client.h"
#include "views.h"

namespace cli {

using JsonValue = nlohmann::ordered_json;

// {"uri":..., "host":..., "namespace":..., "class":..., "keys":{...}}
JsonValue json_of(const PathView& path);

// {"type":..., "array":true, "value":...} and what else is known of it.
JsonValue json_of(const TypedView& view);

// {"class":..., "properties":{...}} with the properties of these names only, if any are given.
JsonValue json_of(const Instance& instance, const std::vector<std::string>& properties);

// {"class":..., "superclass":..., "qualifiers":{...}, "properties":{...}, "methods":{...}}
JsonValue json_of(const Class& definition);

// {"returnValue":..., "parameters":{...}}
JsonValue json_of(const ReturnValue* return_value, const ParamValue* parameters);

}  // namespace cli
