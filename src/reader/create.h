// The body of the Create functions: one call of a builder outside the walk.
#pragma once

#include <cstring>

#include "reader/build.h"
#include "reader/unlinked.h"

namespace cim {

inline const char* parent_name(const XmlNode& element) {
  return element.parentNode ? element.parentNode->nodeName : "";
}

// Fills *entry with a record and an element name, cut to fit.
inline StackEntry* fill(StackEntry* entry, void* record, const char* name) {
  entry->address = record;
  std::strncpy(entry->name, name, sizeof entry->name - 1);
  entry->name[sizeof entry->name - 1] = '\0';
  return entry;
}

// Builds with `builder` and fills *entry for the stack.  A record that neither its parent nor
// the entry holds belongs to the reader.
template <class R>
StackEntry* create(R* (*builder)(Building&), StackEntry* entry, const XmlNode* node, void* parent) {
  if (!entry || !node) return entry;
  Names names;
  Building building{.element = *node,
                    .names = names,
                    .parent = {.record = parent, .name = look_up(parent_name(*node))}};
  if (node->firstChild) return fill(entry, builder(building), node->nodeName);
  R* record = unlinked.reserve() ? builder(building) : nullptr;
  if (record && !building.linked) unlinked.add(record);
  return fill(entry, parent, parent_name(*node));
}

template <Record R>
StackEntry* create(StackEntry* entry, const XmlNode* node, void* parent) {
  return create<R>(build<R>, entry, node, parent);
}

}  // namespace cim
