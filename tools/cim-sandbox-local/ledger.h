// Keeps count of the broker's objects, and of what a client does wrong with them.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace sandbox_local {

// One per process, as the library that a client loads is.
class Ledger {
 public:
  static Ledger& of_process();

  // An object that a client has to release begins or ends.
  void born(const void* object, std::string_view kind);
  void died(const void* object);

  // False, with a complaint, when a client uses an object that it has released, or releases one
  // that is part of another.
  bool is_live(const void* object, std::string_view use);

  std::size_t live_count() const { return live_.size(); }
  // What is live, a line per object.
  std::vector<std::string> live() const;

  void complain(std::string text);
  const std::vector<std::string>& complaints() const { return complaints_; }

  // Notes a call with its arguments, as describe() gives them; `listener` is told, when there is
  // one.
  template <class Describe>
  void note(Describe describe) {
    if (listener) listener(describe());
  }
  std::function<void(const std::string& call)> listener;

  // Told the kind of each object that ends, when there is one.
  std::function<void(const std::string& kind)> release_listener;

  void forget_complaints() { complaints_.clear(); }

 private:
  std::unordered_map<const void*, std::string> live_;
  std::vector<std::string> complaints_;
};

}  // namespace sandbox_local
