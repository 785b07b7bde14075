// What stands behind the client table: a broker that carries out operations.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "objects.h"

namespace sandbox_local {

// The outcome of an operation: a CIM status code, and a message when there is one.
struct Answer {
  int code = 0;
  std::optional<std::string> message;
};

struct ElementsAnswer : Answer {
  std::optional<std::vector<Datum>> elements;  // nothing: the call gives no enumeration
};
struct InstanceAnswer : Answer {
  std::unique_ptr<InstanceObject> instance;
};
struct ClassAnswer : Answer {
  std::unique_ptr<ClassObject> found;
};
struct PathAnswer : Answer {
  std::unique_ptr<Path> path;
};
struct MethodAnswer : Answer {
  CIMCData returned{};
  std::vector<Member> out;
};

// The class names and roles of an association operation; null: any.
struct Filter {
  const char* association_class = nullptr;
  const char* result_class = nullptr;
  const char* role = nullptr;
  const char* result_role = nullptr;
};

class Broker {
 public:
  virtual ~Broker() = default;

  // True: no object of that kind ("object path") is made, or calls of that name ("addKey") fail.
  virtual bool refuses(std::string_view /*kind_or_call*/) { return false; }

  // False: no connection.
  virtual bool connect(const char* user, const char* password) = 0;

  virtual ClassAnswer get_class(const Path& path) = 0;
  virtual ElementsAnswer class_names(const Path& path, bool deep) = 0;
  virtual InstanceAnswer get_instance(const Path& path) = 0;
  virtual PathAnswer create_instance(const Path& path, const InstanceObject& instance) = 0;
  virtual Answer set_instance(const Path& path, const InstanceObject& instance) = 0;
  virtual Answer delete_instance(const Path& path) = 0;
  virtual ElementsAnswer exec_query(const Path& path, const char* query, const char* language) = 0;
  virtual ElementsAnswer instance_names(const Path& path) = 0;
  virtual ElementsAnswer instances(const Path& path, bool deep) = 0;
  virtual ElementsAnswer associators(const Path& path, const Filter& filter) = 0;
  virtual ElementsAnswer associator_names(const Path& path, const Filter& filter) = 0;
  virtual ElementsAnswer references(const Path& path, const Filter& filter) = 0;
  virtual ElementsAnswer reference_names(const Path& path, const Filter& filter) = 0;
  virtual MethodAnswer invoke_method(const Path& path, const char* method, const Arguments& in) = 0;
};

// The broker of this library: the model's, or a test's.
Broker& broker_of_process();

}  // namespace sandbox_local
