// Instance declarations become instances of the model.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>

#include "model/repository.h"
#include "mof/literals.h"
#include "mof/syntax.h"

namespace sandbox::mof {

// Gathers the declarations of all files first, so that an alias may be used before its instance
// and an instance may come before its class.
class InstanceReader {
 public:
  explicit InstanceReader(Repository& repository) : repository_(repository) {}
  InstanceReader(const InstanceReader&) = delete;
  InstanceReader& operator=(const InstanceReader&) = delete;

  std::optional<Problem> gather(InstanceSyntax syntax, NameSpace& home);

  // Builds what was gathered and puts it into the repository.
  std::optional<Problem> build();

 private:
  enum class State { Waiting, InWork, Built };
  struct Entry {
    InstanceSyntax syntax;
    NameSpace* home;
    State state = State::Waiting;
    Instance instance;
  };

  Checked<Entry*> aliased(const std::string& alias, const Place& place);
  std::optional<Problem> build(Entry& entry, int depth);
  Checked<Instance> instance_of(const InstanceSyntax& syntax, NameSpace& home, int depth);
  std::optional<Problem> assign(const AssignmentSyntax& assignment, Instance& instance,
                                NameSpace& home, int depth);
  Checked<Scalar> object_for(const Literal& literal, const Property& property, NameSpace& home,
                             int depth);
  Checked<Value> checked_references(const Value& value, const Property& property,
                                    const Place& place, const NameSpace& home) const;
  std::optional<Problem> store(Entry& entry);

  Repository& repository_;
  std::deque<Entry> entries_;
  std::map<std::string, Entry*, NameLess> aliases_;
};

}  // namespace sandbox::mof
