// CIM-XML of instances, values and paths.
#include "cimxml/objects.h"

#include "cimxml/qualifiers.h"
#include "model/scalar_text.h"
#include "model/text.h"

namespace sandbox::cimxml {
namespace {

constexpr std::string_view host = "localhost";

void write_scalar(Markup& out, const Scalar& scalar, Type type) {
  if (const auto* reference = std::get_if<Reference>(&scalar)) {
    write_reference(out, **reference);
  } else if (const auto* embedded = std::get_if<EmbeddedInstance>(&scalar)) {
    Markup inner;
    write_instance(inner, **embedded, View({}, nullptr));
    const bool nested = inner.text().find("<![CDATA[") != std::string::npos;
    if (nested) {
      out.leaf("VALUE", {}, inner.text());  // sections cannot stand within each other
    } else {
      out.leaf_of_markup("VALUE", inner);
    }
  } else if (const auto* text = std::get_if<std::string>(&scalar)) {
    out.leaf("VALUE", {}, *text);
  } else if (is_null(scalar)) {
    out.empty("VALUE.NULL");
  } else {
    out.leaf("VALUE", {}, to_text(scalar, type));
  }
}

void write_key(Markup& out, const KeyBinding& key) {
  if (const auto* reference = std::get_if<Reference>(&key.value)) {
    write_reference(out, **reference);
    return;
  }
  const std::string_view kind = key.type == Type::Boolean ? "boolean"
                                : is_numeric(key.type)    ? "numeric"
                                                          : "string";
  out.leaf("KEYVALUE", {{"VALUETYPE", kind}}, to_text(key.value, key.type));
}

void write_name_space(Markup& out, std::string_view name_space) {
  out.open("LOCALNAMESPACEPATH");
  while (!name_space.empty()) {
    const std::string_view segment = name_space.substr(0, name_space.find('/'));
    out.empty("NAMESPACE", {{"NAME", segment}});
    name_space.remove_prefix(std::min(segment.size() + 1, name_space.size()));
  }
  out.close("LOCALNAMESPACEPATH");
}

void write_property(Markup& out, const Property& property, const Value& value,
                    const Wishes& wishes) {
  const bool is_reference = property.type.type == Type::Reference;
  const std::string_view element = property.type.is_array ? "PROPERTY.ARRAY"
                                   : is_reference         ? "PROPERTY.REFERENCE"
                                                          : "PROPERTY";
  const std::string size = std::to_string(property.type.array_size);
  out.open(element, {{"NAME", property.name},
                     when(!is_reference, "TYPE", name_of(property.type.type)),
                     when(is_reference && !property.type.reference_class.empty(), "REFERENCECLASS",
                          property.type.reference_class),
                     when(property.type.array_size != 0, "ARRAYSIZE", size),
                     // wbemcli takes the attribute for an error where the property is an array.
                     when(property.is_embedded && !property.type.is_array, "EmbeddedObject",
                          property.embedded_class.empty() ? "object" : "instance"),
                     when(wishes.class_origin, "CLASSORIGIN", property.origin),
                     when(property.propagated, "PROPAGATED", "true")});
  if (wishes.qualifiers) write_qualifiers(out, property.qualifiers, false);
  write_value(out, value, property.type.type);
  out.close(element);
}

void write_parameter(Markup& out, const Parameter& parameter, const Wishes& wishes) {
  const bool is_reference = parameter.type.type == Type::Reference;
  const std::string element = std::string("PARAMETER") +
                              (is_reference ? (parameter.type.is_array ? ".REFARRAY" : ".REFERENCE")
                                            : (parameter.type.is_array ? ".ARRAY" : ""));
  const std::string size = std::to_string(parameter.type.array_size);
  out.open(element, {{"NAME", parameter.name},
                     when(!is_reference, "TYPE", name_of(parameter.type.type)),
                     when(is_reference, "REFERENCECLASS", parameter.type.reference_class),
                     when(parameter.type.array_size != 0, "ARRAYSIZE", size)});
  if (wishes.qualifiers) write_qualifiers(out, parameter.qualifiers, false);
  out.close(element);
}

void write_method(Markup& out, const Method& method, const Wishes& wishes) {
  out.open("METHOD", {{"NAME", method.name},
                      {"TYPE", name_of(method.type.type)},
                      when(wishes.class_origin, "CLASSORIGIN", method.origin),
                      when(method.propagated, "PROPAGATED", "true")});
  if (wishes.qualifiers) write_qualifiers(out, method.qualifiers, wishes.local_only);
  for (const Parameter& parameter : method.parameters) write_parameter(out, parameter, wishes);
  out.close("METHOD");
}

}  // namespace

void write_class(Markup& out, const Class& declared, const Wishes& wishes) {
  out.open("CLASS",
           {{"NAME", declared.name},
            when(!declared.superclass_name.empty(), "SUPERCLASS", declared.superclass_name)});
  if (wishes.qualifiers) write_qualifiers(out, declared.qualifiers, wishes.local_only);
  for (const Property& property : declared.properties) {
    if (wishes.local_only && property.propagated) continue;
    if (wishes.names(property.name)) write_property(out, property, property.initial, wishes);
  }
  for (const Method& method : declared.methods) {
    if (!(wishes.local_only && method.propagated)) write_method(out, method, wishes);
  }
  out.close("CLASS");
}

void write_instance(Markup& out, const Instance& instance, const View& view) {
  const Class& of_class = *instance.of_class;
  out.open("INSTANCE", {{"CLASSNAME", of_class.name}});
  if (view.wishes().qualifiers) write_qualifiers(out, of_class.qualifiers, false);
  for (const std::size_t position : view.positions(of_class)) {
    write_property(out, of_class.properties[position], instance.values[position], view.wishes());
  }
  out.close("INSTANCE");
}

void write_instance_name(Markup& out, const ObjectPath& path, KeyCase key_case) {
  out.open("INSTANCENAME", {{"CLASSNAME", path.class_name}});
  for (const KeyBinding& key : path.keys) {
    out.open("KEYBINDING",
             {{"NAME", key_case == KeyCase::Lower ? lower_case(key.name) : key.name}});
    write_key(out, key);
    out.close("KEYBINDING");
  }
  out.close("INSTANCENAME");
}

void write_instance_path(Markup& out, const ObjectPath& path) {
  out.open("INSTANCEPATH");
  out.open("NAMESPACEPATH");
  out.leaf("HOST", {}, host);
  write_name_space(out, path.name_space);
  out.close("NAMESPACEPATH");
  write_instance_name(out, path);
  out.close("INSTANCEPATH");
}

void write_reference(Markup& out, const ObjectPath& path) {
  out.open("VALUE.REFERENCE");
  if (path.name_space.empty()) {
    write_instance_name(out, path);
  } else {
    write_instance_path(out, path);
  }
  out.close("VALUE.REFERENCE");
}

void write_value(Markup& out, const Value& value, Type type) {
  if (value.null()) return;
  if (!value.is_array()) return write_scalar(out, value.scalar(), type);
  const std::string_view array = type == Type::Reference ? "VALUE.REFARRAY" : "VALUE.ARRAY";
  out.open(array);
  for (const Scalar& element : value.elements()) write_scalar(out, element, type);
  out.close(array);
}

}  // namespace sandbox::cimxml
