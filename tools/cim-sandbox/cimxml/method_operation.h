// The invocation of extrinsic methods.
#pragma once

#include "cimxml/element.h"
#include "cimxml/markup.h"
#include "model/object_manager.h"

namespace sandbox::cimxml {

// Carries out a METHODCALL and writes RETURNVALUE and the PARAMVALUEs.
Outcome<Done> invoke_method(ObjectManager& manager, const Element& call, Markup& out);

}  // namespace sandbox::cimxml
