// What every local operation begins and ends with: environment, connection, report.
#pragma once

#include "cim_client.h"
#include "clientapi/interface.h"
#include "clientapi/owned.h"
#include "clientapi/paths.h"

namespace cim::broker {

// An environment and a connection to the local broker, for one operation.  The client is
// released first, the environment last.
class Session {
 public:
  // Connects; what goes wrong is printed.
  Session(const char* user, const char* password);

  explicit operator bool() const { return static_cast<bool>(client_); }
  CIMCEnv* env() const { return env_.get(); }
  CIMCClient* client() const { return client_.get(); }
  const CIMCClientFT* operator->() const { return client_->ft; }

 private:
  Owned<CIMCEnv> env_;
  Owned<CIMCClient> client_;
};

// Turns a status that is not 0 into an Error.  Returns what operations give: 0, or -1 when
// there is a text and no memory for it.
int report(const Outcome& outcome, Error** error);

// The path of an instance, with its keys; none when a part is missing or a key cannot be added.
Owned<CIMCObjectPath> make_instance_path(const Session& session, const InstanceName& name,
                                         const char* name_space);

// The class name of an instance name; null when there is none.
inline const char* class_of(const InstanceName* name) {
  return name ? text_of(name->className) : nullptr;
}

// True when a name has what a path to its instance needs.
inline bool is_complete(const InstanceName* name) { return class_of(name) && name->keyBindings; }

}  // namespace cim::broker
