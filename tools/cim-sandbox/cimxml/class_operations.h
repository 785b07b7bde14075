// The operations that read classes.
#pragma once

#include "cimxml/operations.h"

namespace sandbox::cimxml {

Outcome<Returns> get_class(const OperationCall& call, Markup& out);
Outcome<Returns> enumerate_classes(const OperationCall& call, Markup& out);
Outcome<Returns> enumerate_class_names(const OperationCall& call, Markup& out);

}  // namespace sandbox::cimxml
