// Results as JSON; docs/json-output.md describes the form.
#pragma once

#include "output.h"

namespace cli {

// Lists become arrays with one element per line, written one after the other.
std::unique_ptr<Output> make_json_output(const OutputSettings& settings, std::ostream& out);

}  // namespace cli
