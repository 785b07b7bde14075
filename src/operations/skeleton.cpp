// Free_IParamValue_New() and Free_Header(), which release what an application that builds
// requests or parses answers has left when it has taken its own records out.
#include <cstdlib>
#include <utility>

#include "cim_client.h"
#include "model/records.h"
#include "model/release.h"

namespace {

using cim::release;

// Releases a text and clears its field.
void clear(char*& text) { std::free(std::exchange(text, nullptr)); }

// Releases one record alone and clears its field.
template <class R>
void clear_node(R*& record) {
  std::free(std::exchange(record, nullptr));
}

// Releases a path but for the class or instance that it names.
template <class Path>
void clear_path(Path*& path) {
  if (!path) return;
  release(std::exchange(path->localNamespacePath, nullptr));
  clear_node(path);
}

void clear_response(IMethodResponse*& response) {
  if (!response) return;
  clear(response->name);
  clear_node(response->iReturnValue);
  clear_node(response);
}

void clear_response(MethodResponse*& response) {
  if (!response) return;
  clear(response->name);
  clear_node(response->returnValue);
  clear_node(response);
}

void clear_response(SimpleRsp*& response) {
  if (!response) return;
  clear_response(response->iMethodResponse);
  clear_response(response->methodResponse);
  clear_node(response);
}

void clear_call(IMethodCall*& call) {
  if (!call) return;
  clear(call->name);
  release(std::exchange(call->localNamespacePath, nullptr));
  clear_node(call);
}

void clear_call(MethodCall*& call) {
  if (!call) return;
  clear(call->name);
  clear_path(call->localInstancePath);
  clear_path(call->localClassPath);
  clear_node(call);
}

void clear_request(SimpleReq*& request) {
  if (!request) return;
  clear_call(request->iMethodCall);
  clear_call(request->methodCall);
  clear_node(request);
}

void clear_message(Message*& message) {
  if (!message) return;
  clear(message->id);
  clear(message->protocolVersion);
  clear_response(message->simpleRsp);
  clear_request(message->simpleReq);
  clear_node(message);
}

// Releases a value with its text, and nothing else that hangs on it.
void clear_value(Value*& value) {
  if (!value) return;
  clear(value->text);
  clear_node(value);
}

}  // namespace

extern "C" {

int Free_IParamValue_New(IParamValue* list) {
  while (list) {
    IParamValue* next = list->next;
    clear(list->name);
    clear_value(list->value);
    std::free(list);
    list = next;
  }
  return 0;
}

CIM* Free_Header(CIM* root) {
  if (!root) return nullptr;
  if (root == returnAddress) returnAddress = nullptr;  // never handed out again: see parseXML()
  clear(root->cimVersion);
  clear(root->dtdVersion);
  clear_message(root->message);
  std::free(root);
  return nullptr;
}

}  // extern "C"
