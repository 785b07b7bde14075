// The list of commands.
#include <gtest/gtest.h>

#include <set>

#include "command.h"

namespace cli {
namespace {

TEST(Commands, names_and_aliases_are_all_different) {
  std::set<std::string_view> seen;
  for (const Command& command : commands()) {
    EXPECT_TRUE(seen.insert(command.name).second) << command.name;
    if (command.alias.empty()) continue;
    EXPECT_TRUE(seen.insert(command.alias).second) << command.alias;
  }
}

TEST(Commands, each_has_a_summary_an_example_of_itself_and_something_to_run) {
  for (const Command& command : commands()) {
    EXPECT_FALSE(command.summary.empty()) << command.name;
    EXPECT_TRUE(command.examples.starts_with("cim-client " + std::string(command.name)))
        << command.name;
    EXPECT_NE(command.run, nullptr) << command.name;
  }
}

TEST(Commands, at_most_two_single_operands_come_before_a_list) {
  for (const Command& command : commands()) {
    std::size_t words = 0;
    bool optional = false;
    for (const Operand& operand : command.operands) {
      if (operand.count == Operand::Count::Any) continue;
      ++words;
      EXPECT_FALSE(optional && operand.count == Operand::Count::One) << command.name;
      optional = operand.count == Operand::Count::Optional;
    }
    EXPECT_LE(words, 2U) << command.name;
  }
}

}  // namespace
}  // namespace cli
