// From an instance as it was read to the instance to send: changing a few properties and keeping
// the others.
#pragma once

#include <string>
#include <vector>

#include "cim_client.h"

namespace cli {

// Makes an instance that was read fit to send: leaves out what only answers say (qualifiers, class
// origins, flags that the writer has no accepted form for) and puts embedded instances together
// again. Returns the names of properties that had to be left out, because the library does not
// read them whole.
std::vector<std::string> make_sendable(Instance& instance);

// Moves the properties of `changes` into `instance`, each in the place of the one of that name, or
// behind the others.
void apply(Instance& instance, Instance& changes);

}  // namespace cli
