// What a command shows, whatever the format.
#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "cim_client.h"
#include "examination.h"
#include "views.h"

namespace cli {

// What a method gave back.
struct MethodResult {
  const ReturnValue* return_value = nullptr;  // null: the method returns nothing
  const ParamValue* out_parameters = nullptr;
};

// Writes results to a stream. Lists may be null: nothing was found.
class Output {
 public:
  Output() = default;
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  virtual ~Output() = default;

  virtual void class_definition(const Class& definition) = 0;
  virtual void classes(const Class* list) = 0;
  virtual void class_names(const ClassName* list) = 0;
  virtual void instance(const InstanceName& name, const Instance& instance) = 0;
  virtual void instances(const NamedInstance* list) = 0;
  virtual void paths(const std::vector<PathView>& list) = 0;
  virtual void objects(const ObjectWithPath* list) = 0;
  virtual void created(const InstanceName& name) = 0;
  virtual void method_result(const MethodResult& result) = 0;
  virtual void indication(const Instance& indication) = 0;
  virtual void step(const Step& step) = 0;
};

enum class Format { Text, Json, Xml };

// How text is laid out.
enum class Layout {
  Automatic,  // tables where they fit the terminal, otherwise one block per record
  Table,
  Blocks
};

struct OutputSettings {
  Format format = Format::Text;
  Layout layout = Layout::Automatic;
  std::size_t columns = 0;              // of the terminal; 0: the output goes elsewhere
  std::vector<std::string> properties;  // the only ones to show, in this order; empty: all
};

// The views of `all` that `names` names, in that order; all of them when it names none.
std::vector<TypedView> chosen(std::vector<TypedView> all, const std::vector<std::string>& names);

// The writer of a format. `answer` is the text of the object manager's last answer when the
// result is written; XML is taken from it.
std::unique_ptr<Output> make_output(const OutputSettings& settings, std::ostream& out,
                                    const std::string& answer);

}  // namespace cli
