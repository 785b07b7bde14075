// Where lines go.
#pragma once

#include <spdlog/sinks/sink.h>

#include <memory>

#include "settings.h"

namespace rtlog {

using Sink = spdlog::sinks::sink;

// A sink for messages whose logger's name is the place: "module/category file:line".  Null for
// Target::Nowhere.  Throws std::exception when the file cannot be opened.
std::unique_ptr<Sink> open_sink(const Settings& settings);

}  // namespace rtlog
