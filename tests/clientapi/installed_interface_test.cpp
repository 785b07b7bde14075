// The broker's interface as this library declares it, held against the one that is installed.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>
#include <vector>

extern "C" {
#include <cimc/cimc.h>
}

#include "clientapi/interface.h"

namespace {

namespace library = cim::broker;

// The table of an object, whatever its tag.
template <class Object>
using TableOf = std::remove_cv_t<std::remove_pointer_t<decltype(Object::ft)>>;

// ---- Records ----

#define SAME_SIZE(record) EXPECT_EQ(sizeof(library::record), sizeof(::record)) << #record
#define SAME_PLACE(record, field) \
  EXPECT_EQ(offsetof(library::record, field), offsetof(::record, field)) << #record "." #field
#define SAME_OBJECT(object) \
  SAME_SIZE(object);        \
  SAME_PLACE(object, hdl);  \
  SAME_PLACE(object, ft)

TEST(InstalledInterface, has_records_of_the_same_layout) {
  SAME_SIZE(CIMCValue);
  SAME_SIZE(CIMCData);
  SAME_PLACE(CIMCData, type);
  SAME_PLACE(CIMCData, state);
  SAME_PLACE(CIMCData, value);
  SAME_SIZE(CIMCStatus);
  SAME_PLACE(CIMCStatus, rc);
  SAME_PLACE(CIMCStatus, msg);
  SAME_SIZE(CIMCType);
  SAME_SIZE(CIMCValueState);
  SAME_SIZE(CIMCCount);
  SAME_SIZE(CIMCFlags);
  SAME_SIZE(CIMCBoolean);
  EXPECT_TRUE((std::is_same_v<library::CIMCType, ::CIMCType>));
  EXPECT_TRUE((std::is_same_v<library::CIMCFlags, ::CIMCFlags>));
}

TEST(InstalledInterface, has_objects_of_the_same_layout) {
  SAME_OBJECT(CIMCEnv);
  SAME_PLACE(CIMCEnv, options);
  SAME_OBJECT(CIMCClient);
  SAME_OBJECT(CIMCObjectPath);
  SAME_OBJECT(CIMCInstance);
  SAME_OBJECT(CIMCClass);
  SAME_OBJECT(CIMCArgs);
  SAME_OBJECT(CIMCArray);
  SAME_OBJECT(CIMCString);
  SAME_OBJECT(CIMCDateTime);
  SAME_OBJECT(CIMCEnumeration);
}

// ---- Tables ----

// A slot, and the arguments and the result that go through it.
#define SAME_SLOT(object, slot)                                                          \
  EXPECT_EQ(offsetof(TableOf<library::object>, slot), offsetof(TableOf<::object>, slot)) \
      << #object "." #slot;                                                              \
  EXPECT_EQ(number_of_arguments(&TableOf<library::object>::slot),                        \
            number_of_arguments(&TableOf<::object>::slot))                               \
      << #object "." #slot

template <class Table, class Result, class... Arguments>
std::size_t number_of_arguments(Result (*Table::*)(Arguments...)) {
  return sizeof...(Arguments);
}

TEST(InstalledInterface, has_the_same_slots_of_the_environment) {
  SAME_SLOT(CIMCEnv, release);
  SAME_SLOT(CIMCEnv, connect);
  SAME_SLOT(CIMCEnv, newInstance);
  SAME_SLOT(CIMCEnv, newObjectPath);
  SAME_SLOT(CIMCEnv, newArgs);
  SAME_SLOT(CIMCEnv, newString);
  SAME_SLOT(CIMCEnv, newArray);
  SAME_SLOT(CIMCEnv, newDateTimeFromChars);
}

TEST(InstalledInterface, has_the_same_slots_of_the_client) {
  SAME_SLOT(CIMCClient, release);
  SAME_SLOT(CIMCClient, getClass);
  SAME_SLOT(CIMCClient, getInstance);
  SAME_SLOT(CIMCClient, createInstance);
  SAME_SLOT(CIMCClient, setInstance);
  SAME_SLOT(CIMCClient, deleteInstance);
  SAME_SLOT(CIMCClient, execQuery);
  SAME_SLOT(CIMCClient, enumInstanceNames);
  SAME_SLOT(CIMCClient, enumInstances);
  SAME_SLOT(CIMCClient, associators);
  SAME_SLOT(CIMCClient, associatorNames);
  SAME_SLOT(CIMCClient, references);
  SAME_SLOT(CIMCClient, referenceNames);
  SAME_SLOT(CIMCClient, invokeMethod);
}

TEST(InstalledInterface, has_the_same_slots_of_objects) {
  SAME_SLOT(CIMCObjectPath, release);
  SAME_SLOT(CIMCObjectPath, getNameSpace);
  SAME_SLOT(CIMCObjectPath, getClassName);
  SAME_SLOT(CIMCObjectPath, addKey);
  SAME_SLOT(CIMCObjectPath, getKeyAt);
  SAME_SLOT(CIMCObjectPath, getKeyCount);
  SAME_SLOT(CIMCObjectPath, toString);
  SAME_SLOT(CIMCInstance, release);
  SAME_SLOT(CIMCInstance, getPropertyAt);
  SAME_SLOT(CIMCInstance, getPropertyCount);
  SAME_SLOT(CIMCInstance, setProperty);
  SAME_SLOT(CIMCInstance, getObjectPath);
  SAME_SLOT(CIMCClass, release);
  SAME_SLOT(CIMCClass, getClassName);
  SAME_SLOT(CIMCClass, getPropertyAt);
  SAME_SLOT(CIMCClass, getPropertyCount);
  SAME_SLOT(CIMCArgs, release);
  SAME_SLOT(CIMCArgs, addArg);
  SAME_SLOT(CIMCArgs, getArgAt);
  SAME_SLOT(CIMCArgs, getArgCount);
  SAME_SLOT(CIMCArray, release);
  SAME_SLOT(CIMCArray, getSize);
  SAME_SLOT(CIMCArray, getElementAt);
  SAME_SLOT(CIMCArray, setElementAt);
  SAME_SLOT(CIMCString, release);
  SAME_SLOT(CIMCString, getCharPtr);
  SAME_SLOT(CIMCDateTime, release);
  SAME_SLOT(CIMCDateTime, getStringFormat);
  SAME_SLOT(CIMCEnumeration, release);
  SAME_SLOT(CIMCEnumeration, getNext);
  SAME_SLOT(CIMCEnumeration, hasNext);
}

// ---- Constants ----

// The header has them as macros, so each can be asked for; one that is missing is no number.
struct Constant {
  const char* name;
  long ours;
  long theirs;
};

std::vector<Constant> constants() {
  [[maybe_unused]] constexpr long missing = -1;
  std::vector<Constant> result;
#define CONSTANT(name, ours, theirs) result.push_back({name, ours, long{theirs}})
#ifdef CIMC_boolean
  CONSTANT("boolean", library::code::boolean, CIMC_boolean);
  CONSTANT("char16", library::code::char16, CIMC_char16);
  CONSTANT("real32", library::code::real32, CIMC_real32);
  CONSTANT("real64", library::code::real64, CIMC_real64);
  CONSTANT("uint8", library::code::uint8, CIMC_uint8);
  CONSTANT("uint16", library::code::uint16, CIMC_uint16);
  CONSTANT("uint32", library::code::uint32, CIMC_uint32);
  CONSTANT("uint64", library::code::uint64, CIMC_uint64);
  CONSTANT("sint8", library::code::sint8, CIMC_sint8);
  CONSTANT("sint16", library::code::sint16, CIMC_sint16);
  CONSTANT("sint32", library::code::sint32, CIMC_sint32);
  CONSTANT("sint64", library::code::sint64, CIMC_sint64);
  CONSTANT("instance", library::code::instance, CIMC_instance);
  CONSTANT("ref", library::code::reference, CIMC_ref);
  CONSTANT("string", library::code::string, CIMC_string);
  CONSTANT("chars", library::code::chars, CIMC_chars);
  CONSTANT("dateTime", library::code::datetime, CIMC_dateTime);
#else
  CONSTANT("boolean", library::code::boolean, missing);
#endif
#ifdef CIMC_ARRAY
  CONSTANT("ARRAY", library::code::array, CIMC_ARRAY);
#else
  CONSTANT("ARRAY", library::code::array, missing);
#endif
#ifdef CIMC_goodValue
  CONSTANT("goodValue", library::state_good, CIMC_goodValue);
#else
  CONSTANT("goodValue", library::state_good, missing);
#endif
#ifdef CIMC_FLAG_DeepInheritance
  CONSTANT("FLAG_DeepInheritance", library::deep_inheritance, CIMC_FLAG_DeepInheritance);
#else
  CONSTANT("FLAG_DeepInheritance", library::deep_inheritance, missing);
#endif
#undef CONSTANT
  return result;
}

TEST(InstalledInterface, has_the_same_constants) {
  for (const Constant& constant : constants())
    EXPECT_EQ(constant.ours, constant.theirs) << "CIMC_" << constant.name;
}

}  // namespace
