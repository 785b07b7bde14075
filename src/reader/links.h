// Linking a new record into the record of its parent element.
#pragma once

#include <array>
#include <cstddef>

#include "model/records.h"
#include "model/release.h"
#include "reader/names.h"

namespace cim {

// IRETURNVALUE holds thirteen lists, more than any other record.
constexpr std::size_t most_lists = 13;

// The last node of each list of one record, so that appending does not walk; null: not known.
struct Tails {
  std::array<void*, most_lists> last;
};

// The parent element of a new record.
struct ParentElement {
  void* record = nullptr;    // null: none
  Name name = unknown_name;  // says what `record` is
  Tails* tails = nullptr;    // the ends of its lists; null: walk the lists
};

// Whether child elements feed a field of Parent that holds Child records.
template <Record Parent, Record Child>
consteval bool has_place_for() {
  bool found = false;
  for_each_field<Parent>([&]<class T>(const Field<Parent, T>& field) {
    if constexpr (std::is_same_v<T, Child*>) found = found || field.children != Children::None;
  });
  return found;
}

template <Record R>
consteval std::size_t list_count() {
  std::size_t count = 0;
  for_each_field<R>([&](const auto& field) { count += field.children == Children::List; });
  return count;
}

// Appends `node`.  `last` remembers the end of the list; null: nothing does.
template <Record Node>
void append(Node*& first, Node* node, void** last) {
  Node** place = last && *last ? &static_cast<Node*>(*last)->next : &first;
  while (*place) place = &(*place)->next;
  *place = node;
  if (last) *last = node;
}

// Puts `child` into the field of `parent` that holds such children.
template <Record Parent, Record Child>
void adopt(Parent& parent, Child* child, Tails* tails) {
  static_assert(list_count<Parent>() <= most_lists);
  std::size_t list = 0;
  for_each_field<Parent>([&]<class T>(const Field<Parent, T>& field) {
    if constexpr (std::is_same_v<T, Child*>) {
      T& place = parent.*field.member;
      if (field.children == Children::One) {
        release(place, Borrowed::Goes);
        place = child;
      }
      if constexpr (ListNode<Child>) {
        if (field.children == Children::List)
          append(place, child, tails ? &tails->last[list] : nullptr);
      }
    }
    if (field.children == Children::List) ++list;
  });
}

// Links `child` into the record of its parent element.  False when that has no place for it.
template <Record Child>
bool link(Child* child, const ParentElement& parent) {
  if (!parent.record) return false;
  bool linked = false;
  Records::for_each([&]<Record Parent>() {
    if constexpr (has_place_for<Parent, Child>()) {
      if (parent.name != element_of<Parent>) return;
      adopt(*static_cast<Parent*>(parent.record), child, parent.tails);
      linked = true;
    }
  });
  return linked;
}

}  // namespace cim
