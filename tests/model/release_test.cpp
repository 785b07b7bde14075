// What the Free_ functions release, and what they leave.
#include <gtest/gtest.h>
#include <pthread.h>

#include <cstdlib>
#include <cstring>

#include "cim_client.h"
#include "support/allocations.h"
#include "support/every_record.h"
#include "support/filled_records.h"

namespace {

using support::filled;
using support::filled_list;
using support::ListNode;
using support::living_blocks;

// ---- Nothing ----

TEST(Release, of_a_null_text_returns_0) {
  for (auto* release : {Free_CIMName, Free_CIMType, Free_ClassOrigin, Free_ReferenceClass,
                        Free_ParamType, Free_ValueType, Free_PCData, Free_Host})
    EXPECT_EQ(release(nullptr), 0);
}

TEST(Release, of_a_null_record_returns_0) {
#define EXPECT_ZERO(name) EXPECT_EQ(Free_##name(nullptr), 0) << #name;
  FOR_EVERY_RECORD(EXPECT_ZERO)
}

// ---- Everything ----

TEST(Release, of_a_text_frees_it) {
  for (auto* release : {Free_CIMName, Free_CIMType, Free_ClassOrigin, Free_ReferenceClass,
                        Free_ParamType, Free_ValueType, Free_PCData, Free_Host}) {
    const long before = living_blocks();
    char* text = strdup("text");
    EXPECT_EQ(living_blocks(), before + 1);
    EXPECT_EQ(release(text), 0);
    EXPECT_EQ(living_blocks(), before);
  }
}

template <class R>
void expect_released_whole(int (*release)(R*), const char* name) {
  const long before = living_blocks();
  R* record = filled<R>("text", 3);
  EXPECT_GT(living_blocks(), before) << name;
  EXPECT_EQ(release(record), 0) << name;
  EXPECT_EQ(living_blocks(), before) << name;
}

TEST(Release, of_a_record_with_every_member_set_frees_all_of_it) {
#define EXPECT_RELEASED_WHOLE(name) expect_released_whole(Free_##name, #name);
  FOR_EVERY_RECORD(EXPECT_RELEASED_WHOLE)
}

template <class R>
void expect_released_empty(int (*release)(R*), const char* name) {
  const long before = living_blocks();
  EXPECT_EQ(release(static_cast<R*>(std::calloc(1, sizeof(R)))), 0) << name;
  EXPECT_EQ(living_blocks(), before) << name;
}

TEST(Release, of_a_record_with_no_member_set_frees_the_record) {
#define EXPECT_RELEASED_EMPTY(name) expect_released_empty(Free_##name, #name);
  FOR_EVERY_RECORD(EXPECT_RELEASED_EMPTY)
}

template <class R>
void expect_list_released(int (*release)(R*), const char* name) {
  if constexpr (ListNode<R>) {
    const long before = living_blocks();
    R* list = filled_list<R>(3, "text", 0);
    EXPECT_EQ(release(list), 0) << name;
    EXPECT_EQ(living_blocks(), before) << name;
  }
}

TEST(Release, of_a_list_frees_every_node) {
#define EXPECT_LIST_RELEASED(name) expect_list_released(Free_##name, #name);
  FOR_EVERY_RECORD(EXPECT_LIST_RELEASED)
}

// From the second node on: the first stays whole, for its owner to cut.
TEST(Release, of_a_later_node_leaves_the_nodes_before_it) {
  ClassName* list = filled_list<ClassName>(3, "CIM_Fan", 0);
  const long before = living_blocks();
  EXPECT_EQ(Free_ClassName(list->next), 0);
  list->next = nullptr;
  EXPECT_EQ(living_blocks(), before - 4);  // two nodes and their names
  EXPECT_STREQ(list->name, "CIM_Fan");
  Free_ClassName(list);
}

// ---- Long lists ----

// Runs `work` on a thread with a stack of 128 KB, on which a call for each node of a long list
// has no room.
void run_on_small_stack(void (*work)()) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 128 << 10), 0);
  pthread_t thread;
  const auto start = [](void* call) -> void* {
    (*static_cast<void (**)()>(call))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, start, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

template <class R>
void expect_long_list_released(int (*release)(R*), const char* name) {
  if constexpr (ListNode<R>) {
    const long before = living_blocks();
    R* list = nullptr;
    for (int i = 0; i < 100000; ++i) {
      R* node = static_cast<R*>(std::calloc(1, sizeof(R)));
      node->next = list;
      list = node;
    }
    EXPECT_EQ(release(list), 0) << name;
    EXPECT_EQ(living_blocks(), before) << name;
  }
}

TEST(Release, of_a_list_of_100000_nodes_needs_no_stack) {
  run_on_small_stack([] {
#define EXPECT_LONG_LIST_RELEASED(name) expect_long_list_released(Free_##name, #name);
    FOR_EVERY_RECORD(EXPECT_LONG_LIST_RELEASED)
  });
}

// ---- What is borrowed ----

// A parameter with every child.
IParamValue* parameter_with_children(const char* name, IParamValue* next) {
  auto* parameter = filled<IParamValue>(name, 0);
  parameter->value = filled<Value>("TRUE", 1);
  parameter->valueArray = filled<ValueArray>("v", 1);
  parameter->valueReference = filled<ValueReference>("v", 1);
  parameter->className = filled<ClassName>("CIM_Fan", 0);
  parameter->instanceName = filled<InstanceName>("n", 1);
  parameter->qualifierDecl = filled<QualifierDecl>("Key", 1);
  parameter->class_ = filled<Class>("CIM_Fan", 1);
  parameter->instance = filled<Instance>("i", 1);
  parameter->namedInstance = filled<NamedInstance>("i", 1);
  parameter->next = next;
  return parameter;
}

void release_children(const IParamValue& parameter) {
  EXPECT_EQ(Free_Value(parameter.value), 0);
  EXPECT_EQ(Free_ValueArray(parameter.valueArray), 0);
  EXPECT_EQ(Free_ValueReference(parameter.valueReference), 0);
  EXPECT_EQ(Free_ClassName(parameter.className), 0);
  EXPECT_EQ(Free_InstanceName(parameter.instanceName), 0);
  EXPECT_EQ(Free_QualifierDecl(parameter.qualifierDecl), 0);
  EXPECT_EQ(Free_Class(parameter.class_), 0);
  EXPECT_EQ(Free_Instance(parameter.instance), 0);
  EXPECT_EQ(Free_NamedInstance(parameter.namedInstance), 0);
}

TEST(ReleaseIParamValue, leaves_its_children) {
  const long before = living_blocks();
  IParamValue* list = parameter_with_children("a", parameter_with_children("b", nullptr));
  const IParamValue first = *list;
  const IParamValue second = *list->next;

  const long with_list = living_blocks();
  EXPECT_EQ(Free_IParamValue(list), 0);
  EXPECT_EQ(living_blocks(), with_list - 4);  // two nodes and their names

  release_children(first);
  release_children(second);
  EXPECT_EQ(living_blocks(), before);
}

TEST(ReleaseMessage, leaves_the_children_of_parameters_below_it) {
  const long before = living_blocks();
  IParamValue* parameter = parameter_with_children("a", nullptr);
  const IParamValue children = *parameter;
  auto* message = filled<Message>("m", 2);
  Free_IParamValue(message->simpleReq->iMethodCall->iParamValues);
  message->simpleReq->iMethodCall->iParamValues = parameter;
  EXPECT_EQ(Free_Message(message), 0);
  EXPECT_STREQ(children.value->text, "TRUE");
  release_children(children);
  EXPECT_EQ(living_blocks(), before);
}

// ---- The tree of the last document ----

TEST(ReleaseCim, forgets_the_last_tree_when_it_is_the_one) {
  CIM* const before = returnAddress;
  auto* tree = filled<CIM>("2.0", 1);
  returnAddress = tree;
  EXPECT_EQ(Free_CIM(tree), 0);
  EXPECT_EQ(returnAddress, nullptr);
  returnAddress = before;
}

TEST(ReleaseCim, remembers_the_last_tree_when_it_is_another) {
  CIM* const before = returnAddress;
  CIM last{};
  returnAddress = &last;
  EXPECT_EQ(Free_CIM(filled<CIM>("2.0", 1)), 0);
  EXPECT_EQ(returnAddress, &last);
  EXPECT_EQ(Free_CIM(nullptr), 0);
  EXPECT_EQ(returnAddress, &last);
  returnAddress = before;
}

}  // namespace
