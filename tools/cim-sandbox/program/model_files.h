// Where the sample model is.
#pragma once

#include <filesystem>
#include <optional>

namespace sandbox {

// The installed one, found from the program's own place, or else the one it was built beside.
std::optional<std::filesystem::path> sample_model();

}  // namespace sandbox
