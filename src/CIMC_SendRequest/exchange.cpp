// One exchange with an object manager: a request out, its answer back.
#include <string.h>  // explicit_bzero, strnlen

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "CIMC_SendRequest/connection.h"
#include "CIMC_SendRequest/headers.h"
#include "cim_client.h"
#include "rtlog.h"

namespace {

constexpr char separator[] = "\n\r";
constexpr char refused[] = "401 Unauthorized";
constexpr char length_label[] = "Content-Length:";
constexpr char xml_start[] = "<?xml";

// Bytes that a request's message has beside its text, when the credentials do not need more.
constexpr std::size_t usual_overhead = 512;

// Bytes; a longer answer is not accepted.
constexpr long length_limit = 1L << 30;

// The logger knows the library's lines by this file and these numbers.
constexpr char log_file[] = "src/CIMC_SendRequest.c";
constexpr int request_line = 295;
constexpr int allocation_line = 355;
constexpr int response_line = 397;
constexpr int log_level = 2;

void log_text(int line, const char* format, const char* text) {
  _rt_log(log_file, line, "CIMCLIENT", "network", log_level, format, text);
}

// The outgoing message: header block, separator and request.  Its header block, which holds the
// credentials, is cleared when it goes.
class OutgoingMessage {
 public:
  OutgoingMessage(const char* request, const char* host, const char* user, const char* password) {
    const std::size_t length = std::strlen(request);
    const std::size_t room = header_room(user, password);
    if (length > INT_MAX - room) return;
    text_ = static_cast<char*>(std::malloc(length + room));
    if (!text_) return;
    text_[0] = '\0';
    // The empty line ends with the LF; the CR after it counts as the first byte of the body.
    header_length_ = static_cast<std::size_t>(
        CIMC_CreateStdHttpHeaders(host, static_cast<int>(length + 1), text_,
                                  static_cast<int>(length + room), user, password));
    char* body = text_ + header_length_;
    std::memcpy(body, separator, sizeof separator - 1);
    body += sizeof separator - 1;
    std::memcpy(body, request, length);
    size_ = static_cast<std::size_t>(body - text_) + length;
  }
  OutgoingMessage(const OutgoingMessage&) = delete;
  OutgoingMessage& operator=(const OutgoingMessage&) = delete;
  ~OutgoingMessage() { release(); }

  bool is_made() const { return text_; }
  const char* text() const { return text_; }
  std::size_t size() const { return size_; }

  void release() {
    if (text_) explicit_bzero(text_, header_length_);
    std::free(text_);
    text_ = nullptr;
  }

 private:
  static std::size_t header_room(const char* user, const char* password) {
    return std::max(usual_overhead, cim::header_block_room(user, password) + sizeof separator);
  }

  char* text_ = nullptr;
  std::size_t header_length_ = 0;
  std::size_t size_ = 0;
};

// What the first read brings, as a text: the head of the answer and the beginning of its body,
// which object managers send together.  Empty when the read fails.
struct FirstRead {
  explicit FirstRead(const cim::Socket& socket) {
    const ssize_t count = socket.read(text, sizeof text - 1);
    text[count > 0 ? count : 0] = '\0';
  }

  char text[2048];
};

// Reads the number behind "Content-Length:", however many digits it has.  False when there is
// none, and when it is negative or beyond the limit.
bool read_length(const char* text, std::size_t* length) {
  const char* label = std::strstr(text, length_label);
  if (!label) return false;
  const long number = std::strtol(label + sizeof length_label - 1, nullptr, 10);
  if (number < 0 || number > length_limit) return false;
  *length = static_cast<std::size_t>(number);
  return true;
}

char* allocate_body(std::size_t length) {
  char* body = static_cast<char*>(std::calloc(length + 1, 1));
  if (!body) std::fprintf(stderr, "%s %d could not allocate memory ", log_file, allocation_line);
  return body;
}

// Up to 512 bytes, and exactly 2048, count as arrived with the first read.
bool has_more(std::size_t length) { return (length > 512 && length < 2048) || length > 2048; }

// Reads on behind the text in `body` until it has `length` bytes or the connection ends.
void read_rest(const cim::Socket& socket, char* body, std::size_t length) {
  std::size_t received = std::strlen(body);
  while (received < length) {
    const ssize_t count = socket.read(body + received, length - received);
    if (count < 0 || (count == 0 && socket.closed_by_peer())) {
      std::fputs("ERROR!!! while recv data\n", stderr);
      return;
    }
    received += static_cast<std::size_t>(count);
  }
}

// Receives the answer to a request.  The result is that of CIMSendRequest().
int receive(const cim::Socket& socket, char** body_out) {
  const FirstRead first(socket);
  if (std::strstr(first.text, refused)) return 401;
  std::size_t length;
  if (!read_length(first.text, &length)) return -1;
  char* body = *body_out = allocate_body(length);
  if (!body) return -1;
  const char* start = std::strstr(first.text, xml_start);
  if (!start) return -1;
  std::memcpy(body, start, strnlen(start, length));
  if (has_more(length)) read_rest(socket, body, length);
  return 0;
}

}  // namespace

extern "C" {

int CIMSendRequest(const char* request, char** bodyOut, const char* host, uint32_t port,
                   const char* user, const char* password, uint32_t timeout) {
  if (!request || !bodyOut) return -1;
  OutgoingMessage message(request, host, user, password);
  if (!message.is_made()) return -1;
  rt_log_init();
  log_text(request_line, "Request:\n%s", request);
  const cim::Socket socket(CIMC_TcpConnect(host, port));
  if (!socket.is_open() || !socket.write_all(message.text(), message.size())) return -1;
  message.release();
  socket.request_receive_timeout(timeout);
  const int result = receive(socket, bodyOut);
  if (result == 0) log_text(response_line, "Respone:\n%s", *bodyOut);
  return result;
}

}  // extern "C"
