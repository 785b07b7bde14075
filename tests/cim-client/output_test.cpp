// What all formats share.
#include "output.h"

#include <gtest/gtest.h>

#include <sstream>

namespace cli {
namespace {

TypedView named(const char* name) {
  TypedView view;
  view.name = name;
  return view;
}

TEST(Output, without_names_everything_is_chosen) {
  EXPECT_EQ(chosen({named("A"), named("B")}, {}).size(), 2U);
}

TEST(Output, names_choose_in_their_order_whatever_their_case) {
  const auto views = chosen({named("Alpha"), named("Beta")}, {"beta", "gamma", "ALPHA"});
  ASSERT_EQ(views.size(), 2U);
  EXPECT_EQ(views[0].name, "Beta");
  EXPECT_EQ(views[1].name, "Alpha");
}

TEST(Output, each_format_has_its_writer) {
  const std::string answer = "<IRETURNVALUE/>";
  const auto shown = [&answer](Format format) {
    std::ostringstream out;
    OutputSettings settings;
    settings.format = format;
    make_output(settings, out, answer)->class_names(nullptr);
    return out.str();
  };
  EXPECT_EQ(shown(Format::Text), "");
  EXPECT_EQ(shown(Format::Json), "[]\n");
  EXPECT_EQ(shown(Format::Xml), "<IRETURNVALUE/>\n");
}

}  // namespace
}  // namespace cli
