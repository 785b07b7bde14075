/* Prints the names of the fans of the object manager that listens on the port given. */
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "cim_client.h"

static void print_name(const Instance* fan) {
  for (const Property* property = fan->properties; property; property = property->next)
    if (property->value && strcmp(property->name, "ElementName") == 0) puts(property->value->text);
}

int main(int argc, char* argv[]) {
  const uint32_t port = argc > 1 ? (uint32_t)atoi(argv[1]) : 5988;
  struct client_Configuration* handle =
      client_Configuration("127.0.0.1", port, "root/cimv2", 0, "user", "password");
  ClassName* class_name = CIMC_CreateClassName("CIM_Fan");
  Error* error = NULL;
  NamedInstance* fans = EnumerateInstances(handle, class_name, 0, 1, 0, 0, NULL, &error);
  for (const NamedInstance* fan = fans; fan; fan = fan->next) print_name(fan->instance);
  const int status = fans ? EXIT_SUCCESS : EXIT_FAILURE;
  Free_NamedInstance(fans);
  Free_Error(error);
  Free_ClassName(class_name);
  Free_client_Configuration(handle);
  return status;
}
