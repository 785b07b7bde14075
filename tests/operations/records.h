// Records as callers give them to operations, and owners for what they get back.
#pragma once

#include <memory>
#include <string>

#include "cim_client.h"

namespace operations_test {

// Owns a record, and releases it through its Free_ function.
template <auto free_function>
struct Releases {
  template <class R>
  void operator()(R* record) const {
    free_function(record);
  }
};
template <class R, auto free_function>
using Owned = std::unique_ptr<R, Releases<free_function>>;

using OwnedClass = Owned<Class, Free_Class>;
using OwnedClassName = Owned<ClassName, Free_ClassName>;
using OwnedError = Owned<Error, Free_Error>;
using OwnedInstance = Owned<Instance, Free_Instance>;
using OwnedInstanceName = Owned<InstanceName, Free_InstanceName>;
using OwnedNamedInstance = Owned<NamedInstance, Free_NamedInstance>;
using OwnedObjectName = Owned<ObjectName, Free_ObjectName>;
using OwnedObjectPath = Owned<ObjectPath, Free_ObjectPath>;
using OwnedObjectWithPath = Owned<ObjectWithPath, Free_ObjectWithPath>;
using OwnedParamValue = Owned<ParamValue, Free_ParamValue>;

// A class name.
OwnedClassName class_name(const char* name);

// The name of an instance of `class_name` with the string key Name=`key`.
OwnedInstanceName instance_name(const char* class_name, const char* key);

// An instance of `class_name` with the uint32 property Speed=`speed`.
OwnedInstance instance(const char* class_name, const char* speed);

// That instance, named by its key Name=`key`.
OwnedNamedInstance named_instance(const char* class_name, const char* key, const char* speed);

// An object name that holds a class name, or null, and an instance name, or null.
OwnedObjectName object_name(const char* class_name, OwnedInstanceName instance_name);

// A method's parameter: a uint32.
OwnedParamValue param_value(const char* name, const char* number);

// "null", or "CODE DESCRIPTION".
std::string text_of(const Error* error);

}  // namespace operations_test
