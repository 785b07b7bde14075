// Loading the library, and the lines that local operations log.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstdlib>

#include "clientapi/local_operations.h"
#include "clientapi/local_records.h"
#include "support/captured_output.h"
#include "support/scripted_broker_library.h"

namespace {

std::vector<std::string> logged;
int initialised = 0;
std::vector<std::string> opened;  // libraries

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
// Notes which libraries are opened.
[[gnu::visibility("default")]] void* dlopen(const char* file, int mode) noexcept {
  static auto* const next =
      reinterpret_cast<void* (*)(const char*, int)>(dlsym(RTLD_NEXT, "dlopen"));
  opened.push_back(std::string(file ? file : "") + " " + std::to_string(mode));
  return next(file, mode);
}
}

namespace {

using namespace support;

std::string line(const std::string& subject, const char* word) {
  return "src/clientapi|72|BINCIMCLIENT|" + subject + "|2|[" + std::to_string(getpid()) + "] ---" +
         word;
}

TEST(LocalLog, entry_carries_the_arguments_and_exit_the_name) {
  for (const LocalOperation& operation : local_operations()) {
    ScriptedBroker broker;
    broker.script = rich_script();
    Error* error = nullptr;
    logged.clear();
    operation.call(&error, "root/cimv2");
    std::vector<std::string> expected;
    if (*operation.entry)
      expected = {line(operation.entry, "Entering"), line(operation.name, "Leaving")};
    EXPECT_EQ(logged, expected) << operation.name;
  }
  EXPECT_EQ(initialised, 1);  // once per process
}

TEST(LocalLog, delete_and_create_log_nothing) {
  for (const LocalOperation& operation : local_operations()) {
    const std::string name = operation.name;
    EXPECT_EQ(*operation.entry == '\0', name == "DeleteInstance" || name == "CreateInstance");
  }
}

TEST(LocalLog, without_a_connection_only_the_end_is_logged) {
  for (const LocalOperation& operation : local_operations()) {
    ScriptedBroker broker;
    broker.script.connects = false;
    Error* error = nullptr;
    logged.clear();
    {
      const CapturedOutput output(stdout);
      operation.call(&error, "root/cimv2");
    }
    std::vector<std::string> expected;
    if (std::string(operation.name) == "ExecQuery")  // begins before it connects
      expected.push_back(line(operation.entry, "Entering"));
    if (*operation.entry) expected.push_back(line(operation.name, "Leaving"));
    EXPECT_EQ(logged, expected) << operation.name;
  }
}

TEST(LocalLog, an_entry_is_cut_to_255_characters) {
  ScriptedBroker broker;
  const std::string query(400, 'q');
  ObjectWithPath* objects = nullptr;
  logged.clear();
  CIMC_ExecQuery(&objects, "root/cimv2", query.c_str(), "WQL", nullptr);
  ASSERT_EQ(logged.size(), 2U);
  EXPECT_EQ(logged[0], line(("ExecQuery:  Query " + query).substr(0, 255), "Entering"));
}

TEST(LocalLog, missing_names_are_logged_as_null) {
  ScriptedBroker broker;
  logged.clear();
  Instance* instance = nullptr;
  CIMC_GetInstance(&instance, nullptr, "", "u", "p", nullptr, "root/cimv2");
  NamedInstance* instances = nullptr;
  CIMC_EnumInstances(&instances, nullptr, "", "u", "p", 0, nullptr, "root/cimv2");
  const std::vector<std::string> expected = {line("GetInstance: classname: (null)", "Entering"),
                                             line("GetInstance", "Leaving"), line("", "Entering"),
                                             line("EnumInstances", "Leaving")};
  EXPECT_EQ(logged, expected);
}

TEST(LocalLog, an_error_record_takes_any_code_and_text) {
  ScriptedBroker broker;
  sandbox_local::Text message("x");
  for (const auto& [code, expected] :
       {std::pair{5, "5: x"}, {200, "200: x"}, {-2147483647 - 1, "-2147483648: x"}}) {
    Error* error = nullptr;
    EXPECT_EQ(log_err_msgs(code, static_cast<sandbox_local::CIMCString*>(&message), &error), 0);
    EXPECT_EQ(error->instance, nullptr);
    EXPECT_EQ(taken(error), expected);
  }
}

TEST(LocalLog, no_error_record_is_made_of_nothing) {
  sandbox_local::Text message("x");
  sandbox_local::Text empty("x");
  empty.hdl = nullptr;
  Error* error = nullptr;
  EXPECT_EQ(log_err_msgs(5, nullptr, &error), -1);
  EXPECT_EQ(log_err_msgs(5, static_cast<sandbox_local::CIMCString*>(&empty), &error), -1);
  EXPECT_EQ(log_err_msgs(5, static_cast<sandbox_local::CIMCString*>(&message), nullptr), -1);
  EXPECT_EQ(error, nullptr);
}

TEST(LocalLoader, an_environment_is_made_for_who_wants_no_code_and_no_message) {
  ScriptedBroker broker;
  auto* env = static_cast<sandbox_local::CIMCEnv*>(getCIMCEnv("SfcbLocal", 0, nullptr, nullptr));
  ASSERT_NE(env, nullptr);
  env->ft->release(env);
}

TEST(LocalLoader, the_library_is_opened_once_and_the_factory_called_each_time) {
  ScriptedBroker broker;
  Error* error = nullptr;
  const LocalOperation& operation = local_operations().front();
  operation.call(&error, "root/cimv2");
  opened.clear();
  operation.call(&error, "root/cimv2");
  operation.call(&error, "root/cimv2");
  EXPECT_TRUE(opened.empty());
  EXPECT_EQ(std::count(broker.calls().begin(), broker.calls().end(), "environment \"SfcbLocal\" 0"),
            3);
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
  run(" 17 and more");
  EXPECT_EQ(*words.mask, 17);
  run("99999999999");
  EXPECT_EQ(*words.mask, 2147483647);
  run("0");
  EXPECT_EQ(*words.mask, 0);
  EXPECT_EQ(*words.debug, 1);
  run("no number");
  EXPECT_EQ(*words.mask, 0);
  EXPECT_EQ(*words.debug, 1);
  run(nullptr);
  EXPECT_EQ(*words.mask, -1);
  EXPECT_EQ(*words.debug, -1);
}

}  // namespace
