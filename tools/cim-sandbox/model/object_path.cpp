// Identity and text of object paths.
#include "model/object_path.h"

#include <algorithm>

#include "model/scalar_text.h"
#include "model/text.h"

namespace sandbox {
namespace {

// References within references beyond this depth end their part of the text: only a model made
// to hurt goes so deep.
constexpr int deepest_reference = 16;

void append_identity(std::string& out, const ObjectPath& path, int depth) {
  out += lower_case(path.name_space);
  out += ':';
  out += lower_case(path.class_name);
  std::vector<const KeyBinding*> keys;
  for (const KeyBinding& key : path.keys) keys.push_back(&key);
  std::sort(keys.begin(), keys.end(), [](const KeyBinding* left, const KeyBinding* right) {
    return NameLess()(left->name, right->name);
  });
  for (const KeyBinding* key : keys) {
    out += '\x1f';
    out += lower_case(key->name);
    out += '=';
    if (const auto* reference = std::get_if<Reference>(&key->value)) {
      if (depth < deepest_reference) append_identity(out, **reference, depth + 1);
    } else {
      append_text(out, key->value, key->type);
    }
  }
  out += '\x1e';
}

void append_quoted(std::string& out, std::string_view text) {
  out += '"';
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') out += '\\';
    out += letter;
  }
  out += '"';
}

// Takes the text of one path apart.
class PathReader {
 public:
  explicit PathReader(std::string_view text) : rest_(text) {}

  Outcome<ObjectPath> read() {
    ObjectPath path;
    if (Outcome<Done> done = read_class(path); !done) return done.error();
    while (!rest_.empty()) {
      Outcome<KeyBinding> key = read_key();
      if (!key) return key.error();
      path.keys.push_back(std::move(*key));
      if (rest_.empty()) break;
      if (!take(',')) return wrong("expected \",\" before \"" + std::string(rest_) + '"');
      if (rest_.empty()) return wrong("expected a key after the last \",\"");
    }
    return path;
  }

 private:
  static Error wrong(std::string what) { return {ErrorCode::InvalidParameter, std::move(what)}; }

  bool take(char letter) {
    if (!rest_.starts_with(letter)) return false;
    rest_.remove_prefix(1);
    return true;
  }

  Outcome<Done> read_class(ObjectPath& path) {
    const std::size_t end = rest_.find_first_of(".\"=");
    std::string_view head = rest_.substr(0, end);
    rest_.remove_prefix(head.size());
    if (const std::size_t colon = head.rfind(':'); colon != std::string_view::npos) {
      path.name_space = head.substr(0, colon);
      head.remove_prefix(colon + 1);
    }
    if (!is_name(head)) return wrong("expected a class name, not \"" + std::string(head) + '"');
    path.class_name = head;
    if (!rest_.empty() && !take('.')) return wrong("expected \".\" after the class name");
    return Done{};
  }

  Outcome<KeyBinding> read_key() {
    KeyBinding key;
    const std::string_view name = rest_.substr(0, rest_.find('='));
    if (!is_name(name)) return wrong("expected a key name, not \"" + std::string(name) + '"');
    key.name = name;
    rest_.remove_prefix(name.size());
    if (!take('=')) return wrong("expected \"=\" after key \"" + key.name + '"');
    if (rest_.starts_with('"')) return read_quoted(std::move(key));
    const std::string_view value = rest_.substr(0, rest_.find(','));
    if (value.empty()) return wrong("expected a value for key \"" + key.name + '"');
    rest_.remove_prefix(value.size());
    const bool boolean = same_name(value, "true") || same_name(value, "false");
    key.type = boolean ? Type::Boolean : Type::SInt64;
    key.value = std::string(value);
    return key;
  }

  Outcome<KeyBinding> read_quoted(KeyBinding key) {
    rest_.remove_prefix(1);
    std::string text;
    while (!rest_.empty() && rest_.front() != '"') {
      if (rest_.front() == '\\') rest_.remove_prefix(1);
      if (rest_.empty()) break;
      text += rest_.front();
      rest_.remove_prefix(1);
    }
    if (!take('"')) return wrong("the value of key \"" + key.name + "\" lacks its closing quote");
    key.value = std::move(text);
    return key;
  }

  std::string_view rest_;
};

}  // namespace

std::string identity_of(const ObjectPath& path) {
  std::string text;
  append_identity(text, path, 0);
  return text;
}

std::string to_text(const ObjectPath& path) {
  std::string text = path.name_space.empty() ? "" : path.name_space + ':';
  text += path.class_name;
  char separator = '.';
  for (const KeyBinding& key : path.keys) {
    text += separator;
    separator = ',';
    text += key.name;
    text += '=';
    if (is_numeric(key.type) || key.type == Type::Boolean) {
      append_text(text, key.value, key.type);
    } else {
      append_quoted(text, to_text(key.value, key.type));
    }
  }
  return text;
}

Outcome<ObjectPath> object_path_from(std::string_view text) { return PathReader(text).read(); }

}  // namespace sandbox
