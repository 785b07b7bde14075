// How classes, instances and their names are written.
#pragma once

#include <string_view>

#include "cimxml/markup.h"
#include "model/class.h"
#include "model/instance.h"
#include "model/object_path.h"
#include "model/view.h"

namespace sandbox::cimxml {

enum class KeyCase { AsDeclared, Lower };

void write_class(Markup& out, const Class& declared, const Wishes& wishes);
void write_instance(Markup& out, const Instance& instance, const View& view);

// <INSTANCENAME>
void write_instance_name(Markup& out, const ObjectPath& path,
                         KeyCase key_case = KeyCase::AsDeclared);
// <INSTANCEPATH>, with host and namespace
void write_instance_path(Markup& out, const ObjectPath& path);
// <VALUE.REFERENCE>, with the namespace where the path has one
void write_reference(Markup& out, const ObjectPath& path);

// <VALUE> or <VALUE.ARRAY>, or <VALUE.REFERENCE> or <VALUE.REFARRAY>; nothing for null.
void write_value(Markup& out, const Value& value, Type type);

}  // namespace sandbox::cimxml
