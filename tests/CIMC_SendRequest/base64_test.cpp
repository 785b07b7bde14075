// Base64: the encoder, and the decoder with its table.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

#include "cim_client.h"

namespace {

std::string encoded(const std::string& text, int size = 100) {
  std::array<char, 128> out;
  out.fill('#');
  Encode64(out.data(), text.c_str(), size);
  return out.data();
}

struct Decoded {
  int result;
  std::string bytes;  // the first `count` ones of the output
};

Decoded decoded(const std::string& text, int size, std::size_t count) {
  std::array<char, 128> out;
  out.fill('#');
  const int result = Decode64(out.data(), text.c_str(), size);
  return {result, std::string(out.data(), count)};
}

std::string first_byte(char character) {
  return decoded(std::string(1, character) + "AAA", 100, 1).bytes;
}

struct Vector {
  const char* text;
  const char* base64;
};

// RFC 4648, section 10
constexpr Vector vectors[] = {{"", ""},
                              {"f", "Zg=="},
                              {"fo", "Zm8="},
                              {"foo", "Zm9v"},
                              {"foob", "Zm9vYg=="},
                              {"fooba", "Zm9vYmE="},
                              {"foobar", "Zm9vYmFy"}};

TEST(Encode64, gives_the_standard_vectors) {
  for (const Vector& vector : vectors) EXPECT_EQ(encoded(vector.text), vector.base64);
}

TEST(Encode64, pads_the_last_group) {
  EXPECT_EQ(encoded("u:"), "dTo=");
  EXPECT_EQ(encoded("ab"), "YWI=");
  EXPECT_EQ(encoded("abc"), "YWJj");
}

TEST(Encode64, takes_bytes_as_unsigned) {
  EXPECT_EQ(encoded("\xFF\xFE\xFD"), "//79");
  EXPECT_EQ(encoded("\xFB\xEF\xBE"), "++++");
  EXPECT_EQ(encoded("\x80"), "gA==");
}

TEST(Encode64, an_empty_text_and_no_text_give_an_empty_text) {
  EXPECT_EQ(encoded(""), "");
  std::array<char, 4> out = {'#', '#', '#', '#'};
  Encode64(out.data(), nullptr, 4);
  EXPECT_EQ(out[0], '\0');
  EXPECT_EQ(out[1], '#');
  Encode64(nullptr, "abc", 4);
}

TEST(Encode64, cuts_characters_at_the_size) {
  EXPECT_EQ(encoded("abcdef", 8), "YWJjZGVm");
  EXPECT_EQ(encoded("abcdef", 7), "YWJjZGV");
  EXPECT_EQ(encoded("abcdef", 5), "YWJjZ");
  EXPECT_EQ(encoded("abcdef", 0), "");
  EXPECT_EQ(encoded("abcdef", -3), "");
}

TEST(Encode64, padding_goes_behind_characters_cut_at_the_size) {
  EXPECT_EQ(encoded("abcd", 4), "YWJj==");
  EXPECT_EQ(encoded("abcd", 5), "YWJjZ==");
  EXPECT_EQ(encoded("ab", 0), "=");
}

TEST(Decode64, gives_the_standard_vectors) {
  for (const Vector& vector : vectors) {
    const std::size_t length = std::strlen(vector.text);
    const Decoded out = decoded(vector.base64, 100, length + 2);
    EXPECT_EQ(out.result, 0);
    EXPECT_EQ(out.bytes, vector.text + std::string("\0#", 2));
  }
}

TEST(Decode64, an_empty_text_a_leading_equals_sign_and_no_text_give_an_empty_text) {
  EXPECT_EQ(decoded("", 0, 2).bytes, std::string("\0#", 2));
  EXPECT_EQ(decoded("", 0, 2).result, 0);
  EXPECT_EQ(decoded("=YWJj", 100, 2).bytes, std::string("\0#", 2));
  EXPECT_EQ(decoded("=YWJj", 100, 2).result, 0);
  std::array<char, 2> out = {'#', '#'};
  EXPECT_EQ(Decode64(out.data(), nullptr, 2), 0);
  EXPECT_EQ(std::string(out.data(), 2), std::string("\0#", 2));
  EXPECT_EQ(Decode64(nullptr, "YWJj", 2), -1);
}

TEST(Decode64, ends_at_the_first_equals_sign) {
  EXPECT_EQ(decoded("YWJj=YWJj", 100, 5).bytes, std::string("abc\0#", 5));
  EXPECT_EQ(decoded("YW=I=", 100, 3).bytes, std::string("a\0#", 3));
}

TEST(Decode64, a_group_of_one_character_stands_for_no_byte) {
  EXPECT_EQ(decoded("Y", 1, 2).bytes, std::string("\0#", 2));
  EXPECT_EQ(decoded("Y", 1, 2).result, 0);
  EXPECT_EQ(decoded("YWJjY", 4, 5).bytes, std::string("abc\0#", 5));
}

TEST(Decode64, needs_one_byte_more_than_it_writes) {
  EXPECT_EQ(decoded("YWJj", 4, 5).bytes, std::string("abc\0#", 5));
  EXPECT_EQ(decoded("YWJj", 4, 5).result, 0);
  EXPECT_EQ(decoded("YWJjZGVm", 7, 8).bytes, std::string("abcdef\0#", 8));
}

TEST(Decode64, says_string_too_big_in_15_bytes_whatever_the_size) {
  const std::string message("String too big\0#", 16);
  for (const int size : {3, 1, 0, -1}) {
    EXPECT_EQ(decoded("YWJj", size, 16).bytes, message) << size;
    EXPECT_EQ(decoded("YWJj", size, 16).result, -1) << size;
  }
}

TEST(Decode64, says_string_too_big_over_what_was_decoded_before) {
  EXPECT_EQ(decoded("YWJjZGVm", 6, 16).bytes, std::string("String too big\0#", 16));
  EXPECT_EQ(decoded("YWJjZGVm", 6, 16).result, -1);
}

TEST(Decode64, knows_letters_and_digits) {
  const std::string known = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  for (std::size_t value = 0; value < known.size(); ++value)
    EXPECT_EQ(first_byte(known[value]), std::string(1, static_cast<char>(value << 2)));
}

TEST(Decode64, plus_and_slash_count_as_255_and_spoil_their_neighbours) {
  EXPECT_EQ(decoded("+AAA", 100, 4).bytes, std::string("\xFC\0\0\0", 4));
  EXPECT_EQ(decoded("A+AA", 100, 4).bytes, std::string("\x0F\xF0\0\0", 4));
  EXPECT_EQ(decoded("AA/A", 100, 4).bytes, std::string("\0\x3F\xC0\0", 4));
  EXPECT_EQ(decoded("AAA/", 100, 4).bytes, std::string("\0\0\xFF\0", 4));
  EXPECT_EQ(decoded("++++", 100, 4).bytes, std::string("\xFF\xFF\xFF\0", 4));
}

TEST(Decode64, the_values_of_plus_and_slash_stand_at_27_and_31) {
  EXPECT_EQ(first_byte('\x1B'), "\xF8");  // 62 << 2
  EXPECT_EQ(first_byte('\x1F'), "\xFC");  // 63 << 2
  EXPECT_EQ(decoded("A\x1B\x41\x41", 100, 2).bytes, "\x03\xE0");
}

TEST(Decode64, refuses_no_character_and_takes_the_others_as_255) {
  const std::string known =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789=\x1B\x1F";
  for (int character = 1; character < 256; ++character) {
    if (known.find(static_cast<char>(character)) != std::string::npos) continue;
    const Decoded out = decoded(std::string(1, static_cast<char>(character)) + "AAA", 4, 4);
    EXPECT_EQ(out.result, 0) << character;
    EXPECT_EQ(out.bytes, std::string("\xFC\0\0\0", 4)) << character;
  }
}

}  // namespace
