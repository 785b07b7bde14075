// The library's names and paths as texts, in the form that parse_object() reads.
#pragma once

#include <string>
#include <string_view>

#include "cim_client.h"
#include "views.h"

namespace cli {

// `//host/root/cimv2:CIM_Fan.DeviceID="fan1"`, without the parts that are not given.
std::string path_text(const PathView& path);

// The same without the host.
std::string local_path_text(const PathView& path);

// `CIM_Fan.DeviceID="fan1"`
std::string path_text(const InstanceName& name);

// `root/cimv2`; empty when it is not given.
std::string namespace_text(const LocalNamespacePath* path);

// A text in double quotes, with quotes, backslashes and line ends behind a backslash.
std::string quoted(std::string_view text);

}  // namespace cli
