// The command line from end to end, in this process.
#include "command_line.h"

#include <gtest/gtest.h>

#include <vector>

#include "cim-client/answers.h"
#include "support/captured_output.h"
#include "support/scripted_server.h"

namespace {

struct Outcome {
  int status;
  std::string output;
  std::string errors;
};

// Runs the program with these arguments.
Outcome run(std::vector<std::string> arguments) {
  std::vector<const char*> words = {"cim-client"};
  for (const std::string& argument : arguments) words.push_back(argument.c_str());
  words.push_back(nullptr);
  const support::CapturedOutput output(stdout);
  const support::CapturedOutput errors(stderr);
  const int status = cli::run(static_cast<int>(words.size()) - 1, words.data());
  return {status, output.text(), errors.text()};
}

constexpr const char* hint = "\n'cim-client --help' says what may be given\n";

TEST(CommandLine, version_and_help_go_to_standard_output) {
  const Outcome version = run({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_TRUE(version.output.starts_with("cim-client "));
  const Outcome help = run({"--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.output.find("enumerate-instances, ei"), std::string::npos);
  EXPECT_NE(help.output.find("Examples:"), std::string::npos);
  EXPECT_EQ(help.errors, "");
}

TEST(CommandLine, each_command_has_help_with_examples) {
  const Outcome help = run({"ei", "--help"});
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.output.find("cim-client ei CIM_Fan --output json"), std::string::npos);
}

TEST(CommandLine, mistakes_are_usage_errors) {
  EXPECT_EQ(run({}).errors, std::string("cim-client: a command is missing") + hint);
  EXPECT_EQ(run({"frob"}).errors, std::string("cim-client: there is no command \"frob\"") + hint);
  EXPECT_EQ(run({"gc"}).errors, std::string("cim-client: CLASS is required") + hint);
  for (const auto& words : std::vector<std::vector<std::string>>{{},
                                                                 {"frob"},
                                                                 {"gc"},
                                                                 {"gc", "A", "B"},
                                                                 {"--port", "0", "ecn"},
                                                                 {"-o", "yaml", "ecn"},
                                                                 {"--layout", "odd", "ecn"},
                                                                 {"-t", "soon", "ecn"},
                                                                 {"gi", "CIM_Fan"},
                                                                 {"gi", "x=\""},
                                                                 {"gc", "CIM_Fan.K=1"},
                                                                 {"-u", "http://a:b@c", "ecn"},
                                                                 {"ecn", "--no-such-option"}})
    EXPECT_EQ(run(words).status, 2) << testing::PrintToString(words);
}

TEST(CommandLine, options_may_follow_the_command) {
  support::ScriptedServer server(support::answer(answers::nothing()));
  const Outcome outcome = run(
      {"ecn", "--host", "127.0.0.1", "--port", std::to_string(server.port()), "--output", "json"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "[]\n");
  EXPECT_EQ(outcome.errors, "");
}

TEST(CommandLine, results_go_to_standard_output_and_nothing_else_does) {
  support::ScriptedServer server(support::answer(
      answers::operation("<IRETURNVALUE><NOVELTY/><CLASSNAME NAME=\"CIM_Fan\"/></IRETURNVALUE>")));
  const Outcome outcome = run({"-u", "127.0.0.1:" + std::to_string(server.port()), "ecn"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "CIM_Fan\n")
      << "the library's remark on the unknown element is kept away";
}

TEST(CommandLine, the_request_carries_what_was_typed_escaped) {
  support::ScriptedServer server(support::answer(answers::nothing()));
  run({"-u", "127.0.0.1:" + std::to_string(server.port()), "-n", "root/a&b", "gi",
       "CIM_Fan.DeviceID=\"<1>\""});
  const std::string request = server.received()[0];
  EXPECT_NE(request.find("<KEYVALUE VALUETYPE = \"string\">&lt;1&gt;</KEYVALUE>"),
            std::string::npos);
  EXPECT_NE(request.find("<NAMESPACE NAME=\"root/a&amp;b\"/>"), std::string::npos) << request;
}

TEST(CommandLine, a_reference_key_is_told_by_the_class) {
  support::ScriptedServer server(
      {support::answer(answers::operation(
           "<IRETURNVALUE><CLASS NAME=\"CIM_Has\"><PROPERTY.REFERENCE NAME=\"Part\" "
           "REFERENCECLASS=\"CIM_Fan\"></PROPERTY.REFERENCE></CLASS></IRETURNVALUE>")),
       support::answer(answers::error(6, "none"))});
  const Outcome outcome = run({"-u", "127.0.0.1:" + std::to_string(server.port()), "gi",
                               R"(CIM_Has.part="CIM_Fan.DeviceID=\"fan1\"")"});
  EXPECT_EQ(outcome.status, 1);
  const std::vector<std::string> received = server.received(2);
  EXPECT_NE(received[0].find("NAME=\"GetClass\""), std::string::npos);
  EXPECT_NE(received[1].find("<KEYBINDING NAME=\"part\"><VALUE.REFERENCE><INSTANCENAME "
                             "CLASSNAME=\"CIM_Fan\">"),
            std::string::npos);
}

TEST(CommandLine, the_namespace_of_an_operand_goes_before_the_one_of_the_target) {
  support::ScriptedServer server(support::answer(answers::nothing()));
  run({"-u", "127.0.0.1:" + std::to_string(server.port()) + "/root/cimv2", "ein",
       "root/interop:CIM_Fan"});
  EXPECT_NE(server.received()[0].find("<NAMESPACE NAME=\"root/interop\"/>"), std::string::npos);
}

}  // namespace
