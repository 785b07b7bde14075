// The descriptions of values, names and paths.
#pragma once

#include "cim_client.h"
#include "model/describe.h"

// clang-format off
namespace cim {

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

}  // namespace cim
