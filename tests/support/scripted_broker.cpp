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
}

ScriptedBroker::~ScriptedBroker() {
  Ledger& ledger = Ledger::of_process();
  EXPECT_EQ(ledger.live(), std::vector<std::string>());
  EXPECT_EQ(ledger.complaints(), std::vector<std::string>());
  ledger.listener = nullptr;
  current_script() = nullptr;
}

bool ScriptedBroker::was_called(const std::string& call) const {
  return std::find(calls_.begin(), calls_.end(), call) != calls_.end();
}

}  // namespace support
