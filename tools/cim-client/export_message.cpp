// Reading and answering export messages.
#include "export_message.h"

#include <utility>

#include "document.h"
#include "escape.h"
#include "records.h"

namespace cli {
namespace {

// The instance of an indication in its document; null without one.
const Instance* instance_in(const CIM& document) {
  const Message* message = document.message;
  const SimpleExpReq* request = message == nullptr ? nullptr : message->simpleExpReq;
  const ExpMethodCall* call = request == nullptr ? nullptr : request->expMethodCall;
  const ExpParamValue* parameter = call == nullptr ? nullptr : call->expParamValues;
  return parameter == nullptr ? nullptr : parameter->instance;
}

// Gives the reference properties of `copy` the names and classes that the library's copies lack.
void restore_names(Instance& copy, const Instance& original) {
  const PropertyReference* from = original.propertyReferences;
  for (PropertyReference* to = copy.propertyReferences; to != nullptr && from != nullptr;
       to = to->next, from = from->next) {
    Free_CIMName(std::exchange(to->name, new_text(text_or_empty(from->name))));
    Free_ReferenceClass(
        std::exchange(to->referenceClass, new_text(text_or_empty(from->referenceClass))));
  }
}

std::string answer(std::string_view message_id, const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n<MESSAGE ID=\"" +
         escaped(message_id, "the message's ID") +
         "\" PROTOCOLVERSION=\"1.0\">\n<SIMPLEEXPRSP>\n"
         "<EXPMETHODRESPONSE NAME=\"ExportIndication\">\n" +
         content + "\n</EXPMETHODRESPONSE>\n</SIMPLEEXPRSP>\n</MESSAGE>\n</CIM>\n";
}

}  // namespace

ExportOutcome read_export(std::string document) {
  ExportOutcome outcome;
  const CimOwner tree = parse_document(document);
  if (tree == nullptr) return outcome;
  outcome.is_xml = true;
  if (tree->message != nullptr) outcome.message_id = text_or_empty(tree->message->id);
  const Instance* original = instance_in(*tree);
  Instance* instance = nullptr;
  if (original == nullptr || GetIndicationInstance(document.c_str(), &instance) != 0)
    return outcome;
  InstanceOwner owner(instance);
  restore_names(*owner, *original);
  outcome.indication = Indication{std::move(owner), std::move(document)};
  return outcome;
}

std::string acceptance(std::string_view message_id) {
  return answer(message_id, "<IRETURNVALUE>\n</IRETURNVALUE>");
}

std::string refusal(std::string_view message_id, int code, std::string_view description) {
  return answer(message_id, "<ERROR CODE=\"" + std::to_string(code) + "\" DESCRIPTION=\"" +
                                escaped(description, "the description") + "\"/>");
}

}  // namespace cli
