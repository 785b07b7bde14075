// Name resolution.
#include "resolve.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <memory>

#include "exit_status.h"
#include "utf8.h"

namespace cli {
namespace {

struct ReleaseAddresses {
  void operator()(addrinfo* list) const { freeaddrinfo(list); }
};

std::string reason(int code) {
  return code == EAI_SYSTEM ? std::strerror(errno) : gai_strerror(code);
}

std::string dotted(const sockaddr* address) {
  sockaddr_in internet = {};
  std::memcpy(&internet, address, sizeof(internet));
  std::array<char, INET_ADDRSTRLEN> text = {};
  inet_ntop(AF_INET, &internet.sin_addr, text.data(), text.size());
  return text.data();
}

}  // namespace

std::string resolve(const std::string& host) {
  addrinfo wanted = {};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  const int code = getaddrinfo(host.c_str(), nullptr, &wanted, &found);
  const std::unique_ptr<addrinfo, ReleaseAddresses> list(found);
  if (code != 0 || list == nullptr)
    throw Failure(ExitStatus::NoAnswer,
                  "no IPv4 address is known for host " + printable(host) + ": " + reason(code));
  return dotted(list->ai_addr);
}

}  // namespace cli
