// Input parameters of a method as arguments of the broker.
#pragma once

#include "cim_client.h"
#include "clientapi/interface.h"
#include "clientapi/owned.h"

namespace cim::broker {

// Where arguments go, and what they are made with.
struct ArgumentTarget {
  CIMCArgs* args;
  CIMCEnv* env;
  const char* name_space;
  Kept* kept;  // keeps what the arguments refer to until the method has been called
};

// add_args_to_invoke_req() of cim_client.h.
bool add_arguments(const ParamValue* parameters, const ArgumentTarget& target);

}  // namespace cim::broker
