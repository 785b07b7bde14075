// The reading operations.
#include "model/object_manager.h"

#include "support/managed_objects.h"

namespace sandbox {
namespace {

using test::code_of;
using test::description_of;

class Reading : public test::ManagedObjects {
 protected:
  Reading()
      : ManagedObjects(
            "class Top { [Key] string Id; };\n"
            "class Left : Top { };\nclass Deep : Left { };\nclass Right : Top { };\n"
            "class Other { [Key] uint32 Number; [Key] boolean Flag; [Key] datetime When; };\n"
            "class Single { [Key] sint8 Id; };\n"
            "[Association] class Link { [Key] Top REF A; [Key] Other REF B; };\n"
            "instance of Top { Id = \"t\"; };\ninstance of Deep { Id = \"d\"; };\n"
            "instance of Left { Id = \"l\"; };\ninstance of Right { Id = \"r\"; };\n"
            "instance of Single { Id = -1; };\n"
            "instance of Top as $X { Id = \"x y\"; };\n"
            "instance of Other as $O { Number = 5; Flag = true;\n"
            "  When = \"20240101000000.000000+000\"; };\n"
            "instance of Link { A = $X; B = $O; };\n"
            "#pragma namespace (\"root/second\")\nclass Elsewhere { [Key] string Id; };") {}

  template <class T>
  static std::string names(const Outcome<std::vector<T>>& found) {
    std::string text;
    if (!found) return code_of(found);
    for (const T& each : *found) text += name(*each) + ' ';
    return text;
  }
  static std::string name(const Class& of_class) { return of_class.name; }
  static std::string name(const Instance& instance) {
    return to_text(instance.values[0].scalar(), Type::String);
  }
};

TEST_F(Reading, classes_are_found_by_name_within_their_namespace) {
  EXPECT_EQ((*manager_.get_class("root/cimv2", "TOP"))->name, "Top");
  EXPECT_EQ((*manager_.get_class("ROOT/CIMV2/", "Top"))->name, "Top");
  EXPECT_EQ(code_of(manager_.get_class("root/cimv2", "Elsewhere")), "6");
  EXPECT_EQ(code_of(manager_.get_class("root/second", "Elsewhere")), "");
  EXPECT_EQ(code_of(manager_.get_class("root/third", "Top")), "3");
  EXPECT_EQ(code_of(manager_.get_class("", "Top")), "3");
}

TEST_F(Reading, classes_are_enumerated_one_level_or_all) {
  EXPECT_EQ(names(manager_.enumerate_classes("root/cimv2", std::nullopt, false)),
            "Top Other Single Link ");
  EXPECT_EQ(names(manager_.enumerate_classes("root/cimv2", std::nullopt, true)),
            "Top Left Deep Right Other Single Link ");
  EXPECT_EQ(names(manager_.enumerate_classes("root/cimv2", "top", false)), "Left Right ");
  EXPECT_EQ(names(manager_.enumerate_classes("root/cimv2", "Top", true)), "Left Deep Right ");
  EXPECT_EQ(names(manager_.enumerate_classes("root/cimv2", "Deep", true)), "");
  EXPECT_EQ(names(manager_.enumerate_classes("root/cimv2", "Missing", true)), "5");
  EXPECT_EQ(names(manager_.enumerate_classes("root/third", std::nullopt, true)), "3");
}

TEST_F(Reading, instances_of_subclasses_are_instances_of_the_class) {
  EXPECT_EQ(names(manager_.enumerate_instances("root/cimv2", "Top")), "t x y l d r ");
  EXPECT_EQ(names(manager_.enumerate_instances("root/cimv2", "LEFT")), "l d ");
  EXPECT_EQ(names(manager_.enumerate_instances("root/cimv2", "Missing")), "5");
  EXPECT_EQ(names(manager_.enumerate_instances("root/third", "Top")), "3");
}

TEST_F(Reading, keys_match_by_value_as_their_declared_type_tells) {
  const auto found = [this](const char* text) {
    return code_of(manager_.get_instance(path(text)));
  };
  EXPECT_EQ(found("Other.Number=5,Flag=TRUE,When=\"20240101000000.000000+000\""), "");
  EXPECT_EQ(found("other.FLAG=\"true\",number=\"5\",when=\"20240101000000.000000+000\""), "");
  EXPECT_EQ(found("Other.Number=0x5,Flag=true,When=\"20240101000000.000000+000\""), "");
  EXPECT_EQ(found("Other.Number=6,Flag=TRUE,When=\"20240101000000.000000+000\""), "6");
}

TEST_F(Reading, references_as_keys_match_what_they_name) {
  const auto found = [this](const char* text) {
    return code_of(manager_.get_instance(path(text)));
  };
  const std::string other = "B=\"OTHER.number=5,flag=TRUE,when=\\\"20240101000000.000000+000\\\"\"";
  EXPECT_EQ(found(("Link.A=\"Top.Id=\\\"x y\\\"\"," + other).c_str()), "");
  EXPECT_EQ(found(("Link.A=\"root/cimv2:top.ID=\\\"x y\\\"\"," + other).c_str()), "");
  EXPECT_EQ(found(("Link.A=\"Top.Id=\\\"t\\\"\"," + other).c_str()), "6");
  EXPECT_EQ(found(("Link.A=\"Missing.Id=\\\"t\\\"\"," + other).c_str()), "5");
}

TEST_F(Reading, a_key_without_a_name_is_the_only_key) {
  ObjectPath nameless{"root/cimv2", "Single", {{"", Type::String, std::string("-1")}}};
  EXPECT_EQ(code_of(manager_.get_instance(nameless)), "");
  nameless.class_name = "Other";
  EXPECT_EQ(description_of(manager_.get_instance(nameless)), "\"\" is no key of class \"Other\"");
}

TEST_F(Reading, wrong_names_say_what_is_wrong) {
  const auto found = [this](const char* text) {
    const auto instance = manager_.get_instance(path(text));
    return code_of(instance) + ' ' + description_of(instance);
  };
  EXPECT_EQ(found("Top.Id=\"none\""), "6 there is no instance root/cimv2:Top.Id=\"none\"");
  EXPECT_EQ(found("Missing.Id=1"), "5 unknown class \"Missing\"");
  EXPECT_EQ(found("root/third:Top.Id=1"), "3 unknown namespace \"root/third\"");
  EXPECT_EQ(found("Top.Name=1"), "4 \"Name\" is no key of class \"Top\"");
  EXPECT_EQ(found("Top"), "4 key \"Id\" of class \"Top\" is missing");
  EXPECT_EQ(found("Top.Id=1,id=2"), "4 key \"id\" is given twice");
  EXPECT_EQ(found("Single.Id=300"), "4 key \"Id\": \"300\" is no sint8");
}

TEST_F(Reading, an_instance_is_found_only_by_its_own_class) {
  EXPECT_EQ(code_of(manager_.get_instance(path("Left.Id=\"d\""))), "6");
  EXPECT_EQ(code_of(manager_.get_instance(path("Deep.Id=\"d\""))), "");
}

TEST_F(Reading, paths_that_refer_to_paths_without_end_are_refused) {
  ObjectPath path{"root/cimv2", "Single", {{"Id", Type::SInt8, std::string("-1")}}};
  for (int i = 0; i < 1000; ++i) {
    path = {"root/cimv2",
            "Link",
            {{"A", Type::Reference, std::make_shared<const ObjectPath>(path)},
             {"B", Type::Reference, std::make_shared<const ObjectPath>(path)}}};
    if (i > 20) path.keys.pop_back();
  }
  EXPECT_EQ(code_of(manager_.get_instance(path)), "4");
}

}  // namespace
}  // namespace sandbox
