// The description of every record, once.  Release, copy and reader follow from it.
//
// To add a field: add it to the struct in cim_client.h, add its line here, and add its piece
// to the record's writer.  A missing line here does not compile: see element().
#pragma once

#include "cim_client.h"
#include "model/describe.h"

// clang-format off
namespace cim {

// ---- Values, names and paths ----

template <>
inline constexpr auto describe<Value> = element("VALUE",
    plain(&Value::text),
    plain(&Value::instance),  // from a CDATA section, not from an INSTANCE element
    plain(&Value::isCData));

template <>
inline constexpr auto describe<ValueArray> = element("VALUE.ARRAY",
    children(&ValueArray::values));

template <>
inline constexpr auto describe<ValueReference> = element("VALUE.REFERENCE",
    child(&ValueReference::classPath),
    child(&ValueReference::localClassPath),
    child(&ValueReference::className),
    child(&ValueReference::instancePath),
    child(&ValueReference::localInstancePath),
    child(&ValueReference::instanceName));

template <>
inline constexpr auto describe<ValueRefArray> = element("VALUE.REFARRAY",
    children(&ValueRefArray::valueReferences));

template <>
inline constexpr auto describe<ValueNull> = element("VALUE.NULL",
    plain(&ValueNull::text));

template <>
inline constexpr auto describe<KeyValue> = element("KEYVALUE",
    plain(&KeyValue::text),
    attribute("VALUETYPE", &KeyValue::valueType),
    type(&KeyValue::cimType));

template <>
inline constexpr auto describe<KeyBinding> = element("KEYBINDING",
    child(&KeyBinding::keyValue),
    child(&KeyBinding::valueReference),
    name(&KeyBinding::name));

template <>
inline constexpr auto describe<InstanceName> = element("INSTANCENAME",
    children(&InstanceName::keyBindings),
    child(&InstanceName::keyValue),
    child(&InstanceName::valueReference),
    attribute("CLASSNAME", &InstanceName::className).or_child());

template <>
inline constexpr auto describe<ClassName> = element("CLASSNAME",
    name(&ClassName::name));

template <>
inline constexpr auto describe<Namespace> = element("NAMESPACE",
    name(&Namespace::name));

template <>
inline constexpr auto describe<LocalNamespacePath> = element("LOCALNAMESPACEPATH",
    children(&LocalNamespacePath::namespaces));

template <>
inline constexpr auto describe<NamespacePath> = element("NAMESPACEPATH",
    plain(&NamespacePath::host),  // by the builder of HOST
    child(&NamespacePath::localNamespacePath));

template <>
inline constexpr auto describe<ClassPath> = element("CLASSPATH",
    child(&ClassPath::namespacePath),
    child(&ClassPath::className));

template <>
inline constexpr auto describe<LocalClassPath> = element("LOCALCLASSPATH",
    child(&LocalClassPath::localNamespacePath),
    child(&LocalClassPath::className));

template <>
inline constexpr auto describe<InstancePath> = element("INSTANCEPATH",
    child(&InstancePath::namespacePath),
    child(&InstancePath::instanceName));

template <>
inline constexpr auto describe<LocalInstancePath> = element("LOCALINSTANCEPATH",
    child(&LocalInstancePath::localNamespacePath),
    child(&LocalInstancePath::instanceName));

template <>
inline constexpr auto describe<ObjectPath> = element("OBJECTPATH",
    child(&ObjectPath::instancePath),
    child(&ObjectPath::classPath));

// ---- Schema ----

template <>
inline constexpr auto describe<QualifierFlavor> = element("QUALIFIERFLAVOR",
    plain(&QualifierFlavor::overridable),
    plain(&QualifierFlavor::toSubclass),
    plain(&QualifierFlavor::toInstance),
    plain(&QualifierFlavor::translatable));

template <>
inline constexpr auto describe<Scope> = element("SCOPE",
    plain(&Scope::class_),
    plain(&Scope::association),
    plain(&Scope::reference),
    plain(&Scope::property),
    plain(&Scope::method),
    plain(&Scope::parameter),
    plain(&Scope::indication));

template <>
inline constexpr auto describe<Qualifier> = element("QUALIFIER",
    children(&Qualifier::value),
    child(&Qualifier::valueArray),
    name(&Qualifier::name),
    type(&Qualifier::type),
    propagated(&Qualifier::propagated),
    attribute("QUALIFIERFLAVOR", &Qualifier::qualifierFlavor));

template <>
inline constexpr auto describe<QualifierDecl> = element("QUALIFIER.DECLARATION",
    plain(&QualifierDecl::scope),  // SCOPE is not read
    children(&QualifierDecl::value),
    child(&QualifierDecl::valueArray),
    name(&QualifierDecl::name),
    type(&QualifierDecl::type),
    is_array(&QualifierDecl::isArray),
    array_size(&QualifierDecl::arraySize),
    attribute("QUALIFIERFLAVOR", &QualifierDecl::qualifierFlavor));

template <>
inline constexpr auto describe<Property> = element("PROPERTY",
    children(&Property::qualifiers),
    children(&Property::value),
    name(&Property::name),
    type(&Property::type),
    class_origin(&Property::classOrigin),
    propagated(&Property::propagated));

template <>
inline constexpr auto describe<PropertyArray> = element("PROPERTY.ARRAY",
    children(&PropertyArray::qualifiers),
    child(&PropertyArray::valueArray),
    name(&PropertyArray::name),
    type(&PropertyArray::type),
    array_size(&PropertyArray::arraySize),
    class_origin(&PropertyArray::classOrigin),
    propagated(&PropertyArray::propagated));

template <>
inline constexpr auto describe<PropertyReference> = element("PROPERTY.REFERENCE",
    children(&PropertyReference::qualifiers),
    child(&PropertyReference::valueReference),
    name(&PropertyReference::name).copied(Copy::Nothing),
    reference_class(&PropertyReference::referenceClass),
    class_origin(&PropertyReference::classOrigin),
    propagated(&PropertyReference::propagated));

template <>
inline constexpr auto describe<Method> = element("METHOD",
    children(&Method::qualifiers),
    children(&Method::parameters),
    children(&Method::parameterReferences),
    children(&Method::parameterArrays),
    children(&Method::parameterRefArrays),
    name(&Method::name),
    type(&Method::type),
    class_origin(&Method::classOrigin),
    propagated(&Method::propagated));

template <>
inline constexpr auto describe<Parameter> = element("PARAMETER",
    children(&Parameter::qualifiers),
    name(&Parameter::name),
    type(&Parameter::type));

template <>
inline constexpr auto describe<ParameterReference> = element("PARAMETER.REFERENCE",
    children(&ParameterReference::qualifiers),
    name(&ParameterReference::name),
    reference_class(&ParameterReference::referenceClass));

template <>
inline constexpr auto describe<ParameterArray> = element("PARAMETER.ARRAY",
    children(&ParameterArray::qualifiers),
    name(&ParameterArray::name),
    type(&ParameterArray::type),
    array_size(&ParameterArray::arraySize));

template <>
inline constexpr auto describe<ParameterRefArray> = element("PARAMETER.REFARRAY",
    children(&ParameterRefArray::qualifiers),
    name(&ParameterRefArray::name),
    reference_class(&ParameterRefArray::referenceClass),
    array_size(&ParameterRefArray::arraySize));

template <>
inline constexpr auto describe<Class> = element("CLASS",
    children(&Class::qualifiers),
    children(&Class::properties),
    children(&Class::propertyArrays),
    children(&Class::propertyReferences),
    children(&Class::methods),
    name(&Class::name),
    attribute("SUPERCLASS", &Class::superClass));

template <>
inline constexpr auto describe<Instance> = element("INSTANCE",
    children(&Instance::qualifiers),
    attribute("CLASSNAME", &Instance::className).or_child(),
    children(&Instance::properties),
    children(&Instance::propertyArrays),
    children(&Instance::propertyReferences));

template <>
inline constexpr auto describe<NamedInstance> = element("VALUE.NAMEDINSTANCE",
    child(&NamedInstance::instanceName),
    child(&NamedInstance::instance));

template <>
inline constexpr auto describe<Object> = element("VALUE.OBJECT",
    child(&Object::class_),
    child(&Object::instance));

template <>
inline constexpr auto describe<ObjectWithPath> = element("VALUE.OBJECTWITHPATH",
    child(&ObjectWithPath::classPath),
    child(&ObjectWithPath::class_),
    child(&ObjectWithPath::instancePath),
    child(&ObjectWithPath::instance));

template <>
inline constexpr auto describe<ObjectWithLocalPath> = element("VALUE.OBJECTWITHLOCALPATH",
    child(&ObjectWithLocalPath::localClassPath),
    child(&ObjectWithLocalPath::class_),
    child(&ObjectWithLocalPath::localInstancePath),
    child(&ObjectWithLocalPath::instance));

template <>
inline constexpr auto describe<NamedObject> = element("VALUE.NAMEDOBJECT",
    child(&NamedObject::class_),
    child(&NamedObject::instanceName),
    child(&NamedObject::instance));

// ---- Messages and declarations ----

template <>
inline constexpr auto describe<CIM> = element("CIM",
    child(&CIM::message),
    plain(&CIM::declaration),  // a DECLARATION links only under a DECLARATION
    attribute("CIMVERSION", &CIM::cimVersion),
    attribute("DTDVERSION", &CIM::dtdVersion));

template <>
inline constexpr auto describe<Message> = element("MESSAGE",
    attribute("ID", &Message::id),
    attribute("PROTOCOLVERSION", &Message::protocolVersion),
    child(&Message::simpleReq),
    child(&Message::multiReq),
    child(&Message::simpleRsp),
    child(&Message::multiRsp),
    child(&Message::simpleExpReq),
    child(&Message::multiExpReq),
    child(&Message::simpleExpRsp),
    child(&Message::multiExpRsp));

template <>
inline constexpr auto describe<SimpleReq> = element("SIMPLEREQ",
    child(&SimpleReq::iMethodCall),
    child(&SimpleReq::methodCall));

template <>
inline constexpr auto describe<MultiReq> = element("MULTIREQ",
    children(&MultiReq::simpleReqs));

template <>
inline constexpr auto describe<SimpleRsp> = element("SIMPLERSP",
    child(&SimpleRsp::methodResponse),
    child(&SimpleRsp::iMethodResponse),
    child(&SimpleRsp::simpleReqAck));

template <>
inline constexpr auto describe<MultiRsp> = element("MULTIRSP",
    children(&MultiRsp::simpleRsps));

template <>
inline constexpr auto describe<IMethodCall> = element("IMETHODCALL",
    child(&IMethodCall::localNamespacePath),
    children(&IMethodCall::iParamValues),
    child(&IMethodCall::responseDestination),
    name(&IMethodCall::name));

template <>
inline constexpr auto describe<IMethodResponse> = element("IMETHODRESPONSE",
    name(&IMethodResponse::name),
    child(&IMethodResponse::error),
    child(&IMethodResponse::iReturnValue));

template <>
inline constexpr auto describe<MethodCall> = element("METHODCALL",
    name(&MethodCall::name),
    child(&MethodCall::localClassPath),
    child(&MethodCall::localInstancePath),
    children(&MethodCall::paramValues),
    child(&MethodCall::responseDestination));

template <>
inline constexpr auto describe<MethodResponse> = element("METHODRESPONSE",
    name(&MethodResponse::name),
    child(&MethodResponse::error),
    child(&MethodResponse::returnValue),
    children(&MethodResponse::paramValues));

template <>
inline constexpr auto describe<ReturnValue> = element("RETURNVALUE",
    children(&ReturnValue::value),
    child(&ReturnValue::valueReference),
    param_type(&ReturnValue::paramType));

template <>
inline constexpr auto describe<Error> = element("ERROR",
    children(&Error::instance),
    attribute("CODE", &Error::code),
    attribute("DESCRIPTION", &Error::description));

template <>
inline constexpr auto describe<ResponseDestination> = element("RESPONSEDESTINATION",
    child(&ResponseDestination::instance));

template <>
inline constexpr auto describe<SimpleReqAck> = element("SIMPLEREQACK",
    child(&SimpleReqAck::error),
    attribute("INSTANCEID", &SimpleReqAck::instanceId));

template <>
inline constexpr auto describe<IParamValue> = element("IPARAMVALUE",
    name(&IParamValue::name),
    children(&IParamValue::value).borrowed(),
    child(&IParamValue::valueArray).borrowed(),
    child(&IParamValue::valueReference).borrowed(),
    child(&IParamValue::className).borrowed(),
    child(&IParamValue::instanceName).borrowed(),
    child(&IParamValue::qualifierDecl).borrowed(),
    child(&IParamValue::class_).borrowed(),
    child(&IParamValue::instance).borrowed(),
    child(&IParamValue::namedInstance).borrowed());

template <>
inline constexpr auto describe<IReturnValue> = element("IRETURNVALUE",
    children(&IReturnValue::className),
    children(&IReturnValue::instanceName),
    children(&IReturnValue::value),
    children(&IReturnValue::objectWithPath),
    children(&IReturnValue::objectWithLocalPath),
    children(&IReturnValue::object),
    children(&IReturnValue::objectPath),
    children(&IReturnValue::qualifierDecl),
    children(&IReturnValue::valueArray),
    children(&IReturnValue::valueReference),
    children(&IReturnValue::class_),
    children(&IReturnValue::instance),
    children(&IReturnValue::namedInstance));

template <>
inline constexpr auto describe<ParamValue> = element("PARAMVALUE",
    name(&ParamValue::name),
    param_type(&ParamValue::paramType),
    children(&ParamValue::value),
    child(&ParamValue::valueReference),
    child(&ParamValue::valueArray),
    child(&ParamValue::valueRefArray));

template <>
inline constexpr auto describe<ExpParamValue> = element("EXPPARAMVALUE",
    name(&ExpParamValue::name),
    child(&ExpParamValue::instance),
    children(&ExpParamValue::value),
    child(&ExpParamValue::methodResponse),
    child(&ExpParamValue::iMethodResponse));

template <>
inline constexpr auto describe<ExpMethodCall> = element("EXPMETHODCALL",
    name(&ExpMethodCall::name),
    children(&ExpMethodCall::expParamValues));

template <>
inline constexpr auto describe<ExpMethodResponse> = element("EXPMETHODRESPONSE",
    name(&ExpMethodResponse::name),
    child(&ExpMethodResponse::error),
    child(&ExpMethodResponse::iReturnValue));

template <>
inline constexpr auto describe<SimpleExpReq> = element("SIMPLEEXPREQ",
    child(&SimpleExpReq::expMethodCall));

template <>
inline constexpr auto describe<MultiExpReq> = element("MULTIEXPREQ",
    children(&MultiExpReq::simpleExpReqs));

template <>
inline constexpr auto describe<SimpleExpRsp> = element("SIMPLEEXPRSP",
    child(&SimpleExpRsp::expMethodResponse));

template <>
inline constexpr auto describe<MultiExpRsp> = element("MULTIEXPRSP",
    child(&MultiExpRsp::simpleExpRsp));

template <>
inline constexpr auto describe<Declaration> = element("DECLARATION",
    plain(&Declaration::declGroup),  // a DECLGROUP links only under a DECLGROUP
    child(&Declaration::declGroupWithName),
    child(&Declaration::declGroupWithPath));

template <>
inline constexpr auto describe<DeclGroup> = element("DECLGROUP",
    child(&DeclGroup::localNamespacePath),
    child(&DeclGroup::namespacePath),
    children(&DeclGroup::qualifierDecls),
    children(&DeclGroup::objects));

template <>
inline constexpr auto describe<DeclGroupWithName> = element("DECLGROUP.WITHNAME",
    plain(&DeclGroupWithName::localNamespacePath),  // not read
    child(&DeclGroupWithName::namespacePath),
    children(&DeclGroupWithName::qualifierDecls),
    children(&DeclGroupWithName::namedObjects));

template <>
inline constexpr auto describe<DeclGroupWithPath> = element("DECLGROUP.WITHPATH",
    children(&DeclGroupWithPath::objectWithPaths),
    children(&DeclGroupWithPath::objectWithLocalPaths));

template <>
inline constexpr auto describe<Table> = element("TABLE",
    child(&Table::tableRowDecl),
    children(&Table::tableRows));

template <>
inline constexpr auto describe<TableRowDecl> = element("TABLEROW.DECLARATION",
    children(&TableRowDecl::tableCellDecls),
    children(&TableRowDecl::tableCellReferences));

template <>
inline constexpr auto describe<TableCellDecl> = element("TABLECELLDECL",
    name(&TableCellDecl::name),
    type(&TableCellDecl::type),
    is_array(&TableCellDecl::isArray),
    array_size(&TableCellDecl::arraySize),
    attribute("CELLPOS", &TableCellDecl::cellPos),
    attribute("SORTPOS", &TableCellDecl::sortPos),
    attribute("SORTDIR", &TableCellDecl::sortDir).read_as(Reading::SortDirection));

template <>
inline constexpr auto describe<TableCellReference> = element("TABLECELLREFERENCE",
    name(&TableCellReference::name),
    reference_class(&TableCellReference::referenceClass),
    is_array(&TableCellReference::isArray),
    array_size(&TableCellReference::arraySize),
    attribute("CELLPOS", &TableCellReference::cellPos),
    attribute("SORTPOS", &TableCellReference::sortPos),
    attribute("SORTDIR", &TableCellReference::sortDir).read_as(Reading::SortDirection));

template <>
inline constexpr auto describe<TableRow> = element("TABLEROW",
    children(&TableRow::value),
    child(&TableRow::valueArray),
    child(&TableRow::valueReference),
    child(&TableRow::valueRefArray),
    child(&TableRow::valueNull));

// ---- All of them ----

template <Record... R>
struct RecordList {
  static constexpr std::size_t size = sizeof...(R);

  // Calls visit.operator()<R>() for every record.
  template <class Visit>
  static constexpr void for_each(Visit visit) { (visit.template operator()<R>(), ...); }
};

using Records = RecordList<
    Value, ValueArray, ValueReference, ValueRefArray, ValueNull, KeyValue, KeyBinding,
    InstanceName, ClassName, Namespace, LocalNamespacePath, NamespacePath, ClassPath,
    LocalClassPath, InstancePath, LocalInstancePath, ObjectPath, QualifierFlavor, Scope,
    Qualifier, QualifierDecl, Property, PropertyArray, PropertyReference, Method, Parameter,
    ParameterReference, ParameterArray, ParameterRefArray, Class, Instance, NamedInstance,
    Object, ObjectWithPath, ObjectWithLocalPath, NamedObject, CIM, Message, SimpleReq,
    MultiReq, SimpleRsp, MultiRsp, IMethodCall, IMethodResponse, MethodCall, MethodResponse,
    ReturnValue, Error, ResponseDestination, SimpleReqAck, IParamValue, IReturnValue,
    ParamValue, ExpParamValue, ExpMethodCall, ExpMethodResponse, SimpleExpReq, MultiExpReq,
    SimpleExpRsp, MultiExpRsp, Declaration, DeclGroup, DeclGroupWithName, DeclGroupWithPath,
    Table, TableRowDecl, TableCellDecl, TableCellReference, TableRow>;

}  // namespace cim
