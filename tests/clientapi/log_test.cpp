// Loading the library, and the lines that local operations log.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdlib>

#include "clientapi/local_records.h"
#include "support/scripted_broker_library.h"

namespace {

std::vector<std::string> logged;
int initialised = 0;

}  // namespace

// This program's logger, in place of the library's.
extern "C" {
[[gnu::visibility("default")]] int rt_log_init(void) {
  ++initialised;
  return 0;
}
[[gnu::visibility("default")]] int _rt_log(const char* file, int line, const char* module,
                                           const char* category, int level, const char* format,
                                           ...) {
  char text[512];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  logged.push_back(std::string(file) + "|" + std::to_string(line) + "|" + module + "|" + category +
                   "|" + std::to_string(level) + "|" + text);
  return 0;
}
}

namespace {

using namespace support;

std::string line(const std::string& subject, const char* word) {
  return "src/clientapi|72|BINCIMCLIENT|" + subject + "|2|[" + std::to_string(getpid()) + "] ---" +
         word;
}

TEST(LocalLog, entry_carries_the_arguments_and_exit_the_name) {
  ScriptedBroker broker;
  broker.script.elements.emplace();
  const LocalHandle handle;
  ClassName* name = CIMC_CreateClassName("CIM_Fan");
  Error* error = nullptr;
  logged.clear();
  EnumerateInstances(handle.get, name, 0, 0, 0, 0, nullptr, &error);
  const std::vector<std::string> expected = {line("EnumInstances: classname: CIM_Fan", "Entering"),
                                             line("EnumInstances", "Leaving")};
  EXPECT_EQ(logged, expected);
  EXPECT_EQ(initialised, 1);  // once per process
  EnumerateInstances(handle.get, name, 0, 0, 0, 0, nullptr, &error);
  EXPECT_EQ(initialised, 1);
  Free_ClassName(name);
}

TEST(LocalLog, a_query_is_logged_with_two_blanks) {
  ScriptedBroker broker;
  broker.script.elements.emplace();
  const LocalHandle handle;
  Error* error = nullptr;
  logged.clear();
  ExecQuery(handle.get, "WQL", "SELECT", &error);
  const std::vector<std::string> expected = {line("ExecQuery:  Query SELECT", "Entering"),
                                             line("ExecQuery", "Leaving")};
  EXPECT_EQ(logged, expected);
}

TEST(LocalLog, delete_and_create_log_nothing) {
  ScriptedBroker broker;
  const LocalHandle handle;
  const Named name("CIM_Fan");
  Error* error = nullptr;
  logged.clear();
  DeleteInstance(handle.get, name.get, &error);
  CIM_CreateInstance(handle.get, nullptr, &error);
  EXPECT_TRUE(logged.empty());
}

TEST(LocalLog, an_error_record_takes_any_code_and_text) {
  ScriptedBroker broker;
  sandbox_local::Text message("x");
  Error* error = nullptr;
  EXPECT_EQ(log_err_msgs(-2147483647, static_cast<sandbox_local::CIMCString*>(&message), &error),
            0);
  EXPECT_EQ(taken(error), "-2147483647: x");
}

TEST(LocalLoader, each_environment_is_new_and_keeps_the_library) {
  ScriptedBroker broker;
  int code = -1;
  char unset[] = "unset";
  char* message = unset;
  auto* first = static_cast<sandbox_local::CIMCEnv*>(getCIMCEnv("SfcbLocal", 0, &code, &message));
  auto* second = static_cast<sandbox_local::CIMCEnv*>(getCIMCEnv("SfcbLocal", 0, &code, &message));
  EXPECT_NE(first, second);
  EXPECT_EQ(first->hdl, second->hdl);
  EXPECT_NE(first->hdl, nullptr);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(message, nullptr);
  first->ft->release(first);
  second->ft->release(second);
}

TEST(LocalLoader, a_library_without_the_factory_says_so) {
  ScriptedBroker broker;
  int code = -1;
  char* message = nullptr;
  // The library is the one in hand, whatever the name says.
  EXPECT_EQ(getCIMCEnv("Other", 0, &code, &message), nullptr);
  EXPECT_EQ(code, 2);
  EXPECT_STREQ(message, "Unable to locate entry _Create_Other_Env in libcimcClientOther.so");
  std::free(message);
}

TEST(LocalLoader, trace_is_switched_on_by_a_decimal_mask) {
  const ScriptedBroker broker;
  const LocalHandle handle;
  const Named name("CIM_Fan");
  Error* error = nullptr;
  const TraceWords words = trace_words();
  const auto run = [&](const char* wanted) {
    *words.mask = -1;
    *words.debug = -1;
    wanted ? setenv("SFCB_TRACE", wanted, 1) : unsetenv("SFCB_TRACE");
    DeleteInstance(handle.get, name.get, &error);
    unsetenv("SFCB_TRACE");
  };
  run("4096");
  EXPECT_EQ(*words.mask, 4096);
  EXPECT_EQ(*words.debug, 1);
  run("no number");
  EXPECT_EQ(*words.mask, 0);
  EXPECT_EQ(*words.debug, 1);
  run(nullptr);
  EXPECT_EQ(*words.mask, -1);
  EXPECT_EQ(*words.debug, -1);
}

}  // namespace
