// The envelope of responses.
#include "cimxml/service.h"

#include "cimxml/markup.h"
#include "cimxml/method_operation.h"
#include "cimxml/names_in.h"
#include "cimxml/operations.h"

namespace sandbox::cimxml {
namespace {

Outcome<Done> misplaced_text(const Request& request) {
  if (request.misplaced_text.empty()) return Done{};
  return Error{ErrorCode::Failed, "text where no text belongs: " + request.misplaced_text};
}

Outcome<Returns> call_intrinsic(const Request& request, ObjectManager& manager, Markup& out) {
  if (const Outcome<Done> sound = misplaced_text(request); !sound) return sound.error();
  const Operation operation = find_operation(request.method);
  if (!operation) {
    return Error{ErrorCode::NotSupported,
                 "the sandbox does not support operation \"" + request.method + '"'};
  }
  const Element* path = request.call.child("LOCALNAMESPACEPATH");
  if (!path) return Error{ErrorCode::InvalidNamespace, "IMETHODCALL names no namespace"};
  Outcome<std::string> name_space = read_name_space(*path);
  if (!name_space) return name_space.error();
  return operation({manager, std::move(*name_space), request.call}, out);
}

void write_error(Markup& out, const Error& error) {
  const std::string code = std::to_string(static_cast<int>(error.code));
  out.empty("ERROR", {{"CODE", code}, {"DESCRIPTION", error.description}});
}

void write_intrinsic(Markup& out, const Request& request, ObjectManager& manager,
                     const std::optional<Error>& instead) {
  out.open("IMETHODRESPONSE", {{"NAME", request.method}});
  const std::size_t before = out.size();
  out.open("IRETURNVALUE");
  const Outcome<Returns> outcome =
      instead ? Outcome<Returns>(*instead) : call_intrinsic(request, manager, out);
  if (outcome && *outcome == Returns::Value) {
    out.close("IRETURNVALUE");
  } else {
    out.cut(before);
    if (!outcome) write_error(out, outcome.error());
  }
  out.close("IMETHODRESPONSE");
}

void write_extrinsic(Markup& out, const Request& request, ObjectManager& manager,
                     const std::optional<Error>& instead) {
  out.open("METHODRESPONSE", {{"NAME", request.method}});
  const std::size_t before = out.size();
  Outcome<Done> outcome = instead ? Outcome<Done>(*instead) : misplaced_text(request);
  if (outcome) outcome = invoke_method(manager, request.call, out);
  if (!outcome) {
    out.cut(before);
    write_error(out, outcome.error());
  }
  out.close("METHODRESPONSE");
}

}  // namespace

std::variant<Response, Refusal> Service::answer(std::string_view document,
                                                const Interception& intercept) {
  auto read = read_request(document);
  if (auto* refusal = std::get_if<Refusal>(&read)) return std::move(*refusal);
  const Request& request = std::get<Request>(read);
  const std::optional<Error> instead = intercept ? intercept(request.method) : std::nullopt;
  return Response{request.method, answer(request, instead)};
}

std::string Service::answer(const Request& request, const std::optional<Error>& instead) {
  Markup out;
  out.raw("<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n");
  out.open("CIM", {{"CIMVERSION", "2.0"}, {"DTDVERSION", "2.0"}});
  out.open("MESSAGE", {{"ID", request.message_id}, {"PROTOCOLVERSION", "1.0"}});
  out.open("SIMPLERSP");
  if (request.is_intrinsic) {
    write_intrinsic(out, request, manager_, instead);
  } else {
    write_extrinsic(out, request, manager_, instead);
  }
  out.close("SIMPLERSP");
  out.close("MESSAGE");
  out.close("CIM");
  return out.take();
}

}  // namespace sandbox::cimxml
