// Which properties instances show.
#include "model/view.h"

#include <gtest/gtest.h>

#include "support/mof_text.h"

namespace sandbox {
namespace {

class Views : public testing::Test {
 protected:
  Views() {
    EXPECT_EQ(test::read_mof(repository_,
                             "class Top { [Key] uint8 K; string T; };\n"
                             "class Middle : Top { string M; };\n"
                             "class Leaf : Middle { string L; string T; };"),
              "");
  }

  const Class* find(std::string_view name) {
    return name.empty() ? nullptr : repository_.find("root/cimv2")->classes.find(name);
  }

  // The names that an instance of Leaf shows when `asked_for` was asked for.
  std::string shown(const Wishes& wishes, std::string_view asked_for) {
    const View view(wishes, find(asked_for));
    std::string names;
    for (const std::size_t position : view.positions(*find("Leaf"))) {
      names += find("Leaf")->properties[position].name + ' ';
    }
    return names;
  }

  Repository repository_;
};

TEST_F(Views, everything_is_shown_unless_somebody_wishes_otherwise) {
  EXPECT_EQ(shown({}, ""), "K T M L ");
  EXPECT_EQ(shown({}, "Top"), "K T M L ");
}

TEST_F(Views, without_depth_only_properties_of_the_class_asked_for_are_shown) {
  Wishes wishes;
  wishes.deep = false;
  EXPECT_EQ(shown(wishes, "Top"), "K T ");
  EXPECT_EQ(shown(wishes, "Middle"), "K T M ");
}

TEST_F(Views, local_properties_are_those_declared_or_overridden_from_the_class_on_down) {
  Wishes wishes;
  wishes.local_only = true;
  EXPECT_EQ(shown(wishes, "Leaf"), "T L ");
  EXPECT_EQ(shown(wishes, ""), "T L ");
  EXPECT_EQ(shown(wishes, "Middle"), "T M L ");
  EXPECT_EQ(shown(wishes, "Top"), "K T M L ");
}

TEST_F(Views, local_properties_without_depth_are_those_of_the_class_alone) {
  Wishes wishes;
  wishes.local_only = true;
  wishes.deep = false;
  EXPECT_EQ(shown(wishes, "Middle"), "M ");
  EXPECT_EQ(shown(wishes, "Top"), "K T ");
}

TEST_F(Views, a_list_names_the_properties_in_any_case) {
  Wishes wishes;
  wishes.properties = std::vector<std::string>{"l", "k", "unknown"};
  EXPECT_EQ(shown(wishes, ""), "K L ");
  wishes.properties = std::vector<std::string>{};
  EXPECT_EQ(shown(wishes, ""), "");
}

}  // namespace
}  // namespace sandbox
