// Writing MOF.
#include "mof_text.h"

#include <string>

#include "path_text.h"
#include "records.h"
#include "utf8.h"
#include "value_text.h"
#include "views.h"

namespace cli {
namespace {

constexpr std::string_view member_indent = "  ";

// A value in MOF: arrays stand in braces, references in quotes.
std::string mof_value(const TypedView& view) {
  std::string text = quoted_value_text(view);
  if (view.is_array && text.size() >= 2 && text.front() == '[') {
    text.front() = '{';
    text.back() = '}';
  }
  return printable(text);
}

// `[Key, Description("...")]`, or nothing without qualifiers.
std::string qualifier_list(const Qualifier* list) {
  std::string text;
  for (const TypedView& view : views_of(list)) {
    text += text.empty() ? "[" : ", ";
    text += printable(view.name);
    const std::string value = mof_value(view);
    const bool flag = view.value != nullptr && same_name(view.type, "boolean") && value == "true";
    if (flag || view.is_null()) continue;
    if (view.is_array)
      text.append(1, ' ').append(value);
    else
      text.append(1, '(').append(value).append(1, ')');
  }
  return text.empty() ? text : text + "]";
}

// `string Names[4]`, `CIM_Chassis REF Parent`
std::string declaration(const TypedView& view) {
  std::string text =
      view.is_reference ? printable(view.reference_class) + " REF" : printable(view.type);
  text.append(1, ' ').append(printable(view.name));
  if (!view.is_array) return text;
  return text + "[" + (view.array_size > 0 ? std::to_string(view.array_size) : "") + "]";
}

void write_qualifiers(std::ostream& out, std::string_view indent, const Qualifier* list) {
  const std::string text = qualifier_list(list);
  if (!text.empty()) out << indent << text << '\n';
}

void write_property(std::ostream& out, const TypedView& property) {
  write_qualifiers(out, member_indent, property.qualifiers);
  out << member_indent << declaration(property);
  if (!property.is_null()) out << " = " << mof_value(property);
  out << ";\n";
}

void write_method(std::ostream& out, const Method& method) {
  write_qualifiers(out, member_indent, method.qualifiers);
  out << member_indent << printable(text_or_empty(method.type)) << ' '
      << printable(text_or_empty(method.name)) << '(';
  std::string_view separator = "\n";
  for (const TypedView& parameter : parameters_of(method)) {
    out << separator << member_indent << member_indent;
    const std::string qualifiers = qualifier_list(parameter.qualifiers);
    if (!qualifiers.empty()) out << qualifiers << ' ';
    out << declaration(parameter);
    separator = ",\n";
  }
  out << ");\n";
}

}  // namespace

void write_mof(std::ostream& out, const Class& definition) {
  write_qualifiers(out, "", definition.qualifiers);
  out << "class " << printable(text_or_empty(definition.name));
  if (definition.superClass != nullptr) out << " : " << printable(definition.superClass);
  out << "\n{\n";
  std::string_view separator;
  for (const TypedView& property : properties_of(definition)) {
    out << separator;
    write_property(out, property);
    separator = "\n";
  }
  for (const Method* method = definition.methods; method != nullptr; method = method->next) {
    out << separator;
    write_method(out, *method);
    separator = "\n";
  }
  out << "};\n";
}

}  // namespace cli
