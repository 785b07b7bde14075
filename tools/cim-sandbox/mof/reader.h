// Reads MOF files into a repository.
#pragma once

#include <filesystem>
#include <list>
#include <optional>
#include <string>
#include <string_view>

#include "model/repository.h"
#include "mof/instance_reader.h"
#include "mof/qualifiers.h"
#include "mof/source.h"
#include "mof/syntax.h"

namespace sandbox::mof {

// Reads any number of files, which may use each other's classes and aliases, then `finish` makes
// their instances.  Stops at the first problem; the repository then holds part of the model.
class Reader : private Receiver {
 public:
  // Classes and instances go into `name_space` until a file says "#pragma namespace".
  Reader(Repository& repository, std::string_view name_space);

  std::optional<Problem> read_file(const std::filesystem::path& path);
  // `name` stands for the text in messages; included files are looked for in `folder`.
  std::optional<Problem> read_text(std::string_view name, std::string_view text,
                                   const std::filesystem::path& folder);
  std::optional<Problem> finish();

 private:
  std::optional<Problem> take(ClassSyntax syntax) override;
  std::optional<Problem> take(InstanceSyntax syntax) override;
  std::optional<Problem> take(QualifierDeclarationSyntax syntax) override;
  std::optional<Problem> take(PragmaSyntax syntax) override;
  std::optional<Problem> include(const PragmaSyntax& pragma);
  std::optional<Problem> check_referenced_classes() const;

  struct ReferenceUse {
    Name class_name;  // with the place where a property or parameter refers to it
    const NameSpace* home;
  };

  Repository& repository_;
  NameSpace* home_;
  QualifierTable qualifiers_;
  InstanceReader instances_;
  std::list<std::string> file_names_;  // places point into it
  std::list<ReferenceUse> references_;
  std::filesystem::path folder_;
  int include_depth_ = 0;
};

}  // namespace sandbox::mof
