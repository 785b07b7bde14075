// The broker over a MOF model, as the HTTP sandbox serves it.
#pragma once

#include <string>
#include <string_view>

#include "broker.h"
#include "model/object_manager.h"
#include "model/repository.h"

namespace sandbox_local {

class ModelBroker final : public Broker {
 public:
  // Reads the model files; what is wrong with them makes every connection fail.
  // `files`: paths separated by ":"; empty: the sample model.
  explicit ModelBroker(std::string_view files);

  bool connect(const char* user, const char* password) override;
  ClassAnswer get_class(const Path& path) override;
  ElementsAnswer class_names(const Path& path, bool deep) override;
  InstanceAnswer get_instance(const Path& path) override;
  PathAnswer create_instance(const Path& path, const InstanceObject& instance) override;
  Answer set_instance(const Path& path, const InstanceObject& instance) override;
  Answer delete_instance(const Path& path) override;
  ElementsAnswer exec_query(const Path& path, const char* query, const char* language) override;
  ElementsAnswer instance_names(const Path& path) override;
  ElementsAnswer instances(const Path& path, bool deep) override;
  ElementsAnswer associators(const Path& path, const Filter& filter) override;
  ElementsAnswer associator_names(const Path& path, const Filter& filter) override;
  ElementsAnswer references(const Path& path, const Filter& filter) override;
  ElementsAnswer reference_names(const Path& path, const Filter& filter) override;
  MethodAnswer invoke_method(const Path& path, const char* method, const Arguments& in) override;

 private:
  CIMCData returned_data(const Datum& datum);
  // The instance that a client's path names; an error when its keys cannot name one.
  sandbox::Outcome<sandbox::ObjectPath> address(const Path& path) const;

  std::string returned_text_;
  bool is_read_ = false;
  sandbox::Repository repository_;
  sandbox::ObjectManager manager_;
};

}  // namespace sandbox_local
