// Making what commands work with.
#include "context.h"

#include <unistd.h>

#include <iostream>
#include <utility>

#include "exchange.h"
#include "exit_status.h"
#include "password.h"

namespace cli {

Context::Context(Settings settings, std::ostream& out)
    : settings_(std::move(settings)),
      out_(out),
      output_(make_output(settings_.output, out_, last_exchange().answer)) {}

Session& Context::session() {
  if (session_ == nullptr) {
    Secret password =
        password_ ? std::move(*password_) : find_password(settings_.password, settings_.target);
    const bool show_progress = isatty(STDERR_FILENO) != 0;
    session_ = std::make_unique<Session>(settings_.target, std::move(password), settings_.timeout,
                                         show_progress, settings_.backend);
    if (session_->is_local() && settings_.output.format == Format::Xml)
      throw usage_failure("the local broker sends no XML; there are text and json");
    if (settings_.verbose)
      std::cerr << "cim-client: back end: " << description(settings_.backend) << "\n";
    if (settings_.verbose && session_->address() != settings_.target.host)
      std::cerr << "cim-client: " << settings_.target.host << " is " << session_->address() << "\n";
  }
  return *session_;
}

void Context::note_nothing_found(const char* what) const {
  if (settings_.output.columns > 0) std::cerr << "cim-client: no " << what << " found\n";
}

}  // namespace cli
