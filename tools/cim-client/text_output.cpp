// Laying results out as text.
#include "text_output.h"

#include <algorithm>
#include <map>

#include "mof_text.h"
#include "path_text.h"
#include "records.h"
#include "text_table.h"
#include "utf8.h"
#include "value_text.h"

namespace cli {
namespace {

// The headings of a table, one per property in the order in which the properties are met.
class Headings {
 public:
  void add(const TypedView& view) {
    const auto [place, is_new] = index_.try_emplace(lower_case(view.name), views_.size());
    if (is_new) views_.push_back(view);
    if (!view.is_null()) views_[place->second] = view;
  }

  // The column of a property that was added.
  std::size_t column(std::string_view name) const { return index_.find(lower_case(name))->second; }

  const std::vector<TypedView>& views() const { return views_; }

 private:
  std::map<std::string, std::size_t> index_;
  std::vector<TypedView> views_;
};

bool of_one_class(const Instance& left, const Instance& right) {
  return same_name(class_of(left), class_of(right));
}

std::string heading_of(const PathView& path, const Instance& instance) {
  if (path.instance == nullptr) return std::string(class_of(instance));
  return local_path_text(path);
}

}  // namespace

void TextOutput::class_definition(const Class& definition) { write_mof(out_, definition); }

void TextOutput::classes(const Class* list) {
  for (const Class* definition = list; definition != nullptr; definition = definition->next) {
    if (definition != list) out_ << '\n';
    write_mof(out_, *definition);
  }
}

void TextOutput::class_names(const ClassName* list) {
  for (; list != nullptr; list = list->next) out_ << printable(text_or_empty(list->name)) << '\n';
}

void TextOutput::instance(const InstanceName& name, const Instance& instance) {
  show({Row{view_of(name), &instance}});
}

void TextOutput::instances(const NamedInstance* list) {
  std::vector<Row> rows;
  for (; list != nullptr; list = list->next) {
    if (list->instance == nullptr) continue;
    rows.push_back({list->instanceName == nullptr ? PathView() : view_of(*list->instanceName),
                    list->instance});
  }
  show(rows);
}

void TextOutput::paths(const std::vector<PathView>& list) {
  for (const PathView& path : list) out_ << printable(local_path_text(path)) << '\n';
}

void TextOutput::objects(const ObjectWithPath* list) {
  std::vector<Row> rows;
  std::string_view separator;
  for (; list != nullptr; list = list->next) {
    if (list->class_ != nullptr) {
      out_ << separator;
      write_mof(out_, *list->class_);
      separator = "\n";
    }
    if (list->instance != nullptr)
      rows.push_back({list->instancePath == nullptr ? PathView() : view_of(*list->instancePath),
                      list->instance});
  }
  show(rows);
}

void TextOutput::created(const InstanceName& name) { out_ << printable(path_text(name)) << '\n'; }

void TextOutput::method_result(const MethodResult& result) {
  std::string heading = "returned";
  if (result.return_value == nullptr)
    heading += " nothing";
  else
    heading += " " + value_text(view_of(*result.return_value));
  show_block(heading, views_of(result.out_parameters));
}

void TextOutput::indication(const Instance& indication) {
  show_block(std::string(class_of(indication)), shown_properties(indication));
  out_ << '\n';
  any_block_ = false;
}

void TextOutput::step(const Step& step) {
  constexpr std::size_t result_width = 9;  // the longest result and two blanks
  constexpr std::size_t name_width = 16;
  std::string line = result_word(step.result);
  line.resize(result_width, ' ');
  line += step.name;
  line.resize(result_width + name_width, ' ');
  line += step.text;
  line.erase(line.find_last_not_of(' ') + 1);
  out_ << line << '\n';
  if (!step.advice.empty())
    out_ << std::string(result_width + name_width, ' ') << step.advice << '\n';
  out_.flush();
}

void TextOutput::show(const std::vector<Row>& rows) {
  if (rows.empty()) return;
  if (settings_.layout != Layout::Blocks && show_table(rows)) return;
  for (const Row& row : rows)
    show_block(heading_of(row.path, *row.instance), shown_properties(*row.instance));
}

// Writes the rows as a table, unless it would not fit.
bool TextOutput::show_table(const std::vector<Row>& rows) {
  const bool always = settings_.layout == Layout::Table;
  if (!always && settings_.columns == 0) return false;
  Headings headings;
  bool many_classes = false;
  for (const Row& row : rows) {
    many_classes = many_classes || !of_one_class(*row.instance, *rows.front().instance);
    for (const TypedView& view : shown_properties(*row.instance)) headings.add(view);
  }
  TextTable table;
  if (many_classes) table.add_column("CLASS");
  for (const TypedView& view : headings.views()) {
    const bool right = is_number_type(view.type) && !view.is_array;
    table.add_column(std::string(view.name),
                     right ? TextTable::Align::Right : TextTable::Align::Left);
  }
  for (const Row& row : rows) {
    if (!always && table.width() > settings_.columns) return false;
    const std::size_t first = many_classes ? 1 : 0;
    std::vector<std::string> cells(headings.views().size() + first);
    if (many_classes) cells.front() = std::string(class_of(*row.instance));
    for (const TypedView& view : shown_properties(*row.instance)) {
      if (!view.is_null()) cells[headings.column(view.name) + first] = value_text(view);
    }
    table.add_row(cells);
  }
  if (!always && table.width() > settings_.columns) return false;
  table.write(out_);
  return true;
}

void TextOutput::show_block(const std::string& heading, const std::vector<TypedView>& views) {
  if (any_block_) out_ << '\n';
  any_block_ = true;
  out_ << printable(heading) << '\n';
  std::size_t width = 0;
  for (const TypedView& view : views) width = std::max(width, display_width(printable(view.name)));
  for (const TypedView& view : views) {
    const std::string name = printable(view.name);
    const std::string value = printable(value_text(view));
    out_ << "  " << name;
    if (!value.empty()) out_ << std::string(width - display_width(name) + 2, ' ') << value;
    out_ << '\n';
  }
}

std::vector<TypedView> TextOutput::shown_properties(const Instance& instance) const {
  return chosen(properties_of(instance), settings_.properties);
}

}  // namespace cli
