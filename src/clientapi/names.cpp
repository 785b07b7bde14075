#include "clientapi/names.h"

#include <cstdlib>
#include <cstring>

#include "base/memory.h"
#include "clientapi/owned.h"
#include "clientapi/types.h"
#include "model/records.h"
#include "model/release.h"

namespace cim::broker {
namespace {

using StringGetter = CIMCString* (*)(CIMCObjectPath*, CIMCStatus*);

// A copy of a text of a path; null when it has none or memory runs out.
char* text_of(CIMCObjectPath* path, StringGetter getter) {
  if (!getter) return nullptr;
  const Owned<CIMCString> string(getter(path, nullptr));
  return duplicate(characters(string.get()));
}

// A text that is freed.
class Text {
 public:
  explicit Text(char* text) : text_(text) {}
  ~Text() { std::free(text_); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;
  const char* get() const { return text_; }

 private:
  char* text_;
};

const char* last_segment(const char* name_space) {
  if (!name_space) return "";
  if (const char* found = std::strstr(name_space, "interop")) return found;
  const char* found = std::strstr(name_space, "cimv2");
  return found ? found : "";
}

Namespace* make_segment(const char* name) {
  auto* segment = allocate<Namespace>();
  if (segment && !(segment->name = duplicate(name))) {
    release(segment);
    return nullptr;
  }
  return segment;
}

// A key as value2Chars() and CIMC_getDataType() say it.
class KeyText {
 public:
  explicit KeyText(const CIMCData& data) : type_(CIMC_getDataType(data.type)) {
    value2Chars(data.type, &data.value, &text_);
  }
  ~KeyText() { std::free(text_); }
  KeyText(const KeyText&) = delete;
  KeyText& operator=(const KeyText&) = delete;

  const char* text() const { return text_; }
  const char* type() const { return type_; }

 private:
  char* text_ = nullptr;
  const char* type_;
};

// Calls visit(data, name) for each key of a path until one returns false.
template <class Visit>
bool for_each_key(CIMCObjectPath* path, Visit visit) {
  const unsigned count = path->ft->getKeyCount(path, nullptr);
  for (unsigned index = 0; index < count; ++index) {
    Owned<CIMCString> name;
    const CIMCData data = path->ft->getKeyAt(path, index, name.receive(), nullptr);
    if (!visit(data, characters(name.get()))) return false;
  }
  return true;
}

// The keys of a referenced path.  References among them are not followed.
bool collect_referenced_keys(CIMCObjectPath* path, KeyBinding** keys) {
  return for_each_key(path, [keys](const CIMCData& data, const char* name) {
    const KeyText key(data);
    return AddToKeyBindingListRef(keys, name, key.text(), key.type(), nullptr) == 0;
  });
}

bool add_reference_key(KeyBinding** keys, const char* name, CIMCObjectPath* path) {
  const Text class_name(text_of(path, path->ft->getClassName));
  const Text name_space(text_of(path, path->ft->getNameSpace));
  KeyBinding* referenced = nullptr;
  if (!class_name.get() || !collect_referenced_keys(path, &referenced)) {
    release(referenced);
    return false;
  }
  return AddToKeyBindingList(keys, name, nullptr, nullptr, class_name.get(), name_space.get(),
                             referenced) == 0;
}

bool add_key(KeyBinding** keys, const char* name, const CIMCData& data) {
  if (data.type == code::reference)
    return !data.value.ref || add_reference_key(keys, name, data.value.ref);
  const KeyText key(data);
  return AddToKeyBindingList(keys, name, key.text(), key.type(), nullptr, nullptr, nullptr) == 0;
}

}  // namespace

ClassName* class_name_of(CIMCObjectPath* path) {
  if (!path || !path->ft) return nullptr;
  char* text = text_of(path, path->ft->getClassName);
  if (!text) return nullptr;
  auto* name = allocate<ClassName>();
  if (!name) {
    std::free(text);
    return nullptr;
  }
  name->name = text;
  return name;
}

NamespacePath* namespace_path_of(CIMCObjectPath* path) {
  const Text name_space(text_of(path, path->ft->getNameSpace));
  auto* result = allocate<NamespacePath>();
  if (!result) return nullptr;
  result->localNamespacePath = allocate<LocalNamespacePath>();
  if (result->localNamespacePath) {
    Namespace*& segments = result->localNamespacePath->namespaces;
    segments = make_segment("root");
    if (segments) segments->next = make_segment(last_segment(name_space.get()));
    if (segments && segments->next) return result;
  }
  release(result);
  return nullptr;
}

bool fill_name(InstanceName& name, CIMCObjectPath* path) {
  name.className = class_name_of(path);
  return name.className && GetKeyBindingValues(path, &name.keyBindings) == 0;
}

InstanceName* make_name(CIMCObjectPath* path) {
  auto* name = allocate<InstanceName>();
  if (!name || fill_name(*name, path)) return name;
  release(name);
  return nullptr;
}

}  // namespace cim::broker

using namespace cim::broker;

extern "C" {

int GetKeyBindingValues(void* path, KeyBinding** keyBindingsOut) {
  if (!path || !keyBindingsOut) return -1;
  KeyBinding* keys = nullptr;
  const bool complete = for_each_key(
      static_cast<CIMCObjectPath*>(path),
      [&keys](const CIMCData& data, const char* name) { return add_key(&keys, name, data); });
  if (!complete) {
    cim::release(keys);
    return -1;
  }
  *keyBindingsOut = keys;
  return 0;
}

int GetKeysFromObjectPath(void* path, KeyBinding** keyBindingsOut) {
  return GetKeyBindingValues(path, keyBindingsOut);
}

int mapCreateinstance(void* path, InstanceName* record) {
  return record && fill_name(*record, static_cast<CIMCObjectPath*>(path)) ? 0 : -1;
}

int mapInvokeReturnValue(void* path, InstanceName** nameOut) {
  InstanceName* name = make_name(static_cast<CIMCObjectPath*>(path));
  if (!name) return -1;
  *nameOut = name;
  return 0;
}

}  // extern "C"
