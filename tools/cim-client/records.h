// Making the library's records by hand: zero-filled, from malloc's memory, as its Free_ functions
// expect them.
#pragma once

#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

namespace cli {

// A zero-filled record.
template <class Record>
Record* new_record() {
  void* memory = std::calloc(1, sizeof(Record));
  if (memory == nullptr) throw std::bad_alloc();
  return static_cast<Record*>(memory);
}

// A terminated copy of a text.
inline char* new_text(std::string_view text) {
  auto* memory = static_cast<char*>(std::calloc(text.size() + 1, 1));
  if (memory == nullptr) throw std::bad_alloc();
  if (!text.empty()) std::memcpy(memory, text.data(), text.size());
  return memory;
}

// Appends `node` to the list that begins at `*list`.
template <class Node>
void append(Node** list, Node* node) {
  while (*list != nullptr) list = &(*list)->next;
  *list = node;
}

// The text of a field that may be absent.
inline std::string_view text_or_empty(const char* text) {
  return text == nullptr ? std::string_view() : std::string_view(text);
}

}  // namespace cli
