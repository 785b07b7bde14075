// The vocabulary in which model/records.h describes the records of cim_client.h.
//
// A description names a record's XML element and lists all of its fields but `next`.  What a
// field holds (a text, a record, a flag, a number) follows from its C type; the description
// adds only what the type cannot say: which XML attribute or child elements feed it, and
// where it departs from the rule that a record owns and copies all it points to.  Release,
// copy and reader are each written once, over descriptions: see release.h, clone.h and
// reader/build.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace cim {

// ---- One field ----

// Which child elements feed a field.
enum class Children {
  None,
  One,   // one; a second one replaces the first
  List,  // all of one kind, in document order
};

// How an attribute's text becomes a flag or a number.
enum class Reading {
  Decimal,        // its leading decimal digits, else 0
  TrueFalse,      // "TRUE" is 1, "FALSE" is 0, anything else leaves the field
  SortDirection,  // "ASC" is 1, "DESC" is 2, anything else leaves the field
};

// What a clone takes of a field.
enum class Copy { Whole, FirstCharacter, Nothing };

// Who releases what a field points to.
enum class Owner { Record, Caller };

template <class R, class T>
struct Field {
  using Record = R;
  using Type = T;

  T R::*member;
  const char* attribute = nullptr;  // XML name; null: no attribute feeds it
  Children children = Children::None;
  Reading reading = Reading::Decimal;
  Copy copy = Copy::Whole;
  Owner owner = Owner::Record;

  // The same field with one rule changed.
  constexpr Field read_as(Reading rule) const {
    Field field = *this;
    field.reading = rule;
    return field;
  }
  constexpr Field copied(Copy rule) const {
    Field field = *this;
    field.copy = rule;
    return field;
  }
  constexpr Field borrowed() const {
    Field field = *this;
    field.owner = Owner::Caller;
    return field;
  }
  constexpr Field or_child() const {
    Field field = *this;
    field.children = Children::One;
    return field;
  }
};

// A field that no document fills, or that its builder fills in a way of its own.
template <class R, class T>
constexpr Field<R, T> plain(T R::*member) {
  return {.member = member};
}

// A text, flag or number taken from an XML attribute.  For a record pointer the reader
// makes a record out of the attribute: see reader/build.h.
template <class R, class T>
constexpr Field<R, T> attribute(const char* name, T R::*member) {
  return {.member = member, .attribute = name};
}

// The record of one child element.
template <class R, class T>
requires std::is_class_v<T>
constexpr Field<R, T*> child(T* R::*member) {
  return {.member = member, .children = Children::One};
}

// The records of all child elements of one kind.
template <class R, class T>
requires std::is_class_v<T>
constexpr Field<R, T*> children(T* R::*member) {
  return {.member = member, .children = Children::List};
}

// Attributes that mean the same wherever they occur.
template <class R>
constexpr auto name(char* R::*member) {
  return attribute("NAME", member);
}
template <class R>
constexpr auto type(char* R::*member) {
  return attribute("TYPE", member);
}
template <class R>
constexpr auto param_type(char* R::*member) {
  return attribute("PARAMTYPE", member);
}
template <class R>
constexpr auto propagated(std::int16_t R::*member) {
  return attribute("PROPAGATED", member);
}
template <class R>
constexpr auto is_array(std::int16_t R::*member) {
  return attribute("ISARRAY", member).read_as(Reading::TrueFalse);
}
template <class R>
constexpr auto array_size(std::int32_t R::*member) {
  return attribute("ARRAYSIZE", member);
}

// Class names of which a clone keeps only the first character: callers know copies so.
template <class R>
constexpr auto class_origin(char* R::*member) {
  return attribute("CLASSORIGIN", member).copied(Copy::FirstCharacter);
}
template <class R>
constexpr auto reference_class(char* R::*member) {
  return attribute("REFERENCECLASS", member).copied(Copy::FirstCharacter);
}

// ---- One record ----

// A record that forms lists: its last field is `next`.
template <class R>
concept ListNode = requires(R r) {
  r.next;
};

namespace detail {

// Stands for any initialiser, so that an aggregate's members can be counted.
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

template <class R, class... Members>
consteval bool all_different(Members... member) {
  R record{};
  const void* places[] = {&(record.*member)...};
  for (const auto& place : places)
    for (const auto& earlier : places)
      if (&earlier < &place && earlier == place) return false;
  return true;
}

void a_field_is_listed_twice();  // not constexpr: calling it fails the build

}  // namespace detail

// A record's XML element, and a walk over its fields.
template <class Walk, class... F>
struct Description {
  const char* element;
  Walk walk;  // walk(visit) calls visit(field) for each field, in order
};

// Describes a record.  The build fails unless the fields are exactly the members of the
// struct: a forgotten one would leak, a doubled one would be freed twice.
template <class First, class... Rest>
consteval auto element(const char* element_name, First first, Rest... rest) {
  using R = typename First::Record;
  static_assert((std::is_same_v<R, typename Rest::Record> && ...),
                "a description lists fields of one struct");
  static_assert(1 + sizeof...(Rest) + ListNode<R> == detail::member_count<R>(),
                "a description lists every field of its struct but `next`");
  if (!detail::all_different<R>(first.member, rest.member...)) detail::a_field_is_listed_twice();

  auto walk = [=](auto&& visit) { visit(first), (visit(rest), ...); };
  return Description<decltype(walk), First, Rest...>{element_name, walk};
}

// The description of record R: model/records.h specialises this for every record.
template <class R>
constexpr std::nullptr_t describe = nullptr;

template <class R>
concept Record = !std::is_same_v<decltype(describe<R>), const std::nullptr_t>;

// ---- Walking a record ----

// The node after `record`; null for a record that forms no lists.
template <Record R>
R* next_of(const R* record) {
  if constexpr (ListNode<R>) {
    return record->next;
  } else {
    return nullptr;
  }
}

// Calls visit(field) for every field of R, in order.
template <Record R, class Visit>
constexpr void for_each_field(Visit visit) {
  describe<R>.walk(visit);
}

}  // namespace cim
