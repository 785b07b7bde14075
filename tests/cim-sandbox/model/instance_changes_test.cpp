// Creation, modification and deletion, and the error for each mistake.
#include "model/change_listener.h"
#include "support/managed_objects.h"

namespace sandbox {
namespace {

using test::code_of;
using test::description_of;

// Writes down what it is told.
class Witness : public ChangeListener {
 public:
  void created(const ObjectPath& path, const Instance&) override { log += "+" + to_text(path); }
  void modified(const ObjectPath& path, const Instance& before, const Instance& after) override {
    log += "~" + to_text(path) + ' ' + to_text(before.find("Count")->scalar(), Type::UInt8) + ">" +
           to_text(after.find("Count")->scalar(), Type::UInt8);
  }
  void deleted(const ObjectPath& path, const Instance&) override { log += "-" + to_text(path); }

  std::string log;
};

class Changes : public test::ManagedObjects {
 protected:
  Changes()
      : ManagedObjects(
            "class Box { string Label; };\nclass Big : Box { };\n"
            "class Item { [Key] string Id; uint8 Count = 1; string Names[2]; datetime When;\n"
            "  [Required] string Must = \"m\"; [EmbeddedInstance(\"Box\")] string Inside;\n"
            "  [EmbeddedObject] string Any; Item REF Next; };\n"
            "class Special : Item { };\nclass Numbered { [Key] uint32 Number; };\n"
            "[Abstract] class Idea { [Key] string Id; };\n"
            "[Association] class Link { [Key] Item REF A; [Key] Item REF B; };\n"
            "instance of Item as $A { Id = \"a\"; Count = 5; };\n"
            "instance of Item as $B { Id = \"b\"; };\n"
            "instance of Link { A = $A; B = $B; };\n"
            "instance of Numbered { Number = 7; };\n"
            "class Lax { [Key] uint8 Id; [Required] string Must; string Note; uint8 Count; };\n"
            "instance of Lax { Id = 1; };") {
    manager_.set_listener(&witness_);
  }

  template <class... Given>
  Outcome<ObjectPath> create(const char* class_name, Given... properties) {
    return manager_.create_instance("root/cimv2", {class_name, {std::move(properties)...}});
  }

  template <class... Given>
  Outcome<Done> modify(const char* object, const char* class_name, Given... properties) {
    return manager_.modify_instance(path(object), {class_name, {std::move(properties)...}},
                                    std::nullopt);
  }

  static GivenValue typed(std::string name, Type type, bool is_array, std::string text) {
    Value value = is_array ? Value(std::vector<Scalar>{Scalar(text)}) : Value(Scalar(text));
    return {std::move(name), type, is_array, std::move(value)};
  }

  Value embedded(const char* class_name) {
    auto instance = manager_.build_instance("root/cimv2", {class_name, {}});
    return Value(Scalar(std::make_shared<const Instance>(std::move(*instance))));
  }

  Witness witness_;
};

TEST_F(Changes, a_created_instance_has_what_was_given_and_otherwise_initial_values) {
  const auto created =
      create("item", given("ID", "new"), given("when", "20240101000000.000000+000"));
  ASSERT_TRUE(created);
  EXPECT_EQ(to_text(*created), "root/cimv2:Item.Id=\"new\"");
  EXPECT_EQ(value("Item.Id=\"new\"", "Count"), "1");
  EXPECT_EQ(value("Item.Id=\"new\"", "When"), "20240101000000.000000+000");
  EXPECT_EQ(value("Item.Id=\"new\"", "Next"), "null");
  EXPECT_EQ(witness_.log, "+root/cimv2:Item.Id=\"new\"");
}

TEST_F(Changes, creation_answers_the_right_error_for_each_mistake) {
  const auto error = [](const auto& outcome) {
    return code_of(outcome) + ' ' + description_of(outcome);
  };
  EXPECT_EQ(error(manager_.create_instance("root/x", {"Item", {}})),
            "3 unknown namespace \"root/x\"");
  EXPECT_EQ(error(create("Missing")), "5 unknown class \"Missing\"");
  EXPECT_EQ(error(create("Idea", given("Id", "x"))), "5 class \"Idea\" is abstract");
  EXPECT_EQ(error(create("Box")), "5 class \"Box\" has no key: its instances can only be embedded");
  EXPECT_EQ(error(create("Item")), "4 key \"Id\" is missing");
  EXPECT_EQ(error(create("Item", GivenValue{"Id", std::nullopt, std::nullopt, Value()})),
            "4 key \"Id\" is missing");
  EXPECT_EQ(error(create("Item", given("Id", "n"),
                         GivenValue{"Must", std::nullopt, std::nullopt, Value()})),
            "4 required property \"Must\" is missing");
  EXPECT_EQ(error(create("Item", given("Id", "n"), given("id", "m"))),
            "4 property \"id\" is given twice");
  EXPECT_EQ(error(create("Item", given("Id", "a"))),
            "11 instance root/cimv2:Item.Id=\"a\" exists already");
  EXPECT_EQ(error(create("Numbered", given("Number", "0x7"))),
            "11 instance root/cimv2:Numbered.Number=7 exists already");
  EXPECT_EQ(error(create("Item", given("Id", "n"), given("Colour", "red"))),
            "12 class \"Item\" has no property \"Colour\"");
  EXPECT_EQ(witness_.log, "");
}

TEST_F(Changes, creation_checks_types) {
  const auto error = [this](GivenValue value) {
    const auto outcome = create("Item", given("Id", "n"), std::move(value));
    return code_of(outcome) + ' ' + description_of(outcome);
  };
  EXPECT_EQ(error(given("Count", "256")), "13 property \"Count\": \"256\" is no uint8");
  EXPECT_EQ(error(given("Count", "many")), "13 property \"Count\": \"many\" is no uint8");
  EXPECT_EQ(error(given("When", "today")), "13 property \"When\": \"today\" is no datetime");
  EXPECT_EQ(error(typed("Count", Type::UInt16, false, "1")),
            "13 property \"Count\": it is uint8, not uint16");
  EXPECT_EQ(error(typed("Count", Type::UInt8, true, "1")),
            "13 property \"Count\": it is uint8, not uint8[]");
  EXPECT_EQ(error(typed("Names", Type::String, false, "x")),
            "13 property \"Names\": it is string[2], not string");
  EXPECT_EQ(error({"Names", std::nullopt, std::nullopt,
                   Value(std::vector<Scalar>(3, Scalar(std::string("x"))))}),
            "13 property \"Names\": more than 2 elements");
  EXPECT_EQ(error(given("Inside", "text")),
            "13 property \"Inside\": the value is no embedded instance");
  EXPECT_EQ(error({"Inside", std::nullopt, std::nullopt, embedded("Item")}),
            "13 property \"Inside\": class \"Item\" is no \"Box\"");
  EXPECT_EQ(error({"Must", std::nullopt, std::nullopt, embedded("Box")}),
            "13 property \"Must\": an instance is no string");
  EXPECT_EQ(error({"Inside", std::nullopt, std::nullopt, embedded("Big")}), " ");
}

TEST_F(Changes, numbers_fit_when_their_value_does) {
  const auto count = [this](Scalar number) {
    const auto outcome =
        create("Item", given("Id", "n"),
               GivenValue{"Count", std::nullopt, std::nullopt, Value(std::move(number))});
    const std::string result = outcome ? value("Item.Id=\"n\"", "Count") : code_of(outcome);
    manager_.delete_instance(path("Item.Id=\"n\""));
    return result;
  };
  EXPECT_EQ(count(std::int64_t{200}), "200");
  EXPECT_EQ(count(std::uint64_t{200}), "200");
  EXPECT_EQ(count(std::int64_t{-1}), "13");
  EXPECT_EQ(count(std::uint64_t{256}), "13");
  EXPECT_EQ(count(1.0), "13");
  EXPECT_EQ(count(true), "13");
}

TEST_F(Changes, references_are_checked_and_completed) {
  const auto next = [this](const char* text) {
    const auto outcome = create("Item", given("Id", "n"), given("Next", text));
    const std::string result = outcome ? value("Item.Id=\"n\"", "Next") : description_of(outcome);
    manager_.delete_instance(path("Item.Id=\"n\""));
    return result;
  };
  EXPECT_EQ(next("item.id=\"a\""), "root/cimv2:Item.Id=\"a\"");
  EXPECT_EQ(next("Special.Id=\"later\""), "root/cimv2:Special.Id=\"later\"");
  EXPECT_EQ(next("elsewhere:Unknown.X=1"), "elsewhere:Unknown.X=1");
  EXPECT_EQ(next("Numbered.Number=7"), "property \"Next\": class \"Numbered\" is no \"Item\"");
  EXPECT_EQ(next("Missing.X=1"), "property \"Next\": unknown class \"Missing\"");
  EXPECT_EQ(next("Item.Name=1"), "property \"Next\": \"Name\" is no key of class \"Item\"");
  EXPECT_EQ(next("?"), "property \"Next\": \"?\" is no reference to Item");
}

TEST_F(Changes, modification_changes_what_is_given_and_nothing_else) {
  ASSERT_TRUE(modify("Item.Id=\"a\"", "Item", given("Must", "new")));
  EXPECT_EQ(value("Item.Id=\"a\"", "Must"), "new");
  EXPECT_EQ(value("Item.Id=\"a\"", "Count"), "5");
  EXPECT_EQ(witness_.log, "~root/cimv2:Item.Id=\"a\" 5>5");
}

TEST_F(Changes, a_property_list_chooses_what_is_modified) {
  const GivenInstance changed{"Item", {given("Count", "9"), given("Must", "new")}};
  ASSERT_TRUE(manager_.modify_instance(path("Item.Id=\"a\""), changed, {{"count"}}));
  EXPECT_EQ(value("Item.Id=\"a\"", "Count"), "9");
  EXPECT_EQ(value("Item.Id=\"a\"", "Must"), "m");
}

TEST_F(Changes, a_listed_property_that_is_not_given_becomes_initial_again) {
  ASSERT_TRUE(manager_.modify_instance(path("Item.Id=\"a\""), {"Item", {}}, {{"Count"}}));
  EXPECT_EQ(value("Item.Id=\"a\"", "Count"), "1");
}

TEST_F(Changes, an_empty_property_list_changes_nothing) {
  const GivenInstance changed{"Item", {given("Count", "9")}};
  const std::vector<std::string> nothing;
  ASSERT_TRUE(manager_.modify_instance(path("Item.Id=\"a\""), changed, nothing));
  EXPECT_EQ(value("Item.Id=\"a\"", "Count"), "5");
}

TEST_F(Changes, modification_answers_the_right_error_for_each_mistake) {
  const auto error = [](const auto& outcome) {
    return code_of(outcome) + ' ' + description_of(outcome);
  };
  EXPECT_EQ(error(modify("Item.Id=\"z\"", "Item")),
            "6 there is no instance root/cimv2:Item.Id=\"z\"");
  EXPECT_EQ(error(modify("Missing.Id=\"z\"", "Missing")), "5 unknown class \"Missing\"");
  EXPECT_EQ(error(modify("root/x:Item.Id=\"a\"", "Item")), "3 unknown namespace \"root/x\"");
  EXPECT_EQ(error(modify("Item.Id=\"a\"", "Special")),
            "4 the name is of class \"Item\", the instance of \"Special\"");
  EXPECT_EQ(error(modify("Item.Id=\"a\"", "Item", given("Id", "b"))), "4 keys cannot be modified");
  EXPECT_EQ(error(modify("Item.Id=\"a\"", "Item", given("Colour", "red"))),
            "12 class \"Item\" has no property \"Colour\"");
  EXPECT_EQ(error(manager_.modify_instance(path("Item.Id=\"a\""), {"Item", {}}, {{"Colour"}})),
            "12 class \"Item\" has no property \"Colour\"");
  EXPECT_EQ(error(modify("Item.Id=\"a\"", "Item", given("Count", "x"))),
            "13 property \"Count\": \"x\" is no uint8");
  EXPECT_EQ(error(modify("Item.Id=\"a\"", "Item",
                         GivenValue{"Must", std::nullopt, std::nullopt, Value()})),
            "4 required property \"Must\" is missing");
  EXPECT_EQ(witness_.log, "");
  EXPECT_EQ(value("Item.Id=\"a\"", "Count"), "5");
}

TEST_F(Changes, a_required_property_that_the_model_left_null_does_not_forbid_other_changes) {
  ASSERT_TRUE(modify("Lax.Id=1", "Lax", given("Note", "new")));
  EXPECT_EQ(value("Lax.Id=1", "Note"), "new");
}

TEST_F(Changes, a_key_may_be_given_as_it_is) {
  EXPECT_TRUE(modify("Item.Id=\"a\"", "Item", given("Id", "a"), given("Count", "2")));
}

TEST_F(Changes, deletion_takes_the_associations_along) {
  ASSERT_TRUE(manager_.delete_instance(path("item.id=\"b\"")));
  EXPECT_EQ(witness_.log,
            "-root/cimv2:Item.Id=\"b\""
            "-root/cimv2:Link.A=\"root/cimv2:Item.Id=\\\"a\\\"\","
            "B=\"root/cimv2:Item.Id=\\\"b\\\"\"");
  EXPECT_EQ(value("Item.Id=\"b\"", "Count"), "no instance");
  EXPECT_EQ(value("Item.Id=\"a\"", "Count"), "5");
}

TEST_F(Changes, deletion_answers_the_right_error_for_each_mistake) {
  EXPECT_EQ(code_of(manager_.delete_instance(path("Item.Id=\"z\""))), "6");
  EXPECT_EQ(code_of(manager_.delete_instance(path("Missing.Id=\"z\""))), "5");
  EXPECT_EQ(code_of(manager_.delete_instance(path("root/x:Item.Id=\"a\""))), "3");
  EXPECT_EQ(code_of(manager_.delete_instance(path("Item.Name=\"a\""))), "4");
  EXPECT_EQ(witness_.log, "");
}

}  // namespace
}  // namespace sandbox
