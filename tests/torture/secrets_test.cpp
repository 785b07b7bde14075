// User and password: in no log line, no trace line, no output and no error text, and in no memory
// of the process when the handle has gone.
#include <gtest/gtest.h>
#include <string.h>  // explicit_bzero
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "cim_client.h"
#include "operations/every_operation.h"
#include "support/captured_output.h"
#include "support/recorded_log.h"
#include "support/scripted_server.h"

namespace {

// Every trace line so far.
std::string traced;

}  // namespace

int EmptyPrintf(const char* format, ...) {
  std::array<char, 65536> line;
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line.data(), line.size(), format, arguments);
  va_end(arguments);
  traced += line.data();
  return 0;
}

namespace {

using operations_test::every_operation;
using operations_test::Handle;
using operations_test::http_answer;
using operations_test::http_refusal;
using operations_test::Operation;
using operations_test::OwnedError;
using support::ScriptedServer;
using support::ServerScript;

struct ReleasesHandle {
  void operator()(Handle* handle) const { Free_client_Configuration(handle); }
};
using OwnedHandle = std::unique_ptr<Handle, ReleasesHandle>;

OwnedHandle make_handle(std::uint16_t port, const char* user, const char* password) {
  OwnedHandle handle(client_Configuration("127.0.0.1", port, "root/cimv2", 1000, user, password));
  if (handle) handle->interface = 0;
  return handle;
}

// ---- What the library says ----

class SaidSecrets : public testing::TestWithParam<Operation> {
 protected:
  // Calls the operation with credentials.  Returns all that was said meanwhile.
  static std::string said(std::uint16_t port) {
    traced.clear();
    const support::RecordedLog log;
    const support::CapturedOutput output(stdout), errors(stderr);
    Error* error = nullptr;
    const OwnedHandle handle = make_handle(port, user, password);
    std::string text = GetParam().call(handle.get(), &error);
    text += operations_test::text_of(OwnedError(error).get());
    for (const std::string& call : log.calls()) text += call;
    return text + traced + output.text() + errors.text();
  }

  static void expect_no_secrets(const std::string& text) {
    EXPECT_EQ(text.find(user), std::string::npos);
    EXPECT_EQ(text.find(password), std::string::npos);
    EXPECT_EQ(text.find(encoded), std::string::npos);
  }

  static constexpr char user[] = "zephyrine";
  static constexpr char password[] = "quicklime";
  static constexpr char encoded[] = "emVwaHlyaW5lOnF1aWNrbGltZQ==";  // zephyrine:quicklime
};

TEST_P(SaidSecrets, are_none_whatever_the_answer) {
  const std::string whole = http_answer(GetParam().answer);
  for (const std::string& answer :
       {whole, http_answer(GetParam().error_answer), http_answer(GetParam().empty_answer),
        http_refusal(), whole.substr(0, 60), whole.substr(0, whole.size() / 2), std::string()}) {
    ScriptedServer server(ServerScript().read_request().send(answer).close());
    const std::string text = said(server.port());
    EXPECT_NE(text.find("<MESSAGE"), std::string::npos);  // the request was logged and traced
    expect_no_secrets(text);
    EXPECT_NE(server.received()[0].find(encoded), std::string::npos);
  }
}

TEST_P(SaidSecrets, are_none_when_nobody_answers) {
  const std::string text = said(support::unused_port());
  EXPECT_NE(text.find("Couldn't send request"), std::string::npos);
  expect_no_secrets(text);
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, SaidSecrets, testing::ValuesIn(every_operation()),
                         [](const auto& operation) { return operation.param.name; });

// ---- What a core of the process would hold ----

// A text that stands nowhere in the process's memory until plain() puts it there.
template <std::size_t Size>
class Hidden {
 public:
  consteval Hidden(const char (&text)[Size]) {  // NOLINT: converts a literal
    for (std::size_t i = 0; i < Size - 1; ++i) scrambled_[i] = static_cast<char>(text[i] ^ mask);
  }

  // Writes the text, and a terminator, to `room`.
  void plain(char* room) const {
    for (std::size_t i = 0; i < Size - 1; ++i) room[i] = static_cast<char>(scrambled_[i] ^ mask);
    room[Size - 1] = '\0';
  }

  // The next place with its first letter where there is room for it, null without one.
  const char* next_beginning(const char* place, const char* end) const {
    const auto left = static_cast<std::size_t>(end - place);
    if (left < length) return nullptr;
    return static_cast<const char*>(std::memchr(place, scrambled_[0] ^ mask, left - length + 1));
  }

  bool stands_at(const char* place) const {
    for (std::size_t i = 0; i < Size - 1; ++i)
      if (place[i] != static_cast<char>(scrambled_[i] ^ mask)) return false;
    return true;
  }

  static constexpr std::size_t length = Size - 1;

 private:
  static constexpr char mask = 0x55;
  std::array<char, Size - 1> scrambled_{};
};

// A piece of memory that can be written, and is in a core.
struct Region {
  const char* begin;
  const char* end;
};

std::vector<Region> writable_memory() {
  std::vector<Region> regions;
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);) {
    unsigned long begin, end;
    char rights[5];
    if (std::sscanf(line.c_str(), "%lx-%lx %4s", &begin, &end, rights) == 3 &&
        std::strncmp(rights, "rw", 2) == 0)
      regions.push_back({reinterpret_cast<const char*>(begin), reinterpret_cast<const char*>(end)});
  }
  return regions;
}

// How often the text stands in the process's memory.
template <std::size_t Size>
int count_in_memory(const Hidden<Size>& text) {
  int count = 0;
  for (const Region& region : writable_memory())
    for (const char* place = region.begin; (place = text.next_beginning(place, region.end));
         ++place)
      if (text.stands_at(place)) ++count;
  return count;
}

constexpr Hidden core_user("marmaladejudge");
constexpr Hidden core_password("snowdropanvil");
constexpr Hidden core_encoded("bWFybWFsYWRlanVkZ2U6c25vd2Ryb3BhbnZpbA==");

// An object manager in a process of its own: it gets the credentials, and its memory is not ours.
class ForeignServer {
 public:
  explicit ForeignServer(const std::string& answer) {
    int to_parent[2];
    int to_child[2];
    if (pipe(to_parent) != 0 || pipe(to_child) != 0) throw std::runtime_error("no pipe");
    child_ = fork();
    if (child_ == 0) {
      close(to_child[1]);
      const ScriptedServer server(support::answer(answer));
      const std::uint16_t port = server.port();
      if (write(to_parent[1], &port, sizeof port) != sizeof port) _exit(1);
      char end;
      _exit(read(to_child[0], &end, 1) == 0 ? 0 : 1);
    }
    close(to_parent[1]);
    close(to_child[0]);
    end_ = to_child[1];
    if (read(to_parent[0], &port_, sizeof port_) != sizeof port_) port_ = 0;
    close(to_parent[0]);
  }
  ForeignServer(const ForeignServer&) = delete;
  ForeignServer& operator=(const ForeignServer&) = delete;
  ~ForeignServer() {
    close(end_);
    waitpid(child_, nullptr, 0);
  }

  std::uint16_t port() const { return port_; }

 private:
  pid_t child_;
  int end_;
  std::uint16_t port_ = 0;
};

OwnedHandle make_hidden_handle(std::uint16_t port) {
  char user[core_user.length + 1];
  char password[core_password.length + 1];
  core_user.plain(user);
  core_password.plain(password);
  OwnedHandle handle = make_handle(port, user, password);
  explicit_bzero(user, sizeof user);
  explicit_bzero(password, sizeof password);
  return handle;
}

class SecretsInMemory : public testing::TestWithParam<Operation> {};

TEST_P(SecretsInMemory, go_with_the_message_and_the_handle) {
  for (const std::string& answer : {http_answer(GetParam().answer), http_refusal()}) {
    const ForeignServer server(answer);
    OwnedHandle handle = make_hidden_handle(server.port());
    Error* error = nullptr;
    const std::string result = GetParam().call(handle.get(), &error);
    const OwnedError owned_error(error);
    EXPECT_TRUE(result == GetParam().result || result == GetParam().refusal_result) << result;
    EXPECT_EQ(count_in_memory(core_user), 1);
    EXPECT_EQ(count_in_memory(core_password), 1);
    EXPECT_EQ(count_in_memory(core_encoded), 0);
    handle.reset();
    EXPECT_EQ(count_in_memory(core_user), 0);
    EXPECT_EQ(count_in_memory(core_password), 0);
  }
}

TEST(CountInMemory, sees_what_is_there) {
  std::string text(decltype(core_encoded)::length, '\0');
  core_encoded.plain(text.data());
  EXPECT_EQ(count_in_memory(core_encoded), 1);
  explicit_bzero(text.data(), text.size());
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, SecretsInMemory, testing::ValuesIn(every_operation()),
                         [](const auto& operation) { return operation.param.name; });

}  // namespace
