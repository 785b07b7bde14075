// Scripts of one test, and what the client did.
#include "support/scripted_broker.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/scripted_broker_library.h"

namespace support {

using sandbox_local::Ledger;

ScriptedBroker::ScriptedBroker() {
  current_script() = &script;
  Ledger::of_process().forget_complaints();
  Ledger::of_process().listener = [this](const std::string& call) { calls_.push_back(call); };
  Ledger::of_process().release_listener = [this](const std::string& kind) {
    if (kind != "string") released_.push_back(kind);
  };
}

ScriptedBroker::~ScriptedBroker() {
  Ledger& ledger = Ledger::of_process();
  EXPECT_EQ(ledger.live(), std::vector<std::string>());
  EXPECT_EQ(ledger.complaints(), std::vector<std::string>());
  ledger.listener = nullptr;
  ledger.release_listener = nullptr;
  current_script() = nullptr;
}

bool ScriptedBroker::was_called(const std::string& call) const {
  return std::find(calls_.begin(), calls_.end(), call) != calls_.end();
}

bool ScriptedBroker::was_asked(const std::string& name) const {
  return std::any_of(calls_.begin(), calls_.end(),
                     [&](const std::string& call) { return call.starts_with(name + ' '); });
}

}  // namespace support
