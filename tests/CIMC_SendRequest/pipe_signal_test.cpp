// SIGPIPE and the application: the second of two writes to a peer that has closed raises it.
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>

#include "exchange.h"
#include "support/scripted_server.h"
#include "support/system_calls.h"

namespace {

using support::ScriptedServer;
using support::ServerScript;
using support::SystemCalls;

volatile std::sig_atomic_t pipe_signals = 0;

class PipeSignal : public exchange::Test {
 protected:
  void SetUp() override {
    pipe_signals = 0;
    struct sigaction counting {};
    counting.sa_handler = [](int) { pipe_signals = pipe_signals + 1; };
    sigaction(SIGPIPE, &counting, &before_);
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
  }
  void TearDown() override {
    sigaction(SIGPIPE, &before_, nullptr);
    exchange::Test::TearDown();
  }

  void block() const { pthread_sigmask(SIG_BLOCK, &pipe_, nullptr); }
  void unblock() const { pthread_sigmask(SIG_UNBLOCK, &pipe_, nullptr); }

  static bool is_blocked() {
    sigset_t blocked;
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
    return sigismember(&blocked, SIGPIPE) == 1;
  }
  static bool is_pending() {
    sigset_t pending;
    sigpending(&pending);
    return sigismember(&pending, SIGPIPE) == 1;
  }

  static void send_to_a_peer_that_has_closed() {
    ScriptedServer server(ServerScript().close());
    SystemCalls calls;
    calls.pass_then("connect", [&] { server.received(); }).shorten("write", 1);
    EXPECT_EQ(exchange::send(server.port()), exchange::failure());
    ASSERT_EQ(calls.made("write").size(), 2u);
    EXPECT_EQ(calls.made("write")[1].error, EPIPE);
  }

 private:
  struct sigaction before_ {};
  sigset_t pipe_;
};

TEST_F(PipeSignal, does_not_reach_the_application) {
  send_to_a_peer_that_has_closed();
  EXPECT_EQ(pipe_signals, 0);
  EXPECT_FALSE(is_blocked());
  EXPECT_FALSE(is_pending());
}

TEST_F(PipeSignal, does_not_reach_an_application_that_blocks_it_later) {
  block();
  send_to_a_peer_that_has_closed();
  EXPECT_TRUE(is_blocked());
  EXPECT_FALSE(is_pending());
  unblock();
  EXPECT_EQ(pipe_signals, 0);
}

TEST_F(PipeSignal, one_that_was_pending_stays_pending) {
  block();
  raise(SIGPIPE);
  send_to_a_peer_that_has_closed();
  EXPECT_TRUE(is_blocked());
  EXPECT_TRUE(is_pending());
  unblock();
  EXPECT_EQ(pipe_signals, 1);
}

TEST_F(PipeSignal, one_that_the_application_ignores_stays_ignored) {
  signal(SIGPIPE, SIG_IGN);
  send_to_a_peer_that_has_closed();
  EXPECT_FALSE(is_blocked());
  EXPECT_FALSE(is_pending());
}

TEST_F(PipeSignal, is_deliverable_again_after_a_good_exchange) {
  ScriptedServer server(support::answer(exchange::answer(100)));
  EXPECT_EQ(exchange::send(server.port()), exchange::success(exchange::body(100)));
  EXPECT_FALSE(is_blocked());
  raise(SIGPIPE);
  EXPECT_EQ(pipe_signals, 1);
}

TEST_F(PipeSignal, ends_no_process_that_has_no_handler) {
  signal(SIGPIPE, SIG_DFL);
  send_to_a_peer_that_has_closed();
}

}  // namespace
