// The query operation.
#pragma once

#include "cimxml/operations.h"

namespace sandbox::cimxml {

Outcome<Returns> exec_query(const OperationCall& call, Markup& out);

}  // namespace sandbox::cimxml
