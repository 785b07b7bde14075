// Taking the instance out of an indication.
#include "operations/parsed_document.h"

namespace {

// The instance of the first parameter of an export request; null when a link is missing.
const Instance* indication_of(const Message* message) {
  if (!message || !message->simpleExpReq) return nullptr;
  const ExpMethodCall* call = message->simpleExpReq->expMethodCall;
  return call && call->expParamValues ? call->expParamValues->instance : nullptr;
}

}  // namespace

extern "C" {

// A copy, as callers know it: class origins keep their first character only.
int GetIndicationInstance(const char* text, Instance** instanceOut) {
  if (!text || !instanceOut) return -1;
  const cim::ParsedDocument document(text);
  const Instance* indication = indication_of(document.message());
  if (!indication) return -1;

  Instance* copy = nullptr;
  if (Clone_Instance(indication, &copy) != 0) {
    Free_Instance(copy);
    return -1;
  }
  *instanceOut = copy;
  return 0;
}

}  // extern "C"
