// One exchange: from an HTTP request to what the connection sends back.
#pragma once

#include <optional>
#include <string>

#include "cimxml/service.h"
#include "http/credentials.h"
#include "http/request_reader.h"
#include "http/script.h"

namespace sandbox {

class Exchange {
 public:
  // Without `credentials` everybody is welcome.
  Exchange(cimxml::Service& service, std::optional<http::Credentials> credentials, bool verbose)
      : service_(service), credentials_(std::move(credentials)), verbose_(verbose) {}

  http::Script answer(const http::Request& request);

 private:
  struct Reply {
    std::string bytes;
    std::string summary;  // for the log
  };
  Reply reply_to(const http::Request& request);
  Reply reply_to_document(const http::Request& request);

  cimxml::Service& service_;
  std::optional<http::Credentials> credentials_;
  bool verbose_;
  unsigned long count_ = 0;
};

}  // namespace sandbox
