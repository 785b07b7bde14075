// The requests: CIM > MESSAGE > SIMPLEREQ and the call in it.
//
// The records of a request lie inside its object and borrow what the caller gave, so building
// one takes no memory and cannot fail, and the caller's records stay as they are.
#pragma once

#include <cstdint>
#include <span>

#include "cim_client.h"

namespace cim {

using Handle = struct client_Configuration;

// One named parameter of an operation.  A null record or text, and a flag of 2 or more, leave
// the parameter out of the request.
class Argument {
 public:
  Argument(const char* name, ClassName* record);
  Argument(const char* name, InstanceName* record);
  Argument(const char* name, Instance* record);
  Argument(const char* name, NamedInstance* record);
  Argument(const char* name, const char* text);
  Argument(const char* name, std::uint32_t flag);

  // The record to link into a request, which is valid while this object stays where it is;
  // null when the parameter is left out.
  IParamValue* record();

 private:
  template <class R>
  Argument(const char* name, R* IParamValue::*field, R* record);

  IParamValue record_{};
  Value value_{};  // of a text or a flag
  bool is_given_;
};

// What every request has around its call.
class Request {
 public:
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;

  // The document: a malloc()ed text, which the caller frees; null when memory ran out.
  char* write() const;

 protected:
  explicit Request(const Handle& handle);
  ~Request() = default;

  SimpleReq simple_request_{};
  LocalNamespacePath namespace_path_{};

 private:
  CIM root_{};
  Message message_{};
  Namespace namespace_{};
};

// A call of the operation `name` with `arguments` in their order.
class OperationRequest : public Request {
 public:
  OperationRequest(const Handle& handle, const char* name, std::span<Argument> arguments);

 private:
  IMethodCall call_{};
};

// A call of a method of an instance.  `instance` and `parameters` may be null.
class MethodRequest : public Request {
 public:
  MethodRequest(const Handle& handle, const char* name, InstanceName* instance,
                ParamValue* parameters);

 private:
  MethodCall call_{};
  LocalInstancePath path_{};
};

}  // namespace cim
