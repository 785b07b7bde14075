// The trace lines of operations, with EmptyPrintf() replaced as a program may.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "operations/object_manager.h"
#include "operations/records.h"

namespace {

// Lines of the operations, not those of the reader and the writer.
constexpr std::array<std::string_view, 4> formats = {
    "\n\nRequest::\n\n%s", "\n\n Couldn't send request !!!!!!!\n\n",
    "\n ******************End of Response*******************\n", "\n\nResponse::\n\n%s"};

std::vector<std::string> lines;

}  // namespace

int EmptyPrintf(const char* format, ...) {
  if (std::find(formats.begin(), formats.end(), format) == formats.end()) return 0;
  std::array<char, 4096> line;
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line.data(), line.size(), format, arguments);
  va_end(arguments);
  lines.emplace_back(line.data());
  return 0;
}

namespace operations_test {
namespace {

using Lines = std::vector<std::string>;

class Trace : public testing::Test {
 protected:
  Trace() { lines.clear(); }
};

constexpr char delete_request[] =
    "\n\nRequest::\n\n"
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
    "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
    "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
    "<IMETHODCALL NAME=\"DeleteInstance\">"
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/></LOCALNAMESPACEPATH>"
    "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";

constexpr char names_request[] =
    "\n\nRequest::\n\n"
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>"
    "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
    "<MESSAGE ID=\"1234\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
    "<IMETHODCALL NAME=\"EnumerateInstanceNames\">"
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root/cimv2\"/></LOCALNAMESPACEPATH>"
    "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";

TEST_F(Trace, shows_request_and_response) {
  ObjectManager object_manager(
      http_answer("<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"></CIM>"));
  CIMC_XML_EnumerateInstanceNames(object_manager.handle(), nullptr, nullptr);
  EXPECT_EQ(lines,
            (Lines{names_request, "\n ******************End of Response*******************\n",
                   "\n\nResponse::\n\n"
                   "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\"></CIM>"}));
}

TEST_F(Trace, shows_a_request_that_failed) {
  ObjectManager object_manager("HTTP/1.1 200 OK\r\n\r\n");
  CIMC_XML_EnumerateInstanceNames(object_manager.handle(), nullptr, nullptr);
  EXPECT_EQ(lines, (Lines{names_request, "\n\n Couldn't send request !!!!!!!\n\n"}));
}

TEST_F(Trace, shows_nothing_of_a_refusal) {
  ObjectManager object_manager(http_refusal());
  CIMC_XML_EnumerateInstanceNames(object_manager.handle(), nullptr, nullptr);
  EXPECT_EQ(lines, Lines{names_request});
}

TEST_F(Trace, shows_nothing_of_a_refusal_even_where_failures_are_parsed) {
  ObjectManager object_manager(http_refusal());
  CIMC_XML_DeleteInstance(object_manager.handle(), nullptr, nullptr);
  EXPECT_EQ(lines, Lines{delete_request});
}

// Deleting goes on with what a failed exchange has left behind.
TEST_F(Trace, shows_the_response_to_a_deletion_that_failed) {
  ObjectManager object_manager("HTTP/1.1 200 OK\r\n\r\n");
  CIMC_XML_DeleteInstance(object_manager.handle(), nullptr, nullptr);
  EXPECT_EQ(lines, (Lines{delete_request, "\n\n Couldn't send request !!!!!!!\n\n",
                          "\n ******************End of Response*******************\n",
                          "\n\nResponse::\n\n"}));
}

TEST_F(Trace, never_shows_the_password) {
  ObjectManager object_manager(http_refusal());
  CIMC_XML_EnumerateInstanceNames(object_manager.handle(), nullptr, nullptr);
  for (const auto& line : lines) {
    EXPECT_EQ(line.find("secret"), std::string::npos);
    EXPECT_EQ(line.find("dXNlcjpzZWNyZXQ="), std::string::npos);
  }
}

}  // namespace
}  // namespace operations_test
