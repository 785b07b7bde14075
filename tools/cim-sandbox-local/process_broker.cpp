// The broker of a process that loads this library: the model that CIM_SANDBOX_MODEL names, or
// the sample.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "ledger.h"
#include "model_broker.h"

namespace sandbox_local {
namespace {

constexpr char sample_file[] = "managed-system.mof";

// The folder of this library's file.
std::filesystem::path own_folder() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<const void*>(&broker_of_process), &info) || !info.dli_fname)
    return {};
  std::error_code ignored;
  return std::filesystem::canonical(info.dli_fname, ignored).parent_path();
}

// The sample model where it is installed, or where it was built.
std::string sample_model() {
  const std::filesystem::path folder = own_folder();
  for (const char* place : {CIM_SANDBOX_DATA_FROM_LIBRARY, CIM_SANDBOX_DATA_WHEN_BUILT}) {
    const std::filesystem::path file = folder / place / sample_file;
    std::error_code ignored;
    if (std::filesystem::exists(file, ignored)) return file.string();
  }
  return sample_file;
}

std::string model_files() {
  const char* wanted = std::getenv("CIM_SANDBOX_MODEL");
  return wanted && *wanted ? wanted : sample_model();
}

// Says what a client has left when its process ends.
void report_leaks() {
  for (const std::string& kind : Ledger::of_process().live())
    std::fprintf(stderr, "cim-sandbox-local: never released: %s\n", kind.c_str());
}

}  // namespace

Broker& broker_of_process() {
  static ModelBroker broker = [] {
    Ledger::of_process();  // outlives the report
    std::atexit(report_leaks);
    return ModelBroker(model_files());
  }();
  return broker;
}

}  // namespace sandbox_local
