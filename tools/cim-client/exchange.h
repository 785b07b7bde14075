// What the library tells of its exchanges through its trace printer, EmptyPrintf(), which this
// program replaces with its own.
//
// The library's operations return null alike for an empty result, for no answer, and for an
// answer that they do not understand. Their trace lines tell these apart, from one and the same
// exchange, and hold the answer's text.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>

namespace cli {

struct Exchange {
  bool answered = false;  // an answer came back
  std::string answer;     // its text, from "<?xml" on
  // Instances and classes read from the answer so far; another thread may look.
  std::atomic<std::size_t> objects = 0;

  void clear();
};

// The exchange that the library made last, or is making.
Exchange& last_exchange();

}  // namespace cli
