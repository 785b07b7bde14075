// Connecting to an object manager.
#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

#include "cim_client.h"
#include "support/open_descriptors.h"
#include "support/scripted_server.h"
#include "support/system_calls.h"

namespace {

using support::ScriptedServer;
using support::ServerScript;
using support::SystemCalls;

// Every test leaves the descriptors as it found them.
class TcpConnect : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(support::open_descriptors(), before_); }

 private:
  std::size_t before_ = support::open_descriptors();
};

std::vector<std::string> names(const SystemCalls& calls) {
  std::vector<std::string> names;
  for (const support::SystemCall& call : calls.made()) names.push_back(call.name);
  return names;
}

TEST_F(TcpConnect, gives_a_connected_socket_that_the_caller_closes) {
  ScriptedServer server{ServerScript()};
  const int socket = CIMC_TcpConnect("127.0.0.1", server.port());
  ASSERT_GE(socket, 0);
  sockaddr_in peer{};
  socklen_t size = sizeof peer;
  EXPECT_EQ(getpeername(socket, reinterpret_cast<sockaddr*>(&peer), &size), 0);
  EXPECT_EQ(ntohs(peer.sin_port), server.port());
  EXPECT_EQ(close(socket), 0);
  EXPECT_TRUE(server.closed_by_clients());
}

TEST_F(TcpConnect, makes_a_stream_socket_and_sets_no_option) {
  ScriptedServer server{ServerScript()};
  SystemCalls calls;
  const int socket = CIMC_TcpConnect("127.0.0.1", server.port());
  ASSERT_GE(socket, 0);
  close(socket);
  EXPECT_EQ(names(calls), (std::vector<std::string>{"socket", "connect", "close"}));
  EXPECT_EQ(calls.made("socket")[0].numbers, (std::vector<int>{AF_INET, SOCK_STREAM, 0}));
}

TEST_F(TcpConnect, gives_the_address_in_network_byte_order_and_zeros_behind_it) {
  SystemCalls calls;
  calls.give("connect", 0);
  close(CIMC_TcpConnect("1.2.3.4", 0x1234));
  ASSERT_EQ(calls.made("connect").size(), 1u);
  sa_family_t family = AF_INET;
  const std::string in_host_order(reinterpret_cast<const char*>(&family), sizeof family);
  EXPECT_EQ(calls.made("connect")[0].bytes,
            in_host_order + std::string("\x12\x34\x01\x02\x03\x04\0\0\0\0\0\0\0\0", 14));
  EXPECT_EQ(calls.made("connect")[0].size, 16u);
}

TEST_F(TcpConnect, only_the_low_16_bits_of_the_port_count) {
  ScriptedServer server{ServerScript()};
  const int socket = CIMC_TcpConnect("127.0.0.1", server.port() + 0x70000u);
  EXPECT_GE(socket, 0);
  close(socket);
}

TEST_F(TcpConnect, does_not_look_names_up_and_takes_them_for_255_255_255_255) {
  SystemCalls calls;
  calls.fail("connect", ENETUNREACH);
  EXPECT_EQ(CIMC_TcpConnect("localhost", 80), -1);
  EXPECT_EQ(calls.made("connect")[0].bytes.substr(4, 4), "\xFF\xFF\xFF\xFF");
}

TEST_F(TcpConnect, a_null_host_fails_without_a_socket) {
  const SystemCalls calls;
  EXPECT_EQ(CIMC_TcpConnect(nullptr, 80), -1);
  EXPECT_TRUE(calls.made().empty());
}

TEST_F(TcpConnect, fails_when_there_is_no_socket) {
  SystemCalls calls;
  calls.fail("socket", EMFILE);
  EXPECT_EQ(CIMC_TcpConnect("127.0.0.1", 80), -1);
  EXPECT_EQ(names(calls), (std::vector<std::string>{"socket"}));
}

TEST_F(TcpConnect, a_refused_connection_leaves_no_socket_open) {
  SystemCalls calls;
  EXPECT_EQ(CIMC_TcpConnect("127.0.0.1", support::unused_port()), -1);
  ASSERT_EQ(calls.made("connect").size(), 1u);
  EXPECT_EQ(calls.made("connect")[0].error, ECONNREFUSED);
}

TEST_F(TcpConnect, every_failure_leaves_no_socket_open) {
  for (const int error : {ECONNREFUSED, ETIMEDOUT, EHOSTUNREACH, ENETUNREACH, EACCES, EISCONN}) {
    SystemCalls calls;
    calls.fail("connect", error);
    EXPECT_EQ(CIMC_TcpConnect("127.0.0.1", 80), -1);
    EXPECT_EQ(names(calls), (std::vector<std::string>{"socket", "connect", "close"}));
  }
}

TEST_F(TcpConnect, is_repeated_when_a_signal_interrupts_it) {
  ScriptedServer server{ServerScript()};
  SystemCalls calls;
  calls.fail("connect", EINTR, 2);
  const int socket = CIMC_TcpConnect("127.0.0.1", server.port());
  EXPECT_GE(socket, 0);
  EXPECT_EQ(calls.made("connect").size(), 3u);
  close(socket);
}

TEST_F(TcpConnect, a_connection_made_while_interrupted_counts) {
  SystemCalls calls;
  calls.fail("connect", EINTR).fail("connect", EISCONN);
  const int socket = CIMC_TcpConnect("127.0.0.1", 80);
  EXPECT_GE(socket, 0);
  close(socket);
}

TEST_F(TcpConnect, a_failure_after_an_interruption_is_a_failure) {
  SystemCalls calls;
  calls.fail("connect", EINTR).fail("connect", ECONNREFUSED);
  EXPECT_EQ(CIMC_TcpConnect("127.0.0.1", 80), -1);
}

}  // namespace
