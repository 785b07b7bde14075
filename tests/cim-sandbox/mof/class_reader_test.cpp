// Class declarations, good and wrong.
#include "mof/class_reader.h"

#include <gtest/gtest.h>

#include "support/mof_text.h"

namespace sandbox::mof {
namespace {

using test::problem_of;
using test::read_mof;

class ClassReader : public testing::Test {
 protected:
  const Class& declared(const std::string& text, const std::string& name) {
    EXPECT_EQ(read_mof(repository_, text), "");
    const Class* found = repository_.find("root/cimv2")->classes.find(name);
    return found ? *found : nothing_;
  }

  Repository repository_;
  Class nothing_;
};

TEST_F(ClassReader, a_class_has_its_properties_in_order_of_declaration) {
  const Class& c = declared(
      "class C { [Key] string Name; uint16 Numbers[]; sint8 Four[4]; datetime When; "
      "C REF Other; };",
      "C");
  ASSERT_EQ(c.properties.size(), 5U);
  EXPECT_EQ(c.properties[0].name, "Name");
  EXPECT_TRUE(c.properties[0].is_key);
  EXPECT_EQ(describe(c.properties[1].type), "uint16[]");
  EXPECT_EQ(describe(c.properties[2].type), "sint8[4]");
  EXPECT_EQ(describe(c.properties[3].type), "datetime");
  EXPECT_EQ(describe(c.properties[4].type), "reference to C");
  EXPECT_EQ(c.keys, std::vector<std::size_t>{0});
}

TEST_F(ClassReader, every_type_has_its_name) {
  const Class& c = declared(
      "class C { boolean A; string B; char16 C; uint8 D; uint16 E; uint32 F; uint64 G; sint8 H; "
      "sint16 I; sint32 J; sint64 K; real32 L; real64 M; datetime N; };",
      "C");
  std::string names;
  for (const Property& property : c.properties) names += describe(property.type) + ' ';
  EXPECT_EQ(names,
            "boolean string char16 uint8 uint16 uint32 uint64 sint8 sint16 sint32 sint64 real32 "
            "real64 datetime ");
}

TEST_F(ClassReader, a_method_has_its_parameters_and_their_directions) {
  const Class& c = declared(
      "class C { uint32 Do([In] string A, [In(false), Out] uint8 B[2], [In, Out] C REF D, "
      "[Out] C REF E[], real32 F); };",
      "C");
  ASSERT_EQ(c.methods.size(), 1U);
  const Method& method = c.methods[0];
  EXPECT_EQ(method.name, "Do");
  ASSERT_EQ(method.parameters.size(), 5U);
  std::string shown;
  for (const Parameter& each : method.parameters) {
    shown += each.name + ':' + describe(each.type) + (each.is_in ? " in" : "") +
             (each.is_out ? " out" : "") + "; ";
  }
  EXPECT_EQ(shown,
            "A:string in; B:uint8[2] out; D:reference to C in out; E:reference to C[] in out; "
            "F:real32 in; ");
}

TEST_F(ClassReader, qualifiers_take_type_and_flavor_from_their_declaration) {
  const Class& c = declared(
      "Qualifier Tag : uint16 = 7, Scope(any), Flavor(DisableOverride, Restricted);\n"
      "Qualifier Labels : string[], Scope(property), Flavor(Translatable, ToInstance);\n"
      "[Tag] class C { [Tag(9), Labels{\"a\", \"b\"}] string P; };",
      "C");
  ASSERT_EQ(c.qualifiers.size(), 1U);
  EXPECT_EQ(c.qualifiers[0].type.type, Type::UInt16);
  EXPECT_EQ(std::get<std::uint64_t>(c.qualifiers[0].value.scalar()), 7U);
  EXPECT_FALSE(c.qualifiers[0].flavor.overridable);
  EXPECT_FALSE(c.qualifiers[0].flavor.to_subclass);
  const std::vector<Qualifier>& own = c.properties[0].qualifiers;
  ASSERT_EQ(own.size(), 2U);
  EXPECT_EQ(std::get<std::uint64_t>(own[0].value.scalar()), 9U);
  EXPECT_EQ(own[1].value.elements().size(), 2U);
  EXPECT_TRUE(own[1].flavor.translatable);
  EXPECT_TRUE(own[1].flavor.to_instance);
}

TEST_F(ClassReader, qualifiers_without_declaration_take_their_type_from_the_value) {
  const Class& c = declared(
      "[Flag, Text(\"t\"), Count(3), Ratio(0.5), Letter('x'), No(false), List{\"a\"}: Restricted] "
      "class C { };",
      "C");
  std::string types;
  for (const Qualifier& each : c.qualifiers) types += describe(each.type) + ' ';
  EXPECT_EQ(types, "boolean string sint64 real64 char16 boolean string[] ");
  EXPECT_TRUE(is_set(c.qualifiers, "flag"));
  EXPECT_FALSE(is_set(c.qualifiers, "No"));
  EXPECT_FALSE(c.qualifiers[6].flavor.to_subclass);
}

TEST_F(ClassReader, wrong_classes_are_reported_where_they_are_wrong) {
  EXPECT_EQ(problem_of("class A { };\nclass B : Missing { };"),
            "model.mof:2:11: unknown superclass \"Missing\"");
  EXPECT_EQ(problem_of("class A { };\nclass a { };"),
            "model.mof:2:7: class \"a\" is already declared");
  EXPECT_EQ(problem_of("class A {\n  string P;\n  uint8 p;\n};"),
            "model.mof:3:9: property \"p\" is declared twice");
  EXPECT_EQ(problem_of("class A { uint8 M(); uint8 M(); };"),
            "model.mof:1:28: method \"M\" is declared twice");
  EXPECT_EQ(problem_of("class A { uint8 M(string X, string x); };"),
            "model.mof:1:17: parameter \"x\" is declared twice");
  EXPECT_EQ(problem_of("class A { string P; };\nclass B : A { uint8 P; };"),
            "model.mof:2:21: property \"P\" is string in class \"A\", not uint8");
  EXPECT_EQ(problem_of("class A { [Key] string P[]; };"),
            "model.mof:1:24: key \"P\" must be a single plain value");
  EXPECT_EQ(problem_of("class A { [Key] string K; };\nclass B : A { [Key] string L; };"),
            "model.mof:2:28: key \"L\" comes too late: class \"A\" has its keys already");
  EXPECT_EQ(problem_of("class A { Missing REF R; };"), "model.mof:1:11: unknown class \"Missing\"");
  EXPECT_EQ(problem_of("class A { uint8 M(Missing REF R); };"),
            "model.mof:1:19: unknown class \"Missing\"");
  EXPECT_EQ(problem_of("class A { string P = 5; };"), "model.mof:1:22: expected string");
  EXPECT_EQ(problem_of("class A { uint8 P = \"5\"; };"), "model.mof:1:21: expected uint8");
  EXPECT_EQ(problem_of("class A { boolean P = 1; };"), "model.mof:1:23: expected boolean");
  EXPECT_EQ(problem_of("class A { datetime P = \"today\"; };"),
            "model.mof:1:24: expected datetime");
  EXPECT_EQ(problem_of("class A { uint8 P[] = 5; };"),
            "model.mof:1:23: expected \"{\" and the elements of an array of uint8");
  EXPECT_EQ(problem_of("class A { uint8 P = {5}; };"),
            "model.mof:1:21: expected uint8, not an array");
  EXPECT_EQ(problem_of("class A { uint8 P[2] = {1, 2, 3}; };"),
            "model.mof:1:24: expected at most 2 elements");
  EXPECT_EQ(problem_of("class A { string P = $Alias; };"), "model.mof:1:22: expected string");
}

TEST_F(ClassReader, wrong_qualifiers_are_reported_where_they_are_wrong) {
  EXPECT_EQ(problem_of("[Key, key] class A { };"),
            "model.mof:1:7: qualifier \"key\" is given twice");
  EXPECT_EQ(problem_of("[Max(1): Sticky] class A { };"),
            "model.mof:1:10: expected a flavor (EnableOverride, DisableOverride, ToSubclass, "
            "Restricted, ToInstance or Translatable), not \"Sticky\"");
  EXPECT_EQ(problem_of("Qualifier Max : uint32 = null, Scope(any);\n[Max(\"x\")] class A { };"),
            "model.mof:2:6: expected uint32");
  EXPECT_EQ(problem_of("Qualifier A : boolean;\nQualifier a : string;"),
            "model.mof:2:11: qualifier \"a\" is already declared");
  EXPECT_EQ(problem_of("Qualifier A : boolean = false, Extent(any);"),
            "model.mof:1:32: expected \"scope\" or \"flavor\", not \"Extent\"");
  EXPECT_EQ(problem_of("Qualifier A : boolean = 5, Scope(any);"),
            "model.mof:1:25: expected boolean");
}

}  // namespace
}  // namespace sandbox::mof
