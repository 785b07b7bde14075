// The marker file "/etc/Binary.txt", which chooses the back end of a new handle.
#include "support/marker_file.h"

#include <dlfcn.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace support {
namespace {

MarkerFile* marker = nullptr;

}  // namespace

MarkerFile::MarkerFile(std::string path) : path_(std::move(path)) { start(); }

MarkerFile::MarkerFile(int error) : error_(error) { start(); }

MarkerFile::~MarkerFile() { marker = nullptr; }

void MarkerFile::start() {
  modes_.reserve(100);  // so that opening allocates nothing: a test may count allocations
  marker = this;
}

const char* MarkerFile::open(const char* mode) {
  modes_.emplace_back(mode);
  errno = error_;
  return error_ == 0 ? path_.c_str() : nullptr;
}

}  // namespace support

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): libc names them otherwise
extern "C" [[gnu::visibility("default")]] FILE* fopen(const char* path, const char* mode) {
  static auto* const own = reinterpret_cast<decltype(fopen)*>(dlsym(RTLD_NEXT, "fopen"));
  if (!support::marker || std::strcmp(path, "/etc/Binary.txt") != 0) return own(path, mode);
  const char* instead = support::marker->open(mode);
  return instead ? own(instead, mode) : nullptr;
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)
