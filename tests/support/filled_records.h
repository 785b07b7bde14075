// Records with every member set, and their contents as text.
#pragma once

#include <cstdlib>
#include <cstring>
#include <string>
#include <type_traits>

#include "cim_client.h"
#include "support/record_members.h"

namespace support {

// A record with every text and flag set and, while `depth` is above 0, with every child
// record, each made in the same way with a depth of one less; an IParamValue, which borrows its
// children, gets none.  Texts are copies of `text`, numbers are 1.  The caller releases it;
// allocations that fail are not reckoned with.
template <class R>
R* filled(const char* text, int depth) {
  if (std::is_same_v<R, IParamValue>) depth = 0;
  R* record = static_cast<R*>(std::calloc(1, sizeof(R)));
  for_each_member(*record, [&]<class Member>(Member& member) {
    if constexpr (std::is_same_v<Member, char*>) {
      member = strdup(text);
    } else if constexpr (std::is_same_v<Member, R*>) {
      member = nullptr;  // the `next` of a list node: no record holds another of its kind
    } else if constexpr (std::is_pointer_v<Member>) {
      if (depth > 0) member = filled<std::remove_pointer_t<Member>>(text, depth - 1);
    } else {
      member = 1;
    }
  });
  return record;
}

// A list of `count` such records.
template <ListNode R>
R* filled_list(int count, const char* text, int depth) {
  R* list = nullptr;
  for (; count > 0; --count) {
    R* node = filled<R>(text, depth);
    node->next = list;
    list = node;
  }
  return list;
}

// What `record` and every node after it hold, such as {"name" 1 null {"x"}}{"other" 0 null null}.
template <class R>
std::string contents(const R* record) {
  std::string result;
  const R* next = nullptr;
  for (; record; record = next) {
    next = nullptr;
    result += '{';
    for_each_member(*record, [&]<class Member>(const Member& member) {
      if constexpr (std::is_same_v<Member, char*>) {
        result += member ? '"' + std::string(member) + '"' : "null";
      } else if constexpr (std::is_same_v<Member, R*>) {
        next = member;
        return;
      } else if constexpr (std::is_pointer_v<Member>) {
        result += member ? contents(member) : "null";
      } else {
        result += std::to_string(member);
      }
      result += ' ';
    });
    result.back() = '}';
  }
  return result;
}

}  // namespace support
