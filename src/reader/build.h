// Building a record from an element.
#pragma once

#include "base/memory.h"
#include "reader/attributes.h"
#include "reader/links.h"
#include "reader/names.h"

namespace cim {

// One call of a builder: what it works with, and what became of it.
struct Building {
  const XmlNode& element;
  Names& names;
  ParentElement parent = {};

  bool linked = false;         // the parent's record holds the new one
  bool out_of_memory = false;  // the record lacks something, or there is none
};

// A new R from the element, linked where it belongs; null when memory runs out.  The walk and
// the Create functions call it: inlined into both, it makes the library 12 KB larger.
template <Record R>
[[gnu::noinline]] R* build(Building& building) {
  R* record = allocate<R>();
  if (!record) {
    building.out_of_memory = true;
    return nullptr;
  }
  if (!read_attributes(*record, building.element, building.names)) building.out_of_memory = true;
  building.linked = link(record, building.parent);
  return record;
}

// The builders that do more than that.
template <>
Value* build<Value>(Building& building);
template <>
KeyValue* build<KeyValue>(Building& building);

// Sets the host of the parent's NAMESPACEPATH; the result is that text, or null.
char* build_host(Building& building);

}  // namespace cim
