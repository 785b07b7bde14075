// Receiving indications with libmicrohttpd.
#include "indication_receiver.h"

#include <arpa/inet.h>
#include <microhttpd.h>
#include <netinet/in.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <exception>
#include <string_view>
#include <utility>

#include "exit_status.h"
#include "utf8.h"

namespace cli {
namespace {

constexpr unsigned connection_limit = 64;
constexpr unsigned connection_timeout = 30;  // seconds
constexpr std::chrono::seconds answer_patience(5);

// CIM status codes in refusals.
constexpr int failed = 1;
constexpr int invalid_parameter = 4;

struct ReleaseResponse {
  void operator()(MHD_Response* response) const { MHD_destroy_response(response); }
};

MHD_Result send(MHD_Connection* connection, unsigned status, const std::string& document,
                const char* cim_error) {
  // The library takes the text as writable and copies it.
  const std::unique_ptr<MHD_Response, ReleaseResponse> response(MHD_create_response_from_buffer(
      document.size(), const_cast<char*>(document.data()), MHD_RESPMEM_MUST_COPY));
  if (response == nullptr) return MHD_NO;
  MHD_add_response_header(response.get(), MHD_HTTP_HEADER_CONTENT_TYPE,
                          "application/xml; charset=\"utf-8\"");
  MHD_add_response_header(response.get(), "CIMExport", "MethodResponse");
  if (cim_error != nullptr) MHD_add_response_header(response.get(), "CIMError", cim_error);
  return MHD_queue_response(connection, status, response.get());
}

}  // namespace

// One request, from its head to its answer.
class IndicationReceiver::Request {
 public:
  // What libmicrohttpd calls: first with the head alone, then with each part of the body, then
  // once with no body left.
  static MHD_Result handle(void* receiver, MHD_Connection* connection, const char*,
                           const char* method, const char*, const char* data, std::size_t* size,
                           void** place) try {
    auto* request = static_cast<Request*>(*place);
    if (request == nullptr) {
      *place = new Request(*static_cast<IndicationReceiver*>(receiver));
      return MHD_YES;
    }
    if (*size > 0) {
      request->take({data, *size});
      *size = 0;
      return MHD_YES;
    }
    return request->answer(connection, method);
  } catch (const std::exception&) {
    return MHD_NO;  // closes the connection: no exception may pass through the C library
  }

  // Called when the answer has been sent, or the connection has gone.
  static void release(void*, MHD_Connection*, void** place, MHD_RequestTerminationCode) {
    delete static_cast<Request*>(*place);
    *place = nullptr;
  }

  explicit Request(IndicationReceiver& receiver) : receiver_(receiver) {
    const std::lock_guard lock(receiver_.mutex_);
    ++receiver_.at_work_;
  }
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;
  ~Request() {
    const std::lock_guard lock(receiver_.mutex_);
    --receiver_.at_work_;
    receiver_.answered_.notify_one();
  }

 private:
  void take(std::string_view part) {
    if (body_.size() + part.size() > request_limit) {
      too_long_ = true;
      return;
    }
    body_.append(part);
  }

  MHD_Result answer(MHD_Connection* connection, std::string_view method) {
    if (method != "POST" && method != "M-POST")
      return send(connection, MHD_HTTP_METHOD_NOT_ALLOWED, "", nullptr);
    if (too_long_) {
      ++receiver_.malformed_;
      return send(connection, MHD_HTTP_CONTENT_TOO_LARGE, "", nullptr);
    }
    return answer_document(connection);
  }

  MHD_Result answer_document(MHD_Connection* connection) {
    ExportOutcome outcome = read_export(std::move(body_));
    if (!outcome.is_xml) {
      ++receiver_.malformed_;
      return send(connection, MHD_HTTP_BAD_REQUEST,
                  refusal("", invalid_parameter, "the request is no CIM-XML"),
                  "request-not-well-formed");
    }
    if (!outcome.indication) {
      ++receiver_.malformed_;
      return send(connection, MHD_HTTP_OK,
                  refusal(outcome.message_id, invalid_parameter, "the request is no indication"),
                  nullptr);
    }
    if (!receiver_.queue_.push(std::move(*outcome.indication))) {
      ++receiver_.turned_away_;
      return send(connection, MHD_HTTP_OK,
                  refusal(outcome.message_id, failed, "too many indications wait here already"),
                  nullptr);
    }
    return send(connection, MHD_HTTP_OK, acceptance(outcome.message_id), nullptr);
  }

  IndicationReceiver& receiver_;
  std::string body_;
  bool too_long_ = false;
};

void IndicationReceiver::Stop::operator()(MHD_Daemon* daemon) const { MHD_stop_daemon(daemon); }

IndicationReceiver::IndicationReceiver(const std::string& address, std::uint16_t port,
                                       IndicationQueue& queue)
    : queue_(queue) {
  sockaddr_in place = {};
  place.sin_family = AF_INET;
  place.sin_port = htons(port);
  if (inet_pton(AF_INET, address.c_str(), &place.sin_addr) != 1)
    throw usage_failure(printable(address) + " is no IPv4 address to listen on");
  errno = 0;
  daemon_.reset(MHD_start_daemon(
      MHD_USE_POLL_INTERNAL_THREAD | MHD_USE_ITC, port, nullptr, nullptr, &Request::handle, this,
      MHD_OPTION_SOCK_ADDR, reinterpret_cast<const sockaddr*>(&place), MHD_OPTION_CONNECTION_LIMIT,
      connection_limit, MHD_OPTION_CONNECTION_TIMEOUT, connection_timeout,
      MHD_OPTION_NOTIFY_COMPLETED, &Request::release, nullptr, MHD_OPTION_END));
  if (daemon_ == nullptr)
    throw usage_failure("cannot listen on " + address + ":" + std::to_string(port) +
                        (errno == 0 ? "" : std::string(": ") + std::strerror(errno)));
}

IndicationReceiver::~IndicationReceiver() = default;

void IndicationReceiver::finish() {
  const MHD_socket listening = MHD_quiesce_daemon(daemon_.get());
  if (listening != MHD_INVALID_SOCKET) listening_ = Descriptor(listening);
  std::unique_lock lock(mutex_);
  answered_.wait_for(lock, answer_patience, [this] { return at_work_ == 0; });
}

std::size_t IndicationReceiver::at_work() {
  const std::lock_guard lock(mutex_);
  return at_work_;
}

std::uint16_t IndicationReceiver::port() const {
  const MHD_DaemonInfo* info = MHD_get_daemon_info(daemon_.get(), MHD_DAEMON_INFO_BIND_PORT);
  return info == nullptr ? std::uint16_t{0} : info->port;
}

}  // namespace cli
