// The library's side of the scripted broker.
#include "support/scripted_broker_library.h"

extern "C" int _sfcb_trace_mask;
extern "C" int _sfcb_debug;

namespace support {

TraceWords trace_words() { return {&_sfcb_trace_mask, &_sfcb_debug}; }

BrokerScript*& current_script() {
  static BrokerScript* script = nullptr;
  return script;
}

}  // namespace support

namespace sandbox_local {
namespace {

using support::current_script;

class Scripted final : public Broker {
 public:
  bool refuses(std::string_view kind_or_call) override {
    return current_script() && current_script()->refused.contains(kind_or_call);
  }
  bool connect(const char*, const char*) override {
    return current_script() && current_script()->connects;
  }
  ClassAnswer get_class(const Path&) override {
    ClassAnswer answer;
    fill(answer);
    if (current_script()->found_class)
      answer.found = std::make_unique<ClassObject>(*current_script()->found_class);
    return answer;
  }
  ElementsAnswer class_names(const Path&, bool) override { return elements(); }
  InstanceAnswer get_instance(const Path&) override {
    InstanceAnswer answer;
    fill(answer);
    if (current_script()->instance)
      answer.instance = std::make_unique<InstanceObject>(*current_script()->instance);
    return answer;
  }
  PathAnswer create_instance(const Path&, const InstanceObject&) override {
    PathAnswer answer;
    fill(answer);
    if (current_script()->path) answer.path = std::make_unique<Path>(*current_script()->path);
    return answer;
  }
  Answer set_instance(const Path&, const InstanceObject&) override { return status(); }
  Answer delete_instance(const Path&) override { return status(); }
  ElementsAnswer exec_query(const Path&, const char*, const char*) override { return elements(); }
  ElementsAnswer instance_names(const Path&) override { return elements(); }
  ElementsAnswer instances(const Path&, bool) override { return elements(); }
  ElementsAnswer associators(const Path&, const Filter&) override { return elements(); }
  ElementsAnswer associator_names(const Path&, const Filter&) override { return elements(); }
  ElementsAnswer references(const Path&, const Filter&) override { return elements(); }
  ElementsAnswer reference_names(const Path&, const Filter&) override { return elements(); }
  MethodAnswer invoke_method(const Path&, const char*, const Arguments&) override {
    MethodAnswer answer;
    fill(answer);
    answer.returned = current_script()->returned;
    answer.out = current_script()->out;
    return answer;
  }

 private:
  static void fill(Answer& answer) {
    answer.code = current_script()->code;
    answer.message = current_script()->message;
  }
  static Answer status() {
    Answer answer;
    fill(answer);
    return answer;
  }
  static ElementsAnswer elements() {
    ElementsAnswer answer;
    fill(answer);
    answer.elements = current_script()->elements;
    return answer;
  }
};

}  // namespace

Broker& broker_of_process() {
  static Scripted broker;
  return broker;
}

}  // namespace sandbox_local
