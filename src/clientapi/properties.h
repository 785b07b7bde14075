// Properties and values of records as values of the broker.
#pragma once

#include "cim_client.h"
#include "clientapi/interface.h"
#include "clientapi/owned.h"
#include "clientapi/types.h"

namespace cim::broker {

// Number of nodes of a list.
CIMCCount length_of(const Value* values);

// The value of a number's or a boolean's text.  Of boolean texts "TRUE" is true, any other
// false: lower case, too.
CIMCValue value_of(const TypeInfo& type, const char* text);

// Sets a property; a null value makes it null.
void set_property(CIMCInstance* instance, const char* name, CIMCValue* value, CIMCType code);

// A new date-time of the text; null when the broker makes none.
CIMCDateTime* make_date_time(CIMCEnv* env, const char* text);

// A new array of integers or strings, with one element per node; a node without text stays
// null.  Null when the broker makes none.
CIMCArray* make_array(CIMCEnv* env, const Value* values, const TypeInfo& type);

// The element type of an array that can be sent.  Null when a part of the array is missing; a
// type of kind Real when such elements are not sent.
const TypeInfo* array_type(const char* name, const char* type, const ValueArray* array);

// Sets a property to the path of the instance that it refers to.  False when a part is
// missing.
bool set_reference(CIMCEnv* env, CIMCInstance* instance, const PropertyReference& property,
                   const char* name_space);

}  // namespace cim::broker
