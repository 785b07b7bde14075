// Building indications and their export requests.
#include "indications/herald.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <optional>

#include "cimxml/markup.h"
#include "cimxml/objects.h"
#include "model/scalar_text.h"

namespace sandbox::indications {
namespace {

Value text_value(std::string text) { return Value(Scalar(std::move(text))); }

Value embedded(const Instance& instance) {
  return Value(Scalar(std::make_shared<const Instance>(instance)));
}

std::string export_request(unsigned long number, const Instance& indication) {
  cimxml::Markup out;
  out.raw("<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n");
  out.open("CIM", {{"CIMVERSION", "2.0"}, {"DTDVERSION", "2.0"}});
  out.open("MESSAGE", {{"ID", std::to_string(number)}, {"PROTOCOLVERSION", "1.0"}});
  out.open("SIMPLEEXPREQ");
  out.open("EXPMETHODCALL", {{"NAME", "ExportIndication"}});
  out.open("EXPPARAMVALUE", {{"NAME", "NewIndication"}});
  cimxml::write_instance(out, indication, View({}, nullptr));
  out.close("EXPPARAMVALUE");
  out.close("EXPMETHODCALL");
  out.close("SIMPLEEXPREQ");
  out.close("MESSAGE");
  out.close("CIM");
  return out.take();
}

// A property as a number; nothing when it is null or none.
std::optional<double> number_of(const Instance& instance, std::string_view property) {
  const Value* value = instance.find(property);
  if (!value || value->is_array()) return std::nullopt;
  if (const auto* number = std::get_if<std::int64_t>(&value->scalar())) {
    return static_cast<double>(*number);
  }
  if (const auto* number = std::get_if<std::uint64_t>(&value->scalar())) {
    return static_cast<double>(*number);
  }
  if (const auto* number = std::get_if<double>(&value->scalar())) return *number;
  return std::nullopt;
}

bool is_upper(std::string_view property) { return property.starts_with("UpperThreshold"); }
bool is_lower(std::string_view property) { return property.starts_with("LowerThreshold"); }

// True when the instance's reading lies beyond that threshold.
bool is_beyond(const Instance& instance, const std::string& threshold) {
  const auto reading = number_of(instance, "CurrentReading");
  const auto limit = number_of(instance, threshold);
  if (!reading || !limit) return false;
  return is_upper(threshold) ? *reading > *limit : *reading < *limit;
}

std::string value_text(const Instance& instance, std::string_view property) {
  const std::size_t position = instance.of_class->position_of(property);
  return to_text(instance.values[position].scalar(),
                 instance.of_class->properties[position].type.type);
}

}  // namespace

void Herald::created(const ObjectPath& path, const Instance& instance) {
  announce_change("CIM_InstCreation", path, instance, nullptr);
}

void Herald::modified(const ObjectPath& path, const Instance& before, const Instance& after) {
  announce_change("CIM_InstModification", path, after, &before);
  announce_crossings(path, before, after);
}

void Herald::deleted(const ObjectPath& path, const Instance& before) {
  announce_change("CIM_InstDeletion", path, before, nullptr);
}

void Herald::announce_change(std::string_view class_name, const ObjectPath& path,
                             const Instance& source, const Instance* previous) {
  const Class* of_class = classes_.find(class_name);
  if (!of_class) return;
  Instance indication = new_instance(*of_class);
  indication.set("SourceInstance", embedded(source));
  indication.set("SourceInstanceModelPath", text_value(to_text(path)));
  if (previous) indication.set("PreviousInstance", embedded(*previous));
  announce(std::move(indication));
}

void Herald::announce_crossings(const ObjectPath& path, const Instance& before,
                                const Instance& after) {
  for (const Property& property : after.of_class->properties) {
    if (!is_upper(property.name) && !is_lower(property.name)) continue;
    const bool is_new = is_beyond(after, property.name) && !is_beyond(before, property.name);
    if (is_new) announce_crossing(path, after, property);
  }
}

void Herald::announce_crossing(const ObjectPath& path, const Instance& after,
                               const Property& threshold) {
  const Class* of_class = classes_.find("CIM_ThresholdIndication");
  if (!of_class) return;
  // Severities of CIM_AlertIndication: 3 is a warning, 6 critical.
  const bool is_critical = threshold.name.ends_with("ThresholdCritical");
  const std::string reading = value_text(after, "CurrentReading");
  const std::string limit = value_text(after, threshold.name);
  Instance indication = new_instance(*of_class);
  indication.set("AlertingManagedElement", text_value(to_text(path)));
  indication.set("PerceivedSeverity", Value(Scalar(std::uint64_t{is_critical ? 6U : 3U})));
  indication.set("Message", text_value("CurrentReading " + reading + " is " +
                                       (is_upper(threshold.name) ? "above " : "below ") +
                                       threshold.name + ' ' + limit));
  indication.set("ThresholdIdentifier", text_value(threshold.name));
  indication.set("ThresholdValue", text_value(limit));
  indication.set("ObservedValue", text_value(reading));
  announce(std::move(indication));
}

void Herald::announce(Instance indication) {
  ++count_;
  indication.set("IndicationIdentifier", text_value("cim-sandbox:" + std::to_string(count_)));
  indication.set("IndicationTime", text_value(now_()));
  announce_(export_request(count_, indication));
}

std::string present_time() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const auto microseconds = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
  const std::time_t seconds = microseconds / 1'000'000;
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  std::array<char, 32> date{};
  std::strftime(date.data(), date.size(), "%Y%m%d%H%M%S", &parts);
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%s.%06d+000", date.data(),
                static_cast<int>(microseconds % 1'000'000));
  return text.data();
}

}  // namespace sandbox::indications
