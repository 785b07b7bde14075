// Lists that tests build.
#pragma once

#include "cim_client.h"

namespace model_test {

// A list that begins empty and is released in the end.
template <class R, int (*release)(R*)>
struct List {
  R* head = nullptr;

  List() = default;
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  ~List() { release(head); }
};

using Values = List<Value, Free_Value>;
using Properties = List<Property, Free_Property>;
using PropertyArrays = List<PropertyArray, Free_PropertyArray>;
using Instances = List<Instance, Free_Instance>;
using InstanceNames = List<InstanceName, Free_InstanceName>;
using Keys = List<KeyBinding, Free_KeyBinding>;
using References = List<PropertyReference, Free_PropertyReference>;
using Namespaces = List<Namespace, Free_Namespace>;

}  // namespace model_test
