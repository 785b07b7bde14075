// Counting, complaining and describing calls.
#include "ledger.h"

#include <cstdio>
#include <utility>

namespace sandbox_local {

Ledger& Ledger::of_process() {
  static Ledger ledger;
  return ledger;
}

void Ledger::born(const void* object, std::string_view kind) { live_[object] = kind; }

void Ledger::died(const void* object) {
  const auto entry = live_.extract(object);
  if (entry && release_listener) release_listener(entry.mapped());
}

bool Ledger::is_live(const void* object, std::string_view use) {
  if (live_.contains(object)) return true;
  complain(std::string(use) + " of an object that is not the client's any more, or never was");
  return false;
}

std::vector<std::string> Ledger::live() const {
  std::vector<std::string> kinds;
  kinds.reserve(live_.size());
  for (const auto& [object, kind] : live_) kinds.push_back(kind);
  return kinds;
}

void Ledger::complain(std::string text) {
  std::fprintf(stderr, "cim-sandbox-local: %s\n", text.c_str());
  complaints_.push_back(std::move(text));
}

}  // namespace sandbox_local
