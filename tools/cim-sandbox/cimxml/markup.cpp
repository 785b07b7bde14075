// Tags, attributes and escaping.
#include "cimxml/markup.h"

namespace sandbox::cimxml {
namespace {

void append_escaped_attribute(std::string& out, std::string_view text) {
  for (const char letter : text) {
    switch (letter) {
      case '"':
        out += "&quot;";
        break;
      case '\n':
        out += "&#10;";
        break;
      case '\t':
        out += "&#9;";
        break;
      default:
        append_escaped(out, std::string_view(&letter, 1));
    }
  }
}

}  // namespace

void append_escaped(std::string& out, std::string_view text) {
  constexpr std::string_view special = "&<>\r";
  while (true) {
    const std::size_t next = text.find_first_of(special);
    out += text.substr(0, next);
    if (next == std::string_view::npos) return;
    switch (text[next]) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      default:
        out += "&#13;";  // a bare carriage return would reach the reader as a line feed
    }
    text.remove_prefix(next + 1);
  }
}

void Markup::begin(std::string_view name, Attributes attributes) {
  text_ += '<';
  text_ += name;
  for (const Attribute& attribute : attributes) {
    if (attribute.name.empty()) continue;
    text_ += ' ';
    text_ += attribute.name;
    text_ += "=\"";
    append_escaped_attribute(text_, attribute.value);
    text_ += '"';
  }
}

void Markup::open(std::string_view name, Attributes attributes) {
  begin(name, attributes);
  text_ += ">\n";
}

void Markup::close(std::string_view name) {
  text_ += "</";
  text_ += name;
  text_ += ">\n";
}

void Markup::empty(std::string_view name, Attributes attributes) {
  begin(name, attributes);
  text_ += "/>\n";
}

void Markup::leaf(std::string_view name, Attributes attributes, std::string_view text) {
  begin(name, attributes);
  text_ += '>';
  append_escaped(text_, text);
  close(name);
}

// What is inside is escaped already, so it cannot hold the end of the section.
void Markup::leaf_of_markup(std::string_view name, const Markup& content) {
  begin(name, {});
  text_ += "><![CDATA[";
  text_ += content.text();
  text_ += "]]>";
  close(name);
}

}  // namespace sandbox::cimxml
