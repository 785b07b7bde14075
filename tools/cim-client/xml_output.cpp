// Cutting the result out of an answer.
#include "xml_output.h"

#include "exit_status.h"

namespace cli {
namespace {

constexpr std::string_view ends_a_name = " \t\r\n/>";

// Where the start tag of `name` begins, or npos.
std::size_t find_start_tag(std::string_view document, std::string_view name) {
  const std::string opener = "<" + std::string(name);
  std::size_t found = document.find(opener);
  while (found != std::string_view::npos) {
    const std::size_t after = found + opener.size();
    if (after < document.size() && ends_a_name.find(document[after]) != std::string_view::npos)
      return found;
    found = document.find(opener, after);
  }
  return found;
}

}  // namespace

std::string_view xml_element(std::string_view document, std::string_view name) {
  const std::size_t begin = find_start_tag(document, name);
  if (begin == std::string_view::npos) return {};
  const std::size_t tag_end = document.find('>', begin);
  if (tag_end == std::string_view::npos) return {};
  if (document[tag_end - 1] == '/') return document.substr(begin, tag_end + 1 - begin);
  const std::size_t closer = document.rfind("</" + std::string(name));
  if (closer == std::string_view::npos || closer < tag_end) return {};
  const std::size_t end = document.find('>', closer);
  if (end == std::string_view::npos) return {};
  return document.substr(begin, end + 1 - begin);
}

void XmlOutput::write(std::string_view element) {
  const std::string_view text = xml_element(answer_, element);
  if (!text.empty()) out_ << text << '\n';
}

}  // namespace cli
