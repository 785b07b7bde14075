// Generating the documents, piece by piece.
#include "documents.h"

namespace bench {
namespace {

std::string answer(const char* operation, const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<CIM CIMVERSION=\"2.0\" "
         "DTDVERSION=\"2.0\">\n"
         "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\">\n<SIMPLERSP>\n<IMETHODRESPONSE NAME=\"" +
         std::string(operation) + "\">\n<IRETURNVALUE>\n" + content +
         "</IRETURNVALUE>\n</IMETHODRESPONSE>\n</SIMPLERSP>\n</MESSAGE>\n</CIM>\n";
}

std::string key(const char* name, const std::string& value) {
  return std::string("<KEYBINDING NAME=\"") + name + "\">\n<KEYVALUE VALUETYPE=\"string\">" +
         value + "</KEYVALUE>\n</KEYBINDING>\n";
}

std::string property(const std::string& name, const char* type, const std::string& value) {
  return "<PROPERTY NAME=\"" + name + "\" TYPE=\"" + type + "\" CLASSORIGIN=\"CIM_Fan\">\n<VALUE>" +
         value + "</VALUE>\n</PROPERTY>\n";
}

std::string array(const char* name, const char* type) {
  return std::string("<PROPERTY.ARRAY NAME=\"") + name + "\" TYPE=\"" + type +
         "\">\n<VALUE.ARRAY>\n<VALUE>2</VALUE>\n<VALUE>5</VALUE>\n<VALUE>7</VALUE>\n"
         "</VALUE.ARRAY>\n</PROPERTY.ARRAY>\n";
}

std::string name_of(const std::string& number) {
  return "<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n" + key("CreationClassName", "CIM_Fan") +
         key("DeviceID", number) + key("SystemCreationClassName", "CIM_ComputerSystem") +
         key("SystemName", "enclosure-1.example") + "</INSTANCENAME>\n";
}

// As long as captions and descriptions are.
const char* const long_text =
    "The fan in the upper bay of the enclosure, seen from the front, which cools the cards behind "
    "it and is cooled by nothing";
const char* const text_with_entities =
    "Speed &lt; 900 &amp; temperature &gt; 60: the fan in the upper bay of the enclosure is slower "
    "than its cards can bear";

std::string named_instance(int index) {
  const std::string number = "fan-" + std::to_string(100'000 + index);
  std::string text =
      "<VALUE.NAMEDINSTANCE>\n" + name_of(number) + "<INSTANCE CLASSNAME=\"CIM_Fan\">\n" +
      property("CreationClassName", "string", "CIM_Fan") + property("DeviceID", "string", number) +
      property("SystemCreationClassName", "string", "CIM_ComputerSystem") +
      property("Condition", "string", text_with_entities);
  for (int i = 0; i < 13; ++i)
    text += property("MeasuredProperty" + std::to_string(i), i % 2 ? "uint32" : "string",
                     i % 2 ? std::to_string(1000 * index + i) : long_text);
  return text + array("OperationalStatus", "uint16") + array("StatusDescriptions", "string") +
         "<PROPERTY.REFERENCE NAME=\"Cooled\" REFERENCECLASS=\"CIM_ManagedElement\">\n"
         "<VALUE.REFERENCE>\n" +
         name_of("card-1") +
         "</VALUE.REFERENCE>\n</PROPERTY.REFERENCE>\n</INSTANCE>\n</VALUE.NAMEDINSTANCE>\n";
}

std::string small_instance(int index) {
  const std::string number = "fan-" + std::to_string(index);
  return "<VALUE.NAMEDINSTANCE>\n<INSTANCENAME CLASSNAME=\"CIM_Fan\">\n" + key("DeviceID", number) +
         "</INSTANCENAME>\n<INSTANCE CLASSNAME=\"CIM_Fan\">\n" +
         property("DeviceID", "string", number) + property("DesiredSpeed", "uint64", "4200") +
         property("ActiveCooling", "boolean", "TRUE") + property("EnabledState", "uint16", "2") +
         "</INSTANCE>\n</VALUE.NAMEDINSTANCE>\n";
}

// References in each other, without line breaks or with one after each tag.
std::string references(int levels, const char* line_break) {
  std::string opened;
  std::string closed;
  for (int i = 0; i < levels; ++i) {
    opened += std::string("<VALUE.REFERENCE>") + line_break +
              "<INSTANCENAME CLASSNAME=\"CIM_Has\">" + line_break + "<KEYBINDING NAME=\"Part\">" +
              line_break;
    closed += std::string("</KEYBINDING>") + line_break + "</INSTANCENAME>" + line_break +
              "</VALUE.REFERENCE>" + line_break;
  }
  return opened + "<KEYVALUE VALUETYPE=\"string\">fan1</KEYVALUE>" + line_break + closed;
}

std::string create_instance(const std::string& properties) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
         "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
         "<IMETHODCALL NAME=\"CreateInstance\"><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/>"
         "<NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH><IPARAMVALUE NAME=\"NewInstance\">"
         "<INSTANCE CLASSNAME=\"CIM_Fan\">" +
         properties + "</INSTANCE></IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";
}

}  // namespace

std::string instances(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += named_instance(i);
  return answer("EnumerateInstances", text);
}

std::string small_instances(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += small_instance(i);
  return answer("EnumerateInstances", text);
}

std::string class_definition(int count) {
  std::string text = "<CLASS NAME=\"CIM_Fan\" SUPERCLASS=\"CIM_CoolingDevice\">\n";
  for (int i = 0; i < count; ++i)
    text += "<PROPERTY NAME=\"MeasuredProperty" + std::to_string(i) +
            "\" TYPE=\"uint32\">\n"
            "<QUALIFIER NAME=\"Description\" TYPE=\"string\" TOINSTANCE=\"false\">\n<VALUE>" +
            long_text +
            "</VALUE>\n</QUALIFIER>\n<QUALIFIER NAME=\"read\" TYPE=\"boolean\">\n"
            "<VALUE>TRUE</VALUE>\n</QUALIFIER>\n<QUALIFIER NAME=\"Values\" TYPE=\"string\">\n"
            "<VALUE.ARRAY>\n<VALUE>Unknown</VALUE>\n<VALUE>Other</VALUE>\n<VALUE>Enabled</VALUE>\n"
            "</VALUE.ARRAY>\n</QUALIFIER>\n</PROPERTY>\n";
  return answer("GetClass", text + "</CLASS>\n");
}

std::string array_of_values(int count) {
  std::string text =
      "<INSTANCE CLASSNAME=\"CIM_Log\">\n<PROPERTY.ARRAY NAME=\"Records\" TYPE=\"uint32\">\n"
      "<VALUE.ARRAY>\n";
  for (int i = 0; i < count; ++i) text += "<VALUE>" + std::to_string(1'000'000 + i) + "</VALUE>\n";
  return answer("GetInstance", text + "</VALUE.ARRAY>\n</PROPERTY.ARRAY>\n</INSTANCE>\n");
}

std::string nested_references(int levels) {
  return answer("GetInstance",
                "<INSTANCE CLASSNAME=\"CIM_Has\">\n<PROPERTY.REFERENCE NAME=\"Part\">\n" +
                    references(levels, "\n") + "</PROPERTY.REFERENCE>\n</INSTANCE>\n");
}

std::string request(int count) {
  std::string text;
  for (int i = 0; i < count; ++i)
    text += "<PROPERTY NAME=\"MeasuredProperty" + std::to_string(i) +
            "\" TYPE=\"string\"><VALUE>The fan in the upper bay</VALUE></PROPERTY>";
  return create_instance(text);
}

std::string nested_request(int levels) {
  return create_instance("<PROPERTY.REFERENCE NAME=\"Part\">" + references(levels, "") +
                         "</PROPERTY.REFERENCE>");
}

std::string document(std::string_view name, int size) {
  if (name == "instances") return instances(size);
  if (name == "small") return small_instances(size);
  if (name == "class") return class_definition(size);
  if (name == "array") return array_of_values(size);
  if (name == "references") return nested_references(size);
  if (name == "request") return request(size);
  if (name == "nested") return nested_request(size);
  return {};
}

}  // namespace bench
