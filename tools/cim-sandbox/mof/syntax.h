// What a MOF file says, as the grammar finds it, before anything is checked.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "model/data_type.h"

namespace sandbox::mof {

// A position in a file; lines and columns count from 1, columns in characters.
struct Place {
  const std::string* file = nullptr;
  int line = 1;
  int column = 1;
};

struct Problem {
  Place place;
  std::string text;
};

// "fans.mof:12:7: expected ..."
std::string to_text(const Problem& problem);

template <class T>
struct Placed {
  T value;
  Place place;
};
using Name = Placed<std::string>;

struct Null {};
struct Integer {
  bool negative = false;
  std::uint64_t magnitude = 0;
};
struct Alias {
  std::string name;  // with its "$"
};
struct InstanceSyntax;

// The shared pointer only makes the variant copyable, as the generated parser demands.
struct Literal {
  std::variant<Null, bool, Integer, double, char16_t, std::string, Alias,
               std::shared_ptr<InstanceSyntax>>
      value;
  Place place;
};

struct Initializer {
  bool is_array = false;
  std::vector<Literal> literals;  // one when it is no array
  Place place;
};

struct QualifierSyntax {
  Name name;
  std::optional<Initializer> value;
  std::vector<Name> flavors;
};

// The part that properties and parameters have in common.
struct ElementSyntax {
  std::vector<QualifierSyntax> qualifiers;
  DataType type;
  Place type_place;
  Name name;
  std::optional<Initializer> initial;
};

struct MethodSyntax {
  ElementSyntax head;
  std::vector<ElementSyntax> parameters;
};

using FeatureSyntax = std::variant<ElementSyntax, MethodSyntax>;

struct ClassSyntax {
  std::vector<QualifierSyntax> qualifiers;
  Name name;
  std::optional<Name> superclass;
  std::vector<FeatureSyntax> features;
};

struct AssignmentSyntax {
  Name name;
  Initializer value;
};

struct InstanceSyntax {
  Name class_name;
  std::optional<Name> alias;
  std::vector<AssignmentSyntax> assignments;
};

struct QualifierDeclarationSyntax {
  Name name;
  DataType type;
  std::optional<Initializer> value;
  struct Clause {
    Name name;  // "scope" or "flavor"
    std::vector<Name> words;
  };
  std::vector<Clause> clauses;
};

struct PragmaSyntax {
  Name name;
  std::string argument;
};

}  // namespace sandbox::mof
