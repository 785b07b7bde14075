// A local broker that answers what a test tells it.  A test program that links it has the
// library that the client loads: libcimcClientSfcbLocal.so.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "broker.h"
#include "ledger.h"

namespace support {

// What the broker answers to whatever it is asked next.
struct BrokerScript {
  bool connects = true;
  std::set<std::string, std::less<>> refused;  // kinds of objects and names of calls
  int code = 0;                                // CIM status code
  std::optional<std::string> message;          // nothing: no message object
  // Nothing: calls give no enumeration, instance, class or path.
  std::optional<std::vector<sandbox_local::Datum>> elements;
  std::shared_ptr<sandbox_local::InstanceObject> instance;
  std::shared_ptr<sandbox_local::ClassObject> found_class;
  std::shared_ptr<sandbox_local::Path> path;
  sandbox_local::CIMCData returned{};
  std::vector<sandbox_local::Member> out;
};

// One test's broker: notes the calls, and has an opinion at its end.
class ScriptedBroker {
 public:
  ScriptedBroker();
  ScriptedBroker(const ScriptedBroker&) = delete;
  ScriptedBroker& operator=(const ScriptedBroker&) = delete;
  // Fails the test when an object was released twice or is still live.
  ~ScriptedBroker();

  BrokerScript script;

  // Every call with its arguments, in order.
  const std::vector<std::string>& calls() const { return calls_; }
  bool was_called(const std::string& call) const;
  // True when a call of that name was made.
  bool was_asked(const std::string& name) const;

  // The kinds of the objects that were released, in order, but for strings.
  const std::vector<std::string>& released() const { return released_; }

 private:
  std::vector<std::string> calls_;
  std::vector<std::string> released_;
};

}  // namespace support
