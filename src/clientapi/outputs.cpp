// Output arguments and return values of methods.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "base/memory.h"
#include "cim_client.h"
#include "clientapi/instances.h"
#include "clientapi/names.h"
#include "clientapi/owned.h"
#include "clientapi/types.h"
#include "model/records.h"
#include "model/release.h"

namespace {

using namespace cim::broker;
using cim::allocate;
using cim::duplicate;
using cim::release;

// Applications write into array texts in place: each has at least this room.
constexpr std::size_t element_room = 512;

char* element_copy(const char* text) {
  const std::size_t length = std::strlen(text);
  return duplicate(text, length, length + 1 < element_room ? element_room - length - 1 : 0);
}

// Stores the text of an output value, or null for what has none: booleans as "1" and "0",
// everything else as value2Chars() gives it.  False when memory runs out.
bool copy_output(const TypeInfo& type, const CIMCValue& value, char** text) {
  if (type.kind != Kind::Boolean) return value2Chars(type.code, &value, text) == 0;
  return (*text = duplicate(value.uint8 ? "1" : "0"));
}

// The type of an output value; real values are not handed out.
const TypeInfo* output_type(CIMCType code) {
  const TypeInfo* type = type_of(code);
  return type && type->kind != Kind::Real ? type : nullptr;
}

bool fill_scalar(ParamValue& record, const TypeInfo& type, const CIMCValue* value) {
  record.paramType = duplicate(type.name);
  record.value = allocate<Value>();
  if (!record.paramType || !record.value) return false;
  return !value || copy_output(type, *value, &record.value->text);
}

bool fill_reference(ParamValue& record, const CIMCValue* value) {
  record.paramType = duplicate("reference");
  record.value = allocate<Value>();
  if (!record.paramType || !record.value) return false;
  if (!value || !value->ref) return true;
  record.valueReference = allocate<ValueReference>();
  if (!record.valueReference) return false;
  auto* path = record.valueReference->localInstancePath = allocate<LocalInstancePath>();
  if (!path || mapInvokeReturnValue(value->ref, &path->instanceName) != 0) return false;
  return value2Chars(code::reference, value, &record.value->text) == 0;
}

bool fill_references(ParamValue& record, const CIMCValue* value) {
  record.paramType = duplicate("reference");
  if (!record.paramType) return false;
  return !value || !value->array ||
         mapToValueReferenceList(value->array, &record.valueRefArray) == 0;
}

// Calls visit(data) for each element until one returns false.
template <class Visit>
bool for_each_element(CIMCArray* array, Visit visit) {
  const CIMCCount count = array->ft->getSize(array, nullptr);
  for (CIMCCount index = 0; index < count; ++index)
    if (!visit(array->ft->getElementAt(array, index, nullptr))) return false;
  return true;
}

// Appends a value per element.  An element without text repeats the text before it: it is
// formatted into the same place.
bool fill_texts(ValueArray& record, const TypeInfo& type, CIMCArray* array) {
  Value** last = &record.values;
  const char* text = "";
  return for_each_element(array, [&](const CIMCData& data) {
    char* own = nullptr;
    if (is_readable(type, data.type) && !copy_output(type, data.value, &own)) return false;
    auto* value = *last = allocate<Value>();
    if (value) {
      value->text = element_copy(own ? own : text);
      last = &value->next;
    }
    std::free(own);
    if (!value || !value->text) return false;
    text = value->text;
    return true;
  });
}

// Appends a value per element: embedded instances, and nothing of other elements.
bool fill_instances(ValueArray& record, CIMCArray* array) {
  Value** last = &record.values;
  return for_each_element(array, [&](const CIMCData& data) {
    auto* value = *last = allocate<Value>();
    if (!value) return false;
    last = &value->next;
    if (data.type != code::instance || !data.value.inst) return true;
    return util_GetInstanceValues(data.value.inst, &value->instance) == 0;
  });
}

bool fill_array(ParamValue& record, CIMCType element, const CIMCValue* value) {
  const TypeInfo* type = output_type(element);
  const bool has_texts = type && (is_integer(*type) || type->kind == Kind::String);
  record.paramType = duplicate(has_texts ? type->name : "string");
  if (!record.paramType) return false;
  if (!value || !value->array) return true;
  record.valueArray = allocate<ValueArray>();
  if (!record.valueArray) return false;
  return has_texts ? fill_texts(*record.valueArray, *type, value->array)
                   : fill_instances(*record.valueArray, value->array);
}

bool fill_value(ParamValue& record, CIMCType code, const CIMCValue* value) {
  if (code == (code::reference | code::array)) return fill_references(record, value);
  if (code & code::array)
    return fill_array(record, static_cast<CIMCType>(code & ~code::array), value);
  if (code == code::reference) return fill_reference(record, value);
  return fill_scalar(record, *output_type(code), value);
}

// Codes of values that are not handed out: their records stay empty, without a name even.
bool is_handed_out(CIMCType code) {
  return (code & cim::broker::code::array) || code == cim::broker::code::reference ||
         output_type(code);
}

}  // namespace

extern "C" {

int CIMC_Handle_Invoke_ReturnValues(uint32_t code, const void* value, const char* name,
                                    ParamValue* record) {
  if (!record) return -1;
  const auto low = static_cast<CIMCType>(code);
  if (!is_handed_out(low)) return 0;
  if (name && !(record->name = duplicate(name))) return -1;
  return fill_value(*record, low, static_cast<const CIMCValue*>(value)) ? 0 : -1;
}

int mapToValueReferenceList(void* array, ValueRefArray** listOut) {
  if (!array || !listOut) return -1;
  auto* list = allocate<ValueRefArray>();
  if (!list) return -1;
  ValueReference** last = &list->valueReferences;
  const bool complete =
      for_each_element(static_cast<CIMCArray*>(array), [&last](const CIMCData& data) {
        if (data.type != code::reference || !data.value.ref) return true;
        auto* reference = *last = allocate<ValueReference>();
        if (!reference) return false;
        last = &reference->next;
        auto* path = reference->localInstancePath = allocate<LocalInstancePath>();
        return path && mapInvokeReturnValue(data.value.ref, &path->instanceName) == 0;
      });
  if (!complete) {
    release(list);
    return -1;
  }
  *listOut = list;
  return 0;
}

int add_args_to_invoke_response(void* args, ParamValue** parametersOut) {
  if (!args || !parametersOut) return -1;
  auto* arguments = static_cast<CIMCArgs*>(args);
  ParamValue* list = nullptr;
  ParamValue** last = &list;
  const unsigned count = arguments->ft->getArgCount(arguments, nullptr);
  for (unsigned index = 0; index < count; ++index) {
    Owned<CIMCString> name;
    const CIMCData data = arguments->ft->getArgAt(arguments, index, name.receive(), nullptr);
    const CIMCValue* value = data.state == state_good ? &data.value : nullptr;
    auto* record = *last = allocate<ParamValue>();
    if (!record ||
        CIMC_Handle_Invoke_ReturnValues(data.type, value, characters(name.get()), record) != 0) {
      release(list);
      return -1;
    }
    last = &record->next;
  }
  if (list) *parametersOut = list;
  return 0;
}

// 32- and 64-bit numbers saturate at the limits of the result.
int assign_invoke_ret_values(const void* data, int* result) {
  const auto& returned = *static_cast<const CIMCData*>(data);
  const TypeInfo* type = type_of(returned.type);
  *result = 0;
  if (!type) return 0;
  if (type->kind == Kind::Boolean) *result = returned.value.uint8;
  if (is_integer(*type)) {
    char text[number_room];
    write_integer(*type, returned.value, text);
    *result = to_number(text);
  }
  return 0;
}

}  // extern "C"
