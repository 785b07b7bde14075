// Reading object paths and making records of them.
#include "object_path.h"

#include <algorithm>
#include <cctype>

#include "exit_status.h"
#include "records.h"
#include "utf8.h"
#include "value_syntax.h"

namespace cli {
namespace {

constexpr bool is_digit(char letter) { return letter >= '0' && letter <= '9'; }

// Letters of CIM names: DSP0004 allows letters, digits, "_" and what lies beyond ASCII.
constexpr bool is_name_letter(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') || is_digit(letter) ||
         letter == '_' || static_cast<unsigned char>(letter) >= 0x80;
}

// Whether a bare value is a number: an integer, decimal or hexadecimal, or a real.
bool is_number(std::string_view text) {
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
  if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
    return std::all_of(text.begin() + 2, text.end(),
                       [](unsigned char letter) { return std::isxdigit(letter) != 0; });
  }
  const auto skip_digits = [&text] {
    const std::size_t before = text.size();
    while (!text.empty() && is_digit(text.front())) text.remove_prefix(1);
    return before - text.size();
  };
  std::size_t digits = skip_digits();
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    digits += skip_digits();
  }
  if (digits == 0) return false;
  if (!text.empty() && (text.front() == 'e' || text.front() == 'E')) {
    text.remove_prefix(1);
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
    if (skip_digits() == 0) return false;
  }
  return text.empty();
}

Key bare_key(std::string name, std::string_view text) {
  if (is_number(text)) return {std::move(name), Key::Kind::Number, std::string(text)};
  if (same_name(text, "true")) return {std::move(name), Key::Kind::Boolean, "TRUE"};
  if (same_name(text, "false")) return {std::move(name), Key::Kind::Boolean, "FALSE"};
  return {std::move(name), Key::Kind::Text, std::string(text)};
}

// Reads a path from its front to its end.
class PathReader {
 public:
  explicit PathReader(std::string_view text) : whole_(text), rest_(text) {}

  ObjectUri read() {
    ObjectUri path;
    read_place(path);
    path.class_name = read_name("the name of a class");
    if (rest_.empty()) return path;
    path.is_instance = true;
    if (take("=@")) {
      if (!rest_.empty()) fail("nothing more");
      return path;
    }
    if (take("="))
      path.keys.push_back(read_value(std::string()));
    else
      read_keys(path);
    if (!rest_.empty()) fail("a comma or the end");
    return path;
  }

 private:
  // Reads host and namespace, which end at the colon before the class.
  void read_place(ObjectUri& path) {
    if (!take("http://")) take("https://");
    const bool has_host = rest_.size() != whole_.size() || take("//");
    if (has_host) {
      const std::size_t slash = rest_.find('/');
      if (slash == 0 || slash == std::string_view::npos) fail("a host and a namespace");
      path.host = std::string(rest_.substr(0, slash));
      rest_.remove_prefix(slash);
    }
    const std::size_t colon = rest_.find_first_of(":=\"");
    if (colon == std::string_view::npos || rest_[colon] != ':') {
      if (has_host) fail("a namespace and a colon");
      return;
    }
    std::string_view name_space = rest_.substr(0, colon);
    if (!name_space.empty() && name_space.front() == '/') name_space.remove_prefix(1);
    if (name_space.empty()) fail("a namespace");
    path.name_space = std::string(name_space);
    rest_.remove_prefix(colon + 1);
  }

  void read_keys(ObjectUri& path) {
    if (!take(".")) fail("\".\" and keys, or the end");
    do {
      std::string name = read_name("the name of a key");
      if (!take("=")) fail("\"=\" and the key's value");
      path.keys.push_back(read_value(std::move(name)));
    } while (take(","));
  }

  std::string read_name(std::string_view wanted) {
    std::size_t length = 0;
    while (length < rest_.size() && is_name_letter(rest_[length])) ++length;
    if (length == 0 || is_digit(rest_.front())) fail(wanted);
    std::string name(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return name;
  }

  Key read_value(std::string name) {
    if (take("\"")) return {std::move(name), Key::Kind::Text, read_quoted('"')};
    if (take("'")) return {std::move(name), Key::Kind::Text, read_quoted('\'')};
    const std::string_view text = rest_.substr(0, rest_.find(','));
    if (text.empty()) fail("a value");
    rest_.remove_prefix(text.size());
    return bare_key(std::move(name), text);
  }

  std::string read_quoted(char quote) {
    std::string text;
    while (!rest_.empty() && rest_.front() != quote) {
      if (rest_.front() != '\\') {
        text += rest_.front();
        rest_.remove_prefix(1);
        continue;
      }
      if (rest_.size() < 2) break;
      text += unescaped(rest_[1]);
      rest_.remove_prefix(2);
    }
    if (rest_.empty()) fail(std::string("the closing ") + quote);
    rest_.remove_prefix(1);
    return text;
  }

  bool take(std::string_view token) {
    if (!rest_.starts_with(token)) return false;
    rest_.remove_prefix(token.size());
    return true;
  }

  [[noreturn]] void fail(std::string_view wanted) const {
    const std::string_view before = whole_.substr(0, whole_.size() - rest_.size());
    std::string text = "not an object path: " + printable(whole_) + "\n";
    text += "expected " + std::string(wanted);
    text += before.empty() ? " at its beginning" : " after " + printable(before);
    throw usage_failure(text);
  }

  std::string_view whole_;
  std::string_view rest_;
};

ClassName* new_class_name(std::string_view name) {
  ClassNameOwner record(new_record<ClassName>());
  record->name = new_text(name);
  return record.release();
}

std::string_view value_type(Key::Kind kind) {
  switch (kind) {
    case Key::Kind::Number:
      return "numeric";
    case Key::Kind::Boolean:
      return "boolean";
    default:
      return "string";
  }
}

KeyValue* new_key_value(const Key& key) {
  Owner<KeyValue, Free_KeyValue> record(new_record<KeyValue>());
  record->text = new_text(key.text);
  record->valueType = new_text(value_type(key.kind));
  return record.release();
}

// Puts the only, nameless key where the record holds it.
void set_only_key(InstanceName& record, const Key& key) {
  if (key.kind == Key::Kind::Reference)
    record.valueReference = make_reference(parse_object(key.text)).release();
  else
    record.keyValue = new_key_value(key);
}

KeyBinding* new_key_binding(const Key& key) {
  KeyBindingOwner record(new_record<KeyBinding>());
  record->name = new_text(key.name);
  if (key.kind == Key::Kind::Reference)
    record->valueReference = make_reference(parse_object(key.text)).release();
  else
    record->keyValue = new_key_value(key);
  return record.release();
}

LocalNamespacePath* new_namespace_path(std::string_view name_space) {
  Owner<LocalNamespacePath, Free_LocalNamespacePath> record(new_record<LocalNamespacePath>());
  while (!name_space.empty()) {
    const std::size_t slash = name_space.find('/');
    auto* segment = new_record<Namespace>();
    append(&record->namespaces, segment);
    segment->name = new_text(name_space.substr(0, slash));
    name_space =
        slash == std::string_view::npos ? std::string_view() : name_space.substr(slash + 1);
  }
  return record.release();
}

NamespacePath* new_host_path(const ObjectUri& path) {
  Owner<NamespacePath, Free_NamespacePath> record(new_record<NamespacePath>());
  record->host = new_text(path.host);
  record->localNamespacePath = new_namespace_path(path.name_space);
  return record.release();
}

void refer_to_instance(ValueReference& reference, const ObjectUri& path) {
  InstanceNameOwner name = make_instance_name(path);
  if (path.name_space.empty()) {
    reference.instanceName = name.release();
    return;
  }
  if (path.host.empty()) {
    reference.localInstancePath = new_record<LocalInstancePath>();
    reference.localInstancePath->localNamespacePath = new_namespace_path(path.name_space);
    reference.localInstancePath->instanceName = name.release();
    return;
  }
  reference.instancePath = new_record<InstancePath>();
  reference.instancePath->namespacePath = new_host_path(path);
  reference.instancePath->instanceName = name.release();
}

void refer_to_class(ValueReference& reference, const ObjectUri& path) {
  if (path.name_space.empty()) {
    reference.className = new_class_name(path.class_name);
    return;
  }
  if (path.host.empty()) {
    reference.localClassPath = new_record<LocalClassPath>();
    reference.localClassPath->localNamespacePath = new_namespace_path(path.name_space);
    reference.localClassPath->className = new_class_name(path.class_name);
    return;
  }
  reference.classPath = new_record<ClassPath>();
  reference.classPath->namespacePath = new_host_path(path);
  reference.classPath->className = new_class_name(path.class_name);
}

}  // namespace

ObjectUri parse_object(std::string_view text) { return PathReader(text).read(); }

ObjectUri parse_instance(std::string_view text) {
  ObjectUri path = parse_object(text);
  if (!path.is_instance)
    throw usage_failure(printable(text) + " names a class; an instance needs its keys, as in '" +
                        printable(path.class_name) + ".Key=\"value\"', or " +
                        printable(path.class_name) + "=@ when its class has none");
  return path;
}

bool looks_like_instance(std::string_view text) {
  try {
    const ObjectUri path = parse_object(text);
    return path.is_instance && !path.keys.empty() && !path.keys.front().name.empty();
  } catch (const Failure&) {
    return false;
  }
}

InstanceNameOwner make_instance_name(const ObjectUri& path) {
  InstanceNameOwner record(new_record<InstanceName>());
  record->className = new_class_name(path.class_name);
  if (path.keys.size() == 1 && path.keys.front().name.empty()) {
    set_only_key(*record, path.keys.front());
    return record;
  }
  for (const Key& key : path.keys) append(&record->keyBindings, new_key_binding(key));
  return record;
}

ValueReferenceOwner make_reference(const ObjectUri& path) {
  ValueReferenceOwner reference(new_record<ValueReference>());
  if (path.is_instance)
    refer_to_instance(*reference, path);
  else
    refer_to_class(*reference, path);
  return reference;
}

}  // namespace cli
