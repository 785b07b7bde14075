// Indications as they arrive, and the answers to them: CIM-XML export messages.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "owners.h"

namespace cli {

// An indication taken out of an export request.
struct Indication {
  InstanceOwner instance;
  std::string document;  // the request as it came
};

// What became of an export request.
struct ExportOutcome {
  std::optional<Indication> indication;  // none: the request is refused
  std::string message_id;                // of the request; empty: not known
  bool is_xml = false;                   // whether the request could be read at all
};

// Reads an export request. One thread at a time, as the library's reader.
ExportOutcome read_export(std::string document);

// The answer that takes an indication.
std::string acceptance(std::string_view message_id);

// The answer that refuses it with a CIM status code and a text.
std::string refusal(std::string_view message_id, int code, std::string_view description);

}  // namespace cli
