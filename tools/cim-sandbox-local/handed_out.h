// From the pointers of a client to the objects behind them, and back.
#pragma once

#include <memory>
#include <string_view>

#include "ledger.h"
#include "objects.h"

namespace sandbox_local {

// Which object stands behind which pointer, and what it is called.
template <class Handle>
struct Behind;
template <>
struct Behind<CIMCString> {
  using Type = Text;
  static constexpr const char* kind = "string";
};
template <>
struct Behind<CIMCDateTime> {
  using Type = Time;
  static constexpr const char* kind = "date-time";
};
template <>
struct Behind<CIMCObjectPath> {
  using Type = Path;
  static constexpr const char* kind = "object path";
};
template <>
struct Behind<CIMCInstance> {
  using Type = InstanceObject;
  static constexpr const char* kind = "instance";
};
template <>
struct Behind<CIMCClass> {
  using Type = ClassObject;
  static constexpr const char* kind = "class";
};
template <>
struct Behind<CIMCArray> {
  using Type = ArrayObject;
  static constexpr const char* kind = "array";
};
template <>
struct Behind<CIMCArgs> {
  using Type = Arguments;
  static constexpr const char* kind = "arguments";
};
template <>
struct Behind<CIMCEnumeration> {
  using Type = Enumeration;
  static constexpr const char* kind = "enumeration";
};

// The object behind a pointer.
template <class Handle>
typename Behind<Handle>::Type& self(Handle* handle) {
  return static_cast<typename Behind<Handle>::Type&>(*handle);
}
template <class Handle>
const typename Behind<Handle>::Type& self(const Handle* handle) {
  return static_cast<const typename Behind<Handle>::Type&>(*handle);
}

// Makes an object the client's.
template <class Handle, class Made>
Handle* give(std::unique_ptr<Made> object) {
  Handle* handle = object.release();
  Ledger::of_process().born(handle, Behind<Handle>::kind);
  return handle;
}

inline CIMCString* give_text(std::string_view content) {
  return give<CIMCString>(std::make_unique<Text>(std::string(content)));
}

// The release slot of every table.
template <class Handle>
CIMCStatus release(Handle* handle) {
  Ledger& ledger = Ledger::of_process();
  if (!ledger.is_live(handle, std::string("release (") + Behind<Handle>::kind + ")"))
    return {1, nullptr};
  ledger.died(handle);
  delete &self(handle);
  return {0, nullptr};
}

inline void set_status(CIMCStatus* status, int code, std::string_view message = {}) {
  if (!status) return;
  status->rc = code;
  status->msg = message.data() ? give_text(message) : nullptr;
}

// The clone slot of every table.
template <class Handle>
Handle* clone(Handle* handle, CIMCStatus* status) {
  set_status(status, 0);
  using Made = typename Behind<Handle>::Type;
  return give<Handle>(std::make_unique<Made>(self(handle)));
}

}  // namespace sandbox_local
