// What classes inherit.
#include "model/class_table.h"

#include <gtest/gtest.h>

#include "support/mof_text.h"

namespace sandbox {
namespace {

class Inheritance : public testing::Test {
 protected:
  Inheritance() {
    EXPECT_EQ(test::read_mof(repository_,
                             "[Abstract, Version(\"1\"), Description(\"base\")] class Base {\n"
                             "  [Key, Description(\"the key\")] string Id;\n"
                             "  string Kind = \"base\"; uint8 M([In] uint8 P); uint8 N(); };\n"
                             "[Association] class Middle : Base {\n"
                             "  [Override(\"Kind\"), Description(\"new\")] string Kind;\n"
                             "  uint32 Extra; uint8 m([In] uint8 P); };\n"
                             "class Leaf : middle { [Indication] uint16 Own; };"),
              "");
  }

  const Class& find(std::string_view name) {
    return *repository_.find("root/cimv2")->classes.find(name);
  }

  static std::string names(const std::vector<Property>& properties) {
    std::string text;
    for (const Property& each : properties) text += each.name + (each.propagated ? "^ " : " ");
    return text;
  }

  Repository repository_;
};

TEST_F(Inheritance, inherited_properties_come_first_and_are_marked) {
  EXPECT_EQ(names(find("Base").properties), "Id Kind ");
  EXPECT_EQ(names(find("Middle").properties), "Id^ Kind Extra ");
  EXPECT_EQ(names(find("Leaf").properties), "Id^ Kind^ Extra^ Own ");
}

TEST_F(Inheritance, an_element_keeps_the_class_that_declared_it_first) {
  EXPECT_EQ(find("Leaf").find_property("Kind")->origin, "Base");
  EXPECT_EQ(find("Leaf").find_property("Extra")->origin, "Middle");
  EXPECT_EQ(find("Middle").find_method("M")->origin, "Base");
}

TEST_F(Inheritance, an_overridden_property_keeps_its_initial_value) {
  EXPECT_EQ(std::get<std::string>(find("Middle").find_property("Kind")->initial.scalar()), "base");
}

TEST_F(Inheritance, keys_stay_keys) {
  EXPECT_TRUE(find("Leaf").find_property("id")->is_key);
  EXPECT_EQ(find("Leaf").keys, std::vector<std::size_t>{0});
}

TEST_F(Inheritance, methods_are_overridden_by_name) {
  ASSERT_EQ(find("Middle").methods.size(), 2U);
  EXPECT_EQ(find("Middle").methods[0].name, "m");
  EXPECT_FALSE(find("Middle").methods[0].propagated);
  EXPECT_TRUE(find("Middle").methods[1].propagated);
  EXPECT_TRUE(find("Leaf").find_method("n")->propagated);
}

TEST_F(Inheritance, qualifiers_spread_as_their_flavor_says) {
  EXPECT_EQ(find_qualifier(find("Middle").qualifiers, "Version"), nullptr);
  EXPECT_EQ(find_qualifier(find("Middle").qualifiers, "Abstract"), nullptr);
  const Qualifier* description = find_qualifier(find("Leaf").qualifiers, "Description");
  ASSERT_NE(description, nullptr);
  EXPECT_TRUE(description->propagated);
  const std::vector<Qualifier>& kind = find("Leaf").find_property("Kind")->qualifiers;
  EXPECT_EQ(text_of(kind, "Description"), "new");
  EXPECT_EQ(find_qualifier(kind, "Override"), nullptr);
}

TEST_F(Inheritance, associations_have_only_associations_below_but_abstraction_ends) {
  EXPECT_TRUE(find("Base").is_abstract);
  EXPECT_FALSE(find("Middle").is_abstract);
  EXPECT_FALSE(find("Base").is_association);
  EXPECT_TRUE(find("Leaf").is_association);
  EXPECT_FALSE(find("Leaf").is_indication);
}

TEST_F(Inheritance, a_class_is_all_of_its_ancestors) {
  EXPECT_TRUE(find("Leaf").is_a("BASE"));
  EXPECT_TRUE(find("Leaf").is_a(find("Leaf")));
  EXPECT_FALSE(find("Base").is_a(find("Leaf")));
  EXPECT_EQ(find("Leaf").superclass_name, "Middle");
}

}  // namespace
}  // namespace sandbox
