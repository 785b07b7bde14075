// Writing JSON.
#include "json_output.h"

#include <nlohmann/json.hpp>

#include "json_values.h"
#include "records.h"

namespace cli {
namespace {

// Bytes that are no UTF-8 become U+FFFD, so that the output is always JSON.
std::string dumped(const JsonValue& value, int indent) {
  return value.dump(indent, ' ', false, JsonValue::error_handler_t::replace);
}

// An array on a stream, one element per line.
class LineArray {
 public:
  explicit LineArray(std::ostream& out) : out_(out) { out_ << '['; }
  LineArray(const LineArray&) = delete;
  LineArray& operator=(const LineArray&) = delete;
  ~LineArray() { out_ << (any_ ? "\n]\n" : "]\n"); }

  void add(const JsonValue& element) {
    out_ << (any_ ? ",\n" : "\n") << dumped(element, -1);
    any_ = true;
  }

 private:
  std::ostream& out_;
  bool any_ = false;
};

class JsonOutput : public Output {
 public:
  JsonOutput(const OutputSettings& settings, std::ostream& out) : settings_(settings), out_(out) {}

  void class_definition(const Class& definition) override { write(json_of(definition)); }

  void classes(const Class* list) override {
    LineArray array(out_);
    for (; list != nullptr; list = list->next) array.add(json_of(*list));
  }

  void class_names(const ClassName* list) override {
    LineArray array(out_);
    for (; list != nullptr; list = list->next) array.add(std::string(text_or_empty(list->name)));
  }

  void instance(const InstanceName& name, const Instance& instance) override {
    write(with_path(json_of(view_of(name)), instance));
  }

  void instances(const NamedInstance* list) override {
    LineArray array(out_);
    for (; list != nullptr; list = list->next) {
      if (list->instance == nullptr) continue;
      if (list->instanceName == nullptr)
        array.add(json_of(*list->instance, settings_.properties));
      else
        array.add(with_path(json_of(view_of(*list->instanceName)), *list->instance));
    }
  }

  void paths(const std::vector<PathView>& list) override {
    LineArray array(out_);
    for (const PathView& path : list) array.add(json_of(path));
  }

  void objects(const ObjectWithPath* list) override {
    LineArray array(out_);
    for (; list != nullptr; list = list->next) {
      if (list->instance != nullptr) array.add(instance_at(list->instancePath, *list->instance));
      if (list->class_ != nullptr) array.add(class_at(list->classPath, *list->class_));
    }
  }

  void created(const InstanceName& name) override { write(json_of(view_of(name))); }

  void method_result(const MethodResult& result) override {
    write(json_of(result.return_value, result.out_parameters));
  }

  void indication(const Instance& indication) override {
    out_ << dumped(json_of(indication, settings_.properties), -1) << '\n';
  }

  void step(const Step& step) override {
    JsonValue object = JsonValue::object();
    object["step"] = step.name;
    object["result"] = result_word(step.result);
    object["text"] = step.text;
    object["advice"] = step.advice.empty() ? JsonValue() : JsonValue(step.advice);
    out_ << dumped(object, -1) << '\n';
    out_.flush();
  }

 private:
  void write(const JsonValue& value) { out_ << dumped(value, 2) << '\n'; }

  JsonValue with_path(JsonValue path, const Instance& instance) const {
    JsonValue object = JsonValue::object();
    object["path"] = std::move(path);
    object.update(json_of(instance, settings_.properties));
    return object;
  }

  JsonValue instance_at(const InstancePath* path, const Instance& instance) const {
    if (path == nullptr) return json_of(instance, settings_.properties);
    return with_path(json_of(view_of(*path)), instance);
  }

  static JsonValue class_at(const ClassPath* path, const Class& definition) {
    JsonValue object = JsonValue::object();
    if (path != nullptr) object["path"] = json_of(view_of(*path));
    object["definition"] = json_of(definition);
    return object;
  }

  OutputSettings settings_;
  std::ostream& out_;
};

}  // namespace

std::unique_ptr<Output> make_json_output(const OutputSettings& settings, std::ostream& out) {
  return std::make_unique<JsonOutput>(settings, out);
}

}  // namespace cli
