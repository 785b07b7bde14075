// The sandbox's reader of MOF texts.  Texts that include files are left out.
#include <cstdint>
#include <string_view>

#include "model/repository.h"
#include "mof/reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const char* word : {"nclude", "NCLUDE"})
    if (text.find(word) != std::string_view::npos) return 0;
  sandbox::Repository repository;
  sandbox::mof::Reader reader(repository, "root/cimv2");
  if (!reader.read_text("fuzzed.mof", text, "/nonexistent")) static_cast<void>(reader.finish());
  return 0;
}
