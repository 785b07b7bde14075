// Texts that people type, made fit to stand in a CIM-XML document: the library's writer writes
// texts as they are.
#pragma once

#include <string>
#include <string_view>

namespace cli {

// `text` with "<", ">", "&", double quotes and line ends as XML references, for element content
// and for attributes in double quotes. `what` names the text in the failure (usage) for bytes
// that are no UTF-8 and for characters that XML cannot hold.
std::string escaped(std::string_view text, std::string_view what);

}  // namespace cli
