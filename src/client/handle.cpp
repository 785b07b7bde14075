// The client handle, and the choice of the back end that serves it.
#include <string.h>  // explicit_bzero

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/memory.h"
#include "cim_client.h"

namespace {

constexpr char local_broker_marker[] = "/etc/Binary.txt";

constexpr int cim_xml = 0;
constexpr int local_broker = 1;

// Copies a text that may be absent.  False when memory runs out.
bool copy_text(const char* source, char** copy) {
  *copy = cim::duplicate(source);
  return *copy || !source;
}

void release_secret(char* text) {
  if (text) explicit_bzero(text, std::strlen(text));
  std::free(text);
}

}  // namespace

extern "C" {

struct client_Configuration* client_Configuration(const char* host, uint32_t port,
                                                  const char* nameSpace, uint32_t timeout,
                                                  const char* user, const char* password) {
  if (!user || !password) return nullptr;
  auto* handle = cim::allocate<struct client_Configuration>();
  if (!handle) return nullptr;
  handle->interface = get_cimc_interface();
  handle->port = port;
  handle->timeout = timeout;
  if (copy_text(host, &handle->host) && copy_text(nameSpace, &handle->namespace_) &&
      copy_text(user, &handle->user) && copy_text(password, &handle->password))
    return handle;
  Free_client_Configuration(handle);
  return nullptr;
}

int Free_client_Configuration(struct client_Configuration* handle) {
  if (!handle) return -1;
  std::free(handle->host);
  std::free(handle->namespace_);
  release_secret(handle->user);
  release_secret(handle->password);
  std::free(handle);
  return 0;
}

int CIMC_SetNamespace(struct client_Configuration* handle, const char* nameSpace) {
  if (!handle || !nameSpace) return -1;
  char* copy = cim::duplicate(nameSpace);
  if (!copy) return -1;
  std::free(handle->namespace_);
  handle->namespace_ = copy;
  return 0;
}

int CIMC_GetNamespace(const struct client_Configuration* handle, char* buffer, uint32_t length) {
  if (!buffer || !handle || !handle->namespace_) return -1;
  std::strncpy(buffer, handle->namespace_, length);
  return 0;
}

int CIMC_GetUserNameFromHandle(const struct client_Configuration* handle, char* buffer,
                               uint32_t length) {
  if (!handle || !buffer) return -1;
  std::memset(buffer, 0, length);
  if (handle->user && length > 0)
    std::memcpy(buffer, handle->user, std::min<std::size_t>(std::strlen(handle->user), length - 1));
  return 0;
}

int CIMC_GetPassWordFromHandle(const struct client_Configuration* handle, char* buffer) {
  if (!handle || !buffer) return -1;
  if (handle->password) std::strcpy(buffer, handle->password);
  return 0;
}

int checkForBinary(void) {
  std::FILE* marker = std::fopen(local_broker_marker, "r");
  if (!marker) return -1;
  std::fclose(marker);
  return 0;
}

int get_cimc_interface(void) { return checkForBinary() == 0 ? local_broker : cim_xml; }

}  // extern "C"
