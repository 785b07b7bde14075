// An object manager that lies about its answer, tears it, or ends it anywhere.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hostile/asking.h"

namespace hostile {
namespace {

using support::ServerScript;

// An answer that is too long for the first read alone.
const std::string& long_document() {
  static const std::string text = document(instance_with(std::string(3000, 'x')));
  return text;
}

constexpr char whole[] = "1 instance, 3000 bytes";

TEST(HostileLength, that_is_no_length_gives_nothing) {
  const Bounds bounds(20, 8);
  for (const std::string& length :
       {std::string("-1"), std::string("-2147483648"), std::string("-9223372036854775809"),
        std::string("2147483648"), std::string("4294967296"), std::string("18446744073709551617"),
        std::string("1073741825"), std::string(4000, '9'), "-" + std::string(4000, '9'),
        std::string(1000, '0'), std::string("0x7fffffff"), std::string("none"), std::string(),
        std::string(1500, ' ')})
    EXPECT_EQ(ask(head(length) + long_document()), "null") << length.substr(0, 30);
}

TEST(HostileLength, that_is_too_small_cuts_the_document) {
  const Bounds bounds(20, 8);
  for (const std::size_t length :
       {std::size_t{1}, std::size_t{5}, std::size_t{512}, std::size_t{2047}, std::size_t{2048},
        std::size_t{3000}, long_document().size() - 1})
    EXPECT_EQ(ask(head(std::to_string(length)) + long_document()), "null") << length;
}

TEST(HostileLength, that_is_too_large_ends_with_the_connection) {
  const Bounds bounds(20, 8);
  for (const std::size_t more : {1U, 2U, 1000U, 10000000U})
    EXPECT_EQ(ask(head(std::to_string(long_document().size() + more)) + long_document()), whole)
        << more;
}

// The memory is asked for, and never touched.
TEST(HostileLength, of_1_gib_takes_no_more_memory_than_what_arrives) {
  const Bounds bounds(20, 8);
  EXPECT_EQ(ask(head("1073741824") + long_document()), whole);
}

TEST(HostileLength, twice_counts_the_first_time) {
  const Bounds bounds(20, 8);
  const std::string right = std::to_string(long_document().size());
  EXPECT_EQ(ask("HTTP/1.1 200 OK\r\nContent-Length: " + right + "\r\nContent-Length: 5\r\n\r\n" +
                long_document()),
            whole);
  EXPECT_EQ(ask("HTTP/1.1 200 OK\r\nContent-Length: 5\r\nContent-Length: " + right + "\r\n\r\n" +
                long_document()),
            "null");
}

// ---- Pieces ----

// The first read finds the head and the beginning of the document.
TEST(HostilePieces, of_single_bytes_behind_the_beginning_make_a_whole_answer) {
  const Bounds bounds(60, 8);
  const std::string http = answer(long_document());
  const std::size_t first = http.find("<?xml") + 5;
  EXPECT_EQ(ask(ServerScript()
                    .read_request()
                    .send(http.substr(0, first))
                    .pause(std::chrono::milliseconds(50))
                    .send_in_pieces(http.substr(first), 1)),
            whole);
}

TEST(HostilePieces, that_begin_with_part_of_the_head_give_nothing) {
  const Bounds bounds(60, 8);
  const std::string http = answer(long_document());
  for (const std::size_t first : {1U, 9U, 20U, 60U})
    EXPECT_EQ(ask(ServerScript()
                      .read_request()
                      .send(http.substr(0, first))
                      .pause(std::chrono::milliseconds(20))
                      .send(http.substr(first))),
              "null")
        << first;
}

// ---- The end ----

TEST(HostileEnd, a_close_at_any_offset_gives_nothing) {
  const Bounds bounds(120, 16);
  const std::string http = answer(document(instance_with("x")));
  for (std::size_t offset = 0; offset < http.size(); ++offset)
    ASSERT_EQ(ask(http.substr(0, offset)), "null") << offset;
  EXPECT_EQ(ask(http), "1 instance, 1 bytes");
}

// A reset may overtake what was sent before it.
TEST(HostileEnd, a_reset_at_any_offset_gives_nothing_or_the_whole) {
  const Bounds bounds(120, 16);
  const std::string http = answer(document(instance_with("x")));
  for (std::size_t offset = 0; offset <= http.size(); ++offset) {
    const std::string given =
        ask(ServerScript().read_request().send(http.substr(0, offset)).reset());
    if (offset < http.size()) {
      ASSERT_EQ(given, "null") << offset;
    } else {
      EXPECT_TRUE(given == "null" || given == "1 instance, 1 bytes") << given;
    }
  }
}

TEST(HostileEnd, before_the_request_is_read_gives_nothing) {
  const Bounds bounds(20, 8);
  EXPECT_EQ(ask(ServerScript().close()), "null");
  EXPECT_EQ(ask(ServerScript().reset()), "null");
  EXPECT_EQ(ask(ServerScript().send(answer(long_document())).reset()).find("error"),
            std::string::npos);
}

// ---- 401 ----

constexpr char refused[] = "null, error 401 Unauthorized User";

TEST(HostileRefusal, counts_anywhere_in_the_first_2047_bytes) {
  const Bounds bounds(20, 8);
  EXPECT_EQ(ask("HTTP/1.1 200 OK\r\nX: 401 Unauthorized\r\nContent-Length: 9\r\n\r\n<?xml?>.."),
            refused);
  EXPECT_EQ(ask("401 Unauthorized"), refused);
  EXPECT_EQ(ask(answer(document(instance_with("401 Unauthorized")))), refused);
  EXPECT_EQ(ask(std::string(2031, 'x') + "401 Unauthorized"), refused);
}

TEST(HostileRefusal, behind_the_first_2047_bytes_is_a_value_like_any_other) {
  const Bounds bounds(20, 8);
  EXPECT_EQ(ask(std::string(2032, 'x') + "401 Unauthorized"), "null");
  EXPECT_EQ(ask(answer(document(instance_with(std::string(3000, 'x') + "401 Unauthorized")))),
            "1 instance, 3016 bytes");
}

TEST(HostileRefusal, in_another_case_or_with_more_blanks_is_none) {
  const Bounds bounds(20, 8);
  for (const char* text :
       {"HTTP/1.1 401 unauthorized\r\n\r\n", "HTTP/1.1 401  Unauthorized\r\n\r\n",
        "HTTP/1.1 401\r\n\r\n", "HTTP/1.1 403 Forbidden\r\n\r\n"})
    EXPECT_EQ(ask(text), "null") << text;
}

// ---- Bytes ----

TEST(HostileBytes, a_zero_byte_in_the_first_read_ends_it) {
  const Bounds bounds(20, 8);
  const std::string zero(1, '\0');
  EXPECT_EQ(ask(zero + answer(long_document())), "null");
  EXPECT_EQ(ask("HTTP/1.1 200 OK\r\n" + zero + answer(long_document())), "null");
  std::string http = answer(long_document());
  http.insert(http.find("<MESSAGE"), zero);
  EXPECT_EQ(ask(http), "null");
}

TEST(HostileBytes, a_zero_byte_in_the_rest_ends_the_document) {
  const Bounds bounds(20, 8);
  std::string text = long_document();
  text[text.size() - 500] = '\0';
  EXPECT_EQ(ask(answer(text)), "null");
}

TEST(HostileBytes, that_are_not_http_give_nothing) {
  const Bounds bounds(20, 8);
  std::string every_byte;
  for (int byte = 0; byte < 256; ++byte) every_byte += static_cast<char>(byte);
  for (const std::string& bytes :
       {std::string(), std::string(1, '\0'), every_byte, std::string(100000, '\xff'),
        std::string(100000, '\0'), std::string("SSH-2.0-OpenSSH\r\n"),
        std::string("\x15\x03\x01\x00\x02\x02\x46", 7), long_document()})
    EXPECT_EQ(ask(bytes), "null");
}

// Nothing reads them: the connection is closed at once.
TEST(HostileBytes, without_end_behind_the_answer_are_left) {
  std::string http = answer(long_document());
  http.resize(http.size() + 50'000'000, ' ');
  const Bounds bounds(60, 160);  // with three copies on the object manager's side
  EXPECT_EQ(ask(http), whole);
}

}  // namespace
}  // namespace hostile
