// Paths as text, and when two of them name the same object.
#include "model/object_path.h"

#include <gtest/gtest.h>

namespace sandbox {
namespace {

std::string again(std::string_view text) {
  const Outcome<ObjectPath> path = object_path_from(text);
  return path ? to_text(*path) : path.error().description;
}

TEST(ObjectPath, a_path_has_namespace_class_and_keys) {
  const Outcome<ObjectPath> path = object_path_from("root/cimv2:C.A=\"x,y\",B=-5,D=true");
  ASSERT_TRUE(path);
  EXPECT_EQ(path->name_space, "root/cimv2");
  EXPECT_EQ(path->class_name, "C");
  ASSERT_EQ(path->keys.size(), 3U);
  EXPECT_EQ(std::get<std::string>(path->keys[0].value), "x,y");
  EXPECT_EQ(path->keys[0].type, Type::String);
  EXPECT_EQ(std::get<std::string>(path->keys[1].value), "-5");
  EXPECT_EQ(path->keys[2].type, Type::Boolean);
}

TEST(ObjectPath, texts_come_out_as_they_went_in) {
  for (const std::string_view text :
       {"C", "root:C", "C.A=\"\"", "C.A=\"with \\\"quotes\\\" and \\\\\"", "C.A=1,B=\"two\"",
        "a/b/c:C.R=\"root:D.K=\\\"x\\\"\""}) {
    EXPECT_EQ(again(text), text);
  }
}

TEST(ObjectPath, wrong_texts_say_what_is_wrong) {
  EXPECT_EQ(again(""), "expected a class name, not \"\"");
  EXPECT_EQ(again("a b.C=1"), "expected a class name, not \"a b\"");
  EXPECT_EQ(again("C=1"), "expected \".\" after the class name");
  EXPECT_EQ(again("C.=1"), "expected a key name, not \"\"");
  EXPECT_EQ(again("C.A"), "expected \"=\" after key \"A\"");
  EXPECT_EQ(again("C.A="), "expected a value for key \"A\"");
  EXPECT_EQ(again("C.A=\"x"), "the value of key \"A\" lacks its closing quote");
  EXPECT_EQ(again("C.A=\"x\\"), "the value of key \"A\" lacks its closing quote");
  EXPECT_EQ(again("C.A=\"x\"y"), "expected \",\" before \"y\"");
  EXPECT_EQ(again("C.A=1,"), "expected a key after the last \",\"");
}

TEST(ObjectPath, case_of_names_and_order_of_keys_make_no_other_object) {
  const ObjectPath one{
      "root/cimv2", "C", {{"A", Type::String, std::string("x")}, {"B", Type::UInt8, 5UL}}};
  const ObjectPath same{
      "ROOT/cimv2", "c", {{"b", Type::UInt8, 5UL}, {"a", Type::String, std::string("x")}}};
  const ObjectPath other{
      "root/cimv2", "C", {{"A", Type::String, std::string("X")}, {"B", Type::UInt8, 5UL}}};
  EXPECT_EQ(identity_of(one), identity_of(same));
  EXPECT_NE(identity_of(one), identity_of(other));
}

TEST(ObjectPath, references_in_keys_count_with_what_they_name) {
  const auto link = [](const char* key) {
    const ObjectPath target{"root", "D", {{"K", Type::String, std::string(key)}}};
    return ObjectPath{
        "root", "C", {{"R", Type::Reference, std::make_shared<const ObjectPath>(target)}}};
  };
  EXPECT_EQ(identity_of(link("x")), identity_of(link("x")));
  EXPECT_NE(identity_of(link("x")), identity_of(link("y")));
}

}  // namespace
}  // namespace sandbox
