// One exchange: from an HTTP request to what the connection sends back.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cimxml/service.h"
#include "faults/fault.h"
#include "http/credentials.h"
#include "http/request_reader.h"
#include "http/script.h"
#include "record/record.h"

namespace sandbox {

class Exchange {
 public:
  struct Settings {
    std::optional<http::Credentials> credentials;  // nothing: everybody is welcome
    faults::Plan faults;
    bool verbose = false;
  };

  // `recorder` may be null.
  Exchange(cimxml::Service& service, Settings settings, record::Recorder* recorder)
      : service_(service), settings_(std::move(settings)), recorder_(recorder) {}

  http::Script answer(const http::Request& request);

 private:
  struct Reply {
    std::string bytes;
    std::string summary;    // for the log
    std::string operation;  // empty when the request calls none
  };
  Reply reply_to(const http::Request& request);
  Reply reply_to_document(const http::Request& request);
  std::optional<Error> intercept(std::string_view operation);
  void log(const Reply& reply);
  void record(const http::Request& request, const Reply& reply, const http::Script& script);

  cimxml::Service& service_;
  Settings settings_;
  record::Recorder* recorder_;
  unsigned long count_ = 0;
  std::optional<std::vector<faults::Action>> actions_;  // for the request at hand, once chosen
};

}  // namespace sandbox
