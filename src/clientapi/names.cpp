// Reading keys out of object paths.
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

// A text of a path; none when the path's table has no such slot.
Owned<CIMCString> ask(CIMCObjectPath* path, StringGetter getter) {
  return Owned<CIMCString>(getter ? getter(path, nullptr) : nullptr);
}

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

// A key as value2Chars() and CIMC_getDataType() say it.  False when memory runs out.
class KeyText {
 public:
  explicit KeyText(const CIMCData& data)
      : is_complete_(value2Chars(data.type, &data.value, &text_) == 0),
        type_(CIMC_getDataType(data.type)) {}
  ~KeyText() { std::free(text_); }
  KeyText(const KeyText&) = delete;
  KeyText& operator=(const KeyText&) = delete;

  explicit operator bool() const { return is_complete_; }
  const char* text() const { return text_; }
  const char* type() const { return type_; }

 private:
  char* text_ = nullptr;
  bool is_complete_;
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
    return key && AddToKeyBindingListRef(keys, name, key.text(), key.type(), nullptr) == 0;
  });
}

bool add_reference_key(KeyBinding** keys, const char* name, CIMCObjectPath* path) {
  const Owned<CIMCString> class_name = ask(path, path->ft->getClassName);
  const Owned<CIMCString> name_space = ask(path, path->ft->getNameSpace);
  const char* class_text = characters(class_name.get());
  KeyBinding* referenced = nullptr;
  if (!class_text || !collect_referenced_keys(path, &referenced)) {
    release(referenced);
    return false;
  }
  return AddToKeyBindingList(keys, name, nullptr, nullptr, class_text, characters(name_space.get()),
                             referenced) == 0;
}

bool add_key(KeyBinding** keys, const char* name, const CIMCData& data) {
  if (data.type == code::reference)
    return !data.value.ref || add_reference_key(keys, name, data.value.ref);
  const KeyText key(data);
  return key &&
         AddToKeyBindingList(keys, name, key.text(), key.type(), nullptr, nullptr, nullptr) == 0;
}

}  // namespace

ClassName* class_name_of(CIMCObjectPath* path) {
  if (!path || !path->ft) return nullptr;
  const Owned<CIMCString> text = ask(path, path->ft->getClassName);
  auto* name = characters(text.get()) ? allocate<ClassName>() : nullptr;
  if (!name || (name->name = duplicate(characters(text.get())))) return name;
  release(name);
  return nullptr;
}

NamespacePath* namespace_path_of(CIMCObjectPath* path) {
  const Owned<CIMCString> name_space = ask(path, path->ft->getNameSpace);
  auto* result = allocate<NamespacePath>();
  if (!result) return nullptr;
  result->localNamespacePath = allocate<LocalNamespacePath>();
  if (result->localNamespacePath) {
    Namespace*& segments = result->localNamespacePath->namespaces;
    segments = make_segment("root");
    if (segments) segments->next = make_segment(last_segment(characters(name_space.get())));
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
