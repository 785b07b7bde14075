// Embedded instances outlive their writing.
#pragma once

#include <vector>

#include "cim_client.h"

namespace cli {

// The library's writer unhooks the properties of an embedded instance as it writes it, without
// releasing them. While this object lives it remembers them; when it goes, they are hooked in
// again, so that they are released with their instance.
class EmbeddedLists {
 public:
  explicit EmbeddedLists(const Instance* list) { add(list); }
  explicit EmbeddedLists(const ParamValue* list);
  EmbeddedLists(const EmbeddedLists&) = delete;
  EmbeddedLists& operator=(const EmbeddedLists&) = delete;
  ~EmbeddedLists();

 private:
  struct Entry {
    Instance* instance;
    Property* properties;
    PropertyArray* arrays;
  };

  void add(const Instance* list);
  void add(const Value* list);

  std::vector<Entry> entries_;
};

}  // namespace cli
