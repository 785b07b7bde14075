// An object manager on a loopback port that answers as a test says.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cim_client.h"
#include "support/scripted_server.h"

namespace operations_test {

using Handle = struct client_Configuration;

// ---- Documents, laid out as object managers do: a line break behind every tag ----

// What an operation answers; `content` is what stands in IMETHODRESPONSE.
std::string operation_answer(const std::string& name, const std::string& content);

// What a method answers; `content` is what stands in METHODRESPONSE.
std::string method_answer(const std::string& name, const std::string& content);

// ---- What an operation sends ----

// The document of an operation on "root/cimv2"; `parameters` is what stands behind its namespace.
std::string operation_request(const std::string& name, const std::string& parameters);

// ---- HTTP ----

// The answer that holds no document, for tests of what is sent.
inline const std::string no_answer = "HTTP/1.1 501 Not Implemented\r\n\r\n";

// The answer that holds `document`.
std::string http_answer(const std::string& document);

// The answer to a wrong user or password.
std::string http_refusal();

// ---- The object manager ----

class ObjectManager {
 public:
  // Gives the same answer, in one piece, to every request.
  explicit ObjectManager(const std::string& http);
  // Plays `script` on every connection.
  explicit ObjectManager(const support::ServerScript& script);
  // Plays one script per connection, in turn.
  explicit ObjectManager(std::vector<support::ServerScript> scripts);
  ObjectManager(const ObjectManager&) = delete;
  ObjectManager& operator=(const ObjectManager&) = delete;
  ~ObjectManager();

  // A CIM-XML handle to it: namespace "root/cimv2", user "user", password "secret".
  Handle* handle() { return handle_; }

  // All bytes of the request number `index`, from 0 on.
  std::string message(std::size_t index = 0);

  // The CIM-XML text of that request: what stands behind the head and LF CR.
  std::string request(std::size_t index = 0);

  support::ScriptedServer& server() { return server_; }

 private:
  support::ScriptedServer server_;
  Handle* handle_;
};

}  // namespace operations_test
