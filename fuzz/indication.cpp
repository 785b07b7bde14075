// GetIndicationInstance() of arbitrary texts.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "cim_client.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  Instance* instance = nullptr;
  const int result = GetIndicationInstance(text.c_str(), &instance);
  if ((result == 0) != (instance != nullptr)) std::abort();
  Free_Instance(instance);
  parseXML("");
  return 0;
}
