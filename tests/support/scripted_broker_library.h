// What the scripted broker's library and its test share.
#pragma once

#include "support/scripted_broker.h"

namespace support {

// The script of the running test; null between tests.
BrokerScript*& current_script();

// The words that switch the library's trace on, as a client finds them.
struct TraceWords {
  int* mask;
  int* debug;
};
TraceWords trace_words();

}  // namespace support
