// The command that draws associations.
#include <iostream>
#include <new>
#include <sstream>

#include "association_graph.h"
#include "command.h"
#include "commands/operands.h"
#include "drawing.h"
#include "exit_status.h"
#include "path_text.h"
#include "utf8.h"
#include "wire.h"

namespace cli {
namespace {

using Handle = struct client_Configuration*;

// The object to send for a node, whose texts are plain.
ObjectNameOwner object_to_send(const Session& session, const GraphNode& node) {
  ObjectNameOwner object(CIMC_CreateObjectName(nullptr, node.name.get()));
  if (object == nullptr || object->instanceName == nullptr) throw std::bad_alloc();
  session.make_sendable(object->instanceName);
  return object;
}

// The associations of a node. A node that the walk has come to may be unknown to the object
// manager or closed to the user: it then is an end of the graph.
ObjectWithPathOwner associations_of(Session& session, const GraphNode& node, bool is_start) {
  const ObjectNameOwner object = object_to_send(session, node);
  try {
    return session.ask<ObjectWithPathOwner>([&](Handle handle, Error** error) {
      return References(handle, object.get(), nullptr, nullptr, 0, 0, nullptr, error);
    });
  } catch (const Failure& failure) {
    if (is_start || failure.status() != ExitStatus::CimError) throw;
    std::cerr << "cim-client: " << printable(path_text(*node.name)) << ": " << failure.what()
              << "\n";
    return nullptr;
  }
}

void graph(Context& context, const Arguments& arguments) {
  if (context.settings().output.format != Format::Text)
    throw usage_failure("a graph is written as DOT, SVG or PNG, not with --output");
  const ObjectUri path = instance_operand(context, arguments.words[0]);
  Session& session = context.session();
  const std::string name_space = session.target().name_space;
  AssociationGraph found(name_space);
  found.walk({"", make_instance_name(path)}, arguments.depth, [&](const GraphNode& node) {
    session.set_namespace(node.name_space.empty() ? name_space : node.name_space);
    return associations_of(session, node, &node == &found.nodes().front());
  });
  std::ostringstream text;
  write_dot(text, found);
  if (!arguments.svg_file.empty()) draw(text.str(), "svg", arguments.svg_file);
  if (!arguments.png_file.empty()) draw(text.str(), "png", arguments.png_file);
  if (arguments.svg_file.empty() && arguments.png_file.empty()) context.out() << text.str();
}

}  // namespace

std::vector<Command> graph_commands() {
  return {
      {"graph",
       "",
       "Draw an instance and what is associated with it",
       {{"INSTANCE", "path of the instance to begin with"}},
       {Option::Depth, Option::SvgFile, Option::PngFile},
       "cim-client graph 'CIM_Fan.DeviceID=\"fan1\"' --depth 2 --svg fan.svg\n"
       "cim-client graph 'CIM_Fan.DeviceID=\"fan1\"' | dot -Tpdf -o fan.pdf",
       graph},
  };
}

}  // namespace cli
