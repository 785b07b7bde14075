// The intrinsic operations: each reads its parameters, has the object manager work, and writes
// the content of IRETURNVALUE.
#pragma once

#include <string>
#include <string_view>

#include "cimxml/element.h"
#include "cimxml/markup.h"
#include "model/object_manager.h"

namespace sandbox::cimxml {

struct OperationCall {
  ObjectManager& manager;
  std::string name_space;
  const Element& call;  // the IMETHODCALL
};

// An operation writes into `out`; on an error what it wrote is dropped.
// Its success tells whether there is an IRETURNVALUE at all.
enum class Returns { Nothing, Value };
using Operation = Outcome<Returns> (*)(const OperationCall& call, Markup& out);

// Null for an operation that the sandbox does not have.
Operation find_operation(std::string_view name);

}  // namespace sandbox::cimxml
