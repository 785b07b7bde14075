// The paths that cim-client reads: WBEM URIs, and what may be left out of them.
#include "object_path.h"

#include <cstdint>
#include <exception>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  cli::looks_like_instance(text);
  try {
    const cli::ObjectUri path = cli::parse_object(text);
    if (path.is_instance) cli::make_reference(path);
  } catch (const std::exception&) {  // what a user reads
  }
  try {
    cli::make_instance_name(cli::parse_instance(text));
  } catch (const std::exception&) {
  }
  return 0;
}
