// Memory as libc and the kernel count it.
#include "support/footprint.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <fstream>
#include <string>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || defined(CIM_CLIENT_EMULATED)
#define IS_WATCHED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define IS_WATCHED 1
#endif
#endif
#ifndef IS_WATCHED
#define IS_WATCHED 0
#endif

namespace support {

bool is_watched() { return IS_WATCHED; }

long bytes_in_use() { return static_cast<long>(mallinfo2().uordblks); }

std::size_t peak() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) return std::stoul(line.substr(6));
  ADD_FAILURE() << "the peak of the memory cannot be read";
  return 0;
}

// proc(5), clear_refs
void forget_peak() { std::ofstream("/proc/self/clear_refs") << 5; }

}  // namespace support
