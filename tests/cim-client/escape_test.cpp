// XML escaping of texts that people type.
#include "escape.h"

#include <gtest/gtest.h>

#include "exit_status.h"

namespace cli {
namespace {

std::string refusal(std::string_view text) {
  try {
    escaped(text, "the value");
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::Usage);
    return failure.what();
  }
  return "not refused";
}

TEST(Escape, markup_characters_become_references) {
  EXPECT_EQ(escaped("a < b && c > \"d\"", "x"), "a &lt; b &amp;&amp; c &gt; &quot;d&quot;");
}

TEST(Escape, plain_texts_and_apostrophes_stay_as_they_are) {
  EXPECT_EQ(escaped("fan's \xC3\xBC 1", "x"), "fan's \xC3\xBC 1");
  EXPECT_EQ(escaped("", "x"), "");
}

TEST(Escape, line_ends_and_tabs_survive_as_references) {
  EXPECT_EQ(escaped("a\tb\nc\rd", "x"), "a&#9;b&#10;c&#13;d");
}

TEST(Escape, an_escaped_text_is_escaped_again_not_guessed_at) {
  EXPECT_EQ(escaped("&lt;", "x"), "&amp;lt;");
}

TEST(Escape, what_xml_cannot_carry_is_refused_by_name) {
  EXPECT_EQ(refusal("bell\a"), "the value holds \\x07, which XML cannot carry");
  EXPECT_EQ(refusal("\xEF\xBF\xBE"), "the value holds \xEF\xBF\xBE, which XML cannot carry");
}

TEST(Escape, bytes_that_are_no_utf8_are_refused) {
  EXPECT_EQ(refusal("caf\xE9"), "the value is not UTF-8");
}

}  // namespace
}  // namespace cli
