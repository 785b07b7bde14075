// The exchange over loopback, with another process that answers.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "cim_client.h"
#include "sample.h"

namespace bench {
namespace {

constexpr std::size_t whole = ~std::size_t{0};
constexpr std::size_t ethernet = 1448;  // bytes of a segment that a network card brings

void write_all(int socket, const char* bytes, std::size_t count) {
  while (count > 0) {
    const ssize_t written = write(socket, bytes, count);
    if (written <= 0) std::abort();
    bytes += written;
    count -= static_cast<std::size_t>(written);
  }
}

// Answers every connection with the same bytes, in a process of its own.
class Server {
 public:
  Server(std::string answer, std::size_t segment) : answer_(std::move(answer)), segment_(segment) {
    socket_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(socket_, reinterpret_cast<sockaddr*>(&address), size) != 0 || listen(socket_, 8) != 0)
      std::abort();
    getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
    process_ = fork();
    if (process_ == 0) serve();
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  ~Server() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    close(socket_);
  }

  std::uint16_t port() const { return port_; }

 private:
  [[noreturn]] void serve() const {
    char request[65536];
    for (;;) {
      const int client = accept(socket_, nullptr, nullptr);
      const int on = 1;
      setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
      if (read(client, request, sizeof request) > 0)
        for (std::size_t at = 0; at < answer_.size(); at += std::min(segment_, answer_.size() - at))
          write_all(client, answer_.data() + at, std::min(segment_, answer_.size() - at));
      close(client);
    }
  }

  std::string answer_;
  std::size_t segment_;
  int socket_;
  std::uint16_t port_;
  pid_t process_;
};

std::string http_answer(const std::string& body) {
  return "HTTP/1.1 200 OK\r\nContent-Type: application/xml; charset=\"utf-8\"\r\nContent-Length: " +
         std::to_string(body.size()) + "\r\nCIMOperation: MethodResponse\r\n\r\n" + body;
}

class Exchange : public Work {
 public:
  Exchange(const std::string& body, std::size_t segment)
      : body_(body), server_(http_answer(body), segment) {}
  clockid_t clock() const override { return CLOCK_MONOTONIC; }

 protected:
  const std::string& body() const { return body_; }
  std::uint16_t port() const { return server_.port(); }

 private:
  std::string body_;
  Server server_;
};

class Send : public Exchange {
 public:
  using Exchange::Exchange;
  void run() override {
    if (CIMSendRequest("<?xml version=\"1.0\"?>", &answer_, "127.0.0.1", port(), "user", "password",
                       0) != 0)
      std::abort();
  }
  void after() override {
    if (body() != answer_) std::abort();
    std::free(std::exchange(answer_, nullptr));
  }

 private:
  char* answer_ = nullptr;
};

// Connect, one write, reads until the end, into memory that is there.
class Raw : public Exchange {
 public:
  Raw(const std::string& body, std::size_t segment) : Exchange(body, segment) {}
  void before() override { answer_ = static_cast<char*>(std::malloc(body().size() + 4096)); }
  void run() override {
    const int connection = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0)
      std::abort();
    const char request[] = "POST / HTTP/1.1\r\n\r\n<?xml version=\"1.0\"?>";
    write_all(connection, request, sizeof request - 1);
    std::size_t count = 0;
    for (ssize_t got = 0;
         (got = recv(connection, answer_ + count, body().size() + 4096 - count, 0)) > 0;)
      count += static_cast<std::size_t>(got);
    close(connection);
    if (count < body().size()) std::abort();
  }
  void after() override { std::free(answer_); }

 private:
  char* answer_ = nullptr;
};

// A whole operation: request, exchange, records.
class Enumerate : public Exchange {
 public:
  explicit Enumerate(const std::string& body) : Exchange(body, whole) {
    handle_.host = host_;
    handle_.port = port();
    handle_.namespace_ = namespace_;
    handle_.user = user_;
    handle_.password = password_;
    class_name_.name = name_;
  }
  void run() override {
    Error* error = nullptr;
    instances_ = EnumerateInstances(&handle_, &class_name_, 0, 1, 0, 0, nullptr, &error);
    if (!instances_) std::abort();
  }
  void after() override { Free_NamedInstance(std::exchange(instances_, nullptr)); }

 private:
  char host_[10] = "127.0.0.1";
  char namespace_[11] = "root/cimv2";
  char user_[5] = "user";
  char password_[9] = "password";
  char name_[8] = "CIM_Fan";
  struct client_Configuration handle_ = {};
  ClassName class_name_ = {};
  NamedInstance* instances_ = nullptr;
};

}  // namespace

std::unique_ptr<Work> exchange_work(std::string_view name, std::string document) {
  if (name == "send") return std::make_unique<Send>(document, whole);
  if (name == "send-segments") return std::make_unique<Send>(document, ethernet);
  if (name == "raw") return std::make_unique<Raw>(document, whole);
  if (name == "raw-segments") return std::make_unique<Raw>(document, ethernet);
  if (name == "enumerate") return std::make_unique<Enumerate>(document);
  return nullptr;
}

}  // namespace bench
