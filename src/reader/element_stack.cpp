// Opening and closing elements, and linking what they left.
#include "reader/element_stack.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "base/memory.h"
#include "base/trace.h"
#include "reader/unlinked.h"

extern "C" {

StackEntry map[4096];
int32_t top = -1;
CIM* returnAddress = nullptr;

}  // extern "C"

namespace cim {
namespace {

constexpr std::int32_t capacity = sizeof map / sizeof map[0];

// What the reader knows of an entry beyond what applications see of it.
struct Side {
  Tails tails;
  const char* tag;  // text that the entry's name was copied from, in this document; or null
};
std::array<Side, capacity> sides;

Side& side_of(std::int32_t index) { return sides[static_cast<std::size_t>(index)]; }

std::int32_t used = 0;  // entries that may not be zero

// `top`, which applications can write, within the storage.
std::int32_t highest() { return std::clamp(top, -1, capacity - 1); }

// Whether the entry at `index` has that name.  The nodes of a document share the text of a
// name, so mostly there is nothing to compare; an entry whose name was taken begins with NUL.
bool is_named(std::int32_t index, const char* name) {
  const StackEntry& entry = map[index];
  if (side_of(index).tag == name && entry.name[0] != '\0') return true;
  return entry.name[0] == name[0] && std::strncmp(entry.name, name, sizeof entry.name) == 0;
}

bool holds(const void* record) {
  for (std::int32_t i = 0; i <= highest(); ++i)
    if (map[i].address == record) return true;
  return false;
}

}  // namespace

void clear_stack() {
  const std::int32_t count = std::max(used, highest() + 1);
  std::memset(map, 0, static_cast<std::size_t>(count) * sizeof map[0]);
  used = 0;
  top = -1;
}

void forget_document() {
  for (std::int32_t i = 0; i <= highest(); ++i) side_of(i) = {};
}

Tails& tails_at(std::int32_t index) { return side_of(index).tails; }

std::int32_t find_parent(const char* name) {
  std::int32_t index = highest();
  for (; index >= 0 && !is_named(index, name); --index) {
    StackEntry& entry = map[index];
    entry.address = nullptr;
    std::memset(entry.name, 0, 4);
  }
  top = index;
  return index;
}

void push_new(void* record, std::string_view name, const char* tag, std::size_t lists) {
  trace("\nInside push ");
  trace("\nname %s", name.data());
  const std::int32_t index = highest() + 1;
  if (index == 0) trace("\nCase top = -1");
  top = std::min(index, capacity - 1);
  if (index == capacity) return;

  StackEntry& entry = map[index];
  used = std::max(used, index + 1);
  Side& side = side_of(index);
  for (std::size_t list = 0; list < lists; ++list) side.tails.last[list] = nullptr;
  // Not where a trace function may write into the entry.
  side.tag = is_traced() ? nullptr : tag;
  entry.address = record;
  trace("\nAddress set");
  const std::size_t length = std::min(name.size(), sizeof entry.name - 1);
  copy_text(entry.name, name.data(), length);
  entry.name[length] = '\0';
  trace("\nname set\n");
  trace("\n Added to stack\n");
}

void take_name(const char* name) {
  for (std::int32_t i = highest(); i >= 0; --i) {
    if (std::memcmp(map[i].name, "CIM", sizeof "CIM") == 0)
      returnAddress = static_cast<CIM*>(map[i].address);
    if (!is_named(i, name)) continue;
    map[i].name[0] = '\0';
    return;
  }
}

}  // namespace cim

using cim::trace;

extern "C" {

int Push(StackEntry entry) {
  entry.name[sizeof entry.name - 1] = '\0';
  if (!cim::holds(entry.address)) {
    cim::push_new(entry.address, entry.name, nullptr, cim::most_lists);
    return 0;
  }
  trace("\nInside push ");
  trace("\nname %s", entry.name);
  return 0;
}

void* Pop(const char* name) {
  const std::int32_t index = name ? cim::find_parent(name) : -1;
  return index < 0 ? nullptr : map[index].address;
}

// Whoever asks for the root gets it.
int removeParent(const char* name) {
  if (!name) return 0;
  cim::take_name(name);
  cim::unlinked.forget(returnAddress);
  return 0;
}

int printStack(void) {
  for (std::int32_t i = 0; i <= cim::highest(); ++i)
    trace("\n TESTTTTTTTTTTTTTTT : %s\n", map[i].name);
  return 0;
}

}  // extern "C"
