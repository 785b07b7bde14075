// Results for people: tables, or one block per record.
#pragma once

#include "output.h"

namespace cli {

class TextOutput : public Output {
 public:
  TextOutput(const OutputSettings& settings, std::ostream& out) : settings_(settings), out_(out) {}

  void class_definition(const Class& definition) override;
  void classes(const Class* list) override;
  void class_names(const ClassName* list) override;
  void instance(const InstanceName& name, const Instance& instance) override;
  void instances(const NamedInstance* list) override;
  void paths(const std::vector<PathView>& list) override;
  void objects(const ObjectWithPath* list) override;
  void created(const InstanceName& name) override;
  void method_result(const MethodResult& result) override;
  void indication(const Instance& indication) override;
  void step(const Step& step) override;

 private:
  // A record to show: an instance and where it is, if that is known.
  struct Row {
    PathView path;
    const Instance* instance;
  };

  void show(const std::vector<Row>& rows);
  bool show_table(const std::vector<Row>& rows);
  void show_block(const std::string& heading, const std::vector<TypedView>& views);
  std::vector<TypedView> shown_properties(const Instance& instance) const;

  OutputSettings settings_;
  std::ostream& out_;
  bool any_block_ = false;  // whether a blank line must part the next block from the one before
};

}  // namespace cli
