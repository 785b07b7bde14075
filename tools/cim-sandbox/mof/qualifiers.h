// Qualifiers: what was declared about them, and their uses.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "model/class.h"
#include "mof/literals.h"
#include "mof/syntax.h"

namespace sandbox::mof {

// The declared qualifiers.  A qualifier that is used without a declaration takes its type from its
// value, and its flavor from the common rules for its name.
class QualifierTable {
 public:
  std::optional<Problem> declare(const QualifierDeclarationSyntax& syntax);
  Checked<std::vector<Qualifier>> used(const std::vector<QualifierSyntax>& uses) const;

 private:
  struct Declaration {
    DataType type;
    Value initial;
    Flavor flavor;
  };
  Checked<Qualifier> used(const QualifierSyntax& use) const;

  std::map<std::string, Declaration, NameLess> declarations_;
};

}  // namespace sandbox::mof
