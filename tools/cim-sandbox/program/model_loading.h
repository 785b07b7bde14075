// Fills the repository from MOF files.
#pragma once

#include <optional>
#include <string>

#include "model/repository.h"
#include "program/options.h"

namespace sandbox {

// Loads the models that the options name, or the sample model, and what they want generated.
// The text says what is wrong.
std::optional<std::string> load_models(const Options& options, Repository& repository);

}  // namespace sandbox
