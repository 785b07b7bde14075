// The operations on instances.
#pragma once

#include "cimxml/operations.h"

namespace sandbox::cimxml {

Outcome<Returns> get_instance(const OperationCall& call, Markup& out);
Outcome<Returns> enumerate_instances(const OperationCall& call, Markup& out);
Outcome<Returns> enumerate_instance_names(const OperationCall& call, Markup& out);
Outcome<Returns> create_instance(const OperationCall& call, Markup& out);
Outcome<Returns> modify_instance(const OperationCall& call, Markup& out);
Outcome<Returns> delete_instance(const OperationCall& call, Markup& out);

}  // namespace sandbox::cimxml
