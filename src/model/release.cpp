// The Free_ functions.
#include "model/release.h"

#include "base/trace.h"
#include "cim_client.h"
#include "model/records.h"

using cim::release;
using cim::trace;

extern "C" {

// clang-format off

// Texts
int Free_CIMName(char* text) { return trace("\n Inside Free_CIMName \n"), release(text), 0; }
int Free_CIMType(char* text) { return trace("\n Inside Free_CIMType \n"), release(text), 0; }
int Free_ClassOrigin(char* text) { return release(text), 0; }
int Free_ReferenceClass(char* text) { return release(text), 0; }
int Free_ParamType(char* text) { return release(text), 0; }
int Free_ValueType(char* text) { return release(text), 0; }
int Free_PCData(char* text) { return release(text), 0; }
int Free_Host(char* text) { return release(text), 0; }

// Values, names and paths
int Free_Value(Value* list) { return release(list), 0; }
int Free_ValueArray(ValueArray* list) { return trace("\n Inside Free_ValueArray \n"), release(list), 0; }
int Free_ValueReference(ValueReference* list) { return release(list), 0; }
int Free_ValueRefArray(ValueRefArray* list) { return release(list), 0; }
int Free_ValueNull(ValueNull* list) { return release(list), 0; }
int Free_KeyValue(KeyValue* record) { return release(record), 0; }
int Free_KeyBinding(KeyBinding* list) { return release(list), 0; }
int Free_InstanceName(InstanceName* list) { return release(list), 0; }
int Free_ClassName(ClassName* list) { return release(list), 0; }
int Free_Namespace(Namespace* list) { return trace("\n Inside Free_Namespace !!!%p", static_cast<void*>(list)), release(list), 0; }
int Free_LocalNamespacePath(LocalNamespacePath* record) { return release(record), 0; }
int Free_NamespacePath(NamespacePath* record) { return release(record), 0; }
int Free_ClassPath(ClassPath* record) { return release(record), 0; }
int Free_LocalClassPath(LocalClassPath* record) { return release(record), 0; }
int Free_InstancePath(InstancePath* record) { return release(record), 0; }
int Free_LocalInstancePath(LocalInstancePath* record) { return release(record), 0; }
int Free_ObjectPath(ObjectPath* list) { return release(list), 0; }

// Schema
int Free_QualifierFlavor(QualifierFlavor* record) { return release(record), 0; }
int Free_Scope(Scope* record) { return release(record), 0; }
int Free_Qualifier(Qualifier* list) { return trace("\n Inside Free_Qualifier \n"), release(list), 0; }
int Free_QualifierDecl(QualifierDecl* list) { return release(list), 0; }
int Free_Property(Property* list) { return trace("\n\n Inside Free_Property \n\n"), release(list), 0; }
int Free_PropertyArray(PropertyArray* list) { return release(list), 0; }
int Free_PropertyReference(PropertyReference* list) { return release(list), 0; }
int Free_Method(Method* list) { return release(list), 0; }
int Free_Parameter(Parameter* list) { return release(list), 0; }
int Free_ParameterReference(ParameterReference* list) { return release(list), 0; }
int Free_ParameterArray(ParameterArray* list) { return release(list), 0; }
int Free_ParameterRefArray(ParameterRefArray* list) { return release(list), 0; }
int Free_Class(Class* list) { return release(list), 0; }
int Free_Instance(Instance* list) { return release(list), 0; }
int Free_NamedInstance(NamedInstance* list) { return release(list), 0; }
int Free_Object(Object* list) { return release(list), 0; }
int Free_ObjectWithPath(ObjectWithPath* list) { return release(list), 0; }
int Free_ObjectWithLocalPath(ObjectWithLocalPath* list) { return release(list), 0; }
int Free_NamedObject(NamedObject* list) { return release(list), 0; }

// Messages and declarations

// A released tree is never handed out again: see parseXML().
int Free_CIM(CIM* record) {
  if (record == returnAddress) returnAddress = nullptr;
  return release(record), 0;
}

int Free_Message(Message* record) { return release(record), 0; }
int Free_SimpleReq(SimpleReq* list) { return release(list), 0; }
int Free_MultiReq(MultiReq* record) { return release(record), 0; }
int Free_SimpleRsp(SimpleRsp* list) { return release(list), 0; }
int Free_MultiRsp(MultiRsp* record) { return release(record), 0; }
int Free_IMethodCall(IMethodCall* record) { return release(record), 0; }
int Free_IMethodResponse(IMethodResponse* record) { return release(record), 0; }
int Free_MethodCall(MethodCall* record) { return release(record), 0; }
int Free_MethodResponse(MethodResponse* record) { return release(record), 0; }
int Free_ReturnValue(ReturnValue* record) { return release(record), 0; }
int Free_Error(Error* record) { return release(record), 0; }
int Free_ResponseDestination(ResponseDestination* record) { return release(record), 0; }
int Free_SimpleReqAck(SimpleReqAck* record) { return release(record), 0; }
int Free_IParamValue(IParamValue* list) { return release(list), 0; }
int Free_IReturnValue(IReturnValue* record) { return release(record), 0; }
int Free_ParamValue(ParamValue* list) { return release(list), 0; }
int Free_ExpParamValue(ExpParamValue* list) { return release(list), 0; }
int Free_ExpMethodCall(ExpMethodCall* record) { return release(record), 0; }
int Free_ExpMethodResponse(ExpMethodResponse* record) { return release(record), 0; }
int Free_SimpleExpReq(SimpleExpReq* list) { return release(list), 0; }
int Free_MultiExpReq(MultiExpReq* record) { return release(record), 0; }
int Free_SimpleExpRsp(SimpleExpRsp* record) { return release(record), 0; }
int Free_MultiExpRsp(MultiExpRsp* record) { return release(record), 0; }
int Free_Declaration(Declaration* record) { return release(record), 0; }
int Free_DeclGroup(DeclGroup* record) { return release(record), 0; }
int Free_DeclGroupWithName(DeclGroupWithName* record) { return release(record), 0; }
int Free_DeclGroupWithPath(DeclGroupWithPath* record) { return release(record), 0; }
int Free_Table(Table* record) { return release(record), 0; }
int Free_TableRowDecl(TableRowDecl* record) { return release(record), 0; }
int Free_TableCellDecl(TableCellDecl* list) { return release(list), 0; }
int Free_TableCellReference(TableCellReference* list) { return release(list), 0; }
int Free_TableRow(TableRow* list) { return release(list), 0; }

// clang-format on

}  // extern "C"
