// The behaviors that qualifiers describe.
#include "model/method_behavior.h"

#include <array>

#include "model/fitting.h"
#include "model/scalar_text.h"

namespace sandbox {
namespace {

Error model_error(const Method& method, const std::string& what) {
  return {ErrorCode::Failed, "the model of method \"" + method.name + "\" is wrong: " + what};
}

std::vector<std::string> texts_of(const Method& method, std::string_view qualifier_name) {
  std::vector<std::string> texts;
  const Qualifier* qualifier = find_qualifier(method.qualifiers, qualifier_name);
  if (!qualifier || !qualifier->value.is_array()) return texts;
  for (const Scalar& element : qualifier->value.elements()) {
    if (const auto* text = std::get_if<std::string>(&element)) texts.push_back(*text);
  }
  return texts;
}

// "left=right" in two; nothing when there is no "=".
struct Halves {
  std::string_view left;
  std::string_view right;
};
std::optional<Halves> split(std::string_view text, char separator) {
  const std::size_t position = text.rfind(separator);
  if (position == std::string_view::npos) return std::nullopt;
  return Halves{trimmed(text.substr(0, position)), trimmed(text.substr(position + 1))};
}

// A fixed text as a value; a single element where an array is needed.
Outcome<Value> value_from(std::string_view text, const DataType& type) {
  Scalar scalar{std::string(text)};
  if (!type.is_array) return fit_value(Value(std::move(scalar)), type);
  return fit_value(Value(std::vector<Scalar>{std::move(scalar)}), type);
}

class Behavior {
 public:
  Behavior(const Method& method, const std::vector<Argument>& arguments, Instance* instance)
      : method_(method), arguments_(arguments), instance_(instance) {}

  Outcome<Effect> carry_out() {
    if (const auto error = deliberate_failure()) return *error;
    if (!is_described()) {
      return Error{ErrorCode::MethodNotAvailable,
                   "the model gives method \"" + method_.name + "\" no behavior"};
    }
    for (const std::string& rule : texts_of(method_, "SandboxRefuses")) {
      const Outcome<bool> refused = refuse(rule);
      if (!refused) return refused.error();
      if (*refused) return effect_;
    }
    if (is_set(method_.qualifiers, "SandboxEchoes")) echo();
    for (const std::string& rule : texts_of(method_, "SandboxGives")) {
      if (const Outcome<Done> done = give(rule); !done) return done.error();
    }
    for (const std::string& rule : texts_of(method_, "SandboxSets")) {
      if (const Outcome<Done> done = set(rule); !done) return done.error();
    }
    if (const Outcome<Done> done = return_usual_value(); !done) return done.error();
    return effect_;
  }

 private:
  bool is_described() const {
    static constexpr std::array<std::string_view, 5> names = {
        "SandboxRefuses", "SandboxEchoes", "SandboxGives", "SandboxSets", "SandboxReturns"};
    for (const std::string_view name : names) {
      if (find_qualifier(method_.qualifiers, name)) return true;
    }
    return false;
  }

  std::optional<Error> deliberate_failure() const {
    const Qualifier* fails = find_qualifier(method_.qualifiers, "SandboxFails");
    if (!fails || fails->value.null() || fails->value.is_array()) return std::nullopt;
    const Outcome<Scalar> code = fit_scalar(fails->value.scalar(), {Type::UInt32, false, 0, {}});
    const std::uint64_t number = code ? std::get<std::uint64_t>(*code) : 1;
    return Error{static_cast<ErrorCode>(number),
                 "method \"" + method_.name + "\" fails on purpose"};
  }

  Outcome<const Value*> property(std::string_view name) const {
    const Value* value = instance_ ? instance_->find(name) : nullptr;
    if (value) return value;
    return model_error(method_, "there is no property \"" + std::string(name) + '"');
  }

  Outcome<bool> refuse(std::string_view rule) {
    const auto answer = split(rule, ':');
    const auto condition = answer ? split(answer->left, '=') : std::nullopt;
    if (!condition) return model_error(method_, "SandboxRefuses needs Property=value:result");
    const Outcome<const Value*> present = property(condition->left);
    if (!present) return present.error();
    const Property& declared = *instance_->of_class->find_property(condition->left);
    const bool holds = !(*present)->is_array() && !(*present)->null() &&
                       to_text((*present)->scalar(), declared.type.type) == condition->right;
    if (!holds) return false;
    Outcome<Value> result = value_from(answer->right, method_.type);
    if (!result) return model_error(method_, result.error().description);
    effect_.return_value = std::move(*result);
    return true;
  }

  void echo() {
    for (const Argument& argument : arguments_) {
      if (argument.parameter->is_out) effect_.out.push_back(argument);
    }
  }

  Outcome<Done> give(std::string_view rule) {
    const auto halves = split(rule, '=');
    if (!halves) return model_error(method_, "SandboxGives needs Parameter=Property");
    const Parameter* parameter = find_parameter(method_, halves->left);
    if (!parameter) {
      return model_error(method_, "there is no parameter \"" + std::string(halves->left) + '"');
    }
    const Outcome<const Value*> present = property(halves->right);
    if (!present) return present.error();
    Outcome<Value> value = fit_value(**present, parameter->type);
    if (!value) return model_error(method_, value.error().description);
    effect_.out.push_back({parameter, std::move(*value)});
    return Done{};
  }

  Outcome<Done> set(std::string_view rule) {
    const std::size_t equals = rule.find('=');
    if (equals == std::string_view::npos) {
      return model_error(method_, "SandboxSets needs Property=value or Property=$Parameter");
    }
    const std::string_view name = trimmed(rule.substr(0, equals));
    if (const Outcome<const Value*> present = property(name); !present) return present.error();
    const Property& declared = *instance_->of_class->find_property(name);
    if (declared.is_key) return model_error(method_, "keys cannot be set");
    Outcome<Value> value = value_to_set(trimmed(rule.substr(equals + 1)), declared.type);
    if (!value) return model_error(method_, value.error().description);
    instance_->set(name, std::move(*value));
    effect_.changes_instance = true;
    return Done{};
  }

  Outcome<Value> value_to_set(std::string_view text, const DataType& type) const {
    if (!text.starts_with('$')) return value_from(text, type);
    for (const Argument& argument : arguments_) {
      if (same_name(argument.parameter->name, text.substr(1))) {
        return fit_value(argument.value, type);
      }
    }
    return Value();
  }

  Outcome<Done> return_usual_value() {
    const auto text = text_of(method_.qualifiers, "SandboxReturns");
    if (!text && !is_numeric(method_.type.type)) return Done{};
    Outcome<Value> value = value_from(text.value_or("0"), method_.type);
    if (!value) return model_error(method_, value.error().description);
    effect_.return_value = std::move(*value);
    return Done{};
  }

  const Method& method_;
  const std::vector<Argument>& arguments_;
  Instance* instance_;
  Effect effect_;
};

}  // namespace

Outcome<Effect> carry_out(const Method& method, const std::vector<Argument>& arguments,
                          Instance* instance) {
  return Behavior(method, arguments, instance).carry_out();
}

}  // namespace sandbox
