// Finding the sample model.
#include "program/model_files.h"

namespace sandbox {

std::optional<std::filesystem::path> sample_model() {
  constexpr auto file_name = "managed-system.mof";
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  for (const char* folder : {"models", CIM_SANDBOX_DATA_FROM_PROGRAM}) {
    const std::filesystem::path path = program.parent_path() / folder / file_name;
    if (std::filesystem::exists(path, error)) return path.lexically_normal();
  }
  return std::nullopt;
}

}  // namespace sandbox
