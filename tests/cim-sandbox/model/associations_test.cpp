// Associators and references with their filters.
#include "support/managed_objects.h"

namespace sandbox {
namespace {

using test::code_of;
using test::description_of;

class Associations : public test::ManagedObjects {
 protected:
  Associations()
      : ManagedObjects(
            "class Thing { [Key] string Id; };\nclass Wheel : Thing { };\n"
            "class Car : Thing { };\n"
            "[Association] class Relation { [Key] Thing REF From; [Key] Thing REF To; };\n"
            "[Association] class Part : Relation { };\n"
            "[Association] class Seat { [Key] string Id; Car REF In; Thing REF On; };\n"
            "instance of Car as $Car { Id = \"c\"; };\n"
            "instance of Wheel as $W1 { Id = \"1\"; };\ninstance of Wheel as $W2 { Id = \"2\"; };\n"
            "instance of Thing as $T { Id = \"t\"; };\ninstance of Thing { Id = \"lonely\"; };\n"
            "instance of Part { From = $Car; To = $W1; };\n"
            "instance of Part { From = $Car; To = $W2; };\n"
            "instance of Relation { From = $W1; To = $T; };\n"
            "instance of Relation { From = $Car; To = $W1; };\n"
            "instance of Relation { From = $T; To = $T; };\n"
            "instance of Seat { Id = \"s\"; In = $Car; };\n"
            "instance of Relation { From = $T; To = \"Thing.Id=\\\"gone\\\"\"; };") {}

  static std::string names(const Outcome<std::vector<FoundInstance>>& found) {
    if (!found) return code_of(found);
    std::string text;
    for (const FoundInstance& each : *found) {
      text += each.path.class_name;
      for (const KeyBinding& key : each.path.keys) {
        const auto* reference = std::get_if<Reference>(&key.value);
        const Scalar& value = reference ? (*reference)->keys.front().value : key.value;
        text += '-' + std::get<std::string>(value);
      }
      text += ' ';
    }
    return text;
  }

  std::string associators(const char* object, const AssociatorFilter& filter = {}) {
    return names(manager_.associators(path(object), filter));
  }
  std::string references(const char* object, const ReferenceFilter& filter = {}) {
    return names(manager_.references(path(object), filter));
  }
};

TEST_F(Associations, every_object_at_another_end_is_found_once) {
  EXPECT_EQ(associators("Car.Id=\"c\""), "Wheel-1 Wheel-2 ");
  EXPECT_EQ(associators("Wheel.Id=\"1\""), "Car-c Thing-t ");
  EXPECT_EQ(associators("Thing.Id=\"lonely\""), "");
}

TEST_F(Associations, an_object_may_be_at_both_ends_and_what_is_gone_is_at_none) {
  EXPECT_EQ(associators("Thing.Id=\"t\""), "Wheel-1 Thing-t ");
}

TEST_F(Associations, classes_and_roles_narrow_the_choice) {
  const char* wheel = "Wheel.Id=\"1\"";
  EXPECT_EQ(associators(wheel, {"Part", {}, {}, {}}), "Car-c ");
  EXPECT_EQ(associators(wheel, {"relation", {}, {}, {}}), "Car-c Thing-t ");
  EXPECT_EQ(associators(wheel, {{}, "Car", {}, {}}), "Car-c ");
  EXPECT_EQ(associators(wheel, {{}, "Thing", {}, {}}), "Car-c Thing-t ");
  EXPECT_EQ(associators(wheel, {{}, {}, "from", {}}), "Thing-t ");
  EXPECT_EQ(associators(wheel, {{}, {}, "To", {}}), "Car-c ");
  EXPECT_EQ(associators(wheel, {{}, {}, {}, "To"}), "Thing-t ");
  EXPECT_EQ(associators(wheel, {{}, {}, {}, "Elsewhere"}), "");
  EXPECT_EQ(associators(wheel, {"Part", "Car", "To", "From"}), "Car-c ");
  EXPECT_EQ(associators(wheel, {"Part", "Wheel", {}, {}}), "");
  EXPECT_EQ(associators(wheel, {"", "", "", ""}), "Car-c Thing-t ");
}

TEST_F(Associations, references_are_the_associations_themselves) {
  EXPECT_EQ(references("Wheel.Id=\"1\""), "Part-c-1 Relation-1-t Relation-c-1 ");
  EXPECT_EQ(references("Wheel.Id=\"1\"", {"Part", {}}), "Part-c-1 ");
  EXPECT_EQ(references("Wheel.Id=\"1\"", {{}, "From"}), "Relation-1-t ");
  EXPECT_EQ(references("Car.Id=\"c\"", {{}, "In"}), "Seat-s ");
  EXPECT_EQ(references("Thing.Id=\"t\""), "Relation-1-t Relation-t-t Relation-t-gone ");
  EXPECT_EQ(references("Thing.Id=\"lonely\""), "");
}

TEST_F(Associations, mistakes_have_their_errors) {
  EXPECT_EQ(associators("Car.Id=\"none\""), "6");
  EXPECT_EQ(associators("Missing.Id=\"c\""), "5");
  EXPECT_EQ(associators("root/x:Car.Id=\"c\""), "3");
  EXPECT_EQ(associators("Car.Id=\"c\"", {"Missing", {}, {}, {}}), "4");
  EXPECT_EQ(associators("Car.Id=\"c\"", {{}, "Missing", {}, {}}), "4");
  EXPECT_EQ(references("Car.Id=\"c\"", {"Missing", {}}), "4");
  EXPECT_EQ(references("Car.Id=\"none\""), "6");
}

}  // namespace
}  // namespace sandbox
