// Objects and the associations between them, as a graph.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "owners.h"

namespace cli {

// An instance in the graph.
struct GraphNode {
  std::string name_space;  // empty: the one that is addressed
  InstanceNameOwner name;
};

// An association: its class, and the role and node of each end.
struct GraphEdge {
  struct End {
    std::string role;
    std::size_t node;
  };

  std::string class_name;
  std::vector<End> ends;
};

// Gives the associations of an instance, as References() gives them.
using AssociationSource = std::function<ObjectWithPathOwner(const GraphNode& node)>;

class AssociationGraph {
 public:
  // `name_space` is the one that is addressed: paths within it are the same with and without it.
  explicit AssociationGraph(std::string name_space) : name_space_(std::move(name_space)) {}

  // Walks from `start` over at most `depth` associations.
  void walk(GraphNode start, unsigned depth, const AssociationSource& associations_of);

  const std::vector<GraphNode>& nodes() const { return nodes_; }
  const std::vector<GraphEdge>& edges() const { return edges_; }

 private:
  void add_association(const ObjectWithPath& association);
  std::size_t node_of(const ValueReference& reference);
  std::size_t add(GraphNode node);

  std::string name_space_;
  std::vector<GraphNode> nodes_;
  std::vector<GraphEdge> edges_;
  std::map<std::string, std::size_t> known_nodes_;
  std::map<std::string, std::size_t> known_edges_;
};

// Writes the graph in the language of Graphviz.
void write_dot(std::ostream& out, const AssociationGraph& graph);

}  // namespace cli
