// Choosing the format.
#include "output.h"

#include "json_output.h"
#include "text_output.h"
#include "utf8.h"
#include "xml_output.h"

namespace cli {

std::vector<TypedView> chosen(std::vector<TypedView> all, const std::vector<std::string>& names) {
  if (names.empty()) return all;
  std::vector<TypedView> result;
  for (const std::string& name : names) {
    for (const TypedView& view : all) {
      if (same_name(view.name, name)) result.push_back(view);
    }
  }
  return result;
}

std::unique_ptr<Output> make_output(const OutputSettings& settings, std::ostream& out,
                                    const std::string& answer) {
  switch (settings.format) {
    case Format::Json:
      return make_json_output(settings, out);
    case Format::Xml:
      return std::make_unique<XmlOutput>(out, answer);
    case Format::Text:
      break;
  }
  return std::make_unique<TextOutput>(settings, out);
}

}  // namespace cli
