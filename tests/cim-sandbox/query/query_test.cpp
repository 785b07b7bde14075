// Queries: what they select, and how their mistakes are reported.
#include "support/managed_objects.h"

namespace sandbox {
namespace {

using test::code_of;
using test::description_of;

class Queries : public test::ManagedObjects {
 protected:
  Queries()
      : ManagedObjects(
            "class Box { string Label; };\nclass Big : Box { };\n"
            "class Item { [Key] string Id; uint8 Size; sint32 Level; real64 Weight; boolean On;\n"
            "  datetime When; string Names[]; [EmbeddedInstance(\"Box\")] string In;\n"
            "  Item REF Next; uint64 Huge; char16 Letter; };\n"
            "class Special : Item { };\n"
            "instance of Item as $A { Id = \"a\"; Size = 1; Level = -5; Weight = 1.5; On = true;\n"
            "  When = \"20240101000000.000000+000\"; In = instance of Big { }; Letter = 'x'; };\n"
            "instance of Item { Id = \"b\"; Size = 2; Level = 0; Weight = 2.0; On = false;\n"
            "  When = \"20250101000000.000000+000\"; Next = $A; Huge = 18446744073709551615; };\n"
            "instance of Item { Id = \"it's\"; Size = 200; };\n"
            "instance of Special as $S { Id = \"say \\\"hi\\\"\"; Level = 7; };\n"
            "instance of Special { Id = \"100%\"; Next = $S; };") {}

  // The keys that "SELECT * FROM Item WHERE ..." finds, or the error.
  std::string where(const std::string& condition) {
    return found("SELECT * FROM Item WHERE " + condition);
  }

  std::string found(const std::string& query) {
    const auto result = manager_.exec_query("root/cimv2", "WQL", query);
    if (!result) return code_of(result) + ' ' + description_of(result);
    std::string text;
    for (const FoundInstance& each : result->instances) {
      text += std::get<std::string>(each.instance->values[0].scalar()) + ' ';
    }
    return text;
  }
};

TEST_F(Queries, without_a_condition_all_instances_are_found) {
  EXPECT_EQ(found("select * from item"), "a b it's say \"hi\" 100% ");
  EXPECT_EQ(found("SELECT * FROM Special"), "say \"hi\" 100% ");
}

TEST_F(Queries, a_list_selects_properties) {
  const auto result = manager_.exec_query("root/cimv2", "wql", "SELECT Id, size FROM Item");
  ASSERT_TRUE(result);
  EXPECT_EQ(result->properties, (std::vector<std::string>{"Id", "size"}));
  EXPECT_EQ(manager_.exec_query("root/cimv2", "WQL", "SELECT * FROM Item")->properties,
            std::nullopt);
}

TEST_F(Queries, numbers_are_compared_by_value) {
  EXPECT_EQ(where("Size = 1"), "a ");
  EXPECT_EQ(where("Size <> 1"), "b it's ");
  EXPECT_EQ(where("size != 1"), "b it's ");
  EXPECT_EQ(where("Size < 2"), "a ");
  EXPECT_EQ(where("Size <= 2"), "a b ");
  EXPECT_EQ(where("Size > 2"), "it's ");
  EXPECT_EQ(where("Size >= 2"), "b it's ");
  EXPECT_EQ(where("2 < Size"), "it's ");
  EXPECT_EQ(where("2 >= Size"), "a b ");
  EXPECT_EQ(where("Size < 1.5"), "a ");
  EXPECT_EQ(where("Size < 1000"), "a b it's ");
  EXPECT_EQ(where("Size > -1"), "a b it's ");
  EXPECT_EQ(where("Level < 0"), "a ");
  EXPECT_EQ(where("Level = -5"), "a ");
  EXPECT_EQ(where("Level > -6"), "a b say \"hi\" ");
  EXPECT_EQ(where("Weight = 2"), "b ");
  EXPECT_EQ(where("Weight > 1.25"), "a b ");
  EXPECT_EQ(where("Huge = 18446744073709551615"), "b ");
  EXPECT_EQ(where("Huge > -18446744073709551615"), "b ");
}

TEST_F(Queries, texts_and_date_times_are_compared_as_text) {
  EXPECT_EQ(where("Id = 'a'"), "a ");
  EXPECT_EQ(where("Id = \"a\""), "a ");
  EXPECT_EQ(where("Id = 'A'"), "");
  EXPECT_EQ(where("Id > 'b'"), "it's say \"hi\" ");
  EXPECT_EQ(where("When < '20240601000000.000000+000'"), "a ");
  EXPECT_EQ(where("Letter = 'x'"), "a ");
  EXPECT_EQ(where("__CLASS = 'Special'"), "say \"hi\" 100% ");
}

TEST_F(Queries, quotes_within_texts_are_doubled_or_escaped) {
  EXPECT_EQ(where("Id = 'it''s'"), "it's ");
  EXPECT_EQ(where("Id = 'it\\'s'"), "it's ");
  EXPECT_EQ(where("Id = \"it's\""), "it's ");
  EXPECT_EQ(where("Id = \"say \"\"hi\"\"\""), "say \"hi\" ");
}

TEST_F(Queries, booleans_and_references_are_equal_or_not) {
  EXPECT_EQ(where("On = TRUE"), "a ");
  EXPECT_EQ(where("On <> true"), "b ");
  EXPECT_EQ(where("Next = 'root/cimv2:Item.Id=\"a\"'"), "b ");
}

TEST_F(Queries, null_is_asked_for_by_name_and_meets_no_comparison) {
  EXPECT_EQ(where("On IS NULL"), "it's say \"hi\" 100% ");
  EXPECT_EQ(where("On is not null"), "a b ");
  EXPECT_EQ(where("On = NULL"), "it's say \"hi\" 100% ");
  EXPECT_EQ(where("On <> NULL"), "a b ");
  EXPECT_EQ(where("Names IS NULL"), "a b it's say \"hi\" 100% ");
  EXPECT_EQ(where("NOT Size = 1"), "b it's say \"hi\" 100% ");
}

TEST_F(Queries, and_binds_closer_than_or_and_not_closer_than_both) {
  EXPECT_EQ(where("Id = 'a' OR Id = 'b' AND Size = 200"), "a ");
  EXPECT_EQ(where("(Id = 'a' OR Id = 'b') AND Size = 200"), "");
  EXPECT_EQ(where("NOT Id = 'a' AND Size < 10"), "b ");
  EXPECT_EQ(where("NOT (Id = 'a' AND Size < 10) AND On IS NOT NULL"), "b ");
  EXPECT_EQ(where("Id = 'a' OR Id = 'b' OR Id = '100%'"), "a b 100% ");
}

TEST_F(Queries, like_knows_any_text_and_any_character) {
  EXPECT_EQ(where("Id LIKE 'a'"), "a ");
  EXPECT_EQ(where("Id LIKE '_'"), "a b ");
  EXPECT_EQ(where("Id LIKE '%''%'"), "it's ");
  EXPECT_EQ(where("Id LIKE 's%y%hi%'"), "say \"hi\" ");
  EXPECT_EQ(where("Id LIKE '%'"), "a b it's say \"hi\" 100% ");
  EXPECT_EQ(where("Id LIKE ''"), "");
  EXPECT_EQ(where("Id LIKE '1%%'"), "100% ");
  EXPECT_EQ(where("NOT Id LIKE '%a%'"), "b it's 100% ");
}

TEST_F(Queries, isa_asks_for_the_class_of_the_instance_or_of_what_it_holds) {
  EXPECT_EQ(where("__THIS ISA Special"), "say \"hi\" 100% ");
  EXPECT_EQ(where("__this ISA \"item\""), "a b it's say \"hi\" 100% ");
  EXPECT_EQ(where("NOT __THIS ISA Special AND Size = 1"), "a ");
  EXPECT_EQ(where("In ISA Box"), "a ");
  EXPECT_EQ(where("In ISA Item"), "");
  EXPECT_EQ(where("Next ISA Item"), "b 100% ");
  EXPECT_EQ(where("Next ISA Special"), "100% ");
}

TEST_F(Queries, other_languages_namespaces_and_classes_are_refused) {
  const auto code = [this](const char* name_space, const char* language, const char* query) {
    return code_of(manager_.exec_query(name_space, language, query));
  };
  EXPECT_EQ(code("root/cimv2", "DMTF:CQL", "SELECT * FROM Item"), "14");
  EXPECT_EQ(code("root/cimv2", "", "SELECT * FROM Item"), "14");
  EXPECT_EQ(code("root/x", "WQL", "SELECT * FROM Item"), "3");
  EXPECT_EQ(code("root/cimv2", "WQL", "SELECT * FROM Missing"), "5");
}

TEST_F(Queries, syntax_errors_say_what_was_expected) {
  EXPECT_EQ(found(""), "15 column 1: expected SELECT");
  EXPECT_EQ(found("SELECT"), "15 column 7: expected * or a name");
  EXPECT_EQ(found("SELECT a, FROM Item"), "15 column 11: expected a name");
  EXPECT_EQ(found("SELECT * Item"), "15 column 10: expected FROM");
  EXPECT_EQ(found("SELECT * FROM Item Size = 1"),
            "15 column 20: expected the end of the query or "
            "WHERE");
  EXPECT_EQ(where("Size"), "15 column 30: expected LIKE, IS, ISA or a comparison");
  EXPECT_EQ(where("Size ="),
            "15 column 32: expected NULL, TRUE, FALSE, a string, an integer or "
            "a real number");
  EXPECT_EQ(where("(Size = 1"), "15 column 35: expected AND, OR or )");
  EXPECT_EQ(where("Size = 'open"), "15 column 33: expected an end for the string that begins here");
  EXPECT_EQ(where("Size ; 1"), "15 column 31: expected a word of the query language");
  EXPECT_EQ(where("Size = 99999999999999999999"),
            "15 column 33: expected an integer of at most 64 bits");
  EXPECT_EQ(where("Weight = 1.0e999"), "15 column 35: expected a real number within range");
}

TEST_F(Queries, properties_must_exist_and_be_comparable) {
  EXPECT_EQ(found("SELECT Colour FROM Item"), "15 class \"Item\" has no property \"Colour\"");
  EXPECT_EQ(where("Colour = 1"), "15 class \"Item\" has no property \"Colour\"");
  EXPECT_EQ(where("Size = 1 AND (Id = 'a' OR NOT Colour = 1)"),
            "15 class \"Item\" has no property \"Colour\"");
  EXPECT_EQ(where("Size = 'a'"),
            "15 property \"Size\" is uint8: it cannot be compared with that value");
  EXPECT_EQ(where("Id = 1"), "15 property \"Id\" is string: it cannot be compared with that value");
  EXPECT_EQ(where("Id = TRUE"),
            "15 property \"Id\" is string: it cannot be compared with that value");
  EXPECT_EQ(where("On < TRUE"), "15 property \"On\" can only be = or <> that value");
  EXPECT_EQ(where("Size < NULL"), "15 property \"Size\" can only be = or <> that value");
  EXPECT_EQ(where("Next > 'x'"), "15 property \"Next\" can only be = or <> that value");
  EXPECT_EQ(where("Names = 'a'"), "15 property \"Names\" cannot be compared");
  EXPECT_EQ(where("In = 'a'"), "15 property \"In\" cannot be compared");
  EXPECT_EQ(where("Size LIKE 'a'"), "15 property \"Size\" is no string: LIKE does not apply");
  EXPECT_EQ(where("Size ISA Item"), "15 property \"Size\" is neither instance nor reference");
  EXPECT_EQ(where("__THIS = 'a'"), "15 __THIS can only be asked with ISA");
}

TEST_F(Queries, hostile_queries_are_bounded) {
  EXPECT_EQ(found(std::string(70000, ' ')), "15 column 1: expected at most 64 KiB");
  std::string many = "Size = 1";
  for (int i = 0; i < 500; ++i) many += " OR Size = 1";
  EXPECT_EQ(where(many).substr(0, 3), "15 ");
  std::string deep;
  for (int i = 0; i < 600; ++i) deep += "NOT ";
  EXPECT_EQ(where(deep + "Size = 1").substr(0, 3), "15 ");
  EXPECT_EQ(where(std::string(20000, '(') + "Size = 1" + std::string(20000, ')')), "a ");
  EXPECT_EQ(where("Id LIKE '" + std::string(30000, '%') + "z'"), "");
}

}  // namespace
}  // namespace sandbox
