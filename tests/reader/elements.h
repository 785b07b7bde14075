// The elements of CIM-XML that the reader builds records for, and which of them hold which.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "XMLParser.h"
#include "cim_client.h"

namespace elements {

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

// One element: its record and its functions.
struct Element {
  const char* name;
  std::size_t size;            // of its record, in bytes
  std::size_t next = nowhere;  // offset of the link to the next node
  std::size_t text = nowhere;  // offset of a text that is always set

  StackEntry* (*build)(StackEntry* entry, const XmlNode* node, void* parent);
  void (*release)(void* record);  // with all nodes after it
};

// A child element that the record of its parent element has a field for.
struct Link {
  const char* parent;
  const char* child;
  std::size_t offset;  // of the field
  bool list;           // holds all such children; otherwise the last one
};

template <class R, auto Free>
void release(void* record) {
  Free(static_cast<R*>(record));
}

template <class R, auto Free>
constexpr Element element(const char* name, decltype(Element::build) build) {
  Element element = {.name = name, .size = sizeof(R), .build = build, .release = release<R, Free>};
  if constexpr (requires(R r) { r.next; }) element.next = offsetof(R, next);
  return element;
}

constexpr Element with_text(Element element, std::size_t offset) {
  element.text = offset;
  return element;
}

// HOST: the record is a text, which is empty for an element without content.
constexpr Element host = {.name = "HOST", .size = 1, .build = CreateHost, .release = std::free};

// clang-format off

// Every element that has a record in a document.
constexpr Element all[] = {
  element<PropertyArray, Free_PropertyArray>("PROPERTY.ARRAY", CreatePropertyArray),
  element<Property, Free_Property>("PROPERTY", CreateProperty),
  with_text(element<Value, Free_Value>("VALUE", CreateValue), offsetof(Value, text)),
  element<ValueArray, Free_ValueArray>("VALUE.ARRAY", CreateValueArray),
  element<CIM, Free_CIM>("CIM", CreateCIM),
  element<Message, Free_Message>("MESSAGE", CreateMessage),
  element<SimpleRsp, Free_SimpleRsp>("SIMPLERSP", CreateSimpleRsp),
  element<IMethodResponse, Free_IMethodResponse>("IMETHODRESPONSE", CreateIMethodResponse),
  element<IReturnValue, Free_IReturnValue>("IRETURNVALUE", CreateIReturnValue),
  element<Class, Free_Class>("CLASS", CreateClass),
  element<Qualifier, Free_Qualifier>("QUALIFIER", CreateQualifier),
  element<NamedInstance, Free_NamedInstance>("VALUE.NAMEDINSTANCE", CreateNamedInstance),
  element<InstanceName, Free_InstanceName>("INSTANCENAME", CreateInstanceName),
  element<Instance, Free_Instance>("INSTANCE", CreateInstance),
  element<ClassName, Free_ClassName>("CLASSNAME", CreateClassName),
  with_text(element<KeyValue, Free_KeyValue>("KEYVALUE", CreateKeyValue), offsetof(KeyValue, text)),
  element<KeyBinding, Free_KeyBinding>("KEYBINDING", CreateKeyBinding),
  element<ValueReference, Free_ValueReference>("VALUE.REFERENCE", CreateValueReference),
  element<Error, Free_Error>("ERROR", CreateError),
  element<InstancePath, Free_InstancePath>("INSTANCEPATH", CreateInstancePath),
  element<ObjectWithPath, Free_ObjectWithPath>("VALUE.OBJECTWITHPATH", CreateObjectWithPath),
  element<NamespacePath, Free_NamespacePath>("NAMESPACEPATH", CreateNamespacePath),
  element<LocalNamespacePath, Free_LocalNamespacePath>("LOCALNAMESPACEPATH", CreateLocalNamespacePath),
  host,
  element<Namespace, Free_Namespace>("NAMESPACE", CreateNamespace),
  element<LocalInstancePath, Free_LocalInstancePath>("LOCALINSTANCEPATH", CreateLocalInstancePath),
  element<PropertyReference, Free_PropertyReference>("PROPERTY.REFERENCE", CreatePropertyReference),
  element<Method, Free_Method>("METHOD", CreateMethod),
  element<Parameter, Free_Parameter>("PARAMETER", CreateParameter),
  element<ParameterReference, Free_ParameterReference>("PARAMETER.REFERENCE", CreateParameterReference),
  element<ParameterArray, Free_ParameterArray>("PARAMETER.ARRAY", CreateParameterArray),
  element<ParameterRefArray, Free_ParameterRefArray>("PARAMETER.REFARRAY", CreateParameterRefArray),
  element<MethodResponse, Free_MethodResponse>("METHODRESPONSE", CreateMethodResponse),
  element<QualifierDecl, Free_QualifierDecl>("QUALIFIER.DECLARATION", CreateQualifierDecl),
  element<IParamValue, Free_IParamValue>("IPARAMVALUE", CreateIParamValue),
  element<IMethodCall, Free_IMethodCall>("IMETHODCALL", CreateIMethodCall),
  element<DeclGroup, Free_DeclGroup>("DECLGROUP", CreateDeclGroup),
  element<Declaration, Free_Declaration>("DECLARATION", CreateDeclaration),
  element<ParamValue, Free_ParamValue>("PARAMVALUE", CreateParamValue),
  element<DeclGroupWithName, Free_DeclGroupWithName>("DECLGROUP.WITHNAME", CreateDeclGroupWithName),
  element<ReturnValue, Free_ReturnValue>("RETURNVALUE", CreateReturnValue),
  element<TableRow, Free_TableRow>("TABLEROW", CreateTableRow),
  element<Table, Free_Table>("TABLE", CreateTable),
  element<NamedObject, Free_NamedObject>("VALUE.NAMEDOBJECT", CreateNamedObject),
  element<ExpParamValue, Free_ExpParamValue>("EXPPARAMVALUE", CreateExpParamValue),
  element<Object, Free_Object>("VALUE.OBJECT", CreateObject),
  element<SimpleReq, Free_SimpleReq>("SIMPLEREQ", CreateSimpleReq),
  element<MultiReq, Free_MultiReq>("MULTIREQ", CreateMultiReq),
  element<MultiExpReq, Free_MultiExpReq>("MULTIEXPREQ", CreateMultiExpReq),
  element<MultiExpRsp, Free_MultiExpRsp>("MULTIEXPRSP", CreateMultiExpRsp),
  element<SimpleExpRsp, Free_SimpleExpRsp>("SIMPLEEXPRSP", CreateSimpleExpRsp),
  element<ExpMethodCall, Free_ExpMethodCall>("EXPMETHODCALL", CreateExpMethodCall),
  element<MethodCall, Free_MethodCall>("METHODCALL", CreateMethodCall),
  element<ObjectWithLocalPath, Free_ObjectWithLocalPath>("VALUE.OBJECTWITHLOCALPATH", CreateObjectWithLocalPath),
  element<ExpMethodResponse, Free_ExpMethodResponse>("EXPMETHODRESPONSE", CreateExpMethodResponse),
  element<TableRowDecl, Free_TableRowDecl>("TABLEROW.DECLARATION", CreateTableRowDecl),
  element<SimpleReqAck, Free_SimpleReqAck>("SIMPLEREQACK", CreateSimpleReqAck),
  element<SimpleExpReq, Free_SimpleExpReq>("SIMPLEEXPREQ", CreateSimpleExpReq),
  element<MultiRsp, Free_MultiRsp>("MULTIRSP", CreateMultiRsp),
  element<ClassPath, Free_ClassPath>("CLASSPATH", CreateClassPath),
  element<LocalClassPath, Free_LocalClassPath>("LOCALCLASSPATH", CreateLocalClassPath),
  element<ObjectPath, Free_ObjectPath>("OBJECTPATH", CreateObjectPath),
  element<ResponseDestination, Free_ResponseDestination>("RESPONSEDESTINATION", CreateResponseDestination),
  element<DeclGroupWithPath, Free_DeclGroupWithPath>("DECLGROUP.WITHPATH", CreateDeclGroupWithPath),
  element<ValueRefArray, Free_ValueRefArray>("VALUE.REFARRAY", CreateValueRefArray),
};
static_assert(sizeof all / sizeof all[0] == 65);

// Elements that have a builder, but no record in a document.
constexpr Element builder_only[] = {
  element<ValueNull, Free_ValueNull>("VALUE.NULL", CreateValueNull),
  element<TableCellDecl, Free_TableCellDecl>("TABLECELL.DECLARATION", CreateTableCellDecl),
  element<TableCellReference, Free_TableCellReference>("TABLECELL.REFERENCE", CreateTableCellReference),
};

// Every pair that is linked.  Three pairs that a builder looks for have no field and are not:
// DECLARATION in DECLARATION, DECLGROUP in DECLGROUP, LOCALNAMESPACEPATH in DECLGROUP.WITHPATH.
constexpr Link links[] = {
  {"QUALIFIER.DECLARATION", "VALUE", offsetof(QualifierDecl, value), true},
  {"VALUE.ARRAY", "VALUE", offsetof(ValueArray, values), true},
  {"QUALIFIER", "VALUE", offsetof(Qualifier, value), true},
  {"PROPERTY", "VALUE", offsetof(Property, value), true},
  {"IPARAMVALUE", "VALUE", offsetof(IParamValue, value), true},
  {"IRETURNVALUE", "VALUE", offsetof(IReturnValue, value), true},
  {"TABLEROW", "VALUE", offsetof(TableRow, value), true},
  {"PARAMVALUE", "VALUE", offsetof(ParamValue, value), true},
  {"RETURNVALUE", "VALUE", offsetof(ReturnValue, value), true},
  {"EXPPARAMVALUE", "VALUE", offsetof(ExpParamValue, value), true},

  {"QUALIFIER.DECLARATION", "VALUE.ARRAY", offsetof(QualifierDecl, valueArray), false},
  {"QUALIFIER", "VALUE.ARRAY", offsetof(Qualifier, valueArray), false},
  {"PROPERTY.ARRAY", "VALUE.ARRAY", offsetof(PropertyArray, valueArray), false},
  {"IPARAMVALUE", "VALUE.ARRAY", offsetof(IParamValue, valueArray), false},
  {"IRETURNVALUE", "VALUE.ARRAY", offsetof(IReturnValue, valueArray), true},
  {"TABLEROW", "VALUE.ARRAY", offsetof(TableRow, valueArray), false},
  {"PARAMVALUE", "VALUE.ARRAY", offsetof(ParamValue, valueArray), false},

  {"KEYBINDING", "VALUE.REFERENCE", offsetof(KeyBinding, valueReference), false},
  {"INSTANCENAME", "VALUE.REFERENCE", offsetof(InstanceName, valueReference), false},
  {"PROPERTY.REFERENCE", "VALUE.REFERENCE", offsetof(PropertyReference, valueReference), false},
  {"IPARAMVALUE", "VALUE.REFERENCE", offsetof(IParamValue, valueReference), false},
  {"IRETURNVALUE", "VALUE.REFERENCE", offsetof(IReturnValue, valueReference), true},
  {"VALUE.REFARRAY", "VALUE.REFERENCE", offsetof(ValueRefArray, valueReferences), true},
  {"TABLEROW", "VALUE.REFERENCE", offsetof(TableRow, valueReference), false},
  {"PARAMVALUE", "VALUE.REFERENCE", offsetof(ParamValue, valueReference), false},
  {"RETURNVALUE", "VALUE.REFERENCE", offsetof(ReturnValue, valueReference), false},

  {"TABLEROW", "VALUE.REFARRAY", offsetof(TableRow, valueRefArray), false},
  {"PARAMVALUE", "VALUE.REFARRAY", offsetof(ParamValue, valueRefArray), false},

  {"KEYBINDING", "KEYVALUE", offsetof(KeyBinding, keyValue), false},
  {"INSTANCENAME", "KEYVALUE", offsetof(InstanceName, keyValue), false},

  {"INSTANCENAME", "KEYBINDING", offsetof(InstanceName, keyBindings), true},

  {"INSTANCEPATH", "INSTANCENAME", offsetof(InstancePath, instanceName), false},
  {"LOCALINSTANCEPATH", "INSTANCENAME", offsetof(LocalInstancePath, instanceName), false},
  {"VALUE.REFERENCE", "INSTANCENAME", offsetof(ValueReference, instanceName), false},
  {"VALUE.NAMEDINSTANCE", "INSTANCENAME", offsetof(NamedInstance, instanceName), false},
  {"IPARAMVALUE", "INSTANCENAME", offsetof(IParamValue, instanceName), false},
  {"IRETURNVALUE", "INSTANCENAME", offsetof(IReturnValue, instanceName), true},
  {"VALUE.NAMEDOBJECT", "INSTANCENAME", offsetof(NamedObject, instanceName), false},

  {"CLASSPATH", "CLASSNAME", offsetof(ClassPath, className), false},
  {"LOCALCLASSPATH", "CLASSNAME", offsetof(LocalClassPath, className), false},
  {"INSTANCENAME", "CLASSNAME", offsetof(InstanceName, className), false},
  {"VALUE.REFERENCE", "CLASSNAME", offsetof(ValueReference, className), false},
  {"INSTANCE", "CLASSNAME", offsetof(Instance, className), false},
  {"IPARAMVALUE", "CLASSNAME", offsetof(IParamValue, className), false},
  {"IRETURNVALUE", "CLASSNAME", offsetof(IReturnValue, className), true},

  {"NAMESPACEPATH", "HOST", offsetof(NamespacePath, host), false},

  {"LOCALNAMESPACEPATH", "NAMESPACE", offsetof(LocalNamespacePath, namespaces), true},

  {"NAMESPACEPATH", "LOCALNAMESPACEPATH", offsetof(NamespacePath, localNamespacePath), false},
  {"LOCALCLASSPATH", "LOCALNAMESPACEPATH", offsetof(LocalClassPath, localNamespacePath), false},
  {"LOCALINSTANCEPATH", "LOCALNAMESPACEPATH", offsetof(LocalInstancePath, localNamespacePath), false},
  {"IMETHODCALL", "LOCALNAMESPACEPATH", offsetof(IMethodCall, localNamespacePath), false},
  {"DECLGROUP", "LOCALNAMESPACEPATH", offsetof(DeclGroup, localNamespacePath), false},

  {"CLASSPATH", "NAMESPACEPATH", offsetof(ClassPath, namespacePath), false},
  {"INSTANCEPATH", "NAMESPACEPATH", offsetof(InstancePath, namespacePath), false},
  {"DECLGROUP", "NAMESPACEPATH", offsetof(DeclGroup, namespacePath), false},
  {"DECLGROUP.WITHNAME", "NAMESPACEPATH", offsetof(DeclGroupWithName, namespacePath), false},

  {"VALUE.REFERENCE", "CLASSPATH", offsetof(ValueReference, classPath), false},
  {"VALUE.OBJECTWITHPATH", "CLASSPATH", offsetof(ObjectWithPath, classPath), false},
  {"OBJECTPATH", "CLASSPATH", offsetof(ObjectPath, classPath), false},

  {"VALUE.REFERENCE", "LOCALCLASSPATH", offsetof(ValueReference, localClassPath), false},
  {"VALUE.OBJECTWITHLOCALPATH", "LOCALCLASSPATH", offsetof(ObjectWithLocalPath, localClassPath), false},
  {"METHODCALL", "LOCALCLASSPATH", offsetof(MethodCall, localClassPath), false},

  {"VALUE.REFERENCE", "INSTANCEPATH", offsetof(ValueReference, instancePath), false},
  {"VALUE.OBJECTWITHPATH", "INSTANCEPATH", offsetof(ObjectWithPath, instancePath), false},
  {"OBJECTPATH", "INSTANCEPATH", offsetof(ObjectPath, instancePath), false},

  {"VALUE.REFERENCE", "LOCALINSTANCEPATH", offsetof(ValueReference, localInstancePath), false},
  {"VALUE.OBJECTWITHLOCALPATH", "LOCALINSTANCEPATH", offsetof(ObjectWithLocalPath, localInstancePath), false},
  {"METHODCALL", "LOCALINSTANCEPATH", offsetof(MethodCall, localInstancePath), false},

  {"IRETURNVALUE", "OBJECTPATH", offsetof(IReturnValue, objectPath), true},

  {"PROPERTY", "QUALIFIER", offsetof(Property, qualifiers), true},
  {"PROPERTY.ARRAY", "QUALIFIER", offsetof(PropertyArray, qualifiers), true},
  {"PROPERTY.REFERENCE", "QUALIFIER", offsetof(PropertyReference, qualifiers), true},
  {"PARAMETER", "QUALIFIER", offsetof(Parameter, qualifiers), true},
  {"PARAMETER.REFERENCE", "QUALIFIER", offsetof(ParameterReference, qualifiers), true},
  {"PARAMETER.ARRAY", "QUALIFIER", offsetof(ParameterArray, qualifiers), true},
  {"PARAMETER.REFARRAY", "QUALIFIER", offsetof(ParameterRefArray, qualifiers), true},
  {"METHOD", "QUALIFIER", offsetof(Method, qualifiers), true},
  {"CLASS", "QUALIFIER", offsetof(Class, qualifiers), true},
  {"INSTANCE", "QUALIFIER", offsetof(Instance, qualifiers), true},

  {"CLASS", "PROPERTY", offsetof(Class, properties), true},
  {"INSTANCE", "PROPERTY", offsetof(Instance, properties), true},
  {"CLASS", "PROPERTY.ARRAY", offsetof(Class, propertyArrays), true},
  {"INSTANCE", "PROPERTY.ARRAY", offsetof(Instance, propertyArrays), true},
  {"CLASS", "PROPERTY.REFERENCE", offsetof(Class, propertyReferences), true},
  {"INSTANCE", "PROPERTY.REFERENCE", offsetof(Instance, propertyReferences), true},

  {"CLASS", "METHOD", offsetof(Class, methods), true},
  {"METHOD", "PARAMETER", offsetof(Method, parameters), true},
  {"METHOD", "PARAMETER.REFERENCE", offsetof(Method, parameterReferences), true},
  {"METHOD", "PARAMETER.ARRAY", offsetof(Method, parameterArrays), true},
  {"METHOD", "PARAMETER.REFARRAY", offsetof(Method, parameterRefArrays), true},

  {"IPARAMVALUE", "QUALIFIER.DECLARATION", offsetof(IParamValue, qualifierDecl), false},
  {"IRETURNVALUE", "QUALIFIER.DECLARATION", offsetof(IReturnValue, qualifierDecl), true},
  {"DECLGROUP", "QUALIFIER.DECLARATION", offsetof(DeclGroup, qualifierDecls), true},
  {"DECLGROUP.WITHNAME", "QUALIFIER.DECLARATION", offsetof(DeclGroupWithName, qualifierDecls), true},

  {"IPARAMVALUE", "CLASS", offsetof(IParamValue, class_), false},
  {"IRETURNVALUE", "CLASS", offsetof(IReturnValue, class_), true},
  {"VALUE.OBJECTWITHPATH", "CLASS", offsetof(ObjectWithPath, class_), false},
  {"VALUE.OBJECTWITHLOCALPATH", "CLASS", offsetof(ObjectWithLocalPath, class_), false},
  {"VALUE.OBJECT", "CLASS", offsetof(Object, class_), false},
  {"VALUE.NAMEDOBJECT", "CLASS", offsetof(NamedObject, class_), false},

  {"VALUE.NAMEDINSTANCE", "INSTANCE", offsetof(NamedInstance, instance), false},
  {"IPARAMVALUE", "INSTANCE", offsetof(IParamValue, instance), false},
  {"RESPONSEDESTINATION", "INSTANCE", offsetof(ResponseDestination, instance), false},
  {"ERROR", "INSTANCE", offsetof(Error, instance), true},
  {"IRETURNVALUE", "INSTANCE", offsetof(IReturnValue, instance), true},
  {"VALUE.OBJECTWITHPATH", "INSTANCE", offsetof(ObjectWithPath, instance), false},
  {"VALUE.OBJECTWITHLOCALPATH", "INSTANCE", offsetof(ObjectWithLocalPath, instance), false},
  {"VALUE.OBJECT", "INSTANCE", offsetof(Object, instance), false},
  {"VALUE.NAMEDOBJECT", "INSTANCE", offsetof(NamedObject, instance), false},
  {"EXPPARAMVALUE", "INSTANCE", offsetof(ExpParamValue, instance), false},

  {"IPARAMVALUE", "VALUE.NAMEDINSTANCE", offsetof(IParamValue, namedInstance), false},
  {"IRETURNVALUE", "VALUE.NAMEDINSTANCE", offsetof(IReturnValue, namedInstance), true},

  {"CIM", "MESSAGE", offsetof(CIM, message), false},

  {"IMETHODRESPONSE", "ERROR", offsetof(IMethodResponse, error), false},
  {"METHODRESPONSE", "ERROR", offsetof(MethodResponse, error), false},
  {"EXPMETHODRESPONSE", "ERROR", offsetof(ExpMethodResponse, error), false},
  {"SIMPLEREQACK", "ERROR", offsetof(SimpleReqAck, error), false},

  {"MESSAGE", "SIMPLERSP", offsetof(Message, simpleRsp), false},
  {"MULTIRSP", "SIMPLERSP", offsetof(MultiRsp, simpleRsps), true},
  {"MESSAGE", "MULTIRSP", offsetof(Message, multiRsp), false},
  {"SIMPLERSP", "IMETHODRESPONSE", offsetof(SimpleRsp, iMethodResponse), false},
  {"EXPPARAMVALUE", "IMETHODRESPONSE", offsetof(ExpParamValue, iMethodResponse), false},
  {"IMETHODRESPONSE", "IRETURNVALUE", offsetof(IMethodResponse, iReturnValue), false},
  {"EXPMETHODRESPONSE", "IRETURNVALUE", offsetof(ExpMethodResponse, iReturnValue), false},
  {"SIMPLERSP", "METHODRESPONSE", offsetof(SimpleRsp, methodResponse), false},
  {"EXPPARAMVALUE", "METHODRESPONSE", offsetof(ExpParamValue, methodResponse), false},
  {"METHODRESPONSE", "RETURNVALUE", offsetof(MethodResponse, returnValue), false},
  {"MESSAGE", "SIMPLEREQ", offsetof(Message, simpleReq), false},
  {"MULTIREQ", "SIMPLEREQ", offsetof(MultiReq, simpleReqs), true},
  {"MESSAGE", "MULTIREQ", offsetof(Message, multiReq), false},
  {"SIMPLEREQ", "IMETHODCALL", offsetof(SimpleReq, iMethodCall), false},
  {"IMETHODCALL", "IPARAMVALUE", offsetof(IMethodCall, iParamValues), true},
  {"SIMPLEREQ", "METHODCALL", offsetof(SimpleReq, methodCall), false},
  {"METHODCALL", "PARAMVALUE", offsetof(MethodCall, paramValues), true},
  {"METHODRESPONSE", "PARAMVALUE", offsetof(MethodResponse, paramValues), true},
  {"IMETHODCALL", "RESPONSEDESTINATION", offsetof(IMethodCall, responseDestination), false},
  {"METHODCALL", "RESPONSEDESTINATION", offsetof(MethodCall, responseDestination), false},
  {"SIMPLERSP", "SIMPLEREQACK", offsetof(SimpleRsp, simpleReqAck), false},
  {"MESSAGE", "SIMPLEEXPREQ", offsetof(Message, simpleExpReq), false},
  {"MULTIEXPREQ", "SIMPLEEXPREQ", offsetof(MultiExpReq, simpleExpReqs), true},
  {"MESSAGE", "MULTIEXPREQ", offsetof(Message, multiExpReq), false},
  {"SIMPLEEXPREQ", "EXPMETHODCALL", offsetof(SimpleExpReq, expMethodCall), false},
  {"EXPMETHODCALL", "EXPPARAMVALUE", offsetof(ExpMethodCall, expParamValues), true},
  {"MESSAGE", "SIMPLEEXPRSP", offsetof(Message, simpleExpRsp), false},
  {"MULTIEXPRSP", "SIMPLEEXPRSP", offsetof(MultiExpRsp, simpleExpRsp), false},
  {"MESSAGE", "MULTIEXPRSP", offsetof(Message, multiExpRsp), false},
  {"SIMPLEEXPRSP", "EXPMETHODRESPONSE", offsetof(SimpleExpRsp, expMethodResponse), false},

  {"IRETURNVALUE", "VALUE.OBJECTWITHPATH", offsetof(IReturnValue, objectWithPath), true},
  {"DECLGROUP.WITHPATH", "VALUE.OBJECTWITHPATH", offsetof(DeclGroupWithPath, objectWithPaths), true},
  {"IRETURNVALUE", "VALUE.OBJECTWITHLOCALPATH", offsetof(IReturnValue, objectWithLocalPath), true},
  {"DECLGROUP.WITHPATH", "VALUE.OBJECTWITHLOCALPATH", offsetof(DeclGroupWithPath, objectWithLocalPaths), true},
  {"IRETURNVALUE", "VALUE.OBJECT", offsetof(IReturnValue, object), true},
  {"DECLGROUP", "VALUE.OBJECT", offsetof(DeclGroup, objects), true},
  {"DECLGROUP.WITHNAME", "VALUE.NAMEDOBJECT", offsetof(DeclGroupWithName, namedObjects), true},
  {"DECLARATION", "DECLGROUP.WITHNAME", offsetof(Declaration, declGroupWithName), false},
  {"DECLARATION", "DECLGROUP.WITHPATH", offsetof(Declaration, declGroupWithPath), false},

  {"TABLE", "TABLEROW", offsetof(Table, tableRows), true},
  {"TABLE", "TABLEROW.DECLARATION", offsetof(Table, tableRowDecl), false},
};

// Pairs that are linked by a builder, but not in a document.
constexpr Link builder_only_links[] = {
  {"TABLEROW", "VALUE.NULL", offsetof(TableRow, valueNull), false},
  {"TABLEROW.DECLARATION", "TABLECELL.DECLARATION", offsetof(TableRowDecl, tableCellDecls), true},
  {"TABLEROW.DECLARATION", "TABLECELL.REFERENCE", offsetof(TableRowDecl, tableCellReferences), true},
};

// clang-format on

// The element of that name; null when there is none.
inline const Element* find(std::string_view name) {
  for (const Element& element : all)
    if (name == element.name) return &element;
  for (const Element& element : builder_only)
    if (name == element.name) return &element;
  return nullptr;
}

// The link of a pair; null when it is not linked.
inline const Link* find_link(std::string_view parent, std::string_view child) {
  for (const Link& link : links)
    if (parent == link.parent && child == link.child) return &link;
  for (const Link& link : builder_only_links)
    if (parent == link.parent && child == link.child) return &link;
  return nullptr;
}

// The pointer at `offset` in a record.
inline void* pointer_at(const void* record, std::size_t offset) {
  void* pointer;
  std::memcpy(&pointer, static_cast<const char*>(record) + offset, sizeof pointer);
  return pointer;
}

}  // namespace elements
