// Owners of the library's records: each releases its record, or list, with its Free_ function.
#pragma once

#include <cstdlib>
#include <memory>

#include "cim_client.h"

namespace cli {

template <auto free_record>
struct Release {
  template <class Record>
  void operator()(Record* record) const noexcept {
    free_record(record);
  }
};

template <class Record, auto free_record>
using Owner = std::unique_ptr<Record, Release<free_record>>;

using HandleOwner = Owner<struct client_Configuration, Free_client_Configuration>;
using ErrorOwner = Owner<Error, Free_Error>;
using ClassOwner = Owner<Class, Free_Class>;
using ClassNameOwner = Owner<ClassName, Free_ClassName>;
using InstanceOwner = Owner<Instance, Free_Instance>;
using InstanceNameOwner = Owner<InstanceName, Free_InstanceName>;
using NamedInstanceOwner = Owner<NamedInstance, Free_NamedInstance>;
using ObjectWithPathOwner = Owner<ObjectWithPath, Free_ObjectWithPath>;
using ObjectPathOwner = Owner<ObjectPath, Free_ObjectPath>;
using ObjectNameOwner = Owner<ObjectName, Free_ObjectName>;
using ParamValueOwner = Owner<ParamValue, Free_ParamValue>;
using KeyBindingOwner = Owner<KeyBinding, Free_KeyBinding>;
using ValueReferenceOwner = Owner<ValueReference, Free_ValueReference>;
using CimOwner = Owner<CIM, Free_CIM>;
using TextOwner = Owner<char, std::free>;

}  // namespace cli
