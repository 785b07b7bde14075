// Declaration and use of qualifiers.
#include "mof/qualifiers.h"

#include <array>

namespace sandbox::mof {
namespace {

// Changes `flavor` as one flavor word says; false for a word that is none.
bool apply_flavor(std::string_view word, Flavor& flavor) {
  struct Effect {
    std::string_view word;
    bool Flavor::*flag;
    bool value;
  };
  static constexpr std::array<Effect, 7> effects = {{
      {"EnableOverride", &Flavor::overridable, true},
      {"DisableOverride", &Flavor::overridable, false},
      {"ToSubclass", &Flavor::to_subclass, true},
      {"Restricted", &Flavor::to_subclass, false},
      {"ToInstance", &Flavor::to_instance, true},
      {"Translatable", &Flavor::translatable, true},
      {"Translateable", &Flavor::translatable, true},  // an old spelling
  }};
  for (const Effect& effect : effects) {
    if (!same_name(effect.word, word)) continue;
    flavor.*effect.flag = effect.value;
    return true;
  }
  return false;
}

// The flavors that the common qualifiers have everywhere (DSP0004, section 5.6.3).
Flavor common_flavor(std::string_view qualifier) {
  Flavor flavor;
  for (const std::string_view name : {"Abstract", "Override", "Version"}) {
    if (same_name(name, qualifier)) flavor.to_subclass = false;
  }
  for (const std::string_view name : {"Key", "Association", "Indication", "In", "Out", "Static"}) {
    if (same_name(name, qualifier)) flavor.overridable = false;
  }
  for (const std::string_view name : {"Description", "DisplayName", "Values", "Units"}) {
    if (same_name(name, qualifier)) flavor.translatable = true;
  }
  return flavor;
}

Problem unknown_flavor(const Name& word) {
  return {word.place,
          "expected a flavor (EnableOverride, DisableOverride, ToSubclass, Restricted, "
          "ToInstance or Translatable), not \"" +
              word.value + '"'};
}

}  // namespace

std::optional<Problem> QualifierTable::declare(const QualifierDeclarationSyntax& syntax) {
  Declaration declaration{syntax.type, Value(), Flavor()};
  if (declarations_.contains(syntax.name.value)) {
    return Problem{syntax.name.place,
                   "qualifier \"" + syntax.name.value + "\" is already declared"};
  }
  if (syntax.value) {
    Checked<Value> value = value_of(*syntax.value, syntax.type, {});
    if (auto* problem = std::get_if<Problem>(&value)) return std::move(*problem);
    declaration.initial = std::move(std::get<Value>(value));
  }
  for (const auto& clause : syntax.clauses) {
    const bool is_flavor = same_name(clause.name.value, "flavor");
    if (!is_flavor && !same_name(clause.name.value, "scope")) {
      return Problem{clause.name.place,
                     "expected \"scope\" or \"flavor\", not \"" + clause.name.value + '"'};
    }
    for (const Name& word : clause.words) {
      if (is_flavor && !apply_flavor(word.value, declaration.flavor)) return unknown_flavor(word);
    }
  }
  declarations_.emplace(syntax.name.value, std::move(declaration));
  return std::nullopt;
}

Checked<std::vector<Qualifier>> QualifierTable::used(
    const std::vector<QualifierSyntax>& uses) const {
  std::vector<Qualifier> qualifiers;
  for (const QualifierSyntax& use : uses) {
    if (find_qualifier(qualifiers, use.name.value)) {
      return Problem{use.name.place, "qualifier \"" + use.name.value + "\" is given twice"};
    }
    Checked<Qualifier> qualifier = used(use);
    if (auto* problem = std::get_if<Problem>(&qualifier)) return std::move(*problem);
    qualifiers.push_back(std::move(std::get<Qualifier>(qualifier)));
  }
  return qualifiers;
}

Checked<Qualifier> QualifierTable::used(const QualifierSyntax& use) const {
  const auto declared = declarations_.find(use.name.value);
  const bool known = declared != declarations_.end();
  Qualifier qualifier;
  qualifier.name = known ? declared->first : use.name.value;
  qualifier.type = known ? declared->second.type : suggested_type(use.value);
  qualifier.flavor = known ? declared->second.flavor : common_flavor(use.name.value);
  for (const Name& word : use.flavors) {
    if (!apply_flavor(word.value, qualifier.flavor)) return unknown_flavor(word);
  }
  if (use.value) {
    Checked<Value> value = value_of(*use.value, qualifier.type, {});
    if (auto* problem = std::get_if<Problem>(&value)) return std::move(*problem);
    qualifier.value = std::move(std::get<Value>(value));
  } else if (qualifier.type.type == Type::Boolean && !qualifier.type.is_array) {
    qualifier.value = Value(Scalar(true));  // a boolean qualifier is TRUE by being there
  } else if (known) {
    qualifier.value = declared->second.initial;
  }
  return qualifier;
}

}  // namespace sandbox::mof
