// parseXML() of documents one after the other, whose trees are released at once or kept.  A zero
// byte ends a document; the first byte of the input says which trees are kept.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "cim_client.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  unsigned keep = data[0];
  std::vector<CIM*> kept;
  for (std::size_t at = 1; at < size;) {
    const auto* begin = reinterpret_cast<const char*>(data + at);
    const std::string text(begin, strnlen(begin, size - at));
    at += text.size() + 1;
    CIM* before = returnAddress;
    CIM* tree = parseXML(text.c_str());
    if (tree && tree != before) {
      if (keep & 1U)
        kept.push_back(tree);
      else
        Free_CIM(tree);
    }
    keep >>= 1U;
  }
  for (CIM* tree : kept) Free_CIM(tree);
  parseXML("");  // releases what could not be linked
  return 0;
}
