// The broker's interface is declared twice, by the library and by the local sandbox, each from
// the published layout: every slot and record must be where the other says.
#include "clientapi/interface.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "cimc.h"

namespace {

namespace library = cim::broker;
namespace sandbox = sandbox_local;

#define SAME_PLACE(record, field) \
  static_assert(offsetof(library::record, field) == offsetof(sandbox::record, field))
#define SAME_TABLE(object, last)                                                          \
  static_assert(sizeof(library::CIMC##object##FT) == sizeof(sandbox::_CIMC##object##FT)); \
  static_assert(offsetof(library::CIMC##object##FT, last) ==                              \
                offsetof(sandbox::_CIMC##object##FT, last));                              \
  static_assert(sizeof(library::CIMC##object) == sizeof(sandbox::CIMC##object))
#define SAME_SLOT(object, slot)                              \
  static_assert(offsetof(library::CIMC##object##FT, slot) == \
                offsetof(sandbox::_CIMC##object##FT, slot))

static_assert(sizeof(library::CIMCValue) == sizeof(sandbox::CIMCValue));
static_assert(sizeof(library::CIMCData) == sizeof(sandbox::CIMCData));
static_assert(sizeof(library::CIMCStatus) == sizeof(sandbox::CIMCStatus));
SAME_PLACE(CIMCData, type);
SAME_PLACE(CIMCData, state);
SAME_PLACE(CIMCData, value);
SAME_PLACE(CIMCStatus, rc);
SAME_PLACE(CIMCStatus, msg);
SAME_PLACE(CIMCEnv, hdl);
SAME_PLACE(CIMCEnv, ft);
SAME_PLACE(CIMCEnv, options);

SAME_TABLE(Env, releaseHeap);
SAME_SLOT(Env, release);
SAME_SLOT(Env, connect);
SAME_SLOT(Env, newInstance);
SAME_SLOT(Env, newObjectPath);
SAME_SLOT(Env, newArgs);
SAME_SLOT(Env, newString);
SAME_SLOT(Env, newArray);
SAME_SLOT(Env, newDateTimeFromChars);

SAME_TABLE(Client, getProperty);
SAME_SLOT(Client, release);
SAME_SLOT(Client, getClass);
SAME_SLOT(Client, getInstance);
SAME_SLOT(Client, createInstance);
SAME_SLOT(Client, setInstance);
SAME_SLOT(Client, deleteInstance);
SAME_SLOT(Client, execQuery);
SAME_SLOT(Client, enumInstanceNames);
SAME_SLOT(Client, enumInstances);
SAME_SLOT(Client, associators);
SAME_SLOT(Client, associatorNames);
SAME_SLOT(Client, references);
SAME_SLOT(Client, referenceNames);
SAME_SLOT(Client, invokeMethod);

SAME_TABLE(ObjectPath, toString);
SAME_SLOT(ObjectPath, release);
SAME_SLOT(ObjectPath, getNameSpace);
SAME_SLOT(ObjectPath, getClassName);
SAME_SLOT(ObjectPath, addKey);
SAME_SLOT(ObjectPath, getKeyAt);
SAME_SLOT(ObjectPath, getKeyCount);

SAME_TABLE(Instance, getPropertyQualifierCount);
SAME_SLOT(Instance, release);
SAME_SLOT(Instance, getPropertyAt);
SAME_SLOT(Instance, getPropertyCount);
SAME_SLOT(Instance, setProperty);
SAME_SLOT(Instance, getObjectPath);

SAME_TABLE(Class, getPropQualAt);
SAME_SLOT(Class, release);
SAME_SLOT(Class, getClassName);
SAME_SLOT(Class, getPropertyAt);
SAME_SLOT(Class, getPropertyCount);

SAME_TABLE(Args, getArgCount);
SAME_SLOT(Args, addArg);
SAME_SLOT(Args, getArgAt);
SAME_TABLE(Array, setElementAt);
SAME_SLOT(Array, getSize);
SAME_SLOT(Array, getElementAt);
SAME_TABLE(String, getCharPtr);
SAME_TABLE(DateTime, isInterval);
SAME_SLOT(DateTime, getStringFormat);
SAME_TABLE(Enumeration, toArray);
SAME_SLOT(Enumeration, getNext);
SAME_SLOT(Enumeration, hasNext);

// A class reads its properties through other slots than an instance.
TEST(Interface, class_and_instance_differ_in_the_slots_of_properties) {
  constexpr std::size_t slot = sizeof(void*);
  EXPECT_EQ(offsetof(library::CIMCInstanceFT, getPropertyAt) / slot, 4U);
  EXPECT_EQ(offsetof(library::CIMCInstanceFT, getPropertyCount) / slot, 5U);
  EXPECT_EQ(offsetof(library::CIMCClassFT, getPropertyAt) / slot, 5U);
  EXPECT_EQ(offsetof(library::CIMCClassFT, getPropertyCount) / slot, 6U);
}

}  // namespace
