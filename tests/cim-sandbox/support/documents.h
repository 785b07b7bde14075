// Request and response documents around what a test is about.
#pragma once

#include <string>

namespace sandbox::test {

// An intrinsic call in the form of a device's client: one line, one NAMESPACE for the whole path.
inline std::string intrinsic_request(const std::string& operation, const std::string& parameters) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
         "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><IMETHODCALL NAME=\"" +
         operation +
         "\"><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/></LOCALNAMESPACEPATH>" +
         parameters + "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";
}

inline std::string parameter(const std::string& name, const std::string& content) {
  return "<IPARAMVALUE NAME=\"" + name + "\">" + content + "</IPARAMVALUE>";
}
inline std::string flag(const std::string& name, const std::string& value) {
  return parameter(name, "<VALUE>" + value + "</VALUE>");
}
inline std::string class_name(const std::string& parameter_name, const std::string& name) {
  return parameter(parameter_name, "<CLASSNAME NAME=\"" + name + "\"/>");
}

inline std::string extrinsic_request(const std::string& method, const std::string& instance_name,
                                     const std::string& arguments) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
         "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><METHODCALL NAME=\"" +
         method +
         "\"><LOCALINSTANCEPATH><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/>"
         "</LOCALNAMESPACEPATH>" +
         instance_name + "</LOCALINSTANCEPATH>" + arguments +
         "</METHODCALL></SIMPLEREQ></MESSAGE></CIM>";
}

// The response to either, around what stands in IMETHODRESPONSE or METHODRESPONSE.
inline std::string response(const std::string& element, const std::string& operation,
                            const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n"
         "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
         "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\">\n"
         "<SIMPLERSP>\n"
         "<" +
         element + " NAME=\"" + operation + "\">\n" + content + "</" + element +
         ">\n"
         "</SIMPLERSP>\n"
         "</MESSAGE>\n"
         "</CIM>\n";
}
inline std::string intrinsic_response(const std::string& operation, const std::string& content) {
  return response("IMETHODRESPONSE", operation, content);
}
inline std::string extrinsic_response(const std::string& method, const std::string& content) {
  return response("METHODRESPONSE", method, content);
}

}  // namespace sandbox::test
