// Drawing graphs with Graphviz.
#pragma once

#include <string>

namespace cli {

// Has the program "dot" draw `graph` into `file` in a format that it knows, such as "svg". Throws
// a usage failure when there is no such program or it fails.
void draw(const std::string& graph, const std::string& format, const std::string& file);

}  // namespace cli
