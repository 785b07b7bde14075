// Objects and their associations as a graph.
#include "association_graph.h"

#include <gtest/gtest.h>

#include <sstream>

#include "object_path.h"
#include "records.h"

namespace cli {
namespace {

struct End {
  const char* role;
  const char* path;
};

// Puts an association with these ends in front of `list`.
void add(ObjectWithPathOwner& list, const char* class_name, std::initializer_list<End> ends) {
  ObjectWithPathOwner object(new_record<ObjectWithPath>());
  object->instance = new_record<Instance>();
  object->instance->className = CIMC_CreateClassName(class_name);
  for (const End& end : ends) {
    auto* reference = new_record<PropertyReference>();
    append(&object->instance->propertyReferences, reference);
    reference->name = new_text(end.role);
    reference->valueReference = make_reference(parse_object(end.path)).release();
  }
  object->next = list.release();
  list = std::move(object);
}

GraphNode node(const char* path) { return {"", make_instance_name(parse_object(path))}; }

std::string key_of(const GraphNode& node) { return node.name->keyBindings->keyValue->text; }

// A chain of three: a - b - c.
ObjectWithPathOwner chain(const GraphNode& from) {
  ObjectWithPathOwner list;
  const std::string key = key_of(from);
  if (key == "a" || key == "b")
    add(list, "CIM_Link", {{"Left", "CIM_N.K=\"a\""}, {"Right", "/root/cimv2:cim_n.k=\"b\""}});
  if (key == "b" || key == "c")
    add(list, "CIM_Link", {{"Left", "CIM_N.K=\"b\""}, {"Right", "CIM_N.K=\"c\""}});
  return list;
}

TEST(AssociationGraph, depth_bounds_the_walk) {
  for (const auto& [depth, nodes, edges] :
       {std::array<std::size_t, 3>{0, 1, 0}, {1, 2, 1}, {2, 3, 2}, {9, 3, 2}}) {
    AssociationGraph graph("root/cimv2");
    graph.walk(node("CIM_N.K=\"a\""), static_cast<unsigned>(depth), chain);
    EXPECT_EQ(graph.nodes().size(), nodes) << depth;
    EXPECT_EQ(graph.edges().size(), edges) << depth;
  }
}

TEST(AssociationGraph, each_node_is_asked_once) {
  int asked = 0;
  AssociationGraph graph("root/cimv2");
  graph.walk(node("CIM_N.K=\"a\""), 9, [&asked](const GraphNode& from) {
    ++asked;
    return chain(from);
  });
  EXPECT_EQ(asked, 3);
}

TEST(AssociationGraph, a_ring_is_walked_once) {
  AssociationGraph graph("root/cimv2");
  graph.walk(node("CIM_N.K=\"a\""), 50, [](const GraphNode&) {
    ObjectWithPathOwner list;
    add(list, "CIM_Link", {{"Left", "CIM_N.K=\"a\""}, {"Right", "CIM_N.K=\"b\""}});
    add(list, "CIM_Link", {{"Left", "CIM_N.K=\"b\""}, {"Right", "CIM_N.K=\"a\""}});
    return list;
  });
  EXPECT_EQ(graph.nodes().size(), 2U);
  EXPECT_EQ(graph.edges().size(), 2U);
}

TEST(AssociationGraph, another_namespace_is_another_node_and_is_asked_there) {
  std::vector<std::string> asked;
  AssociationGraph graph("root/cimv2");
  graph.walk(node("CIM_N.K=\"a\""), 2, [&asked](const GraphNode& from) {
    asked.push_back(from.name_space);
    ObjectWithPathOwner list;
    if (asked.size() == 1)
      add(list, "CIM_Link", {{"Left", "CIM_N.K=\"a\""}, {"Right", "/root/interop:CIM_N.K=\"a\""}});
    return list;
  });
  EXPECT_EQ(graph.nodes().size(), 2U);
  EXPECT_EQ(asked, (std::vector<std::string>{"", "root/interop"}));
}

TEST(AssociationGraph, null_references_and_references_to_classes_are_no_ends) {
  AssociationGraph graph("root/cimv2");
  graph.walk(node("CIM_N.K=\"a\""), 1, [](const GraphNode&) {
    ObjectWithPathOwner list;
    add(list, "CIM_Link", {{"Left", "CIM_N.K=\"a\""}, {"Right", "CIM_N"}});
    append(&list->instance->propertyReferences, new_record<PropertyReference>());
    return list;
  });
  EXPECT_EQ(graph.nodes().size(), 1U);
  ASSERT_EQ(graph.edges().size(), 1U);
  EXPECT_EQ(graph.edges()[0].ends.size(), 1U);
}

TEST(AssociationGraph, dot_shows_nodes_ends_and_roles) {
  AssociationGraph graph("root/cimv2");
  graph.walk(node(R"(CIM_N.K="say \"a\"")"), 1, [](const GraphNode&) {
    ObjectWithPathOwner list;
    add(list, "CIM_Three",
        {{"A", R"(CIM_N.K="say \"a\"")"}, {"B", "CIM_N.K=\"b\""}, {"C", "CIM_N.K=\"c\""}});
    add(list, "CIM_Link", {{"Left", R"(CIM_N.K="say \"a\"")"}, {"Right", "CIM_N.K=\"b\""}});
    return list;
  });
  std::ostringstream out;
  write_dot(out, graph);
  EXPECT_EQ(out.str(),
            "graph cim {\n"
            "  rankdir=LR;\n"
            "  node [shape=box, fontname=\"sans-serif\"];\n"
            "  edge [fontname=\"sans-serif\", fontsize=10];\n"
            "  n0 [label=\"CIM_N\\nK = say \\\"a\\\"\", style=bold];\n"
            "  n1 [label=\"CIM_N\\nK = b\"];\n"
            "  n2 [label=\"CIM_N\\nK = c\"];\n"
            "  n0 -- n1 [label=\"CIM_Link\", taillabel=\"Left\", headlabel=\"Right\"];\n"
            "  a1 [shape=diamond, label=\"CIM_Three\"];\n"
            "  a1 -- n0 [headlabel=\"A\"];\n"
            "  a1 -- n1 [headlabel=\"B\"];\n"
            "  a1 -- n2 [headlabel=\"C\"];\n"
            "}\n");
}

}  // namespace
}  // namespace cli
