// An exchange that is answered with arbitrary bytes in arbitrary pieces.  The first eight bytes of
// the input are the sizes of the pieces, in turn; the rest is the answer, at whose end the peer
// closes.  The socket calls are this program's own.
#include <dlfcn.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "cim_client.h"

namespace {

constexpr int our_socket = 1000000;  // no descriptor of the process's
constexpr std::size_t size_count = 8;

struct Peer {
  const std::uint8_t* sizes;
  const std::uint8_t* bytes;
  std::size_t left;
  std::size_t piece = 0;
};
Peer* peer = nullptr;

// libc's own function, behind the one of this program.
template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define OURS extern "C" [[gnu::visibility("default")]]

OURS int socket(int family, int type, int protocol) noexcept {
  return peer ? our_socket : next<int(int, int, int)>("socket")(family, type, protocol);
}

OURS int connect(int descriptor, const sockaddr* address, socklen_t size) {
  if (descriptor == our_socket) return 0;
  return next<int(int, const sockaddr*, socklen_t)>("connect")(descriptor, address, size);
}

OURS int setsockopt(int descriptor, int level, int name, const void* value,
                    socklen_t size) noexcept {
  if (descriptor == our_socket) return 0;
  return next<int(int, int, int, const void*, socklen_t)>("setsockopt")(descriptor, level, name,
                                                                        value, size);
}

OURS ssize_t write(int descriptor, const void* bytes, std::size_t size) {
  static auto* const own = next<ssize_t(int, const void*, std::size_t)>("write");
  return descriptor == our_socket ? static_cast<ssize_t>(size) : own(descriptor, bytes, size);
}

OURS ssize_t recv(int descriptor, void* room, std::size_t size, int flags) {
  if (descriptor != our_socket)
    return next<ssize_t(int, void*, std::size_t, int)>("recv")(descriptor, room, size, flags);
  const std::size_t piece = peer->sizes[peer->piece++ % size_count];
  const std::size_t count = std::min({size, peer->left, 1 + piece * piece});
  std::memcpy(room, peer->bytes, count);
  peer->bytes += count;
  peer->left -= count;
  return static_cast<ssize_t>(count);
}

OURS int poll(pollfd* states, nfds_t count, int timeout) {
  static auto* const own = next<int(pollfd*, nfds_t, int)>("poll");
  if (count != 1 || states->fd != our_socket) return own(states, count, timeout);
  states->revents = peer->left == 0 ? POLLRDHUP : 0;
  return states->revents != 0;
}

OURS int close(int descriptor) {
  static auto* const own = next<int(int)>("close");
  return descriptor == our_socket ? 0 : own(descriptor);
}

namespace {

void exchange(Peer input) {
  peer = &input;
  char* body = nullptr;
  const int result = CIMSendRequest("<?xml?>", &body, "127.0.0.1", 1, "user", "password", 1);
  peer = nullptr;
  if (result != 0 && result != -1 && result != 401) std::abort();
  if (result == 0 && !body) std::abort();
  if (body && std::strlen(body) > (1U << 30U)) std::abort();
  std::free(body);
}

void operate(Peer input) {
  static auto* handle = client_Configuration("127.0.0.1", 1, "root/cimv2", 1, "user", "password");
  static ClassName* name = CIMC_CreateClassName("CIM_Fan");
  handle->interface = 0;
  Error* error = nullptr;
  peer = &input;
  NamedInstance* list = EnumerateInstances(handle, name, 0, 1, 0, 0, nullptr, &error);
  peer = nullptr;
  Free_NamedInstance(list);
  Free_Error(error);
  parseXML("");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < size_count) return 0;
  const Peer input{data, data + size_count, size - size_count};
  exchange(input);
  operate(input);
  return 0;
}
