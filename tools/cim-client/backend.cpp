// Choosing the way, and looking whether the local one is open.
#include "backend.h"

#include <dlfcn.h>

#include <memory>

#include "cim_client.h"
#include "exit_status.h"
#include "utf8.h"

namespace cli {
namespace {

// What the library opens, and the function that it looks for there.
constexpr const char* library_file = "libcimcClientSfcbLocal.so";
constexpr const char* entry = "_Create_SfcbLocal_Env";

struct Close {
  void operator()(void* library) const { dlclose(library); }
};

std::string loader_error() {
  const char* text = dlerror();
  return text == nullptr ? "" : printable(text);
}

}  // namespace

Backend parse_backend(const std::string& word) {
  if (word == "xml") return Backend::Xml;
  if (word == "local") return Backend::Local;
  throw usage_failure("there is no back end " + printable(word) + "; there are xml and local");
}

bool is_local(Backend backend) {
  return backend == Backend::Local || (backend == Backend::AsHandles && get_cimc_interface() == 1);
}

std::string description(Backend backend) {
  std::string text = is_local(backend) ? "the local broker" : "CIM-XML over HTTP";
  if (backend != Backend::AsHandles) return text + ", as --backend says";
  return is_local(backend) ? text + ", since /etc/Binary.txt exists" : text;
}

std::string local_library() {
  const std::unique_ptr<void, Close> library(dlopen(library_file, RTLD_NOW | RTLD_LOCAL));
  if (library == nullptr)
    throw Failure(ExitStatus::NoAnswer,
                  "the client library of the local broker cannot be loaded: " + loader_error());
  const void* function = dlsym(library.get(), entry);
  Dl_info info = {};
  if (function == nullptr || dladdr(function, &info) == 0 || info.dli_fname == nullptr)
    throw Failure(ExitStatus::NoAnswer,
                  std::string(library_file) + " is no client library of a local broker");
  return info.dli_fname;
}

}  // namespace cli
