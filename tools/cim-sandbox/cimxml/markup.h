// Growing XML text, in the form that devices give it: every tag is followed by a line break.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace sandbox::cimxml {

// An attribute without a name is left out.
struct Attribute {
  std::string_view name;
  std::string_view value;
};

// `condition` decides whether the attribute is there.
inline Attribute when(bool condition, std::string_view name, std::string_view value) {
  return condition ? Attribute{name, value} : Attribute{};
}

void append_escaped(std::string& out, std::string_view text);

class Markup {
 public:
  using Attributes = std::initializer_list<Attribute>;

  void open(std::string_view name, Attributes attributes = {});
  void close(std::string_view name);
  void empty(std::string_view name, Attributes attributes = {});
  void leaf(std::string_view name, Attributes attributes, std::string_view text);
  // A leaf whose content is an XML document of its own.
  void leaf_of_markup(std::string_view name, const Markup& content);
  void raw(std::string_view text) { text_ += text; }

  // Drops everything from `size` on, an earlier result of size().
  std::size_t size() const { return text_.size(); }
  void cut(std::size_t size) { text_.resize(size); }

  const std::string& text() const { return text_; }
  std::string take() { return std::move(text_); }

 private:
  void begin(std::string_view name, Attributes attributes);

  std::string text_;
};

}  // namespace sandbox::cimxml
