// Files, includes and pragmas.
#include "mof/reader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/mof_text.h"

namespace sandbox::mof {
namespace {

// A folder of its own for each test, gone afterwards.
class Reader : public testing::Test {
 protected:
  Reader() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::path(testing::TempDir()) /
              ("mof_reader_" + std::string(test->name()) + std::to_string(getpid()));
    std::filesystem::create_directories(folder_ / "more");
  }
  ~Reader() override { std::filesystem::remove_all(folder_); }

  void write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ / name) << text;
  }

  std::string read(const std::string& name) {
    sandbox::mof::Reader reader(repository_, "root/cimv2");
    auto problem = reader.read_file(folder_ / name);
    if (!problem) problem = reader.finish();
    return problem ? to_text(*problem) : std::string();
  }

  bool has_class(const std::string& name_space, const std::string& name) {
    const NameSpace* found = repository_.find(name_space);
    return found && found->classes.find(name);
  }

  std::string path(const std::string& name) { return (folder_ / name).string(); }

  std::filesystem::path folder_;
  Repository repository_;
};

TEST_F(Reader, included_files_are_found_beside_the_file_that_includes_them) {
  write("main.mof", "#pragma include (\"more/a.mof\")\nclass C : A { };");
  write("more/a.mof", "#pragma include (\"b.mof\")\nclass A : B { };");
  write("more/b.mof", "class B { };");
  EXPECT_EQ(read("main.mof"), "");
  EXPECT_TRUE(has_class("root/cimv2", "C"));
}

TEST_F(Reader, problems_of_included_files_name_them) {
  write("main.mof", "#pragma include (\"more/a.mof\")");
  write("more/a.mof", "\nclass A : B { };");
  EXPECT_EQ(read("main.mof"), path("more/a.mof") + ":2:11: unknown superclass \"B\"");
}

TEST_F(Reader, missing_files_are_named) {
  EXPECT_EQ(read("none.mof"), path("none.mof") + ":1:1: the file does not exist");
  EXPECT_EQ(read("more"), path("more") + ":1:1: the file is no file");
  write("main.mof", "class A { };\n#pragma include (\"none.mof\")");
  EXPECT_EQ(read("main.mof"),
            path("main.mof") + ":2:9: the file " + path("none.mof") + " does not exist");
}

TEST_F(Reader, a_file_that_includes_itself_is_stopped) {
  write("main.mof", "#pragma include (\"main.mof\")");
  EXPECT_EQ(read("main.mof"), path("main.mof") + ":1:9: files include each other too deeply");
}

TEST_F(Reader, a_namespace_holds_until_the_next_or_the_end_of_its_file) {
  write("main.mof",
        "class A { };\n#pragma include (\"other.mof\")\nclass B { };\n"
        "#pragma namespace (\"root/x\")\nclass C { };");
  write("other.mof", "#pragma namespace (\"/root/other/\")\nclass O { };");
  EXPECT_EQ(read("main.mof"), "");
  EXPECT_TRUE(has_class("root/cimv2", "A"));
  EXPECT_TRUE(has_class("root/other", "O"));
  EXPECT_TRUE(has_class("root/cimv2", "B"));
  EXPECT_TRUE(has_class("root/x", "C"));
  EXPECT_FALSE(has_class("root/x", "B"));
}

TEST_F(Reader, pragmas_without_effect_are_accepted_and_unknown_ones_refused) {
  EXPECT_EQ(test::problem_of("#pragma locale (\"en_US\")\n# PRAGMA source(\"x\")"), "");
  EXPECT_EQ(test::problem_of("#pragma once (\"x\")"),
            "model.mof:1:9: expected \"include\" or \"namespace\", not \"once\"");
  EXPECT_EQ(test::problem_of("#pragma namespace (\"\")"),
            "model.mof:1:9: expected a namespace name");
}

TEST_F(Reader, several_files_share_classes_and_aliases) {
  write("a.mof", "class A { [Key] uint8 K; A REF R; };\ninstance of A { K = 1; R = $Two; };");
  write("b.mof", "instance of A as $Two { K = 2; };");
  sandbox::mof::Reader reader(repository_, "root/cimv2");
  EXPECT_FALSE(reader.read_file(folder_ / "a.mof"));
  EXPECT_FALSE(reader.read_file(folder_ / "b.mof"));
  EXPECT_FALSE(reader.finish());
  EXPECT_EQ(repository_.find("root/cimv2")->instances.size(), 2U);
}

}  // namespace
}  // namespace sandbox::mof
