// Object names and class names for the association operations.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>

#include "cim_client.h"
#include "support/allocations.h"

namespace {

template <class R>
R* make() {
  return static_cast<R*>(std::calloc(1, sizeof(R)));
}

// CIM_Fan.DeviceID="fan1", with a bare key value and a bare reference beside it so that every
// field is set, and a second name CIM_Chassis behind it.
InstanceName* fan_and_chassis() {
  InstanceName* fan = make<InstanceName>();
  fan->className = CIMC_CreateClassName("CIM_Fan");
  fan->keyBindings = make<KeyBinding>();
  fan->keyBindings->name = strdup("DeviceID");
  fan->keyBindings->keyValue = make<KeyValue>();
  fan->keyBindings->keyValue->text = strdup("fan1");
  fan->keyValue = make<KeyValue>();
  fan->keyValue->text = strdup("bare");
  fan->valueReference = make<ValueReference>();
  fan->valueReference->className = CIMC_CreateClassName("CIM_Other");
  fan->next = make<InstanceName>();
  fan->next->className = CIMC_CreateClassName("CIM_Chassis");
  return fan;
}

void expect_fan_and_chassis(const InstanceName* name) {
  ASSERT_NE(name, nullptr);
  EXPECT_STREQ(name->className->name, "CIM_Fan");
  EXPECT_STREQ(name->keyBindings->name, "DeviceID");
  EXPECT_STREQ(name->keyBindings->keyValue->text, "fan1");
  EXPECT_STREQ(name->keyValue->text, "bare");
  EXPECT_STREQ(name->valueReference->className->name, "CIM_Other");
  ASSERT_NE(name->next, nullptr);
  EXPECT_STREQ(name->next->className->name, "CIM_Chassis");
  EXPECT_EQ(name->next->next, nullptr);
}

TEST(CIMC_CreateObjectName, copies_the_class_name) {
  std::string name = "CIM_Fan";
  ObjectName* object = CIMC_CreateObjectName(name.c_str(), nullptr);
  name.assign(name.size(), '#');
  ASSERT_NE(object, nullptr);
  EXPECT_STREQ(object->className->name, "CIM_Fan");
  EXPECT_EQ(object->className->next, nullptr);
  EXPECT_EQ(object->instanceName, nullptr);
  EXPECT_EQ(Free_ObjectName(object), 0);
}

TEST(CIMC_CreateObjectName, copies_the_instance_names) {
  InstanceName* names = fan_and_chassis();
  ObjectName* object = CIMC_CreateObjectName(nullptr, names);
  Free_InstanceName(names);
  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->className, nullptr);
  expect_fan_and_chassis(object->instanceName);
  EXPECT_EQ(Free_ObjectName(object), 0);
}

TEST(CIMC_CreateObjectName, takes_both_and_neither) {
  InstanceName* names = fan_and_chassis();
  ObjectName* both = CIMC_CreateObjectName("CIM_Fan", names);
  EXPECT_STREQ(both->className->name, "CIM_Fan");
  expect_fan_and_chassis(both->instanceName);
  expect_fan_and_chassis(names);
  EXPECT_EQ(Free_ObjectName(both), 0);
  Free_InstanceName(names);
  ObjectName* neither = CIMC_CreateObjectName(nullptr, nullptr);
  ASSERT_NE(neither, nullptr);
  EXPECT_EQ(neither->className, nullptr);
  EXPECT_EQ(neither->instanceName, nullptr);
  EXPECT_EQ(Free_ObjectName(neither), 0);
}

TEST(CIMC_CreateObjectName, no_failing_allocation_leaves_anything_behind) {
  InstanceName* names = fan_and_chassis();
  std::size_t failures = 0;
  for (bool failed = true; failed; ++failures) {
    const support::FailingAllocation allocation(failures);
    ObjectName* object = CIMC_CreateObjectName("CIM_Fan", names);
    failed = allocation.has_failed();
    EXPECT_EQ(object == nullptr, failed);
    Free_ObjectName(object);
  }
  EXPECT_GE(failures, 16u);  // records and texts
  Free_InstanceName(names);
}

TEST(CIMC_CreateClassName, copies_the_name) {
  std::string name = "CIM_Fan";
  ClassName* record = CIMC_CreateClassName(name.c_str());
  name.assign(name.size(), '#');
  ASSERT_NE(record, nullptr);
  EXPECT_STREQ(record->name, "CIM_Fan");
  EXPECT_EQ(record->next, nullptr);
  EXPECT_EQ(Free_ClassName(record), 0);
}

TEST(CIMC_CreateClassName, gives_null_without_a_name_and_without_memory) {
  EXPECT_EQ(CIMC_CreateClassName(nullptr), nullptr);
  for (const std::size_t successes : {0u, 1u}) {
    const support::FailingAllocation allocation(successes);
    EXPECT_EQ(CIMC_CreateClassName("CIM_Fan"), nullptr);
    EXPECT_TRUE(allocation.has_failed());
  }
}

TEST(Free_ObjectName, allows_null) { EXPECT_EQ(Free_ObjectName(nullptr), 0); }

TEST(Free_InstanceName_New, allows_null) { EXPECT_EQ(Free_InstanceName_New(nullptr), 0); }

TEST(Free_InstanceName_New, leaves_the_nodes_behind_it) {
  InstanceName* fan = fan_and_chassis();
  InstanceName* chassis = fan->next;
  EXPECT_EQ(Free_InstanceName_New(fan), 0);
  EXPECT_STREQ(chassis->className->name, "CIM_Chassis");
  EXPECT_EQ(Free_InstanceName_New(chassis), 0);
}

}  // namespace
