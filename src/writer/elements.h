// One write_element() per record: the CIM-XML of that record alone, without its list.
//
// The single put() of each is the format: its pieces stand in document order.  They are
// defined beside their Gen_ functions, in values.cpp, schema.cpp and messages.cpp.
//
// The object manager accepts exactly these bytes.  A spelling that looks wrong (a blank
// around "=", an unquoted value, a tag left open) is the one it expects.
#pragma once

#include "base/trace.h"
#include "cim_client.h"
#include "model/records.h"
#include "writer/text.h"

namespace cim {

// ---- Elements ----

// Values, names and paths
void write_element(Text& out, const ClassName& r);
void write_element(Text& out, const Namespace& r);
void write_element(Text& out, const LocalNamespacePath& r);
void write_element(Text& out, const NamespacePath& r);
void write_element(Text& out, const LocalClassPath& r);
void write_element(Text& out, const ClassPath& r);
void write_element(Text& out, const InstancePath& r);
void write_element(Text& out, const LocalInstancePath& r);
void write_element(Text& out, const KeyValue& r);
void write_element(Text& out, const KeyBinding& r);
void write_element(Text& out, const InstanceName& r);
void write_element(Text& out, const ValueReference& r);
void write_element(Text& out, const ValueRefArray& r);
void write_element(Text& out, const ValueArray& r);
void write_element(Text& out, const ValueNull& r);
void write_element(Text& out, const Value& r);  // empties an embedded instance

// Schema
void write_element(Text& out, const QualifierFlavor& r);
void write_element(Text& out, const Scope& r);
void write_element(Text& out, const Qualifier& r);
void write_element(Text& out, const QualifierDecl& r);
void write_element(Text& out, const Property& r);
void write_element(Text& out, const PropertyArray& r);
void write_element(Text& out, const PropertyReference& r);
void write_element(Text& out, const Parameter& r);
void write_element(Text& out, const ParameterReference& r);
void write_element(Text& out, const ParameterArray& r);
void write_element(Text& out, const ParameterRefArray& r);
void write_element(Text& out, const Method& r);
void write_element(Text& out, const Class& r);
void write_element(Text& out, const Instance& r);
void write_element(Text& out, const NamedInstance& r);
void write_element(Text& out, const ResponseDestination& r);

// Messages and declarations
void write_element(Text& out, const CIM& r);
void write_element(Text& out, const Message& r);
void write_element(Text& out, const SimpleReq& r);
void write_element(Text& out, const MultiReq& r);
void write_element(Text& out, const SimpleRsp& r);
void write_element(Text& out, const MultiRsp& r);
void write_element(Text& out, const IMethodCall& r);
void write_element(Text& out, const IParamValue& r);
void write_element(Text& out, const IMethodResponse& r);
void write_element(Text& out, const IReturnValue& r);
void write_element(Text& out, const MethodCall& r);
void write_element(Text& out, const ParamValue& r);
void write_element(Text& out, const MethodResponse& r);
void write_element(Text& out, const ReturnValue& r);
void write_element(Text& out, const Error& r);
void write_element(Text& out, const Object& r);
void write_element(Text& out, const ObjectWithPath& r);
void write_element(Text& out, const ObjectWithLocalPath& r);
void write_element(Text& out, const ObjectPath& r);
void write_element(Text& out, const NamedObject& r);
void write_element(Text& out, const Declaration& r);
void write_element(Text& out, const DeclGroup& r);
void write_element(Text& out, const DeclGroupWithName& r);
void write_element(Text& out, const DeclGroupWithPath& r);

// ---- Lists ----

// What is traced before and after a list; null: nothing.
struct TraceLines {
  const char* before = nullptr;
  const char* after = nullptr;
};
template <class R>
inline constexpr TraceLines trace_lines{};
template <>
inline constexpr TraceLines trace_lines<Qualifier>{"\n\n Inside Gen_Qualifier \n\n",
                                                   "\n\n leaving  Gen_Qualifier \n\n"};
template <>
inline constexpr TraceLines trace_lines<Property>{"\n\n Inside Gen_Property \n\n", nullptr};
template <>
inline constexpr TraceLines trace_lines<Class>{"\n\n has entered Gen_class\n\n",
                                               "\n\n leaving genclass\n\n"};

// Writes `list` and every node after it, one element each; nothing for null.
template <Record R>
[[gnu::always_inline]] inline char* write_piece(Text& out, char* end, R* list) {
  if (!list) return end;
  if constexpr (trace_lines<R>.before) trace_line(trace_lines<R>.before);
  out.set_position(end);
  for (; list; list = next_of(list)) write_element(out, *list);
  if constexpr (trace_lines<R>.after) trace_line(trace_lines<R>.after);
  return out.position();
}

// opener, the list and closer; nothing for null.
template <std::size_t opener_size, Record R, std::size_t closer_size>
struct Wrapped {
  const char (&opener)[opener_size];
  R* list;
  const char (&closer)[closer_size];
};
template <std::size_t opener_size, Record R, std::size_t closer_size>
Wrapped<opener_size, R, closer_size> wrapped(const char (&opener)[opener_size], R* list,
                                             const char (&closer)[closer_size]) {
  return {opener, list, closer};
}
template <std::size_t opener_size, Record R, std::size_t closer_size>
[[gnu::always_inline]] inline char* write_piece(Text& out, char* end,
                                                const Wrapped<opener_size, R, closer_size>& piece) {
  if (!piece.list) return end;
  end = write_piece(out, end, piece.opener);
  end = write_piece(out, end, piece.list);
  return write_piece(out, end, piece.closer);
}

// ---- Bodies of the Gen_ functions ----

// Appends the pieces to the text at *output, a malloc()ed text or null; nothing when
// `output` is null.  Returns 0.
template <class... Piece>
int append_to(char** output, const Piece&... piece) {
  if (!output) return 0;
  Text text(*output);
  text.put(piece...);
  *output = text.hand_over();
  return 0;
}

// Appends `list` and every node after it; a null list leaves *output alone.  Returns 0.
template <Record R>
int generate(R* list, char** output) {
  return list ? append_to(output, list) : 0;
}

}  // namespace cim
