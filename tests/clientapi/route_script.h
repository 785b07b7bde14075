// A conversation with an object manager, the same whichever route it takes.
#pragma once

#include "clientapi/record_lines.h"

namespace support {

// Asks an object manager with the sample model everything that a client can ask, on a handle of
// either back end, and tells what it said.  Each line's place begins with what was asked:
// "get fan1.Speed".  Changes the model.
Lines converse(struct client_Configuration* handle);

}  // namespace support
