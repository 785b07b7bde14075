// Why no answer came.
#pragma once

#include <string>

#include "exit_status.h"
#include "http_probe.h"

namespace cli {

// The failure that an exchange shows. `peer` names the object manager in the text.
Failure diagnosed(const HttpExchange& exchange, const std::string& peer);

}  // namespace cli
