// Results as the object manager sent them.
#pragma once

#include "output.h"

namespace cli {

// Writes the element of the answer that holds its result (IRETURNVALUE, or METHODRESPONSE of a
// method) byte for byte. The library's own writer would not do: it escapes nothing.
class XmlOutput : public Output {
 public:
  XmlOutput(std::ostream& out, const std::string& answer) : out_(out), answer_(answer) {}

  void class_definition(const Class&) override { write("IRETURNVALUE"); }
  void classes(const Class*) override { write("IRETURNVALUE"); }
  void class_names(const ClassName*) override { write("IRETURNVALUE"); }
  void instance(const InstanceName&, const Instance&) override { write("IRETURNVALUE"); }
  void instances(const NamedInstance*) override { write("IRETURNVALUE"); }
  void paths(const std::vector<PathView>&) override { write("IRETURNVALUE"); }
  void objects(const ObjectWithPath*) override { write("IRETURNVALUE"); }
  void created(const InstanceName&) override { write("IRETURNVALUE"); }
  void method_result(const MethodResult&) override { write("METHODRESPONSE"); }
  void indication(const Instance&) override { write("EXPPARAMVALUE"); }
  void step(const Step&) override {}  // no result of an object manager

 private:
  void write(std::string_view element);

  std::ostream& out_;
  const std::string& answer_;
};

// The first element of that name in `document`, up to its last end tag; empty when there is none.
std::string_view xml_element(std::string_view document, std::string_view name);

}  // namespace cli
