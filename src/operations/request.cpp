// The requests: CIM > MESSAGE > SIMPLEREQ and the call in it.
#include "operations/request.h"

#include "writer/document.h"

namespace cim {

namespace {

// Records hold their texts as char*; the writer only reads them.
char* borrowed(const char* text) { return const_cast<char*>(text); }

// The text of a flag; null when the choice is left to the object manager.
const char* text_of(std::uint32_t flag) {
  if (flag == 0) return "FALSE";
  return flag == 1 ? "TRUE" : nullptr;
}

}  // namespace

// ---- Arguments ----

template <class R>
Argument::Argument(const char* name, R* IParamValue::*field, R* record) : is_given_(record) {
  record_.name = borrowed(name);
  record_.*field = record;
}

Argument::Argument(const char* name, ClassName* record)
    : Argument(name, &IParamValue::className, record) {}

Argument::Argument(const char* name, InstanceName* record)
    : Argument(name, &IParamValue::instanceName, record) {}

Argument::Argument(const char* name, Instance* record)
    : Argument(name, &IParamValue::instance, record) {}

Argument::Argument(const char* name, NamedInstance* record)
    : Argument(name, &IParamValue::namedInstance, record) {}

Argument::Argument(const char* name, const char* text) : is_given_(text) {
  record_.name = borrowed(name);
  value_.text = borrowed(text);
}

Argument::Argument(const char* name, std::uint32_t flag) : Argument(name, text_of(flag)) {}

IParamValue* Argument::record() {
  if (value_.text) record_.value = &value_;
  return is_given_ ? &record_ : nullptr;
}

// ---- Requests ----

// The namespace is one NAMESPACE element, whatever slashes it holds: object managers accept it.
Request::Request(const Handle& handle) {
  namespace_.name = handle.namespace_;
  namespace_path_.namespaces = &namespace_;

  message_.id = borrowed("1234");
  message_.protocolVersion = borrowed("1.0");
  message_.simpleReq = &simple_request_;

  root_.cimVersion = borrowed("2.0");
  root_.dtdVersion = borrowed("2.0");
  root_.message = &message_;
}

char* Request::write() const { return write_document(root_); }

OperationRequest::OperationRequest(const Handle& handle, const char* name,
                                   std::span<Argument> arguments)
    : Request(handle) {
  simple_request_.iMethodCall = &call_;
  call_.name = borrowed(name);
  call_.localNamespacePath = &namespace_path_;

  IParamValue** end = &call_.iParamValues;
  for (Argument& argument : arguments) {
    if (!argument.record()) continue;
    *end = argument.record();
    end = &(*end)->next;
  }
}

MethodRequest::MethodRequest(const Handle& handle, const char* name, InstanceName* instance,
                             ParamValue* parameters)
    : Request(handle) {
  simple_request_.methodCall = &call_;
  call_.name = borrowed(name);
  call_.localInstancePath = &path_;
  call_.paramValues = parameters;
  path_.localNamespacePath = &namespace_path_;
  path_.instanceName = instance;
}

}  // namespace cim
