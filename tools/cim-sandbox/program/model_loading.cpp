// Finding and reading models.
#include "program/model_loading.h"

#include <filesystem>

#include "model/generator.h"
#include "mof/reader.h"

namespace sandbox {
namespace {

// A file of the sample model: beside the program as it was built, or where it is installed.
std::optional<std::filesystem::path> shipped_file(const char* name) {
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  for (const char* folder : {"models", CIM_SANDBOX_DATA_FROM_PROGRAM}) {
    const std::filesystem::path path = program.parent_path() / folder / name;
    if (std::filesystem::exists(path, error)) return path.lexically_normal();
  }
  return std::nullopt;
}

std::optional<std::string> read_shipped(const char* name, mof::Reader& reader) {
  const auto path = shipped_file(name);
  if (!path) return std::string(name) + " is not installed";
  if (const auto problem = reader.read_file(*path)) return to_text(*problem);
  return std::nullopt;
}

std::optional<std::string> read_models(const Options& options, Repository& repository) {
  mof::Reader reader(repository, options.name_space);
  if (options.models.empty()) {
    if (auto problem = read_shipped("managed-system.mof", reader)) return problem;
  }
  for (const std::string& model : options.models) {
    if (const auto problem = reader.read_file(model)) return to_text(*problem);
  }
  const bool lacks_indications =
      !repository.open(options.name_space).classes.find("CIM_InstModification");
  if (options.indicate && lacks_indications) {
    if (auto problem = read_shipped("indications.mof", reader)) return problem;
  }
  if (const auto problem = reader.finish()) return to_text(*problem);
  return std::nullopt;
}

}  // namespace

std::optional<std::string> load_models(const Options& options, Repository& repository) {
  if (auto problem = read_models(options, repository)) return problem;
  for (const Generation& wanted : options.generations) {
    const auto done =
        generate_instances(repository, options.name_space, wanted.class_name, wanted.count);
    if (!done) return "--generate: " + done.error().description;
  }
  return std::nullopt;
}

}  // namespace sandbox
