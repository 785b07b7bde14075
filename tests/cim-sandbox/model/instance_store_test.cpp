// Instances by key, and who refers to whom.
#include "model/instance_store.h"

#include <gtest/gtest.h>

#include "model/repository.h"
#include "support/mof_text.h"

namespace sandbox {
namespace {

class Store : public testing::Test {
 protected:
  Store() {
    EXPECT_EQ(test::read_mof(
                  repository_,
                  "class Item { [Key] string Id; string Note; };\n"
                  "[Association] class Link { [Key] Item REF Left; [Key] Item REF Right; };\n"
                  "[Association] class Note { [Key] string Id; Link REF About; Item REF Also; };\n"
                  "instance of Item as $A { Id = \"a\"; };\n"
                  "instance of Item as $B { Id = \"b\"; };\n"
                  "instance of Link as $L { Left = $A; Right = $B; };\n"
                  "instance of Link as $S { Left = $A; Right = $A; };\n"
                  "instance of Note { Id = \"n\"; About = $L; Also = $B; };"),
              "");
  }

  InstanceStore& store() { return repository_.find("root/cimv2")->instances; }
  const Class& of(const char* name) { return *repository_.find("root/cimv2")->classes.find(name); }
  std::string identity(const char* text) {
    return identity_of(*repository_.identify(*object_path_from(text), "root/cimv2"));
  }

  Repository repository_;
};

TEST_F(Store, an_instance_is_found_by_its_keys) {
  ASSERT_NE(store().find(of("Item"), identity("Item.Id=\"a\"")), nullptr);
  EXPECT_EQ(store().find(of("Item"), identity("Item.Id=\"c\"")), nullptr);
  EXPECT_EQ(store().find(of("Note"), identity("Item.Id=\"a\"")), nullptr);
  EXPECT_EQ(store().size(), 5U);
}

TEST_F(Store, a_second_instance_with_the_same_keys_is_refused) {
  Instance copy = *store().find(of("Item"), identity("Item.Id=\"a\""));
  EXPECT_EQ(store().add(copy), nullptr);
  copy.set("Id", Value(Scalar(std::string("c"))));
  EXPECT_NE(store().add(copy), nullptr);
  EXPECT_EQ(store().of(of("Item")).size(), 3U);
}

TEST_F(Store, references_are_found_from_their_target_and_only_once_each) {
  EXPECT_EQ(store().referring_to(identity("Item.Id=\"a\"")).size(), 2U);
  EXPECT_EQ(store().referring_to(identity("Item.Id=\"b\"")).size(), 2U);
  EXPECT_EQ(store().referring_to("nobody").size(), 0U);
}

TEST_F(Store, replaced_values_refer_to_their_new_targets) {
  const std::string note = identity("Note.Id=\"n\"");
  Instance changed = *store().find(of("Note"), note);
  changed.set("Also", Value());
  store().replace(of("Note"), note, changed.values);
  EXPECT_EQ(store().referring_to(identity("Item.Id=\"b\"")).size(), 1U);
}

TEST_F(Store, what_refers_to_a_removed_instance_goes_with_it) {
  const auto removed = store().remove(of("Item"), identity("Item.Id=\"b\""));
  EXPECT_EQ(removed.size(), 3U);  // the item, the link to it, and the note about both
  EXPECT_EQ(store().size(), 2U);
  EXPECT_EQ(store().referring_to(identity("Item.Id=\"a\"")).size(), 1U);
  EXPECT_EQ(store().remove(of("Item"), identity("Item.Id=\"b\"")).size(), 0U);
}

}  // namespace
}  // namespace sandbox
