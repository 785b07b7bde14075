// The client handle, and the choice of its back end.
#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "cim_client.h"
#include "support/allocations.h"
#include "support/marker_file.h"
#include "support/open_descriptors.h"

namespace {

using support::MarkerFile;
using Strings = std::vector<std::string>;

struct Release {
  void operator()(struct client_Configuration* handle) const { Free_client_Configuration(handle); }
};
using Handle = std::unique_ptr<struct client_Configuration, Release>;

Handle make_handle() {
  return Handle(client_Configuration("10.0.0.1", 5988, "root/cimv2", 1500, "user", "pass"));
}

TEST(client_Configuration, keeps_copies_of_its_arguments) {
  const MarkerFile marker(ENOENT);
  std::string host = "10.0.0.1";
  std::string name_space = "root/cimv2";
  std::string user = "user";
  std::string password = "pass";
  const Handle handle(client_Configuration(host.c_str(), 5988, name_space.c_str(), 1500,
                                           user.c_str(), password.c_str()));
  for (std::string* text : {&host, &name_space, &user, &password}) text->assign(text->size(), '#');
  ASSERT_TRUE(handle);
  EXPECT_STREQ(handle->host, "10.0.0.1");
  EXPECT_EQ(handle->port, 5988u);
  EXPECT_STREQ(handle->namespace_, "root/cimv2");
  EXPECT_EQ(handle->timeout, 1500u);
  EXPECT_STREQ(handle->user, "user");
  EXPECT_STREQ(handle->password, "pass");
  EXPECT_EQ(handle->interface, 0);
}

TEST(client_Configuration, host_and_namespace_may_be_null) {
  const Handle handle(client_Configuration(nullptr, 0, nullptr, 0, "", ""));
  ASSERT_TRUE(handle);
  EXPECT_EQ(handle->host, nullptr);
  EXPECT_EQ(handle->namespace_, nullptr);
  EXPECT_STREQ(handle->user, "");
  EXPECT_STREQ(handle->password, "");
}

TEST(client_Configuration, user_and_password_must_not_be_null) {
  EXPECT_EQ(client_Configuration("h", 1, "n", 1, nullptr, "p"), nullptr);
  EXPECT_EQ(client_Configuration("h", 1, "n", 1, "u", nullptr), nullptr);
}

TEST(client_Configuration, port_and_time_out_are_not_checked) {
  const Handle handle(client_Configuration("h", 4294967295u, "n", 4294967295u, "u", "p"));
  ASSERT_TRUE(handle);
  EXPECT_EQ(handle->port, 4294967295u);
  EXPECT_EQ(handle->timeout, 4294967295u);
}

TEST(client_Configuration, takes_the_local_broker_when_the_marker_opens) {
  for (const std::string path : {"/dev/null", "/proc/self/exe"}) {  // empty, and no text
    const MarkerFile marker(path);
    const Handle handle = make_handle();
    ASSERT_TRUE(handle);
    EXPECT_EQ(handle->interface, 1);
    EXPECT_EQ(marker.modes(), Strings{"r"});
  }
}

TEST(client_Configuration, takes_cim_xml_when_the_marker_cannot_be_opened) {
  for (const int error : {ENOENT, EACCES, EMFILE}) {
    const MarkerFile marker(error);
    const Handle handle = make_handle();
    ASSERT_TRUE(handle);
    EXPECT_EQ(handle->interface, 0);
    EXPECT_EQ(marker.modes(), Strings{"r"});
  }
}

TEST(client_Configuration, a_handle_keeps_its_back_end) {
  Handle handle;
  {
    const MarkerFile marker("/dev/null");
    handle = make_handle();
  }
  const MarkerFile marker(ENOENT);
  EXPECT_EQ(get_cimc_interface(), 0);
  EXPECT_EQ(CIMC_SetNamespace(handle.get(), "root"), 0);
  EXPECT_EQ(handle->interface, 1);
}

TEST(client_Configuration, no_failing_allocation_leaves_anything_behind) {
  const MarkerFile marker(ENOENT);
  std::size_t failures = 0;
  for (bool failed = true; failed; ++failures) {
    const support::FailingAllocation allocation(failures);
    const Handle handle = make_handle();
    failed = allocation.has_failed();
    EXPECT_EQ(handle == nullptr, failed);
  }
  EXPECT_EQ(failures, 6u);  // the record, four texts, and the one that did not fail
}

TEST(client_Configuration, the_password_of_an_unfinished_handle_does_not_exist) {
  const MarkerFile marker(ENOENT);
  const support::FailingAllocation allocation(4);
  const support::ReleasedSecrets secrets("pass");
  EXPECT_EQ(make_handle(), nullptr);
  EXPECT_EQ(secrets.released(), 4u);
  EXPECT_EQ(secrets.with_secret(), 0u);
}

TEST(Free_client_Configuration, a_null_handle_is_minus_one) {
  EXPECT_EQ(Free_client_Configuration(nullptr), -1);
}

TEST(Free_client_Configuration, releases_every_text_or_none) {
  EXPECT_EQ(Free_client_Configuration(make_handle().release()), 0);
  EXPECT_EQ(Free_client_Configuration(client_Configuration(nullptr, 0, nullptr, 0, "u", "p")), 0);
}

TEST(Free_client_Configuration, clears_the_password_before_its_memory_is_released) {
  const support::ReleasedSecrets secrets("swordfish");
  EXPECT_EQ(Free_client_Configuration(client_Configuration("h", 1, "n", 1, "u", "swordfish")), 0);
  EXPECT_EQ(secrets.with_secret(), 0u);
  EXPECT_GE(secrets.released(), 5u);
}

TEST(Free_client_Configuration, clears_the_user_before_its_memory_is_released) {
  const support::ReleasedSecrets secrets("zephyrine");
  EXPECT_EQ(Free_client_Configuration(client_Configuration("h", 1, "n", 1, "zephyrine", "p")), 0);
  EXPECT_EQ(secrets.with_secret(), 0u);
  EXPECT_GE(secrets.released(), 5u);
}

TEST(Free_client_Configuration, releases_a_handle_that_has_lost_its_texts) {
  Handle handle(client_Configuration(nullptr, 0, nullptr, 0, "u", "p"));
  std::free(handle->user);
  std::free(handle->password);
  handle->user = handle->password = nullptr;
  EXPECT_EQ(Free_client_Configuration(handle.release()), 0);
}

TEST(CIMC_SetNamespace, replaces_the_namespace_by_a_copy) {
  const Handle handle = make_handle();
  std::string name_space = "root/interop";
  EXPECT_EQ(CIMC_SetNamespace(handle.get(), name_space.c_str()), 0);
  name_space.assign(name_space.size(), '#');
  EXPECT_STREQ(handle->namespace_, "root/interop");
}

TEST(CIMC_SetNamespace, takes_a_part_of_the_old_namespace) {
  const Handle handle = make_handle();
  EXPECT_EQ(CIMC_SetNamespace(handle.get(), handle->namespace_ + 5), 0);
  EXPECT_STREQ(handle->namespace_, "cimv2");
}

TEST(CIMC_SetNamespace, gives_a_namespace_to_a_handle_without_one) {
  const Handle handle(client_Configuration("h", 1, nullptr, 1, "u", "p"));
  EXPECT_EQ(CIMC_SetNamespace(handle.get(), "root"), 0);
  EXPECT_STREQ(handle->namespace_, "root");
}

TEST(CIMC_SetNamespace, null_arguments_change_nothing) {
  const Handle handle = make_handle();
  EXPECT_EQ(CIMC_SetNamespace(handle.get(), nullptr), -1);
  EXPECT_EQ(CIMC_SetNamespace(nullptr, "root"), -1);
  EXPECT_STREQ(handle->namespace_, "root/cimv2");
}

TEST(CIMC_SetNamespace, keeps_the_old_namespace_when_memory_runs_out) {
  const Handle handle = make_handle();
  const support::FailingAllocation allocation(0);
  EXPECT_EQ(CIMC_SetNamespace(handle.get(), "root"), -1);
  EXPECT_TRUE(allocation.has_failed());
  EXPECT_STREQ(handle->namespace_, "root/cimv2");
}

// A buffer of twelve "#" after `get`, as a text of twelve.
template <class Get>
std::string buffer_after(Get get, int expected_result) {
  std::array<char, 12> buffer;
  buffer.fill('#');
  EXPECT_EQ(get(buffer.data()), expected_result);
  return {buffer.data(), buffer.size()};
}

std::string namespace_buffer(const struct client_Configuration* handle, std::uint32_t length,
                             int result) {
  return buffer_after([&](char* buffer) { return CIMC_GetNamespace(handle, buffer, length); },
                      result);
}

TEST(CIMC_GetNamespace, copies_and_fills_up_with_zeros) {
  EXPECT_EQ(namespace_buffer(make_handle().get(), 12, 0), std::string("root/cimv2\0\0", 12));
  EXPECT_EQ(namespace_buffer(make_handle().get(), 11, 0), std::string("root/cimv2\0#", 12));
}

TEST(CIMC_GetNamespace, leaves_no_terminator_where_the_namespace_fills_the_length) {
  EXPECT_EQ(namespace_buffer(make_handle().get(), 10, 0), "root/cimv2##");
  EXPECT_EQ(namespace_buffer(make_handle().get(), 4, 0), "root########");
  EXPECT_EQ(namespace_buffer(make_handle().get(), 0, 0), "############");
}

TEST(CIMC_GetNamespace, without_handle_buffer_or_namespace_is_minus_one_and_writes_nothing) {
  const Handle without(client_Configuration("h", 1, nullptr, 1, "u", "p"));
  EXPECT_EQ(namespace_buffer(without.get(), 12, -1), "############");
  EXPECT_EQ(namespace_buffer(nullptr, 12, -1), "############");
  EXPECT_EQ(CIMC_GetNamespace(make_handle().get(), nullptr, 12), -1);
}

std::string user_buffer(const struct client_Configuration* handle, std::uint32_t length,
                        int result) {
  return buffer_after(
      [&](char* buffer) { return CIMC_GetUserNameFromHandle(handle, buffer, length); }, result);
}

TEST(CIMC_GetUserNameFromHandle, clears_the_buffer_and_copies_the_name) {
  EXPECT_EQ(user_buffer(make_handle().get(), 12, 0), std::string("user\0\0\0\0\0\0\0\0", 12));
  EXPECT_EQ(user_buffer(make_handle().get(), 5, 0), std::string("user\0#######", 12));
}

TEST(CIMC_GetUserNameFromHandle, cuts_the_name_so_that_it_is_terminated) {
  EXPECT_EQ(user_buffer(make_handle().get(), 4, 0), std::string("use\0########", 12));
  EXPECT_EQ(user_buffer(make_handle().get(), 1, 0), std::string("\0###########", 12));
  EXPECT_EQ(user_buffer(make_handle().get(), 0, 0), "############");
}

TEST(CIMC_GetUserNameFromHandle, without_a_name_gives_zeros) {
  const Handle handle = make_handle();
  std::free(handle->user);
  handle->user = nullptr;
  EXPECT_EQ(user_buffer(handle.get(), 10, 0), std::string("\0\0\0\0\0\0\0\0\0\0##", 12));
}

TEST(CIMC_GetUserNameFromHandle, without_handle_or_buffer_is_minus_one_and_writes_nothing) {
  EXPECT_EQ(user_buffer(nullptr, 12, -1), "############");
  EXPECT_EQ(CIMC_GetUserNameFromHandle(make_handle().get(), nullptr, 12), -1);
}

std::string password_buffer(const struct client_Configuration* handle, int result) {
  return buffer_after([&](char* buffer) { return CIMC_GetPassWordFromHandle(handle, buffer); },
                      result);
}

TEST(CIMC_GetPassWordFromHandle, copies_the_password_whole_and_clears_nothing) {
  EXPECT_EQ(password_buffer(make_handle().get(), 0), std::string("pass\0#######", 12));
}

TEST(CIMC_GetPassWordFromHandle, without_a_password_leaves_the_buffer) {
  const Handle handle = make_handle();
  std::free(handle->password);
  handle->password = nullptr;
  EXPECT_EQ(password_buffer(handle.get(), 0), "############");
}

TEST(CIMC_GetPassWordFromHandle, without_handle_or_buffer_is_minus_one) {
  EXPECT_EQ(password_buffer(nullptr, -1), "############");
  EXPECT_EQ(CIMC_GetPassWordFromHandle(make_handle().get(), nullptr), -1);
}

TEST(checkForBinary, closes_what_it_opened) {
  const std::size_t before = support::open_descriptors();
  const MarkerFile marker("/dev/null");
  EXPECT_EQ(checkForBinary(), 0);
  EXPECT_EQ(get_cimc_interface(), 1);
  EXPECT_EQ(support::open_descriptors(), before);
  EXPECT_EQ(marker.modes(), (Strings{"r", "r"}));
}

TEST(checkForBinary, is_minus_one_without_the_marker) {
  const MarkerFile marker(ENOENT);
  EXPECT_EQ(checkForBinary(), -1);
  EXPECT_EQ(get_cimc_interface(), 0);
}

TEST(checkForBinary, looks_at_the_marker_in_etc) {
  const bool is_there = std::filesystem::exists("/etc/Binary.txt");
  EXPECT_EQ(checkForBinary(), is_there ? 0 : -1);
}

}  // namespace
