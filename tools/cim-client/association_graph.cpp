// Walking associations and writing what was found.
#include "association_graph.h"

#include <algorithm>
#include <new>
#include <string_view>
#include <utility>

#include "path_text.h"
#include "records.h"
#include "utf8.h"
#include "views.h"

namespace cli {
namespace {

// A text that is the same for all names of one instance: object managers are free in the case of
// names and in the order of keys.
std::string identity(const GraphNode& node) {
  std::vector<std::string> keys;
  for (const KeyBinding* key = node.name->keyBindings; key != nullptr; key = key->next) {
    std::string text = lower_case(text_or_empty(key->name)) + "=";
    if (key->keyValue != nullptr) text += quoted(text_or_empty(key->keyValue->text));
    if (key->valueReference != nullptr)
      text += quoted(local_path_text(view_of(*key->valueReference)));
    keys.push_back(std::move(text));
  }
  std::sort(keys.begin(), keys.end());
  std::string all = lower_case(node.name_space) + ":" + lower_case(class_of(*node.name));
  for (const std::string& key : keys) all += "," + key;
  return all;
}

InstanceNameOwner copied(const InstanceName& name) {
  InstanceName* copy = nullptr;
  const int result = Clone_InstanceName(&name, &copy);
  InstanceNameOwner owner(copy);
  if (result != 0) throw std::bad_alloc();
  Free_InstanceName(std::exchange(owner->next, nullptr));
  return owner;
}

// A text in the double quotes of DOT.
std::string dot_text(std::string_view text) {
  std::string result = "\"";
  for (const char letter : printable(text)) {
    if (letter == '"' || letter == '\\') result += '\\';
    result += letter;
  }
  return result + '"';
}

// The class, and below it the value of each key.
std::string node_label(const GraphNode& node) {
  std::string label = dot_text(class_of(*node.name));
  label.pop_back();
  for (const KeyBinding* key = node.name->keyBindings; key != nullptr; key = key->next) {
    const std::string value = key->keyValue == nullptr
                                  ? std::string("(reference)")
                                  : std::string(text_or_empty(key->keyValue->text));
    std::string line = dot_text(std::string(text_or_empty(key->name)) + " = " + value);
    label.append("\\n").append(line, 1, line.size() - 2);
  }
  return label + '"';
}

void write_two_ended(std::ostream& out, const GraphEdge& edge) {
  out << "  n" << edge.ends[0].node << " -- n" << edge.ends[1].node
      << " [label=" << dot_text(edge.class_name) << ", taillabel=" << dot_text(edge.ends[0].role)
      << ", headlabel=" << dot_text(edge.ends[1].role) << "];\n";
}

// An association with another number of ends than two is a node itself.
void write_many_ended(std::ostream& out, const GraphEdge& edge, std::size_t number) {
  out << "  a" << number << " [shape=diamond, label=" << dot_text(edge.class_name) << "];\n";
  for (const GraphEdge::End& end : edge.ends)
    out << "  a" << number << " -- n" << end.node << " [headlabel=" << dot_text(end.role) << "];\n";
}

}  // namespace

void AssociationGraph::walk(GraphNode start, unsigned depth,
                            const AssociationSource& associations_of) {
  add(std::move(start));
  std::size_t visited = 0;
  for (unsigned step = 0; step < depth; ++step) {
    const std::size_t reached = nodes_.size();
    for (; visited < reached; ++visited) {
      const ObjectWithPathOwner list = associations_of(nodes_[visited]);
      for (const ObjectWithPath* object = list.get(); object != nullptr; object = object->next)
        add_association(*object);
    }
  }
}

void AssociationGraph::add_association(const ObjectWithPath& association) {
  if (association.instance == nullptr) return;
  GraphEdge edge;
  edge.class_name = class_of(*association.instance);
  std::string text = lower_case(edge.class_name);
  const PropertyReference* reference = association.instance->propertyReferences;
  for (; reference != nullptr; reference = reference->next) {
    if (reference->valueReference == nullptr) continue;
    if (view_of(*reference->valueReference).instance == nullptr) continue;
    const std::size_t node = node_of(*reference->valueReference);
    edge.ends.push_back({std::string(text_or_empty(reference->name)), node});
    text += "," + lower_case(edge.ends.back().role) + "=" + std::to_string(node);
  }
  if (known_edges_.try_emplace(text, edges_.size()).second) edges_.push_back(std::move(edge));
}

std::size_t AssociationGraph::node_of(const ValueReference& reference) {
  const PathView path = view_of(reference);
  return add({namespace_text(path.place), copied(*path.instance)});
}

std::size_t AssociationGraph::add(GraphNode node) {
  if (same_name(node.name_space, name_space_)) node.name_space.clear();
  const auto [place, is_new] = known_nodes_.try_emplace(identity(node), nodes_.size());
  if (is_new) nodes_.push_back(std::move(node));
  return place->second;
}

void write_dot(std::ostream& out, const AssociationGraph& graph) {
  out << "graph cim {\n"
         "  rankdir=LR;\n"
         "  node [shape=box, fontname=\"sans-serif\"];\n"
         "  edge [fontname=\"sans-serif\", fontsize=10];\n";
  std::size_t number = 0;
  for (const GraphNode& node : graph.nodes()) {
    out << "  n" << number << " [label=" << node_label(node);
    if (number == 0) out << ", style=bold";
    out << "];\n";
    ++number;
  }
  number = 0;
  for (const GraphEdge& edge : graph.edges()) {
    if (edge.ends.size() == 2)
      write_two_ended(out, edge);
    else
      write_many_ended(out, edge, number);
    ++number;
  }
  out << "}\n";
}

}  // namespace cli
