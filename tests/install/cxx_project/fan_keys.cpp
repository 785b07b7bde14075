// Prints the keys of the fans of the object manager that listens on the port given, and what the
// device's two libraries make of a word.
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>

#include "XMLParser.h"
#include "cim_client.h"
#include "rtlog.h"

namespace {

// There is a function of the same name.
using Handle = struct client_Configuration;

// Releases what the client's functions hand out.
struct Release {
  void operator()(Handle* handle) const { Free_client_Configuration(handle); }
  void operator()(ClassName* name) const { Free_ClassName(name); }
  void operator()(InstanceName* name) const { Free_InstanceName(name); }
  void operator()(Error* error) const { Free_Error(error); }
};

template <typename Record>
using Owned = std::unique_ptr<Record, Release>;

void print_keys(const InstanceName& name) {
  for (const KeyBinding* key = name.keyBindings; key; key = key->next)
    if (key->keyValue) std::cout << key->name << '=' << key->keyValue->text << '\n';
}

bool print_fans(std::uint32_t port) {
  const Owned<Handle> handle(
      client_Configuration("127.0.0.1", port, "root/cimv2", 0, "user", "password"));
  const Owned<ClassName> class_name(CIMC_CreateClassName("CIM_Fan"));
  Error* slot = nullptr;
  const Owned<InstanceName> fans(EnumerateInstanceNames(handle.get(), class_name.get(), &slot));
  const Owned<Error> error(slot);
  for (const InstanceName* fan = fans.get(); fan; fan = fan->next) print_keys(*fan);
  return fans && !error;
}

bool print_root_element() {
  XmlParseState state;
  XmlDocument* document = parseText(&state, "<word/>");
  if (!document) return false;
  std::cout << document->root->nodeName << '\n';
  freeXMLDoc(document);
  return true;
}

}  // namespace

int main(int argc, char* argv[]) {
  rt_log_init();
  const int port = argc > 1 ? std::atoi(argv[1]) : 5988;
  return print_fans(static_cast<std::uint32_t>(port)) && print_root_element() ? EXIT_SUCCESS
                                                                              : EXIT_FAILURE;
}
