// Reads MOF out of a test's own text.
#pragma once

#include <string>
#include <string_view>

#include "model/repository.h"
#include "mof/reader.h"

namespace sandbox::test {

// The first problem of `text`, as people see it; empty when it was read into `repository`.
inline std::string read_mof(Repository& repository, std::string_view text) {
  mof::Reader reader(repository, "root/cimv2");
  auto problem = reader.read_text("model.mof", text, "/nowhere");
  if (!problem) problem = reader.finish();
  return problem ? to_text(*problem) : std::string();
}

// The problem of a text that is of no further use.
inline std::string problem_of(std::string_view text) {
  Repository repository;
  return read_mof(repository, text);
}

}  // namespace sandbox::test
