// The trace lines of the Free_ functions, seen by a program that replaces their printer.
#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "cim_client.h"

namespace {

using Lines = std::vector<std::string>;

Lines& lines() {
  static Lines seen;
  return seen;
}

}  // namespace

extern "C" int EmptyPrintf(const char* format, ...) {
  char line[256];
  va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(line, sizeof line, format, arguments);
  va_end(arguments);
  lines().emplace_back(line);
  return length;
}

namespace {

template <class T>
Lines traced(int (*release)(T*), T* what) {
  lines().clear();
  release(what);
  return lines();
}

template <class R>
R* empty() {
  return static_cast<R*>(std::calloc(1, sizeof(R)));
}

TEST(ReleaseTrace, texts_arrays_qualifiers_and_properties_say_that_they_begin) {
  EXPECT_EQ(traced(Free_CIMName, strdup("a")), Lines{"\n Inside Free_CIMName \n"});
  EXPECT_EQ(traced(Free_CIMType, strdup("a")), Lines{"\n Inside Free_CIMType \n"});
  EXPECT_EQ(traced(Free_ValueArray, empty<ValueArray>()), Lines{"\n Inside Free_ValueArray \n"});
  EXPECT_EQ(traced(Free_Qualifier, empty<Qualifier>()), Lines{"\n Inside Free_Qualifier \n"});
  EXPECT_EQ(traced(Free_Property, empty<Property>()), Lines{"\n\n Inside Free_Property \n\n"});
}

TEST(ReleaseTrace, of_a_namespace_shows_its_address) {
  auto* name_space = empty<Namespace>();
  char expected[64];
  std::snprintf(expected, sizeof expected, "\n Inside Free_Namespace !!!%p",
                static_cast<void*>(name_space));
  EXPECT_EQ(traced(Free_Namespace, name_space), Lines{expected});
}

TEST(ReleaseTrace, other_functions_say_nothing) {
  EXPECT_EQ(traced(Free_Host, strdup("a")), Lines{});
  EXPECT_EQ(traced(Free_Instance, empty<Instance>()), Lines{});
}

}  // namespace
