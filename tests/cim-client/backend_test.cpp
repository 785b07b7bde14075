// The two ways to an object manager.
#include "backend.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "exit_status.h"
#include "support/marker_file.h"

namespace cli {
namespace {

TEST(Backend, two_words_are_known) {
  EXPECT_EQ(parse_backend("xml"), Backend::Xml);
  EXPECT_EQ(parse_backend("local"), Backend::Local);
  for (const char* word : {"", "XML", "http", "1"}) {
    try {
      parse_backend(word);
      ADD_FAILURE() << word;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.status(), ExitStatus::Usage);
    }
  }
}

TEST(Backend, what_was_asked_for_goes_before_the_marker_file) {
  {
    const support::MarkerFile present("/dev/null");
    EXPECT_FALSE(is_local(Backend::Xml));
    EXPECT_TRUE(is_local(Backend::AsHandles));
  }
  const support::MarkerFile absent(ENOENT);
  EXPECT_TRUE(is_local(Backend::Local));
  EXPECT_FALSE(is_local(Backend::AsHandles));
}

TEST(Backend, the_description_says_who_chose) {
  EXPECT_EQ(description(Backend::Xml), "CIM-XML over HTTP, as --backend says");
  EXPECT_EQ(description(Backend::Local), "the local broker, as --backend says");
  {
    const support::MarkerFile absent(ENOENT);
    EXPECT_EQ(description(Backend::AsHandles), "CIM-XML over HTTP");
  }
  const support::MarkerFile present("/dev/null");
  EXPECT_EQ(description(Backend::AsHandles), "the local broker, since /etc/Binary.txt exists");
}

TEST(Backend, a_missing_library_is_no_answer) {
  try {
    local_library();
    FAIL() << "this program's search path holds a broker's library";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::NoAnswer);
    EXPECT_TRUE(std::string(failure.what())
                    .starts_with("the client library of the local broker cannot be loaded: "));
  }
}

}  // namespace
}  // namespace cli
