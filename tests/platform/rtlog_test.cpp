// What a process with a given environment logs, and where.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <regex>
#include <string>
#include <vector>

#include "platform/text_files.h"

namespace {

namespace fs = std::filesystem;

struct Outcome {
  int status;  // of exit; -1: killed by a signal
  std::string output;
  std::string errors;
};

// The program that logs: ours, or one of another build.
const char* log_writer() {
  const char* other = std::getenv("RTLOG_TEST_WRITER");
  return other ? other : LOG_WRITER;
}

class Logging : public testing::Test {
 protected:
  Logging() {
    std::string name = (fs::temp_directory_path() / "rtlog-test-XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  ~Logging() override { fs::remove_all(folder_); }

  fs::path folder() const { return folder_; }
  std::string log() const { return (folder_ / "log").string(); }

  // Runs the log writer with the variable set to `value`, or unset, in the test's folder.
  // With `errors` its standard error goes there.
  Outcome run(const std::optional<std::string>& value, const std::vector<std::string>& steps,
              const char* errors = nullptr) {
    const std::string output = (folder_ / "stdout").string();
    const std::string own_errors = (folder_ / "stderr").string();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const int create = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, 1, output.c_str(), create, 0600);
    posix_spawn_file_actions_addopen(&actions, 2, errors ? errors : own_errors.c_str(), create,
                                     0600);
    const int status = spawn(value, steps, actions);
    posix_spawn_file_actions_destroy(&actions);
    Outcome outcome = {status, contents(output), contents(own_errors)};
    fs::remove(output);
    fs::remove(own_errors);
    return outcome;
  }

  // The same with standard error inherited as descriptor `errors`.
  Outcome run_with(int errors, const std::string& value, const std::vector<std::string>& steps) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, errors, 2);
    const int status = spawn(value, steps, actions);
    posix_spawn_file_actions_destroy(&actions);
    return {status, "", ""};
  }

 private:
  int spawn(const std::optional<std::string>& value, const std::vector<std::string>& steps,
            const posix_spawn_file_actions_t& actions) {
    std::vector<std::string> words = {log_writer()};
    words.insert(words.end(), steps.begin(), steps.end());
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);

    unsetenv("CIM_CLIENT_LOG");
    if (value) setenv("CIM_CLIENT_LOG", value->c_str(), 1);
    pid_t process = 0;
    if (posix_spawn(&process, log_writer(), &actions, nullptr, arguments.data(), environ) != 0)
      return -2;
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  fs::path folder_;
};

int files_in(const fs::path& folder) {
  int count = 0;
  for (const auto& entry : fs::directory_iterator(folder)) count += entry.exists() ? 1 : 0;
  return count;
}

// Time, process, then `rest`.
bool is_line(const std::string& line, const std::string& rest) {
  static const std::regex head(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}[+-]\d\d:\d\d \[\d+\] )");
  std::smatch match;
  return std::regex_search(line, match, head, std::regex_constants::match_continuous) &&
         match.suffix() == rest;
}

// ---- Off

TEST_F(Logging, is_off_without_the_variable) {
  const Outcome outcome = run(std::nullopt, {"init", "log=0=text", "log=2=text", "lines=3"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(files_in(folder()), 0);
}

TEST_F(Logging, is_off_with_an_empty_variable_or_level_off) {
  EXPECT_EQ(run("", {"init", "log=0=text"}).errors, "");
  EXPECT_EQ(run("stderr:off", {"init", "log=0=text"}).errors, "");
  EXPECT_EQ(run("file=" + log() + ":off", {"init", "log=0=text"}).errors, "");
  EXPECT_EQ(files_in(folder()), 0);
}

TEST_F(Logging, is_off_before_it_is_prepared) {
  const Outcome outcome = run("stderr", {"log=0=before", "init", "log=0=after"});
  ASSERT_EQ(lines_of(outcome.errors).size(), 1U);
  EXPECT_NE(outcome.errors.find("after"), outcome.errors.npos);
}

TEST_F(Logging, keeps_to_the_variable_as_it_was_first) {
  EXPECT_EQ(run(std::nullopt, {"init", "setenv=stderr", "init", "log=2=text"}).errors, "");
}

TEST_F(Logging, says_once_that_a_value_is_bad_and_stays_off) {
  const Outcome outcome = run("stderr:loud", {"init", "log=0=text", "init", "threads=4=2"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors,
            "CIM_CLIENT_LOG: the level is off, error, warning, info, debug or trace, not "
            "\"loud\"; nothing is logged\n");
}

// ---- Standard error

TEST_F(Logging, writes_time_process_level_place_and_text_to_standard_error) {
  const Outcome outcome = run("stderr", {"init", "log=2=Request: <?xml?>"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
  const auto lines = lines_of(outcome.errors);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_TRUE(is_line(lines[0], "info MODULE/category src/file.c:42: Request: <?xml?>"))
      << lines[0];
}

TEST_F(Logging, maps_numbers_to_levels_and_those_beyond_to_the_nearest) {
  const auto lines =
      lines_of(run("stderr:trace", {"init", "log=-1=t", "log=0=t", "log=1=t", "log=2=t", "log=3=t",
                                    "log=4=t", "log=5=t", "log=2147483647=t", "log=-2147483648=t"})
                   .errors);
  const std::vector<std::string> levels = {"error", "error", "warning", "info", "debug",
                                           "trace", "trace", "trace",   "error"};
  ASSERT_EQ(lines.size(), levels.size());
  for (std::size_t i = 0; i < levels.size(); ++i)
    EXPECT_TRUE(is_line(lines[i], levels[i] + " MODULE/category src/file.c:42: t")) << lines[i];
}

TEST_F(Logging, leaves_out_what_is_beyond_the_level) {
  const std::vector<std::string> steps = {"init",    "log=0=t", "log=1=t",
                                          "log=2=t", "log=3=t", "log=4=t"};
  EXPECT_EQ(lines_of(run("stderr:error", steps).errors).size(), 1U);
  EXPECT_EQ(lines_of(run("stderr:warning", steps).errors).size(), 2U);
  EXPECT_EQ(lines_of(run("stderr:info", steps).errors).size(), 3U);
  EXPECT_EQ(lines_of(run("stderr", steps).errors).size(), 3U);
  EXPECT_EQ(lines_of(run("stderr:debug", steps).errors).size(), 4U);
  EXPECT_EQ(lines_of(run("stderr:trace", steps).errors).size(), 5U);
}

TEST_F(Logging, keeps_line_breaks_and_percent_signs_of_a_text) {
  const Outcome outcome = run("stderr", {"init", "log=2=Request:\n<a>\n\n</a> {} %s %n"});
  const auto lines = lines_of(outcome.errors);
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_TRUE(is_line(lines[0], "info MODULE/category src/file.c:42: Request:")) << lines[0];
  EXPECT_EQ(lines[1], "<a>");
  EXPECT_EQ(lines[2], "");
  EXPECT_EQ(lines[3], "</a> {} %s %n");
}

TEST_F(Logging, keeps_a_text_of_any_length_whole) {
  const Outcome outcome = run("stderr", {"init", "long=3000000"});
  const std::string start = ": abcdefghijklmnopqrstuvwxyz";
  const std::size_t at = outcome.errors.find(start);
  ASSERT_NE(at, outcome.errors.npos);
  const std::string text = outcome.errors.substr(at + 2);
  ASSERT_EQ(text.size(), 3000001U);
  for (std::size_t i = 0; i < 3000000; ++i) ASSERT_EQ(text[i], static_cast<char>('a' + i % 26));
  EXPECT_EQ(text.back(), '\n');
}

TEST_F(Logging, writes_null_texts_as_such) {
  const Outcome outcome = run("stderr", {"init", "null"});
  EXPECT_EQ(outcome.status, 0);
  const auto lines = lines_of(outcome.errors);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_TRUE(is_line(lines[0], "info (null)/(null) (null):0: (null)")) << lines[0];
  EXPECT_TRUE(is_line(lines[1], "info MODULE/category src/file.c:42: (null)")) << lines[1];
}

TEST_F(Logging, keeps_errno) {
  EXPECT_EQ(run("stderr", {"errno"}).status, 0);
  EXPECT_EQ(run("stderr", {"errno"}, "/dev/full").status, 0);
  EXPECT_EQ(run("file=/no/such/folder/log", {"errno"}).status, 0);
}

TEST_F(Logging, to_a_closed_standard_error_is_dropped) {
  EXPECT_EQ(run("stderr", {"init", "closed", "log=2=text", "lines=10"}).status, 0);
  EXPECT_EQ(run("bad value", {"closed", "init", "log=2=text"}).status, 0);
}

TEST_F(Logging, to_a_pipe_that_nobody_reads_does_not_end_the_process) {
  int ends[2] = {-1, -1};
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  EXPECT_EQ(run_with(ends[1], "stderr", {"init", "lines=3", "signals"}).status, 0);
  EXPECT_EQ(run_with(ends[1], "bad value", {"init"}).status, 0);
  close(ends[1]);
}

TEST_F(Logging, to_a_full_pipe_that_does_not_wait_drops_lines_in_the_end) {
  int ends[2] = {-1, -1};
  ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0);
  EXPECT_EQ(run_with(ends[1], "stderr", {"init", "long=200000", "signals"}).status, 0);
  close(ends[0]);
  close(ends[1]);
}

TEST_F(Logging, from_several_threads_does_not_mix_lines) {
  const Outcome outcome = run("stderr", {"threads=8=500"});
  EXPECT_EQ(outcome.status, 0);
  std::map<std::string, int> count_of;
  for (const std::string& line : lines_of(outcome.errors)) {
    const std::size_t at = line.find("info MODULE");
    ASSERT_NE(at, line.npos) << line;
    ASSERT_TRUE(is_line(line, line.substr(at))) << line;
    ++count_of[line.substr(at)];
  }
  EXPECT_EQ(count_of.size(), 500U);
  for (const auto& [text, count] : count_of) EXPECT_EQ(count, 8) << text;
}

// ---- System log

TEST_F(Logging, to_the_system_log_carries_priority_process_and_place) {
  const Outcome outcome =
      run("syslog:trace", {"init", "log=0=e", "log=1=w", "log=2=i", "log=3=d", "log=4=t"});
  EXPECT_EQ(outcome.errors, "");
  const auto lines = lines_of(outcome.output);
  // Priorities of <syslog.h>: 3 error, 4 warning, 6 informational, 7 debug.
  const std::vector<std::string> expected = {
      "3 [PID] MODULE/category src/file.c:42: e", "4 [PID] MODULE/category src/file.c:42: w",
      "6 [PID] MODULE/category src/file.c:42: i", "7 [PID] MODULE/category src/file.c:42: d",
      "7 [PID] MODULE/category src/file.c:42: t"};
  ASSERT_EQ(lines.size(), expected.size());
  for (std::size_t i = 0; i < lines.size(); ++i)
    EXPECT_EQ(std::regex_replace(lines[i], std::regex(R"(\[\d+\])"), "[PID]"), expected[i]);
}

// What stands behind the place, message by message.
std::vector<std::string> messages_of(const std::string& output) {
  std::vector<std::string> messages;
  const std::string place = "src/file.c:42: ";
  for (const std::string& line : lines_of(output))
    messages.push_back(line.substr(line.find(place) + place.size()));
  return messages;
}

TEST_F(Logging, to_the_system_log_makes_a_message_of_each_line) {
  const Outcome outcome = run("syslog", {"init", "log=2=Request:\n<a>\n\n</a>\n", "log=2="});
  EXPECT_EQ(messages_of(outcome.output),
            (std::vector<std::string>{"Request:", "<a>", "", "</a>", ""}));
}

TEST_F(Logging, to_the_system_log_splits_long_lines_and_loses_nothing) {
  const auto messages = messages_of(run("syslog", {"init", "long=2001"}).output);
  ASSERT_EQ(messages.size(), 3U);
  EXPECT_EQ(messages[0].size(), 800U);
  EXPECT_EQ(messages[1].size(), 800U);
  EXPECT_EQ(messages[2].size(), 401U);
  std::string whole;
  for (const std::string& message : messages) whole += message;
  for (std::size_t i = 0; i < 2001; ++i) ASSERT_EQ(whole[i], static_cast<char>('a' + i % 26));
}

TEST_F(Logging, to_the_system_log_cuts_no_character) {
  std::string text = "x";
  for (int i = 0; i < 300; ++i) text += "😀";
  const auto messages = messages_of(run("syslog", {"init", "log=2=" + text}).output);
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_EQ(messages[0], text.substr(0, 797));
  EXPECT_EQ(messages[1], text.substr(797));
}

TEST_F(Logging, to_the_system_log_splits_bytes_that_are_no_characters_all_the_same) {
  const std::string text(2000, '\x80');
  const auto messages = messages_of(run("syslog", {"init", "log=2=" + text}).output);
  std::string whole;
  for (const std::string& message : messages) {
    EXPECT_LE(message.size(), 800U);
    whole += message;
  }
  EXPECT_EQ(whole, text);
}

// ---- File

TEST_F(Logging, to_a_file_makes_it_for_its_owner_alone) {
  umask(0);
  const Outcome outcome = run("file=" + log() + ":debug", {"init", "log=3=text"});
  umask(022);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_TRUE(is_line(contents(log()), "debug MODULE/category src/file.c:42: text\n"))
      << contents(log());
  EXPECT_EQ(fs::status(log()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Logging, to_a_file_is_there_even_when_the_process_ends_at_once) {
  run("file=" + log(), {"init", "log=2=first", "log=2=second", "vanish"});
  EXPECT_EQ(lines_of(contents(log())).size(), 2U);
}

TEST_F(Logging, to_a_file_appends_and_keeps_its_mode) {
  std::ofstream(log()) << "before\n";
  fs::permissions(log(), fs::perms::owner_all | fs::perms::group_read);
  run("file=" + log(), {"init", "log=2=text"});
  const auto lines = lines_of(contents(log()));
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], "before");
  EXPECT_EQ(fs::status(log()).permissions(), fs::perms::owner_all | fs::perms::group_read);
}

TEST_F(Logging, to_a_file_sets_it_aside_before_it_grows_beyond_the_size) {
  const std::string path = (folder() / "cim.log").string();
  run("file=" + path + ",size=4K,keep=2", {"init", "lines=200"});
  EXPECT_EQ(files_in(folder()), 3);
  std::string whole;
  for (const char* name : {"cim.2.log", "cim.1.log", "cim.log"}) {
    const std::string text = contents(folder() / name);
    EXPECT_LE(text.size(), 4096U) << name;
    EXPECT_GT(text.size(), 0U) << name;
    EXPECT_EQ(fs::status(folder() / name).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    whole += text;
  }
  // What is kept is the end, without a gap.
  const auto lines = lines_of(whole);
  ASSERT_GT(lines.size(), 50U);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string number = std::to_string(200 - lines.size() + i);
    std::string expected = "info MODULE/category src/file.c:";
    expected.append(number).append(": line ").append(number).append(" of 200");
    EXPECT_TRUE(is_line(lines[i], expected)) << lines[i];
  }
}

TEST_F(Logging, to_a_file_that_keeps_none_begins_it_anew) {
  run("file=" + log() + ",size=4K,keep=0", {"init", "lines=200"});
  EXPECT_EQ(files_in(folder()), 1);
  EXPECT_LE(fs::file_size(log()), 4096U);
  EXPECT_NE(contents(log()).find("line 199 of 200"), std::string::npos);
}

TEST_F(Logging, to_a_file_writes_a_line_longer_than_the_size_whole) {
  run("file=" + log() + ",size=4K", {"init", "long=100000"});
  EXPECT_GT(fs::file_size(log()), 100000U);
}

TEST_F(Logging, to_a_file_that_cannot_be_opened_says_so_once) {
  const Outcome outcome = run("file=/no/such/folder/log", {"init", "log=2=text", "init"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors,
            "CIM_CLIENT_LOG: cannot open /no/such/folder/log: No such file or directory; nothing "
            "is logged\n");
}

TEST_F(Logging, to_what_is_no_regular_file_is_refused) {
  ASSERT_EQ(mkfifo(log().c_str(), 0600), 0);
  EXPECT_EQ(
      run("file=" + log(), {"init", "log=2=text"}).errors,
      "CIM_CLIENT_LOG: cannot open " + log() + ": No such device or address; nothing is logged\n");
  EXPECT_EQ(run("file=/dev/null", {"init", "log=2=text"}).errors,
            "CIM_CLIENT_LOG: /dev/null is not a regular file; nothing is logged\n");
  EXPECT_EQ(
      run("file=" + folder().string(), {"init", "log=2=text"}).errors,
      "CIM_CLIENT_LOG: cannot open " + folder().string() + ": Is a directory; nothing is logged\n");
}

TEST_F(Logging, to_a_file_that_can_grow_no_more_does_not_end_the_process) {
  const Outcome outcome =
      run("file=" + log(), {"init", "file-limit=1000", "lines=100", "errno", "signals"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_LE(fs::file_size(log()), 1000U);
}

TEST_F(Logging, to_a_file_from_several_threads_does_not_mix_lines) {
  run("file=" + log() + ",size=16M", {"threads=8=500"});
  const auto lines = lines_of(contents(log()));
  ASSERT_EQ(lines.size(), 4000U);
  for (const std::string& line : lines) {
    const std::size_t at = line.find("info MODULE");
    ASSERT_NE(at, line.npos) << line;
    EXPECT_TRUE(is_line(line, line.substr(at))) << line;
  }
}

}  // namespace
