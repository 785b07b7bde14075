// Writing names and paths.
#include "path_text.h"

#include "records.h"
#include "utf8.h"

namespace cli {
namespace {

// A reference inside a reference inside a path: each level doubles the backslashes, so the text
// of deeper ones, which only a broken answer holds, is left out.
constexpr int deepest_reference = 8;

std::string full_text(const PathView& path, int depth);

std::string key_value_text(const KeyValue& value) {
  const std::string_view text = text_or_empty(value.text);
  const std::string_view type = text_or_empty(value.valueType);
  if (same_name(type, "numeric") && !text.empty()) return std::string(text);
  if (same_name(type, "boolean") && !text.empty()) return lower_case(text);
  return quoted(text);
}

std::string reference_text(const ValueReference& reference, int depth) {
  if (depth == deepest_reference) return "\"...\"";
  return quoted(full_text(view_of(reference), depth + 1));
}

std::string key_text(const KeyBinding& key, int depth) {
  std::string text(text_or_empty(key.name));
  text += '=';
  if (key.valueReference != nullptr)
    text += reference_text(*key.valueReference, depth);
  else if (key.keyValue != nullptr)
    text += key_value_text(*key.keyValue);
  return text;
}

// The single, nameless key of `name`, or "=@" when it has none.
std::string only_key_text(const InstanceName& name, int depth) {
  if (name.keyValue != nullptr) return "=" + key_value_text(*name.keyValue);
  if (name.valueReference != nullptr) return "=" + reference_text(*name.valueReference, depth);
  return "=@";
}

std::string name_text(const InstanceName& name, int depth) {
  std::string text(class_of(name));
  if (name.keyBindings == nullptr) return text + only_key_text(name, depth);
  char separator = '.';
  for (const KeyBinding* key = name.keyBindings; key != nullptr; key = key->next) {
    text += separator;
    text += key_text(*key, depth);
    separator = ',';
  }
  return text;
}

std::string local_text(const PathView& path, int depth) {
  const std::string name_space = namespace_text(path.place);
  std::string text = name_space.empty() ? std::string() : "/" + name_space + ":";
  if (path.instance != nullptr) return text + name_text(*path.instance, depth);
  if (path.class_name != nullptr) text += text_or_empty(path.class_name->name);
  return text;
}

std::string full_text(const PathView& path, int depth) {
  const std::string local = local_text(path, depth);
  const bool at_host = !path.host.empty() && local.starts_with('/');
  return at_host ? "//" + std::string(path.host) + local : local;
}

}  // namespace

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\')
      result.append(1, '\\').append(1, letter);
    else if (letter == '\n')
      result += "\\n";
    else if (letter == '\t')
      result += "\\t";
    else if (letter == '\r')
      result += "\\r";
    else
      result += letter;
  }
  return result + '"';
}

std::string namespace_text(const LocalNamespacePath* path) {
  std::string text;
  const Namespace* segment = path == nullptr ? nullptr : path->namespaces;
  for (; segment != nullptr; segment = segment->next) {
    if (!text.empty()) text += '/';
    text += text_or_empty(segment->name);
  }
  return text;
}

std::string path_text(const InstanceName& name) { return name_text(name, 0); }

std::string local_path_text(const PathView& path) { return local_text(path, 0); }

std::string path_text(const PathView& path) { return full_text(path, 0); }

}  // namespace cli
