// Opening and closing elements, and linking what they left.
#include "reader/element_stack.h"

#include <algorithm>
#include <array>
#include <cstring>

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
  for (top = highest(); top >= 0; --top) {
    if (is_named(top, name)) return top;
    StackEntry& entry = map[top];
    entry.address = nullptr;
    std::memset(entry.name, 0, 4);
  }
  return -1;
}

void push_new(void* record, const char* name, const char* tag) {
  trace("\nInside push ");
  trace("\nname %s", name);
  top = highest();
  if (top == -1) trace("\nCase top = -1");
  if (top == capacity - 1) return;

  StackEntry& entry = map[++top];
  used = std::max(used, top + 1);
  side_of(top) = {};
  entry.address = record;
  trace("\nAddress set");
  const std::size_t length = strnlen(name, sizeof entry.name - 1);
  std::memcpy(entry.name, name, length);
  entry.name[length] = '\0';
  // Not of a name that was cut, nor where a trace function may write into the entry.
  if (length < sizeof entry.name - 1 && !is_traced()) side_of(top).tag = tag;
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
    cim::push_new(entry.address, entry.name, nullptr);
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
