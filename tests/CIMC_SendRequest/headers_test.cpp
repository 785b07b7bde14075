// The header block of a request.
#include <gtest/gtest.h>
#include <pthread.h>

#include <array>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "cim_client.h"

namespace {

struct Block {
  int result;
  std::string text;
};

Block block(int length, const char* user, const char* password, std::size_t size = 512,
            const std::string& before = "") {
  std::vector<char> buffer(size + 4, '#');  // the bytes behind `size` must stay
  std::memset(buffer.data(), 0, size);
  before.copy(buffer.data(), size);
  const int result = CIMC_CreateStdHttpHeaders("10.0.0.1", length, buffer.data(),
                                               static_cast<int>(size), user, password);
  EXPECT_EQ(std::string(buffer.end() - 4, buffer.end()), "####");
  return {result, std::string(buffer.data(), strnlen(buffer.data(), size))};
}

constexpr char whole[] =
    "POST  /cimom HTTP/1.1 \r\n"
    "Content-Type: application/xml; charset=\"utf-8\"\r\n"
    "Content-Length: 1234\r\n"
    "Authorization: Basic dXNlcjpwYXNz\r\n";

TEST(CreateStdHttpHeaders, writes_four_lines_and_no_empty_one) {
  const Block written = block(1234, "user", "pass");
  EXPECT_EQ(written.text, whole);
  EXPECT_EQ(written.result, static_cast<int>(sizeof whole - 1));
}

TEST(CreateStdHttpHeaders, request_line_has_a_second_blank_before_the_path_and_one_at_the_end) {
  EXPECT_EQ(block(1, "u", "p").text.substr(0, 25), "POST  /cimom HTTP/1.1 \r\nC");
}

TEST(CreateStdHttpHeaders, a_user_without_password_is_followed_by_a_colon) {
  EXPECT_EQ(block(0, "u", nullptr).text,
            "POST  /cimom HTTP/1.1 \r\n"
            "Content-Type: application/xml; charset=\"utf-8\"\r\n"
            "Content-Length: 0\r\n"
            "Authorization: Basic dTo=\r\n");
}

TEST(CreateStdHttpHeaders, an_empty_password_is_as_none) {
  EXPECT_EQ(block(0, "u", "").text, block(0, "u", nullptr).text);
}

TEST(CreateStdHttpHeaders, a_null_user_is_the_empty_name) {
  EXPECT_EQ(block(0, nullptr, "pass").text,
            "POST  /cimom HTTP/1.1 \r\n"
            "Content-Type: application/xml; charset=\"utf-8\"\r\n"
            "Content-Length: 0\r\n"
            "Authorization: Basic OnBhc3M=\r\n");
}

TEST(CreateStdHttpHeaders, the_length_is_written_as_a_signed_number) {
  EXPECT_NE(block(-1, "u", "p").text.find("\r\nContent-Length: -1\r\n"), std::string::npos);
  EXPECT_NE(block(2147483647, "u", "p").text.find("\r\nContent-Length: 2147483647\r\n"),
            std::string::npos);
}

TEST(CreateStdHttpHeaders, the_host_does_not_matter) {
  std::array<char, 512> buffer{};
  const int length =
      CIMC_CreateStdHttpHeaders(nullptr, 1234, buffer.data(), buffer.size(), "user", "pass");
  EXPECT_EQ(std::string(buffer.data()), whole);
  EXPECT_EQ(length, static_cast<int>(sizeof whole - 1));
}

TEST(CreateStdHttpHeaders, goes_on_behind_a_text_in_the_buffer) {
  const Block written = block(1234, "user", "pass", 512, "before\n");
  EXPECT_EQ(written.text, std::string("before\n") + whole);
  EXPECT_EQ(written.result, static_cast<int>(sizeof whole - 1 + 7));
}

TEST(CreateStdHttpHeaders, is_cut_to_fit_at_every_size) {
  for (std::size_t size = 1; size <= sizeof whole; ++size) {
    const Block written = block(1234, "user", "pass", size);
    EXPECT_EQ(written.text, std::string(whole).substr(0, size - 1));
    EXPECT_EQ(written.result, static_cast<int>(size - 1));
  }
}

TEST(CreateStdHttpHeaders, a_full_buffer_stays_as_it_is) {
  std::array<char, 4> buffer = {'a', 'b', 'c', 'd'};
  EXPECT_EQ(CIMC_CreateStdHttpHeaders("h", 1, buffer.data(), 4, "u", "p"), 4);
  EXPECT_EQ(std::string(buffer.data(), 4), "abcd");
}

TEST(CreateStdHttpHeaders, writes_nothing_without_a_buffer) {
  std::array<char, 4> buffer = {'a', 'b', 'c', 'd'};
  EXPECT_EQ(CIMC_CreateStdHttpHeaders("h", 1, nullptr, 100, "u", "p"), 0);
  EXPECT_EQ(CIMC_CreateStdHttpHeaders("h", 1, buffer.data(), 0, "u", "p"), 0);
  EXPECT_EQ(CIMC_CreateStdHttpHeaders("h", 1, buffer.data(), -1, "u", "p"), 0);
  EXPECT_EQ(std::string(buffer.data(), 4), "abcd");
}

std::string authorization_of(const std::string& user, const std::string& password) {
  const std::string text = block(1, user.c_str(), password.c_str(), 40000).text;
  return text.substr(text.find("Authorization"));
}

TEST(CreateStdHttpHeaders, credentials_of_12270_bytes_are_kept_whole) {
  std::string base64;  // of "aaa...aaa:bbb", 12266 + 1 + 3 bytes
  for (int group = 0; group < 4088; ++group) base64 += "YWFh";
  base64 += "YWE6";
  base64 += "YmJi";
  EXPECT_EQ(authorization_of(std::string(12266, 'a'), "bbb"),
            "Authorization: Basic " + base64 + "\r\n");
}

TEST(CreateStdHttpHeaders, longer_credentials_are_cut_and_the_line_stays_whole) {
  std::string base64;
  for (int group = 0; group < 4090; ++group) base64 += "YWFh";
  const std::string cut = "Authorization: Basic " + base64 + "\r\n";
  EXPECT_EQ(authorization_of(std::string(12271, 'a'), "bbb"), cut);
  EXPECT_EQ(authorization_of(std::string(16384, 'a'), "bbb"), cut);
  EXPECT_EQ(authorization_of(std::string(1000000, 'a'), "bbb"), cut);
}

// Runs `CIMC_CreateStdHttpHeaders` on a stack of the test's own, which can be looked at afterwards.
std::string stack_after_writing(const char* user, const char* password) {
  static std::array<char, 512> block_text;
  static const char* credentials[2];
  block_text.fill('\0');
  credentials[0] = user;
  credentials[1] = password;
  alignas(4096) static std::array<char, 1 << 20> stack;
  stack.fill('\0');
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  EXPECT_EQ(pthread_attr_setstack(&attributes, stack.data(), stack.size()), 0);
  pthread_t thread;
  const auto write = [](void*) -> void* {
    CIMC_CreateStdHttpHeaders("h", 1, block_text.data(), block_text.size(), credentials[0],
                              credentials[1]);
    return nullptr;
  };
  EXPECT_EQ(pthread_create(&thread, &attributes, write, nullptr), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
#ifdef CIM_CLIENT_EMULATED
  return {stack.data(), stack.size()};  // the file would be that of the emulator's own memory
#endif
  // Read as a file: what a thread has left behind counts as never written.
  std::ifstream memory("/proc/self/mem", std::ios::binary);
  std::string bytes(stack.size(), '\0');
  memory.seekg(reinterpret_cast<std::streamoff>(stack.data()));
  EXPECT_TRUE(memory.read(bytes.data(), static_cast<std::streamsize>(bytes.size())));
  return bytes;
}

TEST(CreateStdHttpHeaders, leaves_no_credentials_on_the_stack) {
  const std::string stack = stack_after_writing("somebody", "swordfish");
  EXPECT_NE(stack.find_first_not_of('\0'), std::string::npos);  // it has been used
  EXPECT_EQ(stack.find("swordfish"), std::string::npos);
  EXPECT_EQ(stack.find("c29tZWJvZHk6c3dvcmRmaXNo"), std::string::npos);  // somebody:swordfish
}

}  // namespace
