// The command line.
#include "program/options.h"

#include <gtest/gtest.h>

#include <fstream>

namespace sandbox {
namespace {

// What the words after the program's name lead to.
Parsed parsed(std::vector<std::string> words) {
  words.insert(words.begin(), "cim-sandbox");
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  return parse_options(static_cast<int>(arguments.size()), arguments.data());
}

// The exit status and what stands on standard error.
std::string refused(const std::vector<std::string>& words) {
  testing::internal::CaptureStderr();
  const Parsed result = parsed(words);
  const std::string text = testing::internal::GetCapturedStderr();
  return result.options ? "accepted" : std::to_string(result.exit_status) + ' ' + text;
}

TEST(Options, without_any_the_sample_is_served_on_loopback_to_everybody) {
  const Options options = *parsed({}).options;
  EXPECT_EQ(options.address, "127.0.0.1");
  EXPECT_EQ(options.port, 5988);
  EXPECT_EQ(options.name_space, "root/cimv2");
  EXPECT_FALSE(options.credentials);
  EXPECT_TRUE(options.models.empty());
  EXPECT_TRUE(options.faults.empty());
  EXPECT_FALSE(options.indicate);
}

TEST(Options, every_option_is_taken) {
  const Options options = *parsed({"--port",        "0",           "--address=127.0.0.2",
                                   "--connections", "8",           "--namespace",
                                   "root/x",        "--user",      "u",
                                   "--password",    "p",           "--model",
                                   "a.mof",         "--model",     "b.mof",
                                   "--generate",    "CIM_Fan=100", "--fault",
                                   "every 2 drop",  "--indicate",  "http://127.0.0.1:81/a",
                                   "--record",      "r",           "--verbose"})
                               .options;
  EXPECT_EQ(options.port, 0);
  EXPECT_EQ(options.address, "127.0.0.2");
  EXPECT_EQ(options.connections, 8U);
  EXPECT_EQ(options.name_space, "root/x");
  EXPECT_EQ(options.credentials->user, "u");
  EXPECT_EQ(options.credentials->password, "p");
  EXPECT_EQ(options.models, (std::vector<std::string>{"a.mof", "b.mof"}));
  ASSERT_EQ(options.generations.size(), 1U);
  EXPECT_EQ(options.generations[0].class_name, "CIM_Fan");
  EXPECT_EQ(options.generations[0].count, 100U);
  EXPECT_FALSE(options.faults.empty());
  EXPECT_EQ(options.indicate->port, 81);
  EXPECT_EQ(options.record, "r");
  EXPECT_TRUE(options.verbose);
}

TEST(Options, the_password_may_stand_in_a_file) {
  const std::string path = testing::TempDir() + "sandbox_password";
  std::ofstream(path) << "secret\r\nsecond line\n";
  const Options options = *parsed({"--user", "u", "--password-file", path}).options;
  EXPECT_EQ(options.credentials->password, "secret");
  std::remove(path.c_str());
  EXPECT_EQ(refused({"--user", "u", "--password-file", path}),
            "2 cim-sandbox: --password-file: cannot read " + path + "\n");
}

TEST(Options, mistakes_end_with_status_2_and_a_text) {
  EXPECT_EQ(refused({"--password", "x"}), "2 cim-sandbox: a password needs --user\n");
  EXPECT_EQ(refused({"--user", "u", "--password", "x", "--password-file", "y"}),
            "2 cim-sandbox: --password and --password-file exclude each other\n");
  for (const char* wrong : {"A", "=5", "A=", "A=x", "A=-1", "A=99999999999"}) {
    EXPECT_EQ(refused({"--generate", wrong}),
              std::string("2 cim-sandbox: --generate: expected CLASS=COUNT, not ") + wrong + "\n");
  }
  EXPECT_EQ(refused({"--indicate", "https://127.0.0.1/"}),
            "2 cim-sandbox: --indicate: expected http://ADDRESS:PORT/PATH\n");
  EXPECT_EQ(refused({"--fault", "often drop"}),
            "2 cim-sandbox: --fault:1: expected a condition or an action, not \"often\"\n");
  EXPECT_EQ(refused({"--faults", "/nowhere/faults"}),
            "2 cim-sandbox: --faults: cannot read /nowhere/faults\n");
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{"--port", "70000"},
                                             {"--port", "x"},
                                             {"--connections", "0"},
                                             {"--bogus"},
                                             {"word"},
                                             {"--model"}}) {
    const std::string text = refused(words);
    EXPECT_TRUE(text.starts_with("2 cim-sandbox: ")) << text;
    EXPECT_TRUE(text.ends_with("See cim-sandbox --help.\n")) << text;
  }
}

TEST(Options, help_and_version_end_with_status_0) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(parsed({"--version"}).exit_status, 0);
  EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with("cim-sandbox "));
  testing::internal::CaptureStdout();
  EXPECT_EQ(parsed({"--help"}).exit_status, 0);
  const std::string help = testing::internal::GetCapturedStdout();
  for (const char* option : {"--port", "--model", "--fault", "--record", "--indicate"}) {
    EXPECT_NE(help.find(option), std::string::npos) << option;
  }
}

}  // namespace
}  // namespace sandbox
