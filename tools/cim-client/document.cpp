// Building and judging documents.
#include "document.h"

#include "records.h"

namespace cli {
namespace {

LocalNamespacePath* new_namespace_path(std::string_view name_space) {
  auto* path = new_record<LocalNamespacePath>();
  path->namespaces = new_record<Namespace>();
  path->namespaces->name = new_text(name_space);
  return path;
}

CimOwner new_request() {
  CimOwner document(new_record<CIM>());
  document->cimVersion = new_text("2.0");
  document->dtdVersion = new_text("2.0");
  document->message = new_record<Message>();
  document->message->id = new_text("1234");
  document->message->protocolVersion = new_text("1.0");
  document->message->simpleReq = new_record<SimpleReq>();
  return document;
}

std::string written(CIM& document) {
  char* text = nullptr;
  Gen_CIM(&document, &text);
  const TextOwner owner(text);
  return std::string(text_or_empty(text));
}

bool holds_anything(const IReturnValue& result) {
  return result.className != nullptr || result.instanceName != nullptr || result.value != nullptr ||
         result.objectWithPath != nullptr || result.objectWithLocalPath != nullptr ||
         result.object != nullptr || result.objectPath != nullptr ||
         result.qualifierDecl != nullptr || result.valueArray != nullptr ||
         result.valueReference != nullptr || result.class_ != nullptr ||
         result.instance != nullptr || result.namedInstance != nullptr;
}

AnswerKind kind_of(const IMethodResponse& response) {
  if (response.error != nullptr) return AnswerKind::Error;
  const bool filled = response.iReturnValue != nullptr && holds_anything(*response.iReturnValue);
  return filled ? AnswerKind::Filled : AnswerKind::Empty;
}

AnswerKind kind_of(const MethodResponse& response) {
  if (response.error != nullptr) return AnswerKind::Error;
  const bool filled = response.returnValue != nullptr || response.paramValues != nullptr;
  return filled ? AnswerKind::Filled : AnswerKind::Empty;
}

}  // namespace

std::string get_class_request(std::string_view name_space, std::string_view class_name) {
  const ClassNameOwner name(new_record<ClassName>());
  name->name = new_text(class_name);
  const CimOwner document = new_request();
  auto* call = new_record<IMethodCall>();
  document->message->simpleReq->iMethodCall = call;
  call->name = new_text("GetClass");
  call->localNamespacePath = new_namespace_path(name_space);
  call->iParamValues = new_record<IParamValue>();
  call->iParamValues->name = new_text("ClassName");
  call->iParamValues->className = name.get();
  return written(*document);
}

std::string class_method_request(std::string_view name_space, std::string_view class_name,
                                 std::string_view method, ParamValue* parameters) {
  const CimOwner document = new_request();
  auto* call = new_record<MethodCall>();
  document->message->simpleReq->methodCall = call;
  call->name = new_text(method);
  call->localClassPath = new_record<LocalClassPath>();
  call->localClassPath->localNamespacePath = new_namespace_path(name_space);
  call->localClassPath->className = new_record<ClassName>();
  call->localClassPath->className->name = new_text(class_name);
  call->paramValues = parameters;
  std::string text = written(*document);
  call->paramValues = nullptr;  // the caller's, not the document's
  return text;
}

AnswerKind kind_of(const CIM* document) {
  if (document == nullptr || document->message == nullptr) return AnswerKind::Other;
  const SimpleRsp* response = document->message->simpleRsp;
  if (response == nullptr) return AnswerKind::Other;
  if (response->iMethodResponse != nullptr) return kind_of(*response->iMethodResponse);
  if (response->methodResponse != nullptr) return kind_of(*response->methodResponse);
  return AnswerKind::Other;
}

IReturnValue* result_of(const CIM& document) {
  const SimpleRsp* response = document.message == nullptr ? nullptr : document.message->simpleRsp;
  if (response == nullptr || response->iMethodResponse == nullptr) return nullptr;
  return response->iMethodResponse->iReturnValue;
}

MethodResponse* method_response_of(const CIM& document) {
  const SimpleRsp* response = document.message == nullptr ? nullptr : document.message->simpleRsp;
  return response == nullptr ? nullptr : response->methodResponse;
}

CimOwner parse_document(const std::string& text) { return CimOwner(parseXML(text.c_str())); }

}  // namespace cli
