// Where lines go.
#pragma once

#include <spdlog/sinks/sink.h>

#include <memory>
#include <string_view>

#include "settings.h"

namespace rtlog {

using Sink = spdlog::sinks::sink;

// A sink for messages whose logger's name is the place: "module/category file:line".  Null for
// Target::Nowhere.  Throws std::exception when the file cannot be opened.
std::unique_ptr<Sink> open_sink(const Settings& settings);

// Writes `text` to standard error, as far as that takes it.
void write_to_standard_error(std::string_view text);

}  // namespace rtlog
