// Operands that many commands share.
#pragma once

#include <cstdint>
#include <string>

#include "context.h"
#include "object_path.h"
#include "owners.h"
#include "typed_values.h"

namespace cli {

// Each operand may begin with a namespace, which becomes the session's. Where a quoted key could
// be a reference, the class is asked.

// The path that a class operand names, "CIM_Fan" or "root/interop:CIM_Fan".
ObjectUri class_path_operand(Context& context, const std::string& text);

// The record to send for a class operand. Null for an empty text.
ClassNameOwner class_operand(Context& context, const std::string& text);

// The path that an operand names: a class or an instance.
ObjectUri object_path_operand(Context& context, const std::string& text);

// The record to send for such an operand.
ObjectNameOwner object_operand(Context& context, const std::string& text);

// The path that an instance operand names.
ObjectUri instance_operand(Context& context, const std::string& text);

// The records to send for names.
ClassNameOwner class_name_to_send(const Session& session, const std::string& name);
InstanceNameOwner instance_name_to_send(const Session& session, const ObjectUri& path);

// The record to send for a class that is read: that goes over CIM-XML whatever the back end.
ClassNameOwner class_name_over_http(const std::string& name);

// The definition of a class with its qualifiers and everything that it inherits.
ClassOwner class_definition(Session& session, const std::string& class_name);

// Asks the session for definitions.
ClassSource class_source(Context& context);

// A flag as the library's operations take it.
constexpr std::uint32_t flag(bool value) { return value ? 1U : 0U; }

}  // namespace cli
