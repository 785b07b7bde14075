// The element stack: which record each open element has.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "cim_client.h"
#include "reader/links.h"

namespace cim {

// Empties the stack and zeroes every entry that has been used.
void clear_stack();

// Forgets what is known of the stack's entries from the document before: where their lists
// end, and whose names they have.
void forget_document();

// Pop(), as an index into `map`; -1 when there is no entry of that name.
std::int32_t find_parent(const char* name);

// Push() for a record that is known not to be on the stack and holds so many lists.  A NUL follows
// `name`.  `tag` is the name's text in the document, which stays until forget_document(); null
// when it does not, or when the name is too long for an entry.
void push_new(void* record, std::string_view name, const char* tag, std::size_t lists);

// removeParent(), but the CIM record that it finds stays the reader's.
void take_name(const char* name);

// The list ends of the record at an index.
Tails& tails_at(std::int32_t index);

}  // namespace cim
