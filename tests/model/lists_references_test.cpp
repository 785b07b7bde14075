// The AddTo...List functions that build references.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "cim_client.h"
#include "model/owned_lists.h"
#include "support/allocations.h"
#include "support/filled_records.h"

namespace {

using model_test::Keys;
using model_test::Namespaces;
using model_test::References;
using support::contents;
using support::filled;
using support::filled_list;
using support::living_blocks;

// ---- Keys ----

TEST(AddToKeyBindingList, with_reference_keys_names_an_instance_below_root) {
  Keys list;
  auto* keys = filled<KeyBinding>("DeviceID", 0);
  EXPECT_EQ(AddToKeyBindingList(&list.head, "Antecedent", nullptr, nullptr, "CIM_Fan", "root/cimv2",
                                keys),
            0);
  EXPECT_EQ(contents(list.head),
            "{null {null null null null "
            R"({{{"root"}{"cimv2"}} {{null null "DeviceID"} null null {"CIM_Fan"}}})"
            R"( null} "Antecedent"})");
  EXPECT_EQ(list.head->valueReference->localInstancePath->instanceName->keyBindings, keys);
}

TEST(AddToKeyBindingList, with_value_and_reference_keys_holds_both) {
  Keys list;
  EXPECT_EQ(AddToKeyBindingList(&list.head, "k", "1", "numeric", "CIM_Fan", nullptr,
                                filled<KeyBinding>("x", 0)),
            0);
  EXPECT_STREQ(list.head->keyValue->text, "1");
  EXPECT_NE(list.head->valueReference, nullptr);
}

// The namespaces of the reference that `namespace_text` gives.
Namespace* namespaces_of(Keys& list, const char* namespace_text) {
  EXPECT_EQ(AddToKeyBindingList(&list.head, "k", nullptr, nullptr, "CIM_Fan", namespace_text,
                                filled<KeyBinding>("x", 0)),
            0);
  return list.head->valueReference->localInstancePath->localNamespacePath->namespaces;
}

std::string segments_of(const char* namespace_text) {
  Keys list;
  return contents(namespaces_of(list, namespace_text));
}

TEST(AddToKeyBindingList, second_segment_begins_with_interop_or_else_with_cimv2) {
  EXPECT_EQ(segments_of("root/cimv2"), R"({"root"}{"cimv2"})");
  EXPECT_EQ(segments_of("root/interop"), R"({"root"}{"interop"})");
  EXPECT_EQ(segments_of("root/cimv2/interop"), R"({"root"}{"interop"})");
  EXPECT_EQ(segments_of("root/interop/cimv2"), R"({"root"}{"interop/cimv2"})");
  EXPECT_EQ(segments_of("cimv2"), R"({"root"}{"cimv2"})");
}

TEST(AddToKeyBindingList, second_segment_is_the_whole_rest_of_the_namespace) {
  EXPECT_EQ(segments_of("root/cimv2/vendor"), R"({"root"}{"cimv2/vendor"})");
  EXPECT_EQ(segments_of("my-interops"), R"({"root"}{"interops"})");
}

TEST(AddToKeyBindingList, second_segment_is_empty_without_either_word) {
  EXPECT_EQ(segments_of("root/vendor"), R"({"root"}{""})");
  EXPECT_EQ(segments_of("root/CIMV2"), R"({"root"}{""})");
  EXPECT_EQ(segments_of(""), R"({"root"}{""})");
  EXPECT_EQ(segments_of(nullptr), R"({"root"}{""})");
}

TEST(AddToKeyBindingList, a_segment_of_any_length_is_kept_whole) {
  const std::string segment = "cimv2/" + std::string(5000, 'x');
  EXPECT_EQ(segments_of(("root/" + segment).c_str()), "{\"root\"}{\"" + segment + "\"}");
}

// Segments around the 32 bytes that short ones get.
TEST(AddToKeyBindingList, segments_of_31_to_33_characters_are_kept_whole) {
  for (std::size_t length : {30U, 31U, 32U, 33U}) {
    const std::string segment = "cimv2" + std::string(length - 5, 'x');
    EXPECT_EQ(segments_of(segment.c_str()), "{\"root\"}{\"" + segment + "\"}");
  }
}

// Callers write longer names into them in place.
TEST(AddToKeyBindingList, both_segments_have_32_bytes_filled_with_zeros) {
  for (const char* text : {"root/cimv2", "root/vendor"}) {
    Keys list;
    for (Namespace* segment = namespaces_of(list, text); segment; segment = segment->next) {
      for (std::size_t i = std::strlen(segment->name); i < 32; ++i)
        ASSERT_EQ(segment->name[i], '\0') << text << ' ' << i;
      std::strcpy(segment->name, "a name of thirty-one characters");
    }
  }
}

// ---- Reference properties ----

TEST(AddToPropertyReferenceList, names_an_instance_in_the_first_namespace) {
  References list;
  auto* keys = filled<KeyBinding>("DeviceID", 0);
  auto* name_space = filled<Namespace>("root/cimv2", 0);
  EXPECT_EQ(AddToPropertyReferenceList(&list.head, keys, name_space, "CIM_Fan", "Antecedent"), 0);
  EXPECT_EQ(contents(list.head),
            "{null {null null null null "
            R"({{{"root/cimv2"}} {{null null "DeviceID"} null null {"CIM_Fan"}}})"
            R"( null} "Antecedent" "CIM_Fan" null 0})");
  const LocalInstancePath* path = list.head->valueReference->localInstancePath;
  EXPECT_EQ(path->instanceName->keyBindings, keys);
  EXPECT_EQ(path->localNamespacePath->namespaces, name_space);
}

TEST(AddToPropertyReferenceList, cuts_the_callers_list_after_its_first_namespace) {
  References list;
  auto* first = filled_list<Namespace>(3, "root", 0);
  Namespaces rest;
  rest.head = first->next;
  EXPECT_EQ(AddToPropertyReferenceList(&list.head, filled<KeyBinding>("k", 0), first, "CIM_Fan",
                                       "Antecedent"),
            0);
  EXPECT_EQ(contents(list.head->valueReference->localInstancePath->localNamespacePath),
            R"({{"root"}})");
  EXPECT_EQ(contents(rest.head), R"({"root"}{"root"})");
}

TEST(AddToPropertyReferenceList, without_a_namespace_the_reference_is_empty_and_the_keys_go) {
  References list;
  const long before = living_blocks();
  auto* keys = filled_list<KeyBinding>(2, "k", 1);
  EXPECT_EQ(AddToPropertyReferenceList(&list.head, keys, nullptr, "CIM_Fan", "Antecedent"), 0);
  EXPECT_EQ(living_blocks(), before + 4);  // the node, its two texts and the empty reference
  EXPECT_EQ(contents(list.head),
            R"({null {null null null null null null} "Antecedent" "CIM_Fan" null 0})");
}

TEST(AddToPropertyReferenceList, without_keys_has_no_value_and_leaves_the_namespaces) {
  References list;
  Namespaces namespaces;
  namespaces.head = filled_list<Namespace>(2, "root", 0);
  EXPECT_EQ(
      AddToPropertyReferenceList(&list.head, nullptr, namespaces.head, "CIM_Fan", "Antecedent"), 0);
  EXPECT_EQ(contents(list.head), R"({null null "Antecedent" "CIM_Fan" null 0})");
  EXPECT_EQ(contents(namespaces.head), R"({"root"}{"root"})");
}

TEST(AddToPropertyReferenceList, without_a_name_has_no_reference_class_either) {
  References list;
  EXPECT_EQ(AddToPropertyReferenceList(&list.head, filled<KeyBinding>("k", 0),
                                       filled<Namespace>("root", 0), "CIM_Fan", nullptr),
            0);
  EXPECT_EQ(AddToPropertyReferenceList(&list.head, nullptr, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(contents(list.head),
            "{null {null null null null "
            R"({{{"root"}} {{null null "k"} null null {"CIM_Fan"}}})"
            " null} null null null 0}{null null null null null 0}");
}

TEST(AddToPropertyReferenceList, without_a_class_the_instance_name_has_a_nameless_one) {
  References list;
  EXPECT_EQ(AddToPropertyReferenceList(&list.head, filled<KeyBinding>("k", 0),
                                       filled<Namespace>("root", 0), nullptr, nullptr),
            0);
  EXPECT_EQ(contents(list.head->valueReference->localInstancePath->instanceName),
            R"({{null null "k"} null null {null}})");
}

}  // namespace
