// What the two shared libraries export and need, as the dynamic linker sees it.
#include <gtest/gtest.h>

#include <cstdio>
#include <set>
#include <sstream>
#include <string>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SANITIZED 1
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define SANITIZED 1
#endif

namespace {

std::string output_of(const std::string& command) {
  std::string output;
  FILE* stream = popen(command.c_str(), "r");
  for (int c = fgetc(stream); c != EOF; c = fgetc(stream)) output += static_cast<char>(c);
  EXPECT_EQ(pclose(stream), 0) << command;
  return output;
}

std::set<std::string> exported_by(const std::string& library) {
  std::istringstream lines(output_of("nm -D --defined-only --format=posix " + library));
  std::set<std::string> names;
  for (std::string line; std::getline(lines, line);) names.insert(line.substr(0, line.find(' ')));
  return names;
}

// Values of the dynamic section's entries of one kind.
std::set<std::string> entries(const std::string& kind, const std::string& library) {
  std::istringstream lines(output_of("LC_ALL=C readelf --dynamic --wide " + library));
  std::set<std::string> values;
  for (std::string line; std::getline(lines, line);) {
    if (line.find('(' + kind + ')') == line.npos) continue;
    const std::size_t begin = line.find('[') + 1;
    values.insert(line.substr(begin, line.find(']') - begin));
  }
  return values;
}

using Names = std::set<std::string>;

TEST(XmlLibrary, exports_its_three_functions_and_nothing_else) {
  EXPECT_EQ(exported_by(XML_LIBRARY), (Names{"freeXMLDoc", "getErrorText", "parseText"}));
}

TEST(LoggingLibrary, exports_its_two_functions_and_nothing_else) {
  EXPECT_EQ(exported_by(LOGGING_LIBRARY), (Names{"_rt_log", "rt_log_init"}));
}

TEST(RecordingLogger, exports_the_same_functions) {
  EXPECT_EQ(exported_by(RECORDING_LIBRARY), exported_by(LOGGING_LIBRARY));
}

TEST(Libraries, bear_the_sonames_that_devices_use) {
  EXPECT_EQ(entries("SONAME", XML_LIBRARY), Names{"libXMLParser.so.1"});
  EXPECT_EQ(entries("SONAME", LOGGING_LIBRARY), Names{"librtlog.so.1"});
  EXPECT_EQ(entries("SONAME", RECORDING_LIBRARY), Names{"librtlog.so.1"});
}

#ifndef SANITIZED  // sanitizers bring libraries of their own
TEST(XmlLibrary, needs_the_c_library_and_expat_only) {
  EXPECT_EQ(entries("NEEDED", XML_LIBRARY), (Names{"libc.so.6", "libexpat.so.1"}));
}
#endif

TEST(LoggingLibrary, has_its_logging_library_compiled_in) {
  for (const std::string& name : entries("NEEDED", LOGGING_LIBRARY)) {
    EXPECT_EQ(name.find("spdlog"), name.npos);
    EXPECT_EQ(name.find("fmt"), name.npos);
  }
}

}  // namespace
