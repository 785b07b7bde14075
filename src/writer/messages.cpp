// Writer for messages and declarations, and for the whole document.
//
// Attributes that an object manager insists on (CIMVERSION, ID, CODE and their like) are
// written even for a null text, with nothing between the quotes.
#include <cstdlib>

#include "writer/document.h"
#include "writer/elements.h"

namespace cim {

// ---- Envelope ----

void write_element(Text& out, const CIM& r) {
  out.put("<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"", r.cimVersion,
          "\" DTDVERSION=\"", r.dtdVersion, "\">", r.message, r.declaration, "</CIM>");
}

// Export messages are left out.
void write_element(Text& out, const Message& r) {
  out.put("<MESSAGE ID=\"", r.id, "\" PROTOCOLVERSION=\"", r.protocolVersion, "\">", r.simpleReq,
          r.multiReq, r.simpleRsp, r.multiRsp, "</MESSAGE>");
}

void write_element(Text& out, const SimpleReq& r) {
  out.put("<SIMPLEREQ>", r.iMethodCall, r.methodCall, "</SIMPLEREQ>");
}

void write_element(Text& out, const MultiReq& r) {
  out.put("<MULTIREQ>", r.simpleReqs, "</MULTIREQ>");
}

// An acknowledgement is left out.
void write_element(Text& out, const SimpleRsp& r) {
  out.put("<SIMPLERSP>", r.methodResponse, r.iMethodResponse, "</SIMPLERSP>");
}

void write_element(Text& out, const MultiRsp& r) {
  out.put("<MULTIRSP>", r.simpleRsps, "</MULTIRSP>");
}

// ---- Operations ----

void write_element(Text& out, const IMethodCall& r) {
  out.put("<IMETHODCALL NAME=", quoted(r.name), ">", r.localNamespacePath, r.iParamValues,
          r.responseDestination, "</IMETHODCALL>");
}

void write_element(Text& out, const IParamValue& r) {
  out.put("<IPARAMVALUE NAME=", quoted(r.name), ">", r.value, r.valueArray, r.valueReference,
          wrapped("<CLASSNAME NAME=", r.className, "/>"), r.instanceName, r.qualifierDecl, r.class_,
          r.instance, r.namedInstance, "</IPARAMVALUE>");
}

void write_element(Text& out, const IMethodResponse& r) {
  out.put("<IMETHODRESPONSE NAME=", quoted(r.name), ">", r.error, r.iReturnValue,
          "</IMETHODRESPONSE>");
}

// Class names come out bare, without their element.
void write_element(Text& out, const IReturnValue& r) {
  out.put("<IRETURNVALUE>", r.className, r.instanceName, r.value, r.objectWithPath,
          r.objectWithLocalPath, r.object, r.objectPath, r.qualifierDecl, r.valueArray,
          r.valueReference, r.class_, r.instance, r.namedInstance, "</IRETURNVALUE>");
}

// ---- Methods ----

void write_element(Text& out, const MethodCall& r) {
  out.put("<METHODCALL NAME=", quoted(r.name), ">", r.localClassPath, r.localInstancePath,
          r.paramValues, r.responseDestination, "</METHODCALL>");
}

void write_element(Text& out, const ParamValue& r) {
  out.put("<PARAMVALUE NAME=", quoted(r.name), optional(" PARAMTYPE=", r.paramType), ">", r.value,
          r.valueArray, r.valueReference, r.valueRefArray, "</PARAMVALUE>");
}

void write_element(Text& out, const MethodResponse& r) {
  out.put("<METHODRESPONSE NAME=", quoted(r.name), ">", r.error, r.returnValue, r.paramValues,
          "</METHODRESPONSE>");
}

void write_element(Text& out, const ReturnValue& r) {
  out.put("<RETURNVALUE", optional(" PARAMTYPE=", r.paramType), ">", r.value, r.valueReference,
          "</RETURNVALUE>");
}

void write_element(Text& out, const Error& r) {
  out.put("<ERROR CODE=\"", r.code, "\" DESCRIPTION=\"", r.description, "\">", r.instance,
          "</ERROR>");
}

// ---- Objects ----

void write_element(Text& out, const Object& r) {
  out.put("<VALUE.OBJECT>", r.class_, r.instance, "</VALUE.OBJECT>");
}

void write_element(Text& out, const ObjectWithPath& r) {
  out.put("<VALUE.OBJECTWITHPATH>", r.classPath, r.class_, r.instancePath, r.instance,
          "</VALUE.OBJECTWITHPATH>");
}

void write_element(Text& out, const ObjectWithLocalPath& r) {
  out.put("<VALUE.OBJECTWITHLOCALPATH>", r.localClassPath, r.class_, r.localInstancePath,
          r.instance, "</VALUE.OBJECTWITHLOCALPATH>");
}

void write_element(Text& out, const ObjectPath& r) {
  out.put("<VALUE.OBJECTPATH>", r.classPath, r.instancePath, "</VALUE.OBJECTPATH>");
}

void write_element(Text& out, const NamedObject& r) {
  out.put("<VALUE.NAMEDOBJECT>", r.class_, r.instanceName, r.instance, "</VALUE.NAMEDOBJECT>");
}

// ---- Declarations ----

void write_element(Text& out, const Declaration& r) {
  out.put("<DECLARATION>", r.declGroup, r.declGroupWithName, r.declGroupWithPath, "</DECLARATION>");
}

void write_element(Text& out, const DeclGroup& r) {
  out.put("<DECLGROUP>", r.localNamespacePath, r.namespacePath, r.qualifierDecls, r.objects,
          "</DECLGROUP>");
}

void write_element(Text& out, const DeclGroupWithName& r) {
  out.put("<DECLGROUP.WITHNAME>", r.localNamespacePath, r.namespacePath, r.qualifierDecls,
          r.namedObjects, "</DECLGROUP.WITHNAME>");
}

void write_element(Text& out, const DeclGroupWithPath& r) {
  out.put("<DECLGROUP.WITHPATH>", r.objectWithPaths, r.objectWithLocalPaths,
          "</DECLGROUP.WITHPATH>");
}

// ---- Documents ----

namespace {

// Appends the document to `out`.  Applications are known to rely on the process ending
// quietly when there is no memory to begin with.
void write_root(Text& out, const CIM& root) {
  constexpr std::size_t first_capacity = 4096;  // bytes; holds most requests
  if (!out.reserve(first_capacity - 1)) std::exit(0);
  write_element(out, root);
}

}  // namespace

char* write_document(const CIM& root) {
  Text out(nullptr);
  write_root(out, root);
  return out.failed() ? nullptr : out.hand_over();
}

}  // namespace cim

using cim::generate;

extern "C" {

int Gen_CIM(CIM* record, char** output) {
  if (!record || !output) return 0;
  cim::Text text(*output);
  cim::write_root(text, *record);
  *output = text.hand_over();
  return 0;
}

int Gen_Message(Message* record, char** output) { return generate(record, output); }
int Gen_SimpleReq(SimpleReq* list, char** output) { return generate(list, output); }
int Gen_MultiReq(MultiReq* record, char** output) { return generate(record, output); }
int Gen_SimpleRsp(SimpleRsp* list, char** output) { return generate(list, output); }
int Gen_MultiRsp(MultiRsp* record, char** output) { return generate(record, output); }
int Gen_IMethodCall(IMethodCall* record, char** output) { return generate(record, output); }
int Gen_IParamValue(IParamValue* list, char** output) { return generate(list, output); }
int Gen_IMethodResponse(IMethodResponse* record, char** output) { return generate(record, output); }
int Gen_IReturnValue(IReturnValue* record, char** output) { return generate(record, output); }
int Gen_MethodCall(MethodCall* record, char** output) { return generate(record, output); }
int Gen_ParamValue(ParamValue* list, char** output) { return generate(list, output); }
int Gen_MethodResponse(MethodResponse* record, char** output) { return generate(record, output); }
int Gen_ReturnValue(ReturnValue* record, char** output) { return generate(record, output); }
int Gen_Error(Error* record, char** output) { return generate(record, output); }
int Gen_Object(Object* list, char** output) { return generate(list, output); }
int Gen_ObjectWithPath(ObjectWithPath* list, char** output) { return generate(list, output); }
int Gen_ObjectWithLocalPath(ObjectWithLocalPath* list, char** output) {
  return generate(list, output);
}
int Gen_ObjectPath(ObjectPath* list, char** output) { return generate(list, output); }
int Gen_NamedObject(NamedObject* list, char** output) { return generate(list, output); }
int Gen_Declaration(Declaration* record, char** output) { return generate(record, output); }
int Gen_DeclGroup(DeclGroup* record, char** output) { return generate(record, output); }
int Gen_DeclGroupWithName(DeclGroupWithName* record, char** output) {
  return generate(record, output);
}
int Gen_DeclGroupWithPath(DeclGroupWithPath* record, char** output) {
  return generate(record, output);
}

}  // extern "C"
