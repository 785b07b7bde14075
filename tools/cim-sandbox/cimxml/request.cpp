// From the document to the call.
#include "cimxml/request.h"

#include "model/text.h"

namespace sandbox::cimxml {
namespace {

Refusal not_valid(std::string reason) { return {400, "request-not-valid", std::move(reason)}; }

bool may_hold_text(std::string_view name) {
  return name == "VALUE" || name == "KEYVALUE" || name == "HOST";
}

// The first text that stands beside elements; empty when there is none.
std::string misplaced_text(const Element& element) {
  if (!may_hold_text(element.name)) {
    if (const std::string_view text = trimmed(element.text); !text.empty()) {
      return std::string(text);
    }
  }
  for (const Element& child : element.children) {
    if (std::string text = misplaced_text(child); !text.empty()) return text;
  }
  return {};
}

std::variant<Request, Refusal> read_call(const Element& message, Element& simple_request) {
  Request request;
  if (const std::string* id = message.attribute("ID")) request.message_id = *id;
  Element* call = simple_request.child("IMETHODCALL");
  request.is_intrinsic = call != nullptr;
  if (!call) call = simple_request.child("METHODCALL");
  if (!call) return not_valid("SIMPLEREQ holds no IMETHODCALL and no METHODCALL");
  const std::string* name = call->attribute("NAME");
  if (!name || name->empty()) return not_valid(call->name + " has no NAME");
  request.method = *name;
  request.misplaced_text = misplaced_text(*call);
  request.call = std::move(*call);
  return request;
}

}  // namespace

std::variant<Request, Refusal> read_request(std::string_view document) {
  auto parsed = parse_document(document);
  if (auto* malformed = std::get_if<Malformed>(&parsed)) {
    return Refusal{400, "request-not-well-formed", std::move(malformed->text)};
  }
  Element& root = std::get<Element>(parsed);
  if (root.name != "CIM") return not_valid("the root is " + root.name + ", not CIM");
  const std::string* version = root.attribute("CIMVERSION");
  if (!version || !version->starts_with("2.")) {
    return Refusal{501, "unsupported-cim-version", "CIMVERSION is not 2.x"};
  }
  Element* message = root.child("MESSAGE");
  if (!message) return not_valid("CIM holds no MESSAGE");
  const std::string* protocol = message->attribute("PROTOCOLVERSION");
  if (!protocol || !protocol->starts_with("1.")) {
    return Refusal{501, "unsupported-protocol-version", "PROTOCOLVERSION is not 1.x"};
  }
  if (message->child("MULTIREQ")) {
    return Refusal{501, "multiple-requests-unsupported", "MULTIREQ is not supported"};
  }
  Element* simple_request = message->child("SIMPLEREQ");
  if (!simple_request) return not_valid("MESSAGE holds no SIMPLEREQ");
  return read_call(*message, *simple_request);
}

}  // namespace sandbox::cimxml
