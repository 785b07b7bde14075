// Loading the broker's client library and making an environment of it.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

#include "cim_client.h"
#include "clientapi/interface.h"
#include "clientapi/types.h"

namespace {

using cim::broker::CIMCEnv;
using cim::broker::Factory;

// The library, opened on first use and kept for the life of the process.
void* broker_library = nullptr;

constexpr std::size_t message_room = 1025;

// A message of the loader, which the caller frees; null when memory runs out.
char* make_message(const char* format, const char* first, const char* second) {
  char* message = static_cast<char*>(std::calloc(message_room, 1));
  if (!message) return nullptr;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  std::snprintf(message, message_room - 1, format, first, second);
#pragma GCC diagnostic pop
  return message;
}

// Stores a failure in the places that the caller gave.
void* report(int code, char* message, int* rc, char** msg) {
  if (rc) *rc = code;
  if (msg) {
    *msg = message;
  } else {
    std::free(message);
  }
  return nullptr;
}

}  // namespace

extern "C" {

void* getCIMCEnv(const char* id, uint32_t options, int* rc, char** msg) {
  char file[512];
  std::snprintf(file, sizeof file, "libcimcClient%s.so", id);
  if (!broker_library) broker_library = dlopen(file, RTLD_NOW | RTLD_LOCAL);
  if (!broker_library)
    return report(1, make_message("Unable to load %s library %s", file, dlerror()), rc, msg);

  char entry[256];
  std::snprintf(entry, sizeof entry, "_Create_%s_Env", id);
  const auto factory = reinterpret_cast<Factory>(dlsym(broker_library, entry));
  if (!factory)
    return report(2, make_message("Unable to locate entry %s in %s", entry, file), rc, msg);

  setSFCBTrace(broker_library);
  int code = 0;
  char* text = nullptr;
  CIMCEnv* environment = factory(id, options, &code, &text);
  if (rc) *rc = code;
  if (msg) *msg = text;
  if (environment) environment->hdl = broker_library;
  return environment;
}

// The broker's trace is switched on by a pair of words: without the other, neither is written.
void setSFCBTrace(void* libraryHandle) {
  const char* wanted = std::getenv("SFCB_TRACE");
  if (!wanted) return;
  auto* mask = static_cast<int*>(dlsym(libraryHandle, "_sfcb_trace_mask"));
  if (!mask) return;
  auto* debug = static_cast<int*>(dlsym(libraryHandle, "_sfcb_debug"));
  if (!debug) return;
  *mask = cim::broker::to_number(wanted);
  *debug = 1;
}

}  // extern "C"
