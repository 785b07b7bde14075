// Synthetic instances.
#include "model/generator.h"

#include <gtest/gtest.h>

#include "model/object_manager.h"
#include "model/scalar_text.h"
#include "support/mof_text.h"

namespace sandbox {
namespace {

constexpr auto classes =
    "class Item { [Key] string Id; uint8 Small; uint64 Large; sint16 Signed; boolean Flag;\n"
    "  real64 Real; datetime When; char16 Letter; string Texts[2]; string Fixed = \"f\"; };\n"
    "class Tiny { [Key] uint8 Id; };\n"
    "[Abstract] class Idea { [Key] string Id; };\n"
    "class Bag { string Content; };\n"
    "class Link { [Key] Item REF End; };";

class Generator : public testing::Test {
 protected:
  Generator() { EXPECT_EQ(test::read_mof(repository_, classes), ""); }

  std::string problem(const char* class_name, std::size_t count) {
    const auto done = generate_instances(repository_, "root/cimv2", class_name, count);
    return done ? "" : done.error().description;
  }

  Repository repository_;
};

TEST_F(Generator, values_follow_from_the_number_of_the_instance) {
  ASSERT_EQ(problem("item", 300), "");
  auto path = *object_path_from("Item.Id=\"Id-300\"");
  path.name_space = "root/cimv2";
  const Instance& instance = **ObjectManager(repository_).get_instance(path);
  std::string shown;
  for (std::size_t i = 0; i < instance.values.size(); ++i) {
    const Type type = instance.of_class->properties[i].type.type;
    const Value& value = instance.values[i];
    shown += value.is_array()
                 ? to_text(value.elements()[0], type) + '+' + to_text(value.elements()[1], type)
                 : to_text(value.scalar(), type);
    shown += ' ';
  }
  EXPECT_EQ(shown,
            "Id-300 44 300 300 FALSE 75.0 20240101000500.000000+000 O Texts-300+Texts-301 f ");
}

TEST_F(Generator, a_class_needs_keys_that_can_differ) {
  EXPECT_EQ(problem("Tiny", 256), "");
  EXPECT_EQ(problem("Tiny", 257), "class \"Tiny\" has too few different keys for 257 instances");
  EXPECT_EQ(problem("Missing", 1), "unknown class \"Missing\"");
  EXPECT_EQ(problem("Idea", 1), "class \"Idea\" is abstract");
  EXPECT_EQ(problem("Bag", 1), "class \"Bag\" has no key");
  EXPECT_EQ(problem("Link", 1), "key \"End\" of class \"Link\" is a reference");
}

}  // namespace
}  // namespace sandbox
