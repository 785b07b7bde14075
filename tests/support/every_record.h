// The names of all records of the public header, in its order: FOR_EVERY_RECORD(DO) expands
// to DO(name) for each.  ObjectName and the records of the conversions have no Free_ function
// of this family and are not among them.
#pragma once

// clang-format off
#define FOR_EVERY_RECORD(DO)                                                                      \
  DO(Value) DO(ValueArray) DO(ValueReference) DO(ValueRefArray) DO(ValueNull) DO(KeyValue)        \
  DO(KeyBinding) DO(InstanceName) DO(ClassName) DO(Namespace) DO(LocalNamespacePath)              \
  DO(NamespacePath) DO(ClassPath) DO(LocalClassPath) DO(InstancePath) DO(LocalInstancePath)       \
  DO(ObjectPath)                                                                                  \
  DO(QualifierFlavor) DO(Scope) DO(Qualifier) DO(QualifierDecl) DO(Property) DO(PropertyArray)    \
  DO(PropertyReference) DO(Method) DO(Parameter) DO(ParameterReference) DO(ParameterArray)        \
  DO(ParameterRefArray) DO(Class) DO(Instance) DO(NamedInstance) DO(Object) DO(ObjectWithPath)    \
  DO(ObjectWithLocalPath) DO(NamedObject)                                                         \
  DO(CIM) DO(Message) DO(SimpleReq) DO(MultiReq) DO(SimpleRsp) DO(MultiRsp) DO(IMethodCall)       \
  DO(IMethodResponse) DO(MethodCall) DO(MethodResponse) DO(ReturnValue) DO(Error)                 \
  DO(ResponseDestination) DO(SimpleReqAck) DO(IParamValue) DO(IReturnValue) DO(ParamValue)        \
  DO(ExpParamValue) DO(ExpMethodCall) DO(ExpMethodResponse) DO(SimpleExpReq) DO(MultiExpReq)      \
  DO(SimpleExpRsp) DO(MultiExpRsp) DO(Declaration) DO(DeclGroup) DO(DeclGroupWithName)            \
  DO(DeclGroupWithPath) DO(Table) DO(TableRowDecl) DO(TableCellDecl) DO(TableCellReference)       \
  DO(TableRow)
// clang-format on
