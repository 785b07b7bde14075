// The XML library's scanner against Expat: the same verdict, and the same nodes.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/engines.h"

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::string apart = engines::disagreement(text.c_str());
  if (apart.empty()) return 0;
  std::fprintf(stderr, "%s\non: %s\n", apart.c_str(), text.c_str());
  std::abort();
}
