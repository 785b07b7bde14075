// Files, includes and pragmas.
#include "mof/reader.h"

#include <fstream>
#include <sstream>

#include "mof/class_reader.h"

namespace sandbox::mof {
namespace {

constexpr std::uintmax_t largest_file = 64U << 20U;  // bytes
constexpr int deepest_include = 32;

std::optional<std::string> content_of(const std::filesystem::path& path, std::string& reason) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) {
    reason = std::filesystem::exists(path, error) ? "is no file" : "does not exist";
    return std::nullopt;
  }
  if (std::filesystem::file_size(path, error) > largest_file) {
    reason = "is larger than 64 MiB";
    return std::nullopt;
  }
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  if (!file.is_open() || file.bad()) {
    reason = "cannot be read";
    return std::nullopt;
  }
  return std::move(content).str();
}

}  // namespace

Reader::Reader(Repository& repository, std::string_view name_space)
    : repository_(repository), home_(&repository.open(name_space)), instances_(repository) {}

std::optional<Problem> Reader::read_file(const std::filesystem::path& path) {
  std::string reason;
  const std::optional<std::string> content = content_of(path, reason);
  if (!content) {
    const std::string& name = file_names_.emplace_back(path.string());
    return Problem{{&name, 1, 1}, "the file " + reason};
  }
  return read_text(path.string(), *content, path.parent_path());
}

std::optional<Problem> Reader::read_text(std::string_view name, std::string_view text,
                                         const std::filesystem::path& folder) {
  constexpr std::string_view byte_order_mark = "\xef\xbb\xbf";
  if (text.starts_with(byte_order_mark)) text.remove_prefix(byte_order_mark.size());
  const std::filesystem::path folder_before = folder_;
  NameSpace* const home_before = home_;
  folder_ = folder;
  std::optional<Problem> problem = read_source(file_names_.emplace_back(name), text, *this);
  folder_ = folder_before;
  home_ = home_before;
  return problem;
}

std::optional<Problem> Reader::finish() {
  if (auto problem = check_referenced_classes()) return problem;
  references_.clear();
  return instances_.build();
}

std::optional<Problem> Reader::take(ClassSyntax syntax) {
  if (auto problem = declare_class(syntax, qualifiers_, home_->classes)) return problem;
  const auto note = [this](const ElementSyntax& element) {
    if (element.type.type != Type::Reference) return;
    references_.push_back({{element.type.reference_class, element.type_place}, home_});
  };
  for (const FeatureSyntax& feature : syntax.features) {
    if (const auto* property = std::get_if<ElementSyntax>(&feature)) note(*property);
    if (const auto* method = std::get_if<MethodSyntax>(&feature)) {
      for (const ElementSyntax& parameter : method->parameters) note(parameter);
    }
  }
  return std::nullopt;
}

std::optional<Problem> Reader::take(InstanceSyntax syntax) {
  return instances_.gather(std::move(syntax), *home_);
}

std::optional<Problem> Reader::take(QualifierDeclarationSyntax syntax) {
  return qualifiers_.declare(syntax);
}

std::optional<Problem> Reader::take(PragmaSyntax syntax) {
  if (same_name(syntax.name.value, "include")) return include(syntax);
  if (same_name(syntax.name.value, "namespace")) {
    if (syntax.argument.empty()) return Problem{syntax.name.place, "expected a namespace name"};
    home_ = &repository_.open(syntax.argument);
    return std::nullopt;
  }
  for (const std::string_view known : {"locale", "instancelocale", "source", "nonlocal"}) {
    if (same_name(syntax.name.value, known)) return std::nullopt;  // nothing depends on them
  }
  return Problem{syntax.name.place,
                 "expected \"include\" or \"namespace\", not \"" + syntax.name.value + '"'};
}

std::optional<Problem> Reader::include(const PragmaSyntax& pragma) {
  if (include_depth_ >= deepest_include) {
    return Problem{pragma.name.place, "files include each other too deeply"};
  }
  const std::filesystem::path path = folder_ / pragma.argument;
  std::string reason;
  const std::optional<std::string> content = content_of(path, reason);
  if (!content) return Problem{pragma.name.place, "the file " + path.string() + ' ' + reason};
  ++include_depth_;
  std::optional<Problem> problem = read_text(path.string(), *content, path.parent_path());
  --include_depth_;
  return problem;
}

std::optional<Problem> Reader::check_referenced_classes() const {
  for (const auto& [name, home] : references_) {
    if (!home->classes.find(name.value)) {
      return Problem{name.place, "unknown class \"" + name.value + '"'};
    }
  }
  return std::nullopt;
}

}  // namespace sandbox::mof
