// The members of the public records, one after the other, as the compiler sees them: tests
// that walk records by them do not depend on how the library describes its records.
#pragma once

#include <cstddef>
#include <type_traits>

namespace support {

// A record that forms lists.
template <class R>
concept ListNode = requires(R record) {
  record.next;
};

namespace detail {

struct Anything {
  template <class T>
  operator T() const;  // NOLINT: stands for any initialiser, without a cast
};

template <class R, class... Initialisers>
consteval std::size_t member_count() {
  if constexpr (requires { R{Initialisers{}..., Anything{}}; }) {
    return member_count<R, Initialisers..., Anything>();
  } else {
    return sizeof...(Initialisers);
  }
}

}  // namespace detail

// How many members R has, `next` among them.
template <class R>
inline constexpr std::size_t member_count = detail::member_count<R>();

// Calls visit(member) for every member of `record`, in order, `next` among them.
template <class R, class Visit>
void for_each_member(R& record, Visit visit) {
  constexpr std::size_t count = member_count<std::remove_const_t<R>>;
  const auto all = [&](auto&... member) { (visit(member), ...); };
  if constexpr (count == 1) {
    auto& [a] = record;
    all(a);
  } else if constexpr (count == 2) {
    auto& [a, b] = record;
    all(a, b);
  } else if constexpr (count == 3) {
    auto& [a, b, c] = record;
    all(a, b, c);
  } else if constexpr (count == 4) {
    auto& [a, b, c, d] = record;
    all(a, b, c, d);
  } else if constexpr (count == 5) {
    auto& [a, b, c, d, e] = record;
    all(a, b, c, d, e);
  } else if constexpr (count == 6) {
    auto& [a, b, c, d, e, f] = record;
    all(a, b, c, d, e, f);
  } else if constexpr (count == 7) {
    auto& [a, b, c, d, e, f, g] = record;
    all(a, b, c, d, e, f, g);
  } else if constexpr (count == 8) {
    auto& [a, b, c, d, e, f, g, h] = record;
    all(a, b, c, d, e, f, g, h);
  } else if constexpr (count == 9) {
    auto& [a, b, c, d, e, f, g, h, i] = record;
    all(a, b, c, d, e, f, g, h, i);
  } else if constexpr (count == 10) {
    auto& [a, b, c, d, e, f, g, h, i, j] = record;
    all(a, b, c, d, e, f, g, h, i, j);
  } else if constexpr (count == 11) {
    auto& [a, b, c, d, e, f, g, h, i, j, k] = record;
    all(a, b, c, d, e, f, g, h, i, j, k);
  } else if constexpr (count == 12) {
    auto& [a, b, c, d, e, f, g, h, i, j, k, l] = record;
    all(a, b, c, d, e, f, g, h, i, j, k, l);
  } else {
    static_assert(count == 13, "a record has more members than this can take apart");
    auto& [a, b, c, d, e, f, g, h, i, j, k, l, m] = record;
    all(a, b, c, d, e, f, g, h, i, j, k, l, m);
  }
}

}  // namespace support
