// One exchange with an object manager, as it is meant to go.
#include "exchange.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "cim_client.h"
#include "support/recorded_log.h"
#include "support/scripted_server.h"
#include "support/system_calls.h"

namespace {

using exchange::body;
using exchange::failure;
using exchange::head;
using exchange::Outcome;
using exchange::refusal;
using exchange::send;
using exchange::success;
using support::answer;
using support::ScriptedServer;
using support::ServerScript;
using support::SystemCalls;
using Strings = std::vector<std::string>;

class Exchange : public exchange::Test {};

// What a client gets that the server plays `script` to.
Outcome after(ServerScript script) {
  ScriptedServer server(std::move(script));
  Outcome outcome = send(server.port());
  EXPECT_TRUE(server.closed_by_clients());
  return outcome;
}

// The same when the first read brings `size` bytes of `bytes`, and later ones the rest.
Outcome after_first_read_of(std::size_t size, const std::string& bytes) {
  ScriptedServer server(answer(bytes));
  SystemCalls calls;
  calls.shorten("recv", size);
  return send(server.port());
}

// The request

TEST_F(Exchange, sends_header_block_lf_cr_and_request) {
  ScriptedServer server(answer(exchange::answer(100)));
  EXPECT_EQ(send(server.port()), success(body(100)));
  EXPECT_EQ(server.received(), Strings{"POST  /cimom HTTP/1.1 \r\n"
                                       "Content-Type: application/xml; charset=\"utf-8\"\r\n"
                                       "Content-Length: 10\r\n"
                                       "Authorization: Basic dTpw\r\n"
                                       "\n\r"
                                       "<?xml a?>"});
}

TEST_F(Exchange, announces_one_byte_more_than_the_request_has) {
  ScriptedServer server(answer(exchange::answer(100)));
  char* text = nullptr;
  EXPECT_EQ(CIMSendRequest("", &text, "127.0.0.1", server.port(), "u", nullptr, 0), 0);
  std::free(text);
  EXPECT_EQ(server.received(), Strings{"POST  /cimom HTTP/1.1 \r\n"
                                       "Content-Type: application/xml; charset=\"utf-8\"\r\n"
                                       "Content-Length: 1\r\n"
                                       "Authorization: Basic dTo=\r\n"
                                       "\n\r"});
}

TEST_F(Exchange, sends_a_request_of_any_length_whole) {
  ScriptedServer server(answer(exchange::answer(100)));
  const std::string request = body(3000000);
  char* text = nullptr;
  EXPECT_EQ(CIMSendRequest(request.c_str(), &text, "127.0.0.1", server.port(), "u", "p", 0), 0);
  std::free(text);
  EXPECT_TRUE(server.received() == Strings{"POST  /cimom HTTP/1.1 \r\n"
                                           "Content-Type: application/xml; charset=\"utf-8\"\r\n"
                                           "Content-Length: 3000001\r\n"
                                           "Authorization: Basic dTpw\r\n"
                                           "\n\r" +
                                           request});
}

TEST_F(Exchange, credentials_of_any_length_leave_the_request_whole) {
  for (const std::size_t size : {280u, 290u, 12268u, 20000u, 1000000u}) {
    ScriptedServer server(answer(exchange::answer(100)));
    const std::string user(size, 'a');
    char* text = nullptr;
    EXPECT_EQ(CIMSendRequest("<?xml a?>", &text, "127.0.0.1", server.port(), user.c_str(), "p", 0),
              0);
    std::free(text);
    std::vector<char> block(20000);
    CIMC_CreateStdHttpHeaders("", 10, block.data(), 20000, user.c_str(), "p");
    EXPECT_TRUE(server.received() == Strings{block.data() + std::string("\n\r<?xml a?>")}) << size;
  }
}

TEST_F(Exchange, logs_request_and_body_under_their_known_lines) {
  ScriptedServer server(answer(exchange::answer(100)));
  const support::RecordedLog log;
  EXPECT_EQ(send(server.port()).result, 0);
  EXPECT_EQ(
      log.calls(),
      (Strings{"init", "src/CIMC_SendRequest.c|295|CIMCLIENT|network|2|Request:\n%s|<?xml a?>",
               "src/CIMC_SendRequest.c|397|CIMCLIENT|network|2|Respone:\n%s|" + body(100)}));
}

TEST_F(Exchange, asks_for_the_time_out_with_an_option_length_of_0) {
  ScriptedServer server(answer(exchange::answer(100)));
  SystemCalls calls;
  EXPECT_EQ(send(server.port()).result, 0);
  ASSERT_EQ(calls.made("setsockopt").size(), 1u);
  const support::SystemCall call = calls.made("setsockopt")[0];
  EXPECT_EQ(call.numbers, (std::vector<int>{SOL_SOCKET, SO_RCVTIMEO}));
  EXPECT_EQ(call.size, 0u);
  EXPECT_EQ(call.result, -1);  // so that reads wait without limit
  timeval limit{};
  std::memcpy(&limit, call.bytes.data(), sizeof limit);
  EXPECT_EQ(limit.tv_sec, 1);
}

TEST_F(Exchange, the_rest_of_the_time_out_goes_in_as_microseconds_as_it_stands) {
  ScriptedServer server(answer(exchange::answer(100)));
  SystemCalls calls;
  EXPECT_EQ(send(server.port()).result, 0);  // 1500 ms
  timeval limit{};
  std::memcpy(&limit, calls.made("setsockopt")[0].bytes.data(), sizeof limit);
  EXPECT_EQ(limit.tv_usec, 500);
}

TEST_F(Exchange, the_calls_come_in_order_and_the_socket_closes) {
  ScriptedServer server(answer(exchange::answer(100)));
  SystemCalls calls;
  EXPECT_EQ(send(server.port()).result, 0);
  Strings names;
  for (const support::SystemCall& call : calls.made()) names.push_back(call.name);
  EXPECT_EQ(names, (Strings{"socket", "connect", "write", "setsockopt", "recv", "close"}));
}

// The first read

TEST_F(Exchange, the_first_read_asks_for_2047_bytes) {
  ScriptedServer server(answer(exchange::answer(500)));
  SystemCalls calls;
  EXPECT_EQ(send(server.port()), success(body(500)));
  ASSERT_EQ(calls.made("recv").size(), 1u);
  EXPECT_EQ(calls.made("recv")[0].size, 2047u);
  EXPECT_EQ(calls.made("recv")[0].numbers, std::vector<int>{0});
}

TEST_F(Exchange, a_head_that_arrives_alone_is_a_failure_with_an_empty_body) {
  EXPECT_EQ(after_first_read_of(head("100").size(), exchange::answer(100)),
            (Outcome{-1, true, true, ""}));
}

TEST_F(Exchange, a_head_torn_before_its_length_is_a_failure) {
  EXPECT_EQ(after_first_read_of(head("100").find("-Length"), exchange::answer(100)), failure());
}

TEST_F(Exchange, a_refusal_is_recognised_by_its_text) {
  EXPECT_EQ(after(answer("HTTP/1.1 401 Unauthorized\r\n"
                         "WWW-Authenticate: Basic realm=\"cimom\"\r\n"
                         "Content-Length: 0\r\n\r\n")),
            refusal());
}

TEST_F(Exchange, a_refusal_with_two_blanks_is_recognised) {
  EXPECT_EQ(after(answer("HTTP/1.1  401 Unauthorized\r\nContent-Length: 0\r\n\r\n")), refusal());
}

TEST_F(Exchange, a_refusal_counts_however_the_rest_looks) {
  EXPECT_EQ(after(answer("401 Unauthorized")), refusal());
  EXPECT_EQ(after(answer(head("500") + body(500) + "<!-- 401 Unauthorized -->")), refusal());
}

TEST_F(Exchange, a_refusal_behind_the_first_read_is_not_seen) {
  const std::string text = body(2100) + "401 Unauthorized";
  EXPECT_EQ(after(answer(head("2116") + text)), success(text));
}

TEST_F(Exchange, another_status_does_not_matter) {
  EXPECT_EQ(after(answer("HTTP/1.1 500 Internal Server Error\r\nContent-Length: 100\r\n\r\n" +
                         body(100))),
            success(body(100)));
}

TEST_F(Exchange, the_body_begins_at_the_first_xml_declaration_wherever_it_is) {
  EXPECT_EQ(after(answer("<?xml Content-Length: 30\r\n\r\n" + body(100))),
            success("<?xml Content-Length: 30\r\n\r\n<?"));
}

TEST_F(Exchange, the_first_read_is_a_text_that_a_zero_byte_ends) {
  EXPECT_EQ(after(answer(head("100") + "<?xml" + std::string("\0more", 5))), success("<?xml"));
  EXPECT_EQ(after(answer(std::string("\0", 1) + exchange::answer(100))), failure());
}

// Its length

TEST_F(Exchange, the_length_is_the_word_behind_the_label) {
  for (const std::string label :
       {"Content-Length:60\r\n", "Content-Length: 60\r\n", "Content-Length: \t 60 70\r\n",
        "Content-Length:\r\n 60\r\n", "Content-Length: 60;x\r\n", "Content-Length: +60\r\n",
        "Content-Length: 060\r\n", "X-Content-Length: 60\r\nContent-Length: 70\r\n"})
    EXPECT_EQ(after(answer("HTTP/1.1 200 OK\r\n" + label + "\r\n" + body(100))), success(body(60)))
        << label;
}

TEST_F(Exchange, a_length_without_digits_is_0_and_the_body_empty) {
  for (const std::string length : {"0", "-0", "x", "-", "00000000000000000000"})
    EXPECT_EQ(after(answer(head(length) + body(100))), success("")) << length;
}

TEST_F(Exchange, a_negative_length_is_a_failure_without_a_body) {
  for (const std::string length : {"-1", "-100", "-2147483649", "-99999999999999999999999999"})
    EXPECT_EQ(after(answer(head(length) + body(100))), failure()) << length;
}

TEST_F(Exchange, a_length_above_1_gib_is_a_failure_without_a_body) {
  for (const std::string length : {"1073741825", "2147483648", "4294967396", "18446744073709551716",
                                   "99999999999999999999999999"})
    EXPECT_EQ(after(answer(head(length) + body(100))), failure()) << length;
  EXPECT_EQ(after(answer(head(std::string(1500, '9')) + body(100))), failure());
}

TEST_F(Exchange, the_label_is_told_by_its_case) {
  EXPECT_EQ(after(answer("HTTP/1.1 200 OK\r\ncontent-length: 100\r\n\r\n" + body(100))), failure());
}

TEST_F(Exchange, bytes_behind_the_length_are_left) {
  EXPECT_EQ(after(answer(head("100") + body(300))), success(body(100)));
  EXPECT_EQ(after(answer(head("600") + body(1800))), success(body(600)));
  EXPECT_EQ(after(answer(head("4") + body(300))), success("<?xm"));
}

// The rest of the body

TEST_F(Exchange, bodies_of_513_to_2047_bytes_and_above_2048_are_read_to_their_end) {
  for (const std::size_t size : {513u, 514u, 1900u, 2046u, 2047u, 2049u, 2050u, 4096u, 100000u})
    EXPECT_EQ(after_first_read_of(head(std::to_string(size)).size() + 200, exchange::answer(size)),
              success(body(size)));
}

TEST_F(Exchange, bodies_of_up_to_512_and_of_exactly_2048_bytes_end_with_the_first_read) {
  for (const std::size_t size : {201u, 511u, 512u, 2048u})
    EXPECT_EQ(after_first_read_of(head(std::to_string(size)).size() + 200, exchange::answer(size)),
              success(body(200)));
}

TEST_F(Exchange, a_body_of_2048_bytes_never_comes_whole) {
  const std::size_t first = 2047 - head("2048").size();
  EXPECT_EQ(after(answer(exchange::answer(2048))), success(body(first)));
}

TEST_F(Exchange, a_body_that_has_arrived_whole_is_not_waited_for) {
  ScriptedServer server(answer(exchange::answer(1000)));
  SystemCalls calls;
  EXPECT_EQ(send(server.port()), success(body(1000)));
  EXPECT_EQ(calls.made("recv").size(), 1u);
}

TEST_F(Exchange, reads_ask_for_what_is_missing) {
  ScriptedServer server(answer(exchange::answer(5000)));
  SystemCalls calls;
  calls.pass("recv").shorten("recv", 1000);
  EXPECT_EQ(send(server.port()), success(body(5000)));
  const std::size_t first = 2047 - head("5000").size();
  ASSERT_EQ(calls.made("recv").size(), 3u);
  EXPECT_EQ(calls.made("recv")[1].size, 5000 - first);
  EXPECT_EQ(calls.made("recv")[2].size, 5000 - first - 1000);
}

TEST_F(Exchange, a_trickle_of_single_bytes_makes_a_whole_body) {
  EXPECT_EQ(after(ServerScript()
                      .read_request()
                      .send(head("3000") + body(10))
                      .send_in_pieces(body(3000).substr(10), 1)),
            success(body(3000)));
}

TEST_F(Exchange, ten_megabytes_in_small_segments_make_a_whole_body) {
  const std::string text = body(10000000);
  const Outcome outcome = after(ServerScript()
                                    .read_request()
                                    .send(head("10000000") + text.substr(0, 1000))
                                    .send_in_pieces(text.substr(1000), 1448));
  EXPECT_TRUE(outcome == success(text));
}

TEST_F(Exchange, a_zero_byte_in_the_rest_counts_as_one_byte) {
  const std::string text = body(600) + std::string("\0", 1) + body(399);
  ScriptedServer server(answer(head("1000") + text));
  SystemCalls calls;
  calls.shorten("recv", head("1000").size() + 600);
  char* received = nullptr;
  ASSERT_EQ(CIMSendRequest("a", &received, "127.0.0.1", server.port(), "u", "p", 0), 0);
  EXPECT_EQ(std::string(received, 1001), text + std::string("\0", 1));
  std::free(received);
}

TEST_F(Exchange, each_one_makes_its_own_connection) {
  ScriptedServer server(std::vector{answer(exchange::answer(100)), answer(exchange::answer(200))});
  EXPECT_EQ(send(server.port()), success(body(100)));
  EXPECT_EQ(send(server.port()), success(body(200)));
  EXPECT_EQ(server.received(2), (Strings{exchange::request, exchange::request}));
}

TEST_F(Exchange, several_threads_do_not_interfere) {
  std::vector<std::thread> threads;
  for (std::size_t number = 0; number < 4; ++number)
    threads.emplace_back([number] {
      for (std::size_t round = 0; round < 10; ++round) {
        const std::size_t size = 3000 + 10 * number + round;
        ScriptedServer server(answer(exchange::answer(size)));
        EXPECT_EQ(send(server.port()), success(body(size)));
      }
    });
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
