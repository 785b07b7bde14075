/* A C program sees the records, the functions and the data of the library. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "cim_client.h"

static int failures = 0;

static void expect(int holds, const char* what) {
  if (holds) return;
  fprintf(stderr, "not so: %s\n", what);
  ++failures;
}

static void the_handle_keeps_the_namespace(void) {
  struct client_Configuration* handle =
      client_Configuration("127.0.0.1", 5988, "root/cimv2", 0, "user", "password");
  expect(handle && strcmp(handle->namespace, "root/cimv2") == 0, "the namespace is kept");
  expect(CIMC_SetNamespace(handle, "root/interop") == 0, "the namespace can be set");
  expect(strcmp(handle->namespace, "root/interop") == 0, "the new namespace is kept");
  expect(Free_client_Configuration(handle) == 0, "the handle is released");
}

static void a_record_made_in_c_is_copied_written_and_released(void) {
  ClassName* fan = CIMC_CreateClassName("CIM_Fan");
  ClassName* copy = NULL;
  char* text = NULL;
  expect(Clone_ClassName(fan, &copy) == 0, "the name is copied");
  expect(Gen_ClassName(copy, &text) == 0, "the copy is written");
  expect(text && strcmp(text, "\"CIM_Fan\"") == 0, "the text is the quoted name");
  free(text);
  Free_ClassName(copy);
  Free_ClassName(fan);
}

static void a_document_is_read_into_records(void) {
  CIM* root = parseXML(
      "<?xml version=\"1.0\"?>"
      "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"7\" PROTOCOLVERSION=\"1.0\">"
      "<SIMPLERSP><IMETHODRESPONSE NAME=\"GetClass\"><IRETURNVALUE>"
      "<CLASS NAME=\"CIM_Fan\" SUPERCLASS=\"CIM_CoolingDevice\"></CLASS>"
      "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>");
  expect(root != NULL && root == returnAddress, "the tree is the one that the library keeps");
  if (!root) return;
  const IReturnValue* result = root->message->simpleRsp->iMethodResponse->iReturnValue;
  expect(strcmp(result->class->superClass, "CIM_CoolingDevice") == 0, "the superclass is read");
  expect(Free_CIM(root) == 0, "the tree is released");
}

int main(void) {
  the_handle_keeps_the_namespace();
  a_record_made_in_c_is_copied_written_and_released();
  a_document_is_read_into_records();
  return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
