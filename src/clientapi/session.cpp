// Opening a session, and telling how it ended.
#include "clientapi/session.h"

#include <cstdio>
#include <cstdlib>

namespace cim::broker {

Session::Session(const char* user, const char* password) {
  int code = 0;
  char* message = nullptr;
  env_.reset(static_cast<CIMCEnv*>(getCIMCEnv("SfcbLocal", 0, &code, &message)));
  if (!env_) {
    std::fprintf(stderr, " local connect failed [%s] \n", message ? message : "");
    std::free(message);
    return;
  }
  Outcome outcome;
  client_.reset(env_->ft->connect(env_.get(), "localhost", "SfcbLocal", nullptr, user, password,
                                  outcome.receive()));
  if (!client_) std::puts(" failed the call to connect ");
}

int report(const Outcome& outcome, Error** error) {
  if (!outcome.has_text()) return 0;
  return log_err_msgs(outcome.code(), outcome.message(), error);
}

Owned<CIMCObjectPath> make_instance_path(const Session& session, const InstanceName& name,
                                         const char* name_space) {
  Owned<CIMCObjectPath> path(make_path(session.env(), name_space, class_of(&name)));
  if (path && CIMC_AddKeyValues(name.keyBindings, path.get(), name_space, session.env()) != 0)
    path.reset(nullptr);
  return path;
}

}  // namespace cim::broker
