// Operands that many commands share.
#pragma once

#include <string>

#include "context.h"
#include "object_path.h"
#include "owners.h"

namespace cli {

// The record to send for a class operand, "CIM_Fan" or "root/interop:CIM_Fan"; its namespace
// becomes the session's. Null for an empty text.
ClassNameOwner class_operand(Context& context, const std::string& text);

// The path that an instance operand names; its namespace becomes the session's. Where a quoted key
// could be a reference, the class is asked.
ObjectUri instance_operand(Context& context, const std::string& text);

// The records to send for names.
ClassNameOwner class_name_to_send(const std::string& name);
InstanceNameOwner instance_name_to_send(const ObjectUri& path);

// The definition of a class with its qualifiers and everything that it inherits.
ClassOwner class_definition(Session& session, const std::string& class_name);

// A flag as the library's operations take it.
constexpr std::uint32_t flag(bool value) { return value ? 1U : 0U; }

}  // namespace cli
