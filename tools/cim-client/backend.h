// The two ways to an object manager.
#pragma once

#include <string>

namespace cli {

enum class Backend {
  AsHandles,  // the one that the library gives to a new handle
  Xml,        // CIM-XML over HTTP
  Local       // the broker on this machine, through its client library
};

// The one that "xml" or "local" names. Throws a usage failure for another word.
Backend parse_backend(const std::string& word);

// Whether operations go to the local broker.
bool is_local(Backend backend);

// What it is and why, such as "CIM-XML over HTTP, as --backend says".
std::string description(Backend backend);

// Where the local broker's client library is. Throws a failure, "no answer", when it cannot be
// used.
std::string local_library();

}  // namespace cli
