// The grammar of the variable that turns logging on.
#include "settings.h"

#include <gtest/gtest.h>

namespace {

using rtlog::Level;
using rtlog::Target;

std::string text_of(const rtlog::Complaint& complaint) {
  const std::string what(complaint.what);
  return complaint.part ? what + '"' + std::string(*complaint.part) + '"' : what;
}

rtlog::Settings accepted(const char* value) {
  rtlog::Complaint complaint;
  const auto settings = rtlog::parse_settings(value, complaint);
  EXPECT_TRUE(settings) << value << ": " << text_of(complaint);
  EXPECT_EQ(text_of(complaint), "");
  return settings.value_or(rtlog::Settings{});
}

std::string complaint_about(const char* value) {
  rtlog::Complaint complaint;
  EXPECT_FALSE(rtlog::parse_settings(value, complaint)) << value;
  return text_of(complaint);
}

TEST(Settings, name_a_target_and_log_from_info_on_unless_told_otherwise) {
  EXPECT_EQ(accepted("stderr").target, Target::StandardError);
  EXPECT_EQ(accepted("stderr").level, Level::Info);
  EXPECT_EQ(accepted("syslog").target, Target::Syslog);
  EXPECT_EQ(accepted("syslog").level, Level::Info);
}

TEST(Settings, take_a_level_behind_the_last_colon) {
  EXPECT_EQ(accepted("stderr:error").level, Level::Error);
  EXPECT_EQ(accepted("stderr:warning").level, Level::Warning);
  EXPECT_EQ(accepted("stderr:info").level, Level::Info);
  EXPECT_EQ(accepted("syslog:debug").level, Level::Debug);
  EXPECT_EQ(accepted("file=/var/log/a:b.log:trace").level, Level::Trace);
  EXPECT_EQ(accepted("file=/var/log/a:b.log:trace").path, "/var/log/a:b.log");
}

TEST(Settings, that_are_empty_or_off_log_nowhere) {
  EXPECT_EQ(accepted("").target, Target::Nowhere);
  EXPECT_EQ(accepted("stderr:off").target, Target::Nowhere);
  EXPECT_EQ(accepted("file=/x:off").target, Target::Nowhere);
}

TEST(Settings, keep_three_files_of_a_megabyte_unless_told_otherwise) {
  const rtlog::Settings settings = accepted("file=/x.log");
  EXPECT_EQ(settings.target, Target::File);
  EXPECT_EQ(settings.path, "/x.log");
  EXPECT_EQ(settings.size, 1048576U);
  EXPECT_EQ(settings.keep, 3U);
}

TEST(Settings, take_size_and_number_of_files_in_any_order) {
  const rtlog::Settings settings = accepted("file=/x.log,keep=0,size=4096:debug");
  EXPECT_EQ(settings.size, 4096U);
  EXPECT_EQ(settings.keep, 0U);
  EXPECT_EQ(settings.level, Level::Debug);
  EXPECT_EQ(accepted("file=/x.log,size=512K,keep=100").size, 524288U);
  EXPECT_EQ(accepted("file=/x.log,size=512K,keep=100").keep, 100U);
  EXPECT_EQ(accepted("file=/x.log,size=1024M").size, 1073741824U);
}

TEST(Settings, leave_commas_and_equals_signs_to_the_path) {
  EXPECT_EQ(accepted("file=/a,b=c,keeper,size=8K").path, "/a,b=c,keeper");
  EXPECT_EQ(accepted("file=/a,b=c,keeper,size=8K").size, 8192U);
}

TEST(Settings, complain_about_unknown_targets) {
  EXPECT_EQ(complaint_about("stdout"), "the target is stderr, syslog or file=PATH, not \"stdout\"");
  EXPECT_EQ(complaint_about("Stderr:info"),
            "the target is stderr, syslog or file=PATH, not \"Stderr\"");
  EXPECT_EQ(complaint_about(":info"), "the target is stderr, syslog or file=PATH, not \"\"");
  EXPECT_EQ(complaint_about("/var/log/x"),
            "the target is stderr, syslog or file=PATH, not \"/var/log/x\"");
}

TEST(Settings, complain_about_unknown_levels) {
  EXPECT_EQ(complaint_about("stderr:verbose"),
            "the level is off, error, warning, info, debug or trace, not \"verbose\"");
  EXPECT_EQ(complaint_about("stderr:"),
            "the level is off, error, warning, info, debug or trace, not \"\"");
  EXPECT_EQ(complaint_about("file=/a:b"),
            "the level is off, error, warning, info, debug or trace, not \"b\"");
}

TEST(Settings, complain_about_a_file_without_path) {
  EXPECT_EQ(complaint_about("file="), "file= needs a path");
  EXPECT_EQ(complaint_about("file=,size=8K"), "file= needs a path");
}

TEST(Settings, complain_about_sizes_that_are_none_or_out_of_range) {
  for (const char* size : {"", "K", "4095", "3K", "1025M", "1048577K", "-1", "+8K", "8k", "8KB",
                           "0x8000", " 8K", "18446744073709551616", "18446744073709551615M"})
    EXPECT_EQ(complaint_about((std::string("file=/x,size=") + size).c_str()),
              "size is a number of bytes from 4K to 1024M, not \"" + std::string(size) + '"');
}

TEST(Settings, complain_about_numbers_of_files_that_are_none_or_out_of_range) {
  for (const char* keep : {"", "101", "-1", "many", "1.5", "99999999999999999999"})
    EXPECT_EQ(complaint_about((std::string("file=/x,keep=") + keep).c_str()),
              "keep is a number of files from 0 to 100, not \"" + std::string(keep) + '"');
}

TEST(Settings, complain_about_unknown_options_behind_known_ones) {
  EXPECT_EQ(complaint_about("file=/x,size=8K,age=1"), "unknown option \"age=1\"");
  EXPECT_EQ(complaint_about("file=/x,keep=1,"), "unknown option \"\"");
}

}  // namespace
