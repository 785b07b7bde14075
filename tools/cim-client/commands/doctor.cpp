// The command that finds out what works.
#include "command.h"
#include "commands/operands.h"
#include "document.h"
#include "escape.h"
#include "examination.h"
#include "password.h"
#include "records.h"
#include "resolve.h"
#include "utf8.h"

namespace cli {
namespace {

using Handle = struct client_Configuration*;

// A class that many object managers have; any answer about it will do.
constexpr const char* probe_class = "CIM_ManagedElement";
constexpr std::chrono::seconds longest_probe(15);

// Shows steps, and remembers the first failure: the steps after it are skipped.
class Report {
 public:
  explicit Report(Output& output) : output_(output) {}

  void add(const Step& step) {
    if (step.result == Step::Result::Failed && status_ == ExitStatus::Success) {
      status_ = step.status;
      failure_ = step.name;
    }
    output_.step(step);
  }

  bool failed() const { return status_ != ExitStatus::Success; }

  // Runs a step, or skips it; a failure that `examine` throws is the step's.
  template <class Examine>
  void run(const char* name, const char* advice, Examine examine) {
    Step step;
    step.name = name;
    if (failed()) {
      step.result = Step::Result::Skipped;
      return add(step);
    }
    try {
      step.text = examine();
    } catch (const Failure& failure) {
      step.result = Step::Result::Failed;
      step.text = failure.what();
      step.advice = advice;
      step.status = failure.status();
    }
    add(step);
  }

  // Ends the command with the status of the failure.
  void conclude() const {
    if (failed()) throw Failure(status_, "the step \"" + failure_ + "\" failed");
  }

 private:
  Output& output_;
  ExitStatus status_ = ExitStatus::Success;
  std::string failure_;
};

// One exchange, looked at by three steps.
void examine_exchange(Context& context, Report& report, const Secret& password) {
  const Target& target = context.settings().target;
  const std::chrono::seconds limit = context.settings().timeout;
  HttpExchange exchange;
  if (!report.failed())
    exchange = probe(resolve(target.host), target.port, target.user, password,
                     get_class_request(escaped(target.name_space, "the namespace"), probe_class),
                     limit.count() == 0 ? longest_probe : std::min(limit, longest_probe));
  const auto judge = [&report](const char* name, const auto& judgement) {
    if (report.failed())
      report.add({name, Step::Result::Skipped, "", "", ExitStatus::Success});
    else
      report.add(judgement());
  };
  judge("connection", [&] {
    return judge_connection(exchange, target.host + ":" + std::to_string(target.port));
  });
  judge("HTTP answer", [&] { return judge_answer(exchange); });
  judge("authentication", [&] { return judge_authentication(exchange, target.user); });
}

// Reads the names of the namespace's root classes; `first` receives one of them.
std::string examine_namespace(Context& context, std::string& first) {
  const ClassNameOwner names = context.session().ask<ClassNameOwner>(
      [](Handle handle, Error** error) { return EnumerateClassNames(handle, nullptr, 0, error); });
  std::size_t count = 0;
  for (const ClassName* name = names.get(); name != nullptr; name = name->next) ++count;
  if (names != nullptr) first = text_or_empty(names->name);
  return context.settings().target.name_space + " has " + std::to_string(count) + " root classes";
}

std::string examine_class(Context& context, const std::string& name) {
  if (name.empty()) throw Failure(ExitStatus::CimError, "there is no class to read");
  const ClassOwner definition = class_definition(context.session(), name);
  return printable(name) + " has " + std::to_string(properties_of(*definition).size()) +
         " properties";
}

std::string examine_local_connection(Context& context) {
  context.session().require_local_broker();
  return "the local broker takes connections";
}

// Any answer about the instances' names will do.
std::string examine_local_class(Context& context, const std::string& name) {
  const ClassNameOwner class_name = class_name_to_send(context.session(), name);
  const InstanceNameOwner names =
      context.session().ask<InstanceNameOwner>([&class_name](Handle handle, Error** error) {
        return EnumerateInstanceNames(handle, class_name.get(), error);
      });
  std::size_t count = 0;
  for (const InstanceName* at = names.get(); at != nullptr; at = at->next) ++count;
  return printable(name) + " has " + std::to_string(count) + " instances";
}

void examine_local_broker(Context& context, Report& report, const Arguments& arguments) {
  report.run("library",
             "Install the broker's client library, or name its folder in LD_LIBRARY_PATH; "
             "--backend xml goes over HTTP.",
             [] { return local_library(); });
  report.run("connection", "Is the broker running, and may this user connect to it?",
             [&] { return examine_local_connection(context); });
  const std::string name = arguments.probe_class.empty() ? probe_class : arguments.probe_class;
  report.run("class", "Check --namespace, and name a class that exists with --class.",
             [&] { return examine_local_class(context, name); });
  report.conclude();
}

void doctor(Context& context, const Arguments& arguments) {
  if (context.settings().output.format == Format::Xml)
    throw usage_failure("there is no XML for this; there are text and json");
  Report report(context.output());
  report.add({"back end", Step::Result::Ok, description(context.settings().backend), "",
              ExitStatus::Success});
  if (is_local(context.settings().backend)) return examine_local_broker(context, report, arguments);
  const Target& target = context.settings().target;
  const Secret password = find_password(context.settings().password, target);
  report.run("address", "Check the name; an IPv4 address does as well.", [&] {
    const Watch watch("name resolution of " + target.host, context.settings().timeout, false);
    return printable(target.host) + " is " + resolve(target.host);
  });
  examine_exchange(context, report, password);
  context.adopt_password(Secret(std::string_view(password.text(), password.length())));
  std::string class_name = arguments.probe_class;
  std::string first;
  report.run("namespace", "Check --namespace; root/cimv2 and root/interop are usual ones.",
             [&] { return examine_namespace(context, first); });
  report.run("class", "Name one that exists with --class.",
             [&] { return examine_class(context, class_name.empty() ? first : class_name); });
  report.conclude();
}

}  // namespace

std::vector<Command> doctor_commands() {
  return {
      {"doctor",
       "",
       "Find out step by step what works: the first thing to run when nothing does",
       {},
       {Option::ProbeClass},
       "cim-client doctor\n"
       "cim-client --url http://admin@192.168.1.20/root/cimv2 doctor --class CIM_Fan",
       doctor},
  };
}

}  // namespace cli
