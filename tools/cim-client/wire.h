// Records made fit to send: the library's writer writes every text as it is.
#pragma once

#include "cim_client.h"

namespace cli {

// Escapes every text of the records, and of all nodes of a list, in place. Records read from an
// answer hold plain texts, as do those made from what people type. Throws a usage failure for a
// text that XML cannot carry.
void escape_texts(ClassName* list);
void escape_texts(InstanceName* list);
void escape_texts(Instance* list);
void escape_texts(ParamValue* list);

}  // namespace cli
