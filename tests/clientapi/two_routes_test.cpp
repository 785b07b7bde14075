// The same questions over CIM-XML and through the local broker: the same answers, but for what is
// meant to differ.
#include <fnmatch.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "clientapi/intended_differences.h"
#include "clientapi/record_lines.h"
#include "clientapi/route_script.h"
#include "clientapi/sandbox_process.h"

namespace {

using namespace support;

struct Difference {
  std::string place, xml, local;
};

std::string at(const Lines& lines, const std::string& place) {
  const auto line = lines.find(place);
  return line == lines.end() ? "(absent)" : line->second;
}

std::vector<Difference> differences(const Lines& xml, const Lines& local) {
  std::set<std::string> places;
  for (const auto& [place, text] : xml) places.insert(place);
  for (const auto& [place, text] : local) places.insert(place);
  std::vector<Difference> result;
  for (const std::string& place : places)
    if (at(xml, place) != at(local, place))
      result.push_back({place, at(xml, place), at(local, place)});
  return result;
}

bool fits(const char* pattern, const std::string& text) {
  return fnmatch(pattern, text.c_str(), FNM_NOESCAPE | FNM_EXTMATCH) == 0;
}

bool fits(const IntendedDifference& intended, const Difference& difference) {
  return fits(intended.place, difference.place) && fits(intended.xml, difference.xml) &&
         fits(intended.local, difference.local);
}

Lines converse(std::uint16_t port, int backend) {
  struct client_Configuration* handle =
      client_Configuration("127.0.0.1", port, "root/cimv2", 0, "user", "secret");
  handle->interface = backend;
  Lines lines = support::converse(handle);
  Free_client_Configuration(handle);
  return lines;
}

TEST(TwoRoutes, answer_alike_but_for_what_is_meant_to_differ) {
  const SandboxProcess sandbox(CIM_SANDBOX_PROGRAM);
  ASSERT_NE(sandbox.port(), 0);
  const Lines xml = converse(sandbox.port(), 0);
  const Lines local = converse(sandbox.port(), 1);
  EXPECT_GT(xml.size(), 1000U);

  std::set<const IntendedDifference*> found;
  for (const Difference& difference : differences(xml, local)) {
    bool is_intended = false;
    for (const IntendedDifference& intended : intended_differences()) {
      if (!fits(intended, difference)) continue;
      found.insert(&intended);
      is_intended = true;
    }
    EXPECT_TRUE(is_intended) << difference.place << "\n  CIM-XML: " << difference.xml
                             << "\n  local:   " << difference.local;
  }
  for (const IntendedDifference& intended : intended_differences())
    EXPECT_TRUE(found.contains(&intended))
        << "does not occur any more: " << intended.place << " | " << intended.xml << " | "
        << intended.local << " (" << intended.reason << ")";
}

}  // namespace
