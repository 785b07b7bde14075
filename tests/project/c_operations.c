/*
 * A C program that goes through the operations: asks, changes and invokes, reads documents and
 * writes them.  It needs libc and the client library alone, so that it shows on any machine, with
 * any libc, that these work.
 *
 * usage: c_operations PORT      the sandbox object manager with its sample model
 *
 * Says what is not so; the last line is the number of statements that it has tried.
 */
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "cim_client.h"

static int tried = 0;
static int failed = 0;

static int expect(int holds, const char* what) {
  ++tried;
  if (holds) return 1;
  printf("not so: %s\n", what);
  ++failed;
  return 0;
}

static int same(const char* text, const char* expected) {
  if (text && strcmp(text, expected) == 0) return 1;
  printf("%s\nis not\n%s\n", text ? text : "(null)", expected);
  return 0;
}

static struct client_Configuration* handle;
static Error* error;

/* No error has come; one that has is told and released. */
static int no_error(void) {
  if (!error) return 1;
  printf("error %s: %s\n", error->code, error->description ? error->description : "");
  Free_Error(error);
  error = NULL;
  return 0;
}

/* The error that has come has this code; it is released. */
static int error_is(const char* code) {
  const int is_so = error && same(error->code, code);
  Free_Error(error);
  error = NULL;
  return is_so;
}

static const char* value_of(const Property* property, const char* name) {
  for (; property; property = property->next)
    if (strcmp(property->name, name) == 0) return property->value ? property->value->text : NULL;
  return NULL;
}

/* The name of the instance of CIM_Fan with this key; null when memory runs out. */
static InstanceName* fan_named(const char* id) {
  KeyBinding* keys = NULL;
  InstanceName* name = NULL;
  AddToKeyBindingListRef(&keys, "DeviceID", id, "string", NULL);
  AddToInstanceNameList(&name, keys, CIMC_CreateClassName("CIM_Fan"), NULL);
  return name;
}

/* ---- Asking ---- */

static void instances_are_enumerated(void) {
  ClassName* name = CIMC_CreateClassName("CIM_Fan");
  NamedInstance* fans = EnumerateInstances(handle, name, 0, 1, 0, 0, NULL, &error);
  expect(no_error(), "fans are enumerated without an error");
  const char* expected[] = {"Front fan left", "Front fan right", "Spare fan"};
  int count = 0;
  for (const NamedInstance* fan = fans; fan; fan = fan->next, ++count)
    if (count < 3)
      expect(same(value_of(fan->instance->properties, "ElementName"), expected[count]),
             "a fan has its name");
  expect(count == 3, "there are three fans");
  expect(Free_NamedInstance(fans) == 0, "the fans are released");
  Free_ClassName(name);
}

static void names_are_enumerated_and_lead_to_their_instances(void) {
  ClassName* class_name = CIMC_CreateClassName("CIM_Fan");
  InstanceName* names = EnumerateInstanceNames(handle, class_name, &error);
  expect(no_error() && names, "names are enumerated");
  int count = 0;
  while (names) {
    InstanceName* rest = names->next;
    names->next = NULL; /* alone: an operation sends the whole list */
    Instance* fan = GetInstance(handle, names, 0, 0, 0, NULL, &error);
    expect(no_error() && fan, "an instance is found by its name");
    if (fan) expect(same(fan->className->name, "CIM_Fan"), "the instance is a fan");
    Free_Instance(fan);
    Free_InstanceName(names);
    names = rest;
    ++count;
  }
  expect(count == 3, "there are three names");
  Free_ClassName(class_name);
}

static void a_class_is_read(void) {
  ClassName* name = CIMC_CreateClassName("CIM_Fan");
  Class* fan = CIM_GetClass(handle, name, 0, 1, 1, NULL, &error);
  if (expect(no_error() && fan, "the class is read")) {
    const Method* method = fan->methods;
    while (method && strcmp(method->name, "SetSpeed") != 0) method = method->next;
    expect(method && same(method->type, "uint32"), "the class has its methods");
  }
  Free_Class(fan);
  Free_ClassName(name);
}

static void errors_are_told(void) {
  ClassName* name = CIMC_CreateClassName("CIM_Unknown");
  NamedInstance* found = EnumerateInstances(handle, name, 0, 1, 0, 0, NULL, &error);
  expect(!found && error_is("5"), "an unknown class is error 5");
  Free_ClassName(name);
  InstanceName* fan = fan_named("no such fan");
  expect(!GetInstance(handle, fan, 0, 0, 0, NULL, &error) && error_is("6"),
         "an unknown instance is error 6");
  Free_InstanceName(fan);
}

static void associations_are_followed(void) {
  ObjectName fan = {.instanceName = fan_named("fan1")};
  ObjectWithPath* objects = Associators(handle, &fan, NULL, NULL, NULL, NULL, 0, 0, NULL, &error);
  expect(no_error() && objects, "associated objects are found");
  for (const ObjectWithPath* object = objects; object; object = object->next)
    expect(object->instance && object->instancePath, "an associated object has its path");
  Free_ObjectWithPath(objects);
  Free_InstanceName(fan.instanceName);
}

/* ---- Changing ---- */

static void an_instance_is_made_changed_and_deleted(void) {
  Property* properties = NULL;
  Instance* fan = NULL;
  AddToProeprtyList(&properties, "DeviceID", (char[]){"fan9"}, "string");
  AddToProeprtyList(&properties, "ElementName", (char[]){"Another &amp; last"}, "string");
  AddToInstanceList(&fan, CIMC_CreateClassName("CIM_Fan"), NULL, NULL, properties);
  InstanceName* made = CIM_CreateInstance(handle, fan, &error);
  expect(no_error() && made, "an instance is made");
  Free_InstanceName(made);
  Free_Instance(fan);

  InstanceName* name = fan_named("fan9");
  Property* changes = NULL;
  NamedInstance change = {.instanceName = name};
  AddToProeprtyList(&changes, "DesiredSpeed", (char[]){"3000"}, "uint64");
  AddToInstanceList(&change.instance, CIMC_CreateClassName("CIM_Fan"), NULL, NULL, changes);
  expect(ModifyInstance(handle, &change, 0, NULL, &error) == 0 && no_error(), "it is changed");
  Free_Instance(change.instance);

  Instance* read = GetInstance(handle, name, 0, 0, 0, NULL, &error);
  if (expect(no_error() && read, "it is read back")) {
    expect(same(value_of(read->properties, "ElementName"), "Another & last"), "as it was made");
    expect(same(value_of(read->properties, "DesiredSpeed"), "3000"), "and changed");
  }
  Free_Instance(read);
  expect(DeleteInstance(handle, name, &error) == 0 && no_error(), "it is deleted");
  expect(!GetInstance(handle, name, 0, 0, 0, NULL, &error) && error_is("6"), "it has gone");
  Free_InstanceName(name);
}

static void a_method_is_invoked(void) {
  InstanceName* fan = fan_named("fan1");
  Value speed = {.text = "3600"};
  ParamValue input = {.name = "Speed", .paramType = "uint64", .value = &speed};
  ParamValue* output = NULL;
  expect(invokeMethod(handle, fan, "SetSpeed", &input, &output, &error) == 0 && no_error(),
         "a method returns 0");
  expect(output && same(output->name, "PreviousSpeed"), "and its output");
  Free_ParamValue(output);
  Free_InstanceName(fan);
}

/* ---- Documents ---- */

static const char answer[] =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
    "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n <MESSAGE ID=\"7\" PROTOCOLVERSION=\"1.0\">\n"
    "  <SIMPLERSP><IMETHODRESPONSE NAME=\"GetInstance\"><IRETURNVALUE>\n"
    "   <INSTANCE CLASSNAME='CIM_Fan'>"
    "<PROPERTY NAME=\"Caption\" TYPE=\"string\"><VALUE>a &lt; b &amp; c&#xE4;&#x1F600;</VALUE>"
    "</PROPERTY><PROPERTY NAME=\"Empty\" TYPE=\"string\"/>"
    "<PROPERTY.ARRAY NAME=\"States\" TYPE=\"uint16\"><VALUE.ARRAY><VALUE>2</VALUE><VALUE>5</VALUE>"
    "</VALUE.ARRAY></PROPERTY.ARRAY></INSTANCE>\n"
    "  </IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE>\n</CIM>\n";

static void a_document_is_read(void) {
  CIM* root = parseXML(answer);
  if (!expect(root != NULL, "the document is read")) return;
  const Instance* fan = root->message->simpleRsp->iMethodResponse->iReturnValue->instance;
  if (expect(fan != NULL, "with its instance")) {
    expect(same(value_of(fan->properties, "Caption"), "a < b & c\xC3\xA4\xF0\x9F\x98\x80"),
           "references are the characters that they stand for");
    expect(!value_of(fan->properties, "Empty"), "an empty property has no value");
    const PropertyArray* states = fan->propertyArrays;
    expect(states && same(states->valueArray->values->next->text, "5"), "arrays are read");
  }
  expect(Free_CIM(root) == 0, "the tree is released");
}

static void what_is_no_document_is_refused(void) {
  const char* wrong[] = {"",
                         "<",
                         "<CIM>",
                         "<CIM></MIC>",
                         "<CIM/><CIM/>",
                         "<CIM>&unknown;</CIM>",
                         "<CIM a='1' a='2'/>",
                         "<CIM>\xff</CIM>",
                         "<!DOCTYPE CIM [<!ENTITY a \"b\">]><CIM>&a;</CIM>"};
  const CIM* before = returnAddress;
  for (size_t i = 0; i < sizeof wrong / sizeof *wrong; ++i) {
    const CIM* tree = parseXML(wrong[i]);
    expect(!tree || tree == before, wrong[i]);
  }
}

static void records_are_written(void) {
  Property* properties = NULL;
  char* text = NULL;
  AddToProeprtyList(&properties, "Caption", NULL, "string");
  AddToProeprtyList(&properties, "Enabled", (char[]){"true"}, "boolean");
  Gen_Property(properties, &text);
  expect(same(text,
              "<PROPERTY NAME=\"Caption\" TYPE=\"string\"></PROPERTY>"
              "<PROPERTY NAME=\"Enabled\" TYPE=\"boolean\"><VALUE>TRUE</VALUE></PROPERTY>"),
         "properties are written");
  free(text);
  Free_Property(properties);
}

/* A document of 10,000 instances: the reader's lists and the parser's memory grow. */
static void a_large_document_is_read(void) {
  enum { count = 10000 };
  const char start[] =
      "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"7\" "
      "PROTOCOLVERSION=\"1.0\"><SIMPLERSP><IMETHODRESPONSE NAME=\"EnumerateInstances\">"
      "<IRETURNVALUE>";
  const char one[] =
      "<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"A\"/><INSTANCE CLASSNAME="
      "\"A\"><PROPERTY NAME=\"P\" TYPE=\"string\"><VALUE>text</VALUE></PROPERTY>"
      "</INSTANCE></VALUE.NAMEDINSTANCE>";
  const char end[] = "</IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>";
  char* text = malloc(sizeof start + sizeof end + count * sizeof one);
  expect(text != NULL, "there is memory");
  if (!text) return;
  char* at = text + sprintf(text, "%s", start);
  for (int i = 0; i < count; ++i) at += sprintf(at, "%s", one);
  sprintf(at, "%s", end);

  CIM* root = parseXML(text);
  int found = 0;
  if (expect(root != NULL, "a large document is read"))
    for (const NamedInstance* instance =
             root->message->simpleRsp->iMethodResponse->iReturnValue->namedInstance;
         instance; instance = instance->next)
      found += instance->instance && value_of(instance->instance->properties, "P") != NULL;
  expect(found == count, "with all that it holds");
  Free_CIM(root);
  free(text);
}

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  handle = client_Configuration("127.0.0.1", (uint32_t)strtoul(argv[1], NULL, 10), "root/cimv2", 0,
                                "user", "password");
  if (expect(handle != NULL, "there is a handle")) {
    instances_are_enumerated();
    names_are_enumerated_and_lead_to_their_instances();
    a_class_is_read();
    errors_are_told();
    associations_are_followed();
    an_instance_is_made_changed_and_deleted();
    a_method_is_invoked();
  }
  Free_client_Configuration(handle);
  a_document_is_read();
  what_is_no_document_is_refused();
  records_are_written();
  a_large_document_is_read();
  printf("\n%d of %d\n", tried - failed, tried); /* behind what the library has printed */
  return failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
