// Writer for values, names and paths.
#include "writer/elements.h"

namespace cim {

void write_element(Text& out, const ClassName& r) {
  out.put(quoted(r.name));  // whoever writes a class name puts the CLASSNAME tag around it
}

void write_element(Text& out, const Namespace& r) {
  out.put("<NAMESPACE NAME=", quoted(r.name), "/>");
}

void write_element(Text& out, const LocalNamespacePath& r) {
  out.put("<LOCALNAMESPACEPATH>", r.namespaces, "</LOCALNAMESPACEPATH>");
}

void write_element(Text& out, const NamespacePath& r) {
  out.put("<NAMESPACEPATH>");
  if (r.host) out.put("<HOST>", r.host, "</HOST>");
  out.put(r.localNamespacePath, "</NAMESPACEPATH>");
}

void write_element(Text& out, const LocalClassPath& r) {
  out.put("<LOCALCLASSPATH>", r.localNamespacePath,
          wrapped("<CLASSNAME NAME =", r.className, "/>"),  // the blank stands here alone
          "</LOCALCLASSPATH>");
}

void write_element(Text& out, const ClassPath& r) {
  out.put("<CLASSPATH>", r.namespacePath, wrapped("<CLASSNAME NAME=", r.className, "/>"),
          "</CLASSPATH>");
}

void write_element(Text& out, const InstancePath& r) {
  out.put("<INSTANCEPATH>", r.namespacePath, r.instanceName, "</INSTANCEPATH>");
}

void write_element(Text& out, const LocalInstancePath& r) {
  out.put("<LOCALINSTANCEPATH>", r.localNamespacePath, r.instanceName, "</LOCALINSTANCEPATH>");
}

void write_element(Text& out, const KeyValue& r) {
  out.put("<KEYVALUE", optional(" VALUETYPE = ", r.valueType), optional(" CIMTYPE = ", r.cimType),
          ">", r.text, "</KEYVALUE>");
}

void write_element(Text& out, const KeyBinding& r) {
  out.put("<KEYBINDING NAME=", quoted(r.name), ">", r.keyValue, r.valueReference, "</KEYBINDING>");
}

void write_element(Text& out, const InstanceName& r) {
  out.put("<INSTANCENAME CLASSNAME=", r.className, ">", r.keyBindings, r.keyValue, r.valueReference,
          "</INSTANCENAME>");
}

void write_element(Text& out, const ValueReference& r) {
  out.put("<VALUE.REFERENCE>", r.classPath, r.localClassPath,
          wrapped("<CLASSNAME NAME=", r.className, "/>"), r.instancePath, r.localInstancePath,
          r.instanceName, "</VALUE.REFERENCE>");
}

void write_element(Text& out, const ValueRefArray& r) {
  out.put("<VALUE.REFARRAY>", r.valueReferences, "</VALUE.REFARRAY>");
}

void write_element(Text& out, const ValueArray& r) {
  out.put("<VALUE.ARRAY>", r.values, "</VALUE.ARRAY>");
}

void write_element(Text& out, const ValueNull& /*r*/) { out.put("<VALUE.NULL/>"); }

namespace {

void write_embedded(Text& out, const Property& r) {
  if (r.name && r.type) out.put("<PROPERTY NAME=\"", r.name, "\" TYPE= \"", r.type, "\">");
  if (r.value && r.value->text) out.put("<VALUE>", r.value->text, "</VALUE>");
  out.put("</PROPERTY>");
}

// Of the values only the first one is expected here.
void write_embedded(Text& out, const PropertyArray& r) {
  if (r.name && r.type) out.put("<PROPERTY.ARRAY NAME=\"", r.name, "\" TYPE= \"", r.type, "\">");
  const Value* first = r.valueArray ? r.valueArray->values : nullptr;
  if (first && first->text) out.put("<VALUE.ARRAY><VALUE>", first->text, "</VALUE></VALUE.ARRAY>");
  out.put("</PROPERTY.ARRAY>");
}

// The instance inside a CDATA section, without its closing tag.  Empties its two property
// lists as it goes: callers that write an embedded instance count on finding them null.
void write_embedded(Text& out, Instance& r) {
  if (r.className && r.className->name) out.put("<INSTANCE CLASSNAME=\"", r.className->name, "\">");
  for (; r.properties; r.properties = r.properties->next) write_embedded(out, *r.properties);
  for (; r.propertyArrays; r.propertyArrays = r.propertyArrays->next)
    write_embedded(out, *r.propertyArrays);
}

}  // namespace

void write_element(Text& out, const Value& r) {
  if (r.isCData == 1) {
    out.put("<VALUE><![CDATA[\n");
    if (r.instance) write_embedded(out, *r.instance);
    out.put("</INSTANCE>]]></VALUE>");  // closed even where nothing was opened
  } else if (r.text) {
    out.put("<VALUE>", r.text, "</VALUE>");
  }
}

}  // namespace cim

using cim::append_to;
using cim::generate;
using cim::optional;
using cim::quoted;

extern "C" {

int Gen_CIMName(char* text, char** output) { return text ? append_to(output, quoted(text)) : 0; }
int Gen_CIMType(char* text, char** output) {
  return text ? append_to(output, optional(" TYPE=", text)) : 0;
}
int Gen_ClassName(ClassName* list, char** output) { return generate(list, output); }
int Gen_Namespace(Namespace* list, char** output) { return generate(list, output); }
int Gen_LocalNamespacePath(LocalNamespacePath* record, char** output) {
  return generate(record, output);
}
int Gen_NamespacePath(NamespacePath* record, char** output) { return generate(record, output); }
int Gen_LocalClassPath(LocalClassPath* record, char** output) { return generate(record, output); }
int Gen_ClassPath(ClassPath* record, char** output) { return generate(record, output); }
int Gen_InstancePath(InstancePath* record, char** output) { return generate(record, output); }
int Gen_LocalInstancePath(LocalInstancePath* record, char** output) {
  return generate(record, output);
}
int Gen_KeyValue(KeyValue* record, char** output) { return generate(record, output); }
int Gen_KeyBinding(KeyBinding* list, char** output) { return generate(list, output); }
int Gen_InstanceName(InstanceName* list, char** output) { return generate(list, output); }
int Gen_ValueReference(ValueReference* list, char** output) { return generate(list, output); }
int Gen_ValueRefArray(ValueRefArray* list, char** output) { return generate(list, output); }
int Gen_ValueArray(ValueArray* list, char** output) { return generate(list, output); }
int Gen_ValueNull(ValueNull* list, char** output) { return generate(list, output); }
int Gen_Value(Value* list, char** output) { return generate(list, output); }

}  // extern "C"
