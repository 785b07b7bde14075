// The functions that read documents: parseXML() with its parts, and the builder of each element.
#include "cim_client.h"
#include "reader/elements.h"
#include "reader/reading.h"
#include "support/allocations.h"
#include "support/document.h"
#include "support/written.h"
#include "torture/functions.h"

namespace torture {
namespace {

using support::UncountedAllocations;

Outcome tell(CIM* tree) {
  const UncountedAllocations uncounted;
  Outcome outcome = tree ? support::written(Gen_CIM, tree) : "null";
  Free_CIM(tree);
  reading::start_over();
  return outcome;
}

Outcome tell(int result, Instance* instance) {
  const UncountedAllocations uncounted;
  Outcome outcome = std::to_string(result) + " " + support::written(Gen_Instance, instance);
  Free_Instance(instance);
  reading::start_over();
  return outcome;
}

const elements::Element& element_of(decltype(elements::Element::build) build) {
  for (const elements::Element& element : elements::all)
    if (element.build == build) return element;
  for (const elements::Element& element : elements::builder_only)
    if (element.build == build) return element;
  return elements::host;
}

// What a builder made is in its entry, whole or in part.
Function building(const char* name, decltype(elements::Element::build) build) {
  const elements::Element& element = element_of(build);
  return {.name = name,
          .call =
              [build, &element] {
                support::Document nodes;
                const XmlNode* node = nodes.element(
                    element.name,
                    {{"NAME", "n"}, {"CLASSNAME", "c"}, {"TYPE", "t"}, {"CODE", "1"}, {"ID", "i"}},
                    {nodes.text("x")});
                StackEntry entry{};
                build(&entry, node, nullptr);
                const bool is_made = entry.address;
                if (is_made) element.release(entry.address);
                {
                  const UncountedAllocations uncounted;
                  reading::start_over();
                }
                return std::string(entry.name) + (is_made ? " made" : " not made");
              },
          .may_fail_as = gives({std::string(element.name) + " not made"})};
}

void add_builders(std::vector<Function>& functions) {
#define CREATE(name) functions.push_back(building("Create" #name, Create##name));
#define CREATE6(a, b, c, d, e, f) CREATE(a) CREATE(b) CREATE(c) CREATE(d) CREATE(e) CREATE(f)
  CREATE6(CIM, Class, ClassName, ClassPath, DeclGroup, DeclGroupWithName)
  CREATE6(DeclGroupWithPath, Declaration, Error, ExpMethodCall, ExpMethodResponse, ExpParamValue)
  CREATE6(Host, IMethodCall, IMethodResponse, IParamValue, IReturnValue, Instance)
  CREATE6(InstanceName, InstancePath, KeyBinding, KeyValue, LocalClassPath, LocalInstancePath)
  CREATE6(LocalNamespacePath, Message, Method, MethodCall, MethodResponse, MultiExpReq)
  CREATE6(MultiExpRsp, MultiReq, MultiRsp, NamedInstance, NamedObject, Namespace)
  CREATE6(NamespacePath, Object, ObjectPath, ObjectWithLocalPath, ObjectWithPath, ParamValue)
  CREATE6(Parameter, ParameterArray, ParameterRefArray, ParameterReference, Property, PropertyArray)
  CREATE6(PropertyReference, Qualifier, QualifierDecl, ResponseDestination, ReturnValue, Table)
  CREATE6(SimpleExpReq, SimpleExpRsp, SimpleReq, SimpleReqAck, SimpleRsp, TableCellDecl)
  CREATE6(TableCellReference, TableRow, TableRowDecl, Value, ValueArray, ValueNull)
  CREATE(ValueRefArray) CREATE(ValueReference)
}

constexpr char embedded[] =
    "<X><INSTANCE CLASSNAME=\"B\"><PROPERTY NAME=\"p\" TYPE=\"t\"><VALUE>1</VALUE></PROPERTY>"
    "</INSTANCE></X>";

// The stack of elements does not allocate.
Outcome stack_of_elements() {
  StackEntry entry{&entry, "VALUE"};
  Outcome outcome = std::to_string(Push(entry)) + (Pop("VALUE") ? " found" : " lost");
  outcome += std::to_string(removeParent("VALUE")) + std::to_string(printStack());
  top = -1;
  map[0] = StackEntry{};
  return outcome;
}

}  // namespace

std::vector<Function> reader_functions() {
  std::vector<Function> functions;
  add_builders(functions);
  functions.push_back(
      {.name = "parseXML",
       .call = [] { return tell(parseXML(reading::answer("<CLASS NAME=\"a\"/>").c_str())); },
       .may_fail_as = gives({"null"})});
  functions.push_back({.name = "recursiveParseCIM",
                       .call =
                           [] {
                             support::Document nodes;
                             recursiveParseCIM(nodes.element("CIM", {{"CIMVERSION", "2.0"}},
                                                             {nodes.element("MESSAGE")}));
                             return tell(returnAddress);
                           },
                       .may_fail_as = gives({"null"})});
  functions.push_back({.name = "ParseCDataContent",
                       .call =
                           [] {
                             Instance* instance = nullptr;
                             const int result = ParseCDataContent(embedded, &instance);
                             return tell(result, instance);
                           },
                       .may_fail_as = gives({"-1 (null)"})});
  functions.push_back(
      {.name = "GetIndicationInstance",
       .call =
           [] {
             static const std::string text = reading::document(
                 "<MESSAGE><SIMPLEEXPREQ><EXPMETHODCALL NAME=\"e\"><EXPPARAMVALUE>"
                 "<INSTANCE CLASSNAME=\"A\"/></EXPPARAMVALUE></EXPMETHODCALL></SIMPLEEXPREQ>"
                 "</MESSAGE>");
             Instance* instance = nullptr;
             const int result = GetIndicationInstance(text.c_str(), &instance);
             return tell(result, instance);
           },
       .may_fail_as = gives({"-1 (null)"})});
  for (const char* name : {"Push", "Pop", "removeParent", "printStack"})
    functions.push_back({.name = name,
                         .call = stack_of_elements,
                         .may_fail_as = never_fails(),
                         .allocates = false});
  return functions;
}

}  // namespace torture
