// The descriptions of classes, instances and what they consist of.
#pragma once

#include "cim_client.h"
#include "model/describe.h"

// clang-format off
namespace cim {

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

}  // namespace cim
