// The AddTo...List functions without a list, and without memory.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>

#include "cim_client.h"
#include "model/owned_lists.h"
#include "support/allocations.h"
#include "support/filled_records.h"

namespace {

using model_test::Keys;
using model_test::Namespaces;
using model_test::Values;
using support::contents;
using support::FailingAllocation;
using support::filled;
using support::filled_list;
using support::living_blocks;

// ---- No list ----

TEST(AddToList, without_a_list_fails_and_releases_what_it_was_to_take) {
  const long before = living_blocks();
  char value[] = "x";
  EXPECT_EQ(AddToValueList(nullptr, "a"), -1);
  EXPECT_EQ(AddToProeprtyList(nullptr, "a", value, "b"), -1);
  EXPECT_EQ(AddToPropertyArrayList(nullptr, "a", filled<ValueArray>("v", 1), "b"), -1);
  EXPECT_EQ(AddToInstanceList(nullptr, filled<ClassName>("c", 0), filled<PropertyReference>("r", 1),
                              filled<PropertyArray>("a", 1), filled<Property>("p", 1)),
            -1);
  EXPECT_EQ(AddToInstanceNameList(nullptr, filled<KeyBinding>("k", 1), filled<ClassName>("c", 0),
                                  nullptr),
            -1);
  EXPECT_EQ(AddToKeyBindingListRef(nullptr, "a", "b", "c", nullptr), -1);
  EXPECT_EQ(AddToKeyBindingList(nullptr, "a", "b", "c", "d", "e", filled<KeyBinding>("k", 1)), -1);
  EXPECT_EQ(AddToPropertyReferenceList(nullptr, filled<KeyBinding>("k", 1),
                                       filled<Namespace>("root", 0), "a", "b"),
            -1);
  EXPECT_EQ(living_blocks(), before);
}

// ---- Memory that runs out ----

TEST(AddToValueList, that_fails_at_once_leaves_the_list) {
  Values list;
  AddToValueList(&list.head, "a");
  int result = 0;
  {
    FailingAllocation node(0);
    result = AddToValueList(&list.head, "b");
  }
  EXPECT_EQ(result, -1);
  EXPECT_EQ(contents(list.head), R"({"a" null 0})");
}

TEST(AddToValueList, that_fails_later_keeps_what_was_filled_so_far) {
  Values list;
  int result = 0;
  {
    FailingAllocation text(1);
    result = AddToValueList(&list.head, "b");
  }
  EXPECT_EQ(result, -1);
  EXPECT_EQ(contents(list.head), "{null null 0}");
}

TEST(AddToKeyBindingList, that_fails_in_the_reference_keeps_the_key_without_it) {
  Keys list;
  auto* keys = filled<KeyBinding>("x", 0);
  int result = 0;
  {
    FailingAllocation reference(4);  // after the key, its name, its value and the value's text
    result = AddToKeyBindingList(&list.head, "k", "1", nullptr, "CIM_Fan", "root/cimv2", keys);
  }
  EXPECT_EQ(result, -1);
  EXPECT_EQ(contents(list.head), R"({{"1" null null} null "k"})");
}

// Lets add(list) fail at each of its allocations.  Whatever it was to take must be gone with
// the list: `make` makes it anew each time.
template <class Node, class Make, class Add>
void expect_no_leak(int (*release)(Node*), Make make, Add add) {
  for (std::size_t successes = 0;; ++successes) {
    const long before = living_blocks();
    auto parts = make();
    Node* list = nullptr;
    int result = 0;
    bool has_failed = false;
    {
      FailingAllocation failing(successes);
      result = add(&list, parts);
      has_failed = failing.has_failed();
    }
    EXPECT_EQ(result, has_failed ? -1 : 0) << successes;
    release(list);
    EXPECT_EQ(living_blocks(), before) << successes;
    if (!has_failed) {
      EXPECT_GE(successes, 1U);
      return;
    }
  }
}

struct NoParts {};

TEST(AddToList, that_fails_anywhere_leaks_nothing) {
  char value[] = "true";
  const auto nothing = [] { return NoParts{}; };
  const auto keys = [] { return filled<KeyBinding>("k", 1); };
  expect_no_leak(Free_Value, nothing,
                 [](Value** list, NoParts) { return AddToValueList(list, "a"); });
  expect_no_leak(Free_Property, nothing, [&](Property** list, NoParts) {
    return AddToProeprtyList(list, "a", value, "b");
  });
  expect_no_leak(
      Free_PropertyArray, [] { return filled<ValueArray>("v", 1); },
      [](PropertyArray** list, ValueArray* array) {
        return AddToPropertyArrayList(list, "a", array, "b");
      });
  expect_no_leak(
      Free_Instance, [] { return filled<Instance>("i", 1); },
      [](Instance** list, Instance* parts) {
        const int result = AddToInstanceList(list, parts->className, parts->propertyReferences,
                                             parts->propertyArrays, parts->properties);
        Free_Qualifier(parts->qualifiers);
        std::free(parts);
        return result;
      });
  expect_no_leak(
      Free_InstanceName, [] { return filled<InstanceName>("n", 1); },
      [](InstanceName** list, InstanceName* parts) {
        const int result =
            AddToInstanceNameList(list, parts->keyBindings, parts->className, nullptr);
        Free_KeyValue(parts->keyValue);
        Free_ValueReference(parts->valueReference);
        std::free(parts);
        return result;
      });
  expect_no_leak(Free_KeyBinding, nothing, [](KeyBinding** list, NoParts) {
    return AddToKeyBindingListRef(list, "a", "b", "c", nullptr);
  });
  expect_no_leak(Free_KeyBinding, keys, [](KeyBinding** list, KeyBinding* given) {
    return AddToKeyBindingList(list, "a", "b", "c", "d", "root/cimv2", given);
  });
}

TEST(AddToPropertyReferenceList,
     that_fails_anywhere_leaks_nothing_and_leaves_the_rest_of_the_list) {
  struct Parts {
    KeyBinding* keys;
    Namespace* first;
  };
  Namespaces rest;
  rest.head = filled_list<Namespace>(2, "rest", 0);
  expect_no_leak(
      Free_PropertyReference,
      [&] {
        Parts parts{filled<KeyBinding>("k", 1), filled<Namespace>("root", 0)};
        parts.first->next = rest.head;
        return parts;
      },
      [](PropertyReference** list, const Parts& parts) {
        return AddToPropertyReferenceList(list, parts.keys, parts.first, "CIM_Fan", "a");
      });
  EXPECT_EQ(contents(rest.head), R"({"rest"}{"rest"})");
  expect_no_leak(
      Free_PropertyReference, [] { return filled<KeyBinding>("k", 1); },
      [](PropertyReference** list, KeyBinding* keys) {
        return AddToPropertyReferenceList(list, keys, nullptr, "CIM_Fan", "a");
      });
}

}  // namespace
