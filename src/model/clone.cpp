// The Clone_ functions.
#include "model/clone.h"

#include "cim_client.h"
#include "model/records.h"

namespace {

// Copies a text or a record and gives the C result.
template <class T>
int copied(const T* source, T** copy) {
  return copy && cim::clone(source, copy) ? 0 : -1;
}

// Callers know class origins and reference classes by their first character.
int copied_first(const char* source, char** copy) {
  return copy && cim::clone_first_character(source, copy) ? 0 : -1;
}

}  // namespace

extern "C" {

// clang-format off

// Texts
int Clone_CIMName(const char* source, char** copy) { return copied(source, copy); }
int Clone_CIMType(const char* source, char** copy) { return copied(source, copy); }
int Clone_Host(const char* source, char** copy) { return copied(source, copy); }
int Clone_PCData(const char* source, char** copy) { return copied(source, copy); }
int Clone_ValueType(const char* source, char** copy) { return copied(source, copy); }
int Clone_ParamType(const char* source, char** copy) { return copied(source, copy); }
int Clone_ClassOrigin(const char* source, char** copy) { return copied_first(source, copy); }
int Clone_ReferenceClass(const char* source, char** copy) { return copied_first(source, copy); }

// Records
int Clone_QualifierFlavor(const QualifierFlavor* source, QualifierFlavor** copy) { return copied(source, copy); }
int Clone_ClassName(const ClassName* source, ClassName** copy) { return copied(source, copy); }
int Clone_Namespace(const Namespace* source, Namespace** copy) { return copied(source, copy); }
int Clone_LocalNamespacePath(const LocalNamespacePath* source, LocalNamespacePath** copy) { return copied(source, copy); }
int Clone_NamespacePath(const NamespacePath* source, NamespacePath** copy) { return copied(source, copy); }
int Clone_ClassPath(const ClassPath* source, ClassPath** copy) { return copied(source, copy); }
int Clone_LocalClassPath(const LocalClassPath* source, LocalClassPath** copy) { return copied(source, copy); }
int Clone_InstancePath(const InstancePath* source, InstancePath** copy) { return copied(source, copy); }
int Clone_LocalInstancePath(const LocalInstancePath* source, LocalInstancePath** copy) { return copied(source, copy); }
int Clone_KeyValue(const KeyValue* source, KeyValue** copy) { return copied(source, copy); }
int Clone_KeyBinding(const KeyBinding* source, KeyBinding** copy) { return copied(source, copy); }
int Clone_InstanceName(const InstanceName* source, InstanceName** copy) { return copied(source, copy); }
int Clone_ValueReference(const ValueReference* source, ValueReference** copy) { return copied(source, copy); }
int Clone_Value(const Value* source, Value** copy) { return copied(source, copy); }
int Clone_ValueArray(const ValueArray* source, ValueArray** copy) { return copied(source, copy); }
int Clone_Qualifier(const Qualifier* source, Qualifier** copy) { return copied(source, copy); }
int Clone_Property(const Property* source, Property** copy) { return copied(source, copy); }
int Clone_PropertyArray(const PropertyArray* source, PropertyArray** copy) { return copied(source, copy); }
int Clone_PropertyReference(const PropertyReference* source, PropertyReference** copy) { return copied(source, copy); }
int Clone_Instance(const Instance* source, Instance** copy) { return copied(source, copy); }
int Clone_NamedInstance(const NamedInstance* source, NamedInstance** copy) { return copied(source, copy); }

// clang-format on

}  // extern "C"
