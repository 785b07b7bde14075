// Copies: what they hold, what they leave out, and what remains of one that fails.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "cim_client.h"
#include "support/allocations.h"
#include "support/filled_records.h"
#include "support/written.h"

namespace {

using support::contents;
using support::filled;
using support::filled_list;
using support::ListNode;
using support::living_blocks;
using support::text;

using CloneText = int (*)(const char*, char**);

constexpr CloneText whole_texts[] = {Clone_CIMName, Clone_CIMType,   Clone_Host,
                                     Clone_PCData,  Clone_ValueType, Clone_ParamType};
constexpr CloneText first_characters[] = {Clone_ClassOrigin, Clone_ReferenceClass};

// clang-format off
#define FOR_EVERY_CLONED_RECORD(DO)                                                        \
  DO(QualifierFlavor) DO(ClassName) DO(Namespace) DO(LocalNamespacePath) DO(NamespacePath) \
  DO(ClassPath) DO(LocalClassPath) DO(InstancePath) DO(LocalInstancePath) DO(KeyValue)     \
  DO(KeyBinding) DO(InstanceName) DO(ValueReference) DO(Value) DO(ValueArray)              \
  DO(Qualifier) DO(Property) DO(PropertyArray) DO(PropertyReference) DO(Instance)          \
  DO(NamedInstance)
// clang-format on

// ---- Texts ----

TEST(CloneText, is_whole) {
  for (CloneText clone : whole_texts) {
    const char source[] = "CIM_Fan";
    char* copy = nullptr;
    EXPECT_EQ(clone(source, &copy), 0);
    EXPECT_STREQ(copy, "CIM_Fan");
    EXPECT_NE(copy, source);
    std::free(copy);
  }
}

TEST(CloneText, of_class_origin_and_reference_class_is_the_first_character) {
  for (CloneText clone : first_characters) {
    char* copy = nullptr;
    EXPECT_EQ(clone("CIM_Fan", &copy), 0);
    EXPECT_STREQ(copy, "C");
    std::free(copy);
  }
}

TEST(CloneText, of_an_empty_text_is_empty) {
  for (CloneText clone : {Clone_CIMName, Clone_ClassOrigin, Clone_ReferenceClass}) {
    char* copy = nullptr;
    EXPECT_EQ(clone("", &copy), 0);
    EXPECT_STREQ(copy, "");
    std::free(copy);
  }
}

template <class T>
void expect_null_source_gives_null(int (*clone)(const T*, T**)) {
  T something{};
  T* copy = &something;
  EXPECT_EQ(clone(nullptr, &copy), 0);
  EXPECT_EQ(copy, nullptr);
}

template <class T>
void expect_null_destination_fails(int (*clone)(const T*, T**)) {
  const long before = living_blocks();
  const T source{};
  EXPECT_EQ(clone(&source, nullptr), -1);
  EXPECT_EQ(clone(nullptr, nullptr), -1);
  EXPECT_EQ(living_blocks(), before);
}

TEST(Clone, of_null_stores_null) {
  for (CloneText clone : whole_texts) expect_null_source_gives_null(clone);
  for (CloneText clone : first_characters) expect_null_source_gives_null(clone);
#define EXPECT_NULL(name) expect_null_source_gives_null(Clone_##name);
  FOR_EVERY_CLONED_RECORD(EXPECT_NULL)
}

TEST(Clone, to_a_null_destination_fails_without_a_copy) {
  for (CloneText clone : whole_texts) expect_null_destination_fails(clone);
  for (CloneText clone : first_characters) expect_null_destination_fails(clone);
#define EXPECT_FAILURE(name) expect_null_destination_fails(Clone_##name);
  FOR_EVERY_CLONED_RECORD(EXPECT_FAILURE)
}

// ---- Records ----

// Takes the names from all reference properties in `record`: copies do not have them.
template <class R>
void drop_reference_names(R* record) {
  for (R* next = nullptr; record; record = next) {
    next = nullptr;
    if constexpr (std::is_same_v<R, PropertyReference>) {
      std::free(record->name);
      record->name = nullptr;
    }
    support::for_each_member(*record, [&]<class Member>(Member& member) {
      if constexpr (std::is_same_v<Member, R*>) {
        next = member;
      } else if constexpr (std::is_pointer_v<Member> && !std::is_same_v<Member, char*>) {
        drop_reference_names(member);
      }
    });
  }
}

template <class R>
R* filled_source(int depth) {
  R* source = nullptr;
  if constexpr (ListNode<R>) {
    source = filled_list<R>(3, "t", depth);  // of one character, so that every copy is whole
  } else {
    source = filled<R>("t", depth);
  }
  drop_reference_names(source);
  return source;
}

// The copy is looked at after the release of its source: it shares nothing with it.
template <class R>
void expect_equal_copy(int (*clone)(const R*, R**), int (*release)(R*), const char* name) {
  R* source = filled_source<R>(3);
  const std::string expected = contents(source);
  R* copy = nullptr;
  EXPECT_EQ(clone(source, &copy), 0) << name;
  EXPECT_EQ(contents(source), expected) << name;
  release(source);
  EXPECT_EQ(contents(copy), expected) << name;
  release(copy);
}

TEST(CloneRecord, holds_what_its_source_held_and_shares_nothing) {
#define EXPECT_EQUAL_COPY(name) expect_equal_copy(Clone_##name, Free_##name, #name);
  FOR_EVERY_CLONED_RECORD(EXPECT_EQUAL_COPY)
}

template <class R>
void expect_empty_copy(int (*clone)(const R*, R**), int (*release)(R*), const char* name) {
  const R source{};
  R* copy = nullptr;
  EXPECT_EQ(clone(&source, &copy), 0) << name;
  EXPECT_EQ(contents(copy), contents(&source)) << name;
  release(copy);
}

TEST(CloneRecord, of_an_empty_record_is_empty) {
#define EXPECT_EMPTY_COPY(name) expect_empty_copy(Clone_##name, Free_##name, #name);
  FOR_EVERY_CLONED_RECORD(EXPECT_EMPTY_COPY)
}

TEST(CloneRecord, begins_at_the_given_node) {
  ClassName third{.name = text("c")};
  ClassName second{.name = text("b"), .next = &third};
  ClassName first{.name = text("a"), .next = &second};
  ClassName* copy = nullptr;
  EXPECT_EQ(Clone_ClassName(first.next, &copy), 0);
  EXPECT_EQ(contents(copy), R"({"b"}{"c"})");
  Free_ClassName(copy);
}

TEST(CloneRecord, keeps_flags_and_numbers_as_they_are) {
  PropertyArray source{.arraySize = -7, .propagated = 2};
  PropertyArray* copy = nullptr;
  EXPECT_EQ(Clone_PropertyArray(&source, &copy), 0);
  EXPECT_EQ(copy->arraySize, -7);
  EXPECT_EQ(copy->propagated, 2);
  Free_PropertyArray(copy);
}

TEST(CloneRecord, of_a_list_of_100000_nodes) {
  auto* source = filled_list<Value>(100000, "v", 0);
  Value* copy = nullptr;
  EXPECT_EQ(Clone_Value(source, &copy), 0);
  long nodes = 0;
  for (const Value* node = copy; node; node = node->next) ++nodes;
  EXPECT_EQ(nodes, 100000);
  Free_Value(source);
  Free_Value(copy);
}

// ---- What copies leave out ----

TEST(CloneProperty, class_origin_is_its_first_character) {
  Property source{.name = text("Speed"), .type = text("uint64"), .classOrigin = text("CIM_Fan")};
  Property* copy = nullptr;
  EXPECT_EQ(Clone_Property(&source, &copy), 0);
  EXPECT_EQ(contents(copy), R"({null null "Speed" "uint64" "C" 0})");
  Free_Property(copy);
}

TEST(ClonePropertyArray, class_origin_is_its_first_character) {
  PropertyArray source{.name = text("Status"), .arraySize = 5, .classOrigin = text("Any_Fan")};
  PropertyArray* copy = nullptr;
  EXPECT_EQ(Clone_PropertyArray(&source, &copy), 0);
  EXPECT_EQ(contents(copy), R"({null null "Status" null 5 "A" 0})");
  Free_PropertyArray(copy);
}

TEST(ClonePropertyReference, has_no_name_and_first_characters_of_its_classes) {
  PropertyReference source{.name = text("Antecedent"),
                           .referenceClass = text("Any_Fan"),
                           .classOrigin = text("Base_Fan"),
                           .propagated = 1};
  PropertyReference* copy = nullptr;
  EXPECT_EQ(Clone_PropertyReference(&source, &copy), 0);
  EXPECT_EQ(contents(copy), R"({null null null "A" "B" 1})");
  Free_PropertyReference(copy);
}

TEST(CloneInstance, leaves_out_the_names_of_its_references_too) {
  PropertyReference reference{.name = text("Antecedent"), .referenceClass = text("CIM_Fan")};
  Instance source{.propertyReferences = &reference};
  Instance* copy = nullptr;
  EXPECT_EQ(Clone_Instance(&source, &copy), 0);
  EXPECT_EQ(contents(copy), R"({null null null null {null null null "C" null 0}})");
  Free_Instance(copy);
}

TEST(CloneValue, holds_an_instance_of_its_own) {
  ClassName fan{.name = text("CIM_Fan")};
  Instance instance{.className = &fan};
  Value source{.instance = &instance, .isCData = 1};
  Value* copy = nullptr;
  EXPECT_EQ(Clone_Value(&source, &copy), 0);
  EXPECT_NE(copy->instance, &instance);
  EXPECT_EQ(contents(copy), R"({null {null {"CIM_Fan"} null null null} 1})");
  Free_Value(copy);
}

// ---- Memory that runs out ----

TEST(CloneProperty, that_fails_leaves_what_was_copied_so_far) {
  Value value{.text = text("42")};
  Property source{.value = &value, .name = text("Speed"), .type = text("uint64")};
  Property* copy = nullptr;
  int result = 0;
  {
    support::FailingAllocation type(4);  // after the property, the value, its text and the name
    result = Clone_Property(&source, &copy);
  }
  EXPECT_EQ(result, -1);
  EXPECT_EQ(contents(copy), R"({null {"42" null 0} "Speed" null null 0})");
  Free_Property(copy);
}

TEST(CloneClassName, that_fails_in_a_list_leaves_the_nodes_before) {
  ClassName second{.name = text("b")};
  ClassName first{.name = text("a"), .next = &second};
  ClassName* copy = nullptr;
  int result = 0;
  {
    support::FailingAllocation second_name(3);
    result = Clone_ClassName(&first, &copy);
  }
  EXPECT_EQ(result, -1);
  EXPECT_EQ(contents(copy), R"({"a"}{null})");
  Free_ClassName(copy);
}

TEST(CloneText, that_fails_stores_null) {
  for (CloneText clone : {Clone_CIMName, Clone_ClassOrigin}) {
    char something[] = "as it was";
    char* copy = something;
    int result = 0;
    {
      support::FailingAllocation only(0);
      result = clone("CIM_Fan", &copy);
    }
    EXPECT_EQ(result, -1);
    EXPECT_EQ(copy, nullptr);
  }
}

// Whichever allocation fails, the result says so and the partial copy can be released.
template <class R>
void expect_releasable(int (*clone)(const R*, R**), int (*release)(R*), const char* name) {
  R* source = filled_source<R>(2);
  const long before = living_blocks();
  R* copy = nullptr;
  int result = 0;
  const std::size_t allocations =
      support::fail_each_allocation([&] { result = clone(source, &copy); },
                                    [&] {
                                      EXPECT_EQ(result, -1) << name;
                                      release(copy);
                                      EXPECT_EQ(living_blocks(), before) << name;
                                      copy = nullptr;
                                    });
  EXPECT_EQ(result, 0) << name;
  EXPECT_GE(allocations, 1U) << name;
  EXPECT_EQ(living_blocks(), before + static_cast<long>(allocations)) << name;
  release(copy);
  release(source);
}

TEST(CloneRecord, that_fails_anywhere_can_be_released) {
#define EXPECT_RELEASABLE(name) expect_releasable(Clone_##name, Free_##name, #name);
  FOR_EVERY_CLONED_RECORD(EXPECT_RELEASABLE)
}

}  // namespace
