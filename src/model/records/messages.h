// The descriptions of messages, declarations and tables.
#pragma once

#include "cim_client.h"
#include "model/describe.h"

// clang-format off
namespace cim {

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

}  // namespace cim
