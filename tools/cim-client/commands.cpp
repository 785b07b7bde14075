// The list of all commands.
#include "command.h"

namespace cli {
namespace {

std::vector<Command> joined(std::initializer_list<std::vector<Command>> groups) {
  std::vector<Command> all;
  for (const std::vector<Command>& group : groups)
    all.insert(all.end(), group.begin(), group.end());
  return all;
}

}  // namespace

const std::vector<Command>& commands() {
  static const std::vector<Command> all =
      joined({class_commands(), instance_commands(), change_commands(), association_commands(),
              method_commands(), listen_commands(), graph_commands(), doctor_commands()});
  return all;
}

}  // namespace cli
