// Instance declarations, good and wrong.
#include "mof/instance_reader.h"

#include <gtest/gtest.h>

#include "model/object_manager.h"
#include "model/scalar_text.h"
#include "support/mof_text.h"

namespace sandbox::mof {
namespace {

using test::problem_of;
using test::read_mof;

constexpr auto classes =
    "class Box { string Label; uint8 Size = 3; };\n"
    "class Big : Box { };\n"
    "class Item { [Key] string Id; uint32 Count; string Names[]; datetime When;\n"
    "  [EmbeddedInstance(\"Box\")] string Inside; [EmbeddedObject] string Any;\n"
    "  [EmbeddedInstance(\"Box\")] string Many[]; Item REF Next; };\n"
    "class Special : Item { };\n"
    "[Association] class Link { [Key] Item REF Left; [Key] Item REF Right; };\n"
    "[Abstract] class Idea { [Key] string Id; };\n";  // eight lines

class InstanceReader : public testing::Test {
 protected:
  // What reading the classes and then `text` gives; `text` begins at line 9.
  std::string read(const std::string& text) { return read_mof(repository_, classes + text); }

  const Instance& instance(const std::string& path) {
    auto given = object_path_from(path);
    given->name_space = "root/cimv2";
    const auto found = ObjectManager(repository_).get_instance(*given);
    EXPECT_TRUE(found) << path;
    return found ? **found : nothing_;
  }

  std::string value(const std::string& path, const std::string& property) {
    const Instance& found = instance(path);
    const Value* held = found.find(property);
    return to_text(held->scalar(), found.of_class->find_property(property)->type.type);
  }

  Repository repository_;
  Instance nothing_;
};

TEST_F(InstanceReader, an_instance_has_its_values_and_otherwise_initial_ones) {
  ASSERT_EQ(read("instance of Item { Id = \"a\"; Count = 5; Names = {\"x\", null, \"\"}; };"), "");
  EXPECT_EQ(value("Item.Id=\"a\"", "count"), "5");
  EXPECT_TRUE(instance("Item.Id=\"a\"").find("When")->null());
  const std::vector<Scalar>& names = instance("Item.Id=\"a\"").find("Names")->elements();
  ASSERT_EQ(names.size(), 3U);
  EXPECT_TRUE(is_null(names[1]));
  EXPECT_EQ(std::get<std::string>(names[2]), "");
}

TEST_F(InstanceReader, an_empty_array_is_not_null) {
  ASSERT_EQ(read("instance of Item { Id = \"a\"; Names = {}; };"), "");
  EXPECT_FALSE(instance("Item.Id=\"a\"").find("Names")->null());
  EXPECT_TRUE(instance("Item.Id=\"a\"").find("Names")->elements().empty());
}

TEST_F(InstanceReader, an_alias_may_be_used_before_its_instance) {
  ASSERT_EQ(read("instance of Link { Left = $One; Right = $Two; };\n"
                 "instance of Item as $One { Id = \"1\"; Next = $Two; };\n"
                 "instance of Special as $Two { Id = \"2\"; };"),
            "");
  EXPECT_EQ(value("Item.Id=\"1\"", "Next"), "root/cimv2:Special.Id=\"2\"");
  EXPECT_EQ(repository_.find("root/cimv2")->instances.size(), 3U);
}

TEST_F(InstanceReader, an_association_of_associations_finds_its_keys) {
  ASSERT_EQ(read("[Association] class Chain { [Key] Link REF First; [Key] string Name; };\n"
                 "instance of Chain { First = $L; Name = \"n\"; };\n"
                 "instance of Link as $L { Left = $One; Right = $One; };\n"
                 "instance of Item as $One { Id = \"1\"; };"),
            "");
  EXPECT_EQ(repository_.find("root/cimv2")->instances.size(), 3U);
}

TEST_F(InstanceReader, a_reference_may_be_the_text_of_a_path) {
  ASSERT_EQ(read("instance of Item { Id = \"1\"; Next = \"item.ID=\\\"2\\\"\"; };"), "");
  EXPECT_EQ(value("Item.Id=\"1\"", "Next"), "root/cimv2:Item.Id=\"2\"");
}

TEST_F(InstanceReader, instances_are_embedded_in_place_or_by_alias) {
  ASSERT_EQ(read("instance of Big as $B { Label = \"alias\"; };\n"
                 "instance of Item { Id = \"1\"; Inside = instance of Box { Label = \"here\"; };\n"
                 "  Any = $B; Many = {$B, instance of Box { Size = 9; }}; };"),
            "");
  const Instance& item = instance("Item.Id=\"1\"");
  const auto embedded = [](const Scalar& scalar) {
    return std::get<EmbeddedInstance>(scalar)->of_class->name + ' ' +
           to_text(std::get<EmbeddedInstance>(scalar)->find("Size")->scalar(), Type::UInt8);
  };
  EXPECT_EQ(embedded(item.find("Inside")->scalar()), "Box 3");
  EXPECT_EQ(embedded(item.find("Any")->scalar()), "Big 3");
  EXPECT_EQ(embedded(item.find("Many")->elements()[0]), "Big 3");
  EXPECT_EQ(embedded(item.find("Many")->elements()[1]), "Box 9");
}

TEST_F(InstanceReader, an_instance_may_come_before_its_class) {
  EXPECT_EQ(problem_of("instance of C { K = 1; };\nclass C { [Key] uint8 K; };"), "");
}

TEST_F(InstanceReader, wrong_instances_are_reported_where_they_are_wrong) {
  const auto problem = [](const std::string& text) { return problem_of(classes + text); };
  EXPECT_EQ(problem("instance of Missing { };"), "model.mof:9:13: unknown class \"Missing\"");
  EXPECT_EQ(problem("instance of Idea { Id = \"i\"; };"),
            "model.mof:9:13: class \"Idea\" is abstract: it has no instances");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Colour = 5; };"),
            "model.mof:9:30: class \"Item\" has no property \"Colour\"");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Count = \"5\"; };"),
            "model.mof:9:38: expected uint32");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Count = 1; count = 2; };"),
            "model.mof:9:41: property \"count\" is given twice");
  EXPECT_EQ(problem("instance of Item { Count = 5; };"),
            "model.mof:9:13: expected a value for key \"Id\" of class \"Item\"");
  EXPECT_EQ(problem("instance of Item { Id = null; };"),
            "model.mof:9:13: expected a value for key \"Id\" of class \"Item\"");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; };\ninstance of Item { ID = \"1\"; };"),
            "model.mof:10:13: instance Item.Id=\"1\" is already declared");
  EXPECT_EQ(problem("instance of Box { Label = \"x\"; };"),
            "model.mof:9:13: class \"Box\" has no key: its instances can only be embedded");
}

TEST_F(InstanceReader, wrong_aliases_are_reported_where_they_are_wrong) {
  const auto problem = [](const std::string& text) { return problem_of(classes + text); };
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Next = $Missing; };"),
            "model.mof:9:37: unknown alias \"$Missing\"");
  EXPECT_EQ(problem("instance of Item as $A { Id = \"1\"; };\n"
                    "instance of Item as $a { Id = \"2\"; };"),
            "model.mof:10:21: alias \"$a\" is already in use");
  EXPECT_EQ(problem("instance of Link as $L { Left = $L; Right = $L; };"),
            "model.mof:9:13: this instance needs itself, through its aliases");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Count = $A; };\n"
                    "instance of Item as $A { Id = \"2\"; };"),
            "model.mof:9:38: expected uint32");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Inside = $A; };\n"
                    "instance of Item as $A { Id = \"2\"; };"),
            "model.mof:9:39: expected an instance of \"Box\", not of \"Item\"");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Next = instance of Item { Id = \"2\"; }; };"),
            "model.mof:9:37: expected an alias or the path of an instance");
  EXPECT_EQ(problem("instance of Item as $A { Count = 1; };\n"
                    "instance of Item { Id = \"1\"; Next = $A; };"),
            "model.mof:10:37: the instance of this alias lacks its key \"Id\"");
}

TEST_F(InstanceReader, wrong_references_are_reported_where_they_are_wrong) {
  const auto problem = [](const std::string& text) { return problem_of(classes + text); };
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Next = \"Missing.Id=1\"; };"),
            "model.mof:9:37: unknown class \"Missing\"");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Next = \"Link.Left=5\"; };"),
            "model.mof:9:37: key \"Left\": \"5\" is no reference to Item");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Next = \"Idea.Id=\\\"x\\\"\"; };"),
            "model.mof:9:37: expected reference to Item, not to Idea");
  EXPECT_EQ(problem("instance of Item { Id = \"1\"; Next = \"\"; };"),
            "model.mof:9:37: expected reference to Item");
}

TEST_F(InstanceReader, aliases_that_need_each_other_without_end_are_refused) {
  std::string text = "[Association] class Chain { [Key] Chain REF Next; };\n";
  for (int i = 0; i < 100; ++i) {
    text += "instance of Chain as $C" + std::to_string(i) + " { Next = $C" + std::to_string(i + 1) +
            "; };\n";
  }
  EXPECT_EQ(problem_of(text), "model.mof:67:13: aliases depend on each other too deeply");
}

}  // namespace
}  // namespace sandbox::mof
