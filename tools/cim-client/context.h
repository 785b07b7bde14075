// What a command works with.
#pragma once

#include <memory>
#include <optional>
#include <ostream>
#include <utility>

#include "output.h"
#include "session.h"
#include "settings.h"

namespace cli {

class Context {
 public:
  // `out` is where results go; it outlives the context.
  Context(Settings settings, std::ostream& out);

  const Settings& settings() const { return settings_; }
  std::ostream& out() { return out_; }

  // Writes results in the format that was chosen.
  Output& output() { return *output_; }

  // The session, made when it is first asked for: that is when a password is asked for.
  Session& session();

  // The password of the session to come, for a command that has found it already.
  void adopt_password(Secret password) { password_ = std::move(password); }

  // Says on standard error that nothing was found, when a person is looking.
  void note_nothing_found(const char* what) const;

 private:
  Settings settings_;
  std::ostream& out_;
  std::unique_ptr<Output> output_;
  std::optional<Secret> password_;
  std::unique_ptr<Session> session_;
};

}  // namespace cli
