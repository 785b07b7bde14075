// Drawing with Graphviz, when it is there.
#include "drawing.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "exit_status.h"

namespace cli {
namespace {

// Replaces PATH while it lives.
class SearchPath {
 public:
  explicit SearchPath(const char* path) : before_(std::getenv("PATH")) { setenv("PATH", path, 1); }
  SearchPath(const SearchPath&) = delete;
  SearchPath& operator=(const SearchPath&) = delete;
  ~SearchPath() { setenv("PATH", before_.c_str(), 1); }

 private:
  std::string before_;
};

std::string refusal(const std::string& graph, const std::string& file) {
  try {
    draw(graph, "svg", file);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.status(), ExitStatus::Usage);
    return failure.what();
  }
  return "not refused";
}

TEST(Drawing, a_graph_becomes_a_picture) {
  const std::string file = testing::TempDir() + "/cim-client-drawing.svg";
  draw("graph g { a -- b }", "svg", file);
  std::ifstream stream(file);
  std::stringstream text;
  text << stream.rdbuf();
  std::remove(file.c_str());
  EXPECT_NE(text.str().find("<svg"), std::string::npos);
  EXPECT_NE(text.str().find(">a</text>"), std::string::npos);
}

TEST(Drawing, without_graphviz_it_says_what_is_missing) {
  const SearchPath nowhere("/nowhere");
  EXPECT_EQ(refusal("graph g {}", "/tmp/x.svg"),
            "drawing needs the program 'dot' of Graphviz, which is not installed here; without "
            "--svg and --png the graph is written as text for it");
}

TEST(Drawing, a_file_that_cannot_be_written_is_a_failure) {
  EXPECT_EQ(refusal("graph g {}", "/nowhere/x.svg"), "dot could not draw /nowhere/x.svg");
}

TEST(Drawing, a_program_that_ends_early_does_not_kill_this_one) {
  const std::string graph = "rubbish " + std::string(1'000'000, 'x');
  EXPECT_EQ(refusal(graph, "/nowhere/x.svg"), "dot could not draw /nowhere/x.svg");
}

}  // namespace
}  // namespace cli
