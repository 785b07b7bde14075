// The table of elements, looked up by name.
#include "reader/dispatch.h"

#include "reader/unlinked.h"

namespace cim {
namespace {

// Gives a record that could not be linked to the reader, which has room for it.
template <class R>
R* kept(R* record, const Building& building) {
  if (record && !building.linked) unlinked.add(record);
  return record;
}

template <Record R>
void* build_record(Building& building) {
  return kept(build<R>(building), building);
}

void* build_host_text(Building& building) { return kept(build_host(building), building); }

using DispatchTable = std::array<Dispatch, known_names.size>;

template <Record R>
consteval void set(DispatchTable& table, const char* trace) {
  table[element_of<R>] = {build_record<R>, trace, list_count<R>()};
}

// The elements that the walk knows.  VALUE.NULL, SCOPE and the cells of a table declaration
// are not among them: applications see them announced as unknown.
consteval DispatchTable make_table() {
  DispatchTable table{};
  set<PropertyArray>(table, "\n return from CreatePropertyArray");
  set<Property>(table, "\n return from CreateProperty");
  set<Value>(table, "\n return from CreateValue");
  set<ValueArray>(table, "\n return from CreateValueArray");
  set<CIM>(table, "\n return from CreateCIM");
  table[element_of<CIM>].always_on_stack = true;
  set<Message>(table, "\n return from CreateMessage");
  set<SimpleRsp>(table, "\n return from createSimpleRSP ");
  set<IMethodResponse>(table, "\n return from CreateIMethodResponse");
  set<IReturnValue>(table, "\n return from CreateIReturnValue");
  set<Class>(table, "\n return from CreateClass");
  set<Qualifier>(table, "\n return from CreateQualifier");
  set<NamedInstance>(table, "\n return from CreateNamedInstance");
  set<InstanceName>(table, "\n return from CreateInstanceName");
  set<Instance>(table, "\n return from CreateInstance");
  set<ClassName>(table, "\n return from CreateClassName");
  set<KeyValue>(table, "\n return from CreateKeyValue");
  set<KeyBinding>(table, "\n return from CreateKeyBinding");
  set<ValueReference>(table, "\n return from CreateValueReference");
  set<Error>(table, "\n return from CreateError");
  set<InstancePath>(table, "\n return from CreateInstancePath");
  set<ObjectWithPath>(table, "\n return from CreateObjectWithPath");
  set<NamespacePath>(table, "\n return from CreateNamespacePath");
  set<LocalNamespacePath>(table, "\n return from CreateLocalNamespacePath");
  set<Namespace>(table, "\n return from CreateNamespace");
  set<LocalInstancePath>(table, "\n return from CreateLocalInstancePath");
  set<PropertyReference>(table, "\n return from CreatePropertyReference");
  set<Method>(table, "\n return from CreateMethod");
  set<Parameter>(table, "\n return from CreateParameter");
  set<ParameterReference>(table, "\n return from CreateParameterReference");
  set<ParameterArray>(table, "\n return from CreateParameterArray");
  set<ParameterRefArray>(table, "\n return from CreateParameterRefArray");
  set<MethodResponse>(table, "\n return from CreateMethodResponse");
  set<QualifierDecl>(table, "\n return from CreateQualifierDecl");
  set<IParamValue>(table, "\n return from CreateIParamValue");
  set<IMethodCall>(table, "\n return from CreateIMethodCall");
  set<DeclGroup>(table, "\n return from CreateDeclGroup");
  set<Declaration>(table, "\n return from CreateDeclaration");
  set<ParamValue>(table, "\n return from CreateParamValue");
  set<DeclGroupWithName>(table, "\n return from CreateDeclGroupWithName");
  set<ReturnValue>(table, "\n return from CreateReturnValue");
  set<TableRow>(table, "\n return from CreateTableRow");
  set<Table>(table, "\n return from CreateTable");
  set<NamedObject>(table, "\n return from CreateNamedObject");
  set<ExpParamValue>(table, "\n return from CreateExpParamValue");
  set<Object>(table, "\n return from CreateObject");
  set<SimpleReq>(table, "\n return from CreateSimpleReq");
  set<MultiReq>(table, "\n return from CreateMultiReq");
  set<MultiExpReq>(table, "\n return from CreateMultiExpReq");
  set<MultiExpRsp>(table, "\n return from CreateMultiExpRsp");
  set<SimpleExpRsp>(table, "\n return from CreateSimpleExpRsp");
  set<ExpMethodCall>(table, "\n return from CreateExpMethodCall");
  set<MethodCall>(table, "\n return from CreateMethodCall");
  set<ObjectWithLocalPath>(table, "\n return from CreateObjectWithLocalPath");
  set<ExpMethodResponse>(table, "\n return from CreateExpMethodResponse");
  set<TableRowDecl>(table, "\n return from CreateTableRowDecl");
  set<SimpleReqAck>(table, "\n return from CreateSimpleReqAck");
  set<SimpleExpReq>(table, "\n return from CreateSimpleReqAck");
  set<MultiRsp>(table, "\n return from CreateMultiRsp");
  set<ClassPath>(table, "\n return from CreateClassPath");
  set<LocalClassPath>(table, "\n return from CreateLocalClassPath");
  set<ObjectPath>(table, "\n return from CreateObjectPath");
  set<ResponseDestination>(table, "\n return from CreateResponseDestination");
  set<DeclGroupWithPath>(table, "\n return from CreateDeclGroupWithPath");
  set<ValueRefArray>(table, "\n return from CreateValueRefArray");
  table[name_of("HOST")] = {build_host_text, "\n return from CreateHost"};
  return table;
}

constexpr DispatchTable table = make_table();

}  // namespace

const Dispatch* dispatch_of(Name element) {
  return element < table.size() && table[element].build ? &table[element] : nullptr;
}

}  // namespace cim
