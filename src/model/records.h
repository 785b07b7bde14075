// Every record is described once, in records/.  Release, copy and reader follow from it.
//
// To add a field: add it to the struct in cim_client.h, add its line to the description, and add
// its piece to the record's writer.  A missing line does not compile: see element().
#pragma once

#include "cim_client.h"
#include "model/describe.h"
#include "model/records/messages.h"
#include "model/records/schema.h"
#include "model/records/values.h"

// clang-format off
namespace cim {

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
