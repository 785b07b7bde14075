// The operations that follow associations.
#pragma once

#include "cimxml/operations.h"

namespace sandbox::cimxml {

Outcome<Returns> associators(const OperationCall& call, Markup& out);
Outcome<Returns> associator_names(const OperationCall& call, Markup& out);
Outcome<Returns> references(const OperationCall& call, Markup& out);
Outcome<Returns> reference_names(const OperationCall& call, Markup& out);

}  // namespace sandbox::cimxml
