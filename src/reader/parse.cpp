// Reading a document: parseXML() and the walk that builds its records.
#include <strings.h>

#include <cstdio>
#include <cstring>

#include "XMLParser.h"
#include "base/trace.h"
#include "cim_client.h"
#include "reader/dispatch.h"
#include "reader/element_stack.h"
#include "reader/nodes.h"
#include "reader/unlinked.h"

namespace {

using cim::Building;
using cim::Dispatch;
using cim::trace;

// One walk over a document.
class Walk {
 public:
  Walk() { cim::forget_document(); }

  // Builds the records of `node` and of all that follows it.  False when memory runs out.
  bool run(const XmlNode* node) {
    for (; node; node = cim::next_node(node))
      if (!cim::is_character_data(*node) && !visit(*node)) return false;
    return true;
  }

 private:
  bool visit(const XmlNode& element) {
    if (element.parentNode) parent_name_ = element.parentNode->nodeName;
    trace_node(element);
    const std::int32_t parent = cim::find_parent(parent_name_);

    const Dispatch* dispatch = cim::dispatch_of(names_.of(element));
    if (!dispatch) {
      std::puts("\n\n hey what iss thisssssssssssssssssssssssssssssss\n");
    } else if (!build(*dispatch, element, parent)) {
      return false;
    }

    // The last child of a parent takes its name off the stack, so that a later element of that
    // name does not get this parent's children.
    if (!element.nextSibling && !is_cim(element.nodeName)) cim::take_name(parent_name_);
    return true;
  }

  // Builds the element's record below the stack entry `parent`, -1: none.
  bool build(const Dispatch& dispatch, const XmlNode& element, std::int32_t parent) {
    if (!cim::unlinked.reserve()) return false;
    Building building{.element = element, .names = names_};
    if (parent >= 0)
      building.parent = {.record = map[parent].address,
                         .name = name_of_parent(element),
                         .tails = &cim::tails_at(parent)};
    void* record = dispatch.build(building);
    if (building.out_of_memory) return false;
    cim::trace_line(dispatch.trace);

    if (element.firstChild || dispatch.always_on_stack) {
      cim::push_new(record, {element.nodeName, cim::known_name_lengths[names_.of(element)]},
                    element.nodeName, dispatch.lists);
    } else if (!building.parent.record || cim::is_traced()) {
      // With a record, the parent is on the stack already: Push() only leaves its trace lines.
      Push(entry_of(building.parent.record));
    }
    if (cim::is_traced()) printStack();
    return true;
  }

  static bool is_cim(const char* name) {
    return (name[0] == 'C' || name[0] == 'c') && strcasecmp(name, "CIM") == 0;
  }

  cim::Name name_of_parent(const XmlNode& element) {
    return element.parentNode ? names_.of(*element.parentNode) : cim::look_up(parent_name_);
  }

  // What an element without children leaves for the stack.
  StackEntry entry_of(void* parent) const {
    StackEntry entry{.address = parent, .name = {}};
    std::strncpy(entry.name, parent_name_, sizeof entry.name - 1);
    return entry;
  }

  void trace_node(const XmlNode& element) const {
    if (!cim::is_traced()) return;
    trace("\tType::%d ", element.nodeType);
    const XmlNode* child = element.firstChild;
    if (child && child->nodeValue) trace("\tVAL::%s ", child->nodeValue);
    trace("\tParent::%s ", parent_name_);
  }

  cim::Names names_;
  const char* parent_name_ = "";  // stays while a node has no parent
};

// Walks over `node` and what follows it.  The root, if one was found, is the application's
// from then on.  False when memory runs out, and the root is the one of before.
bool read(const XmlNode* node) {
  CIM* before = returnAddress;
  if (!Walk().run(node)) {
    returnAddress = before;
    return false;
  }
  cim::unlinked.forget(returnAddress);
  return true;
}

// Where the document begins in `text`; null when it does not.
const char* find_document(const char* text) {
  const char* start = std::strstr(text, "<?xml");
  return start ? start : std::strstr(text, "<CIM ");
}

// Forgets the document before.
void start_over() {
  cim::clear_stack();
  cim::unlinked.release_all();
}

}  // namespace

extern "C" {

void* recursiveParseCIM(const struct XmlNode* node) {
  read(node);
  return nullptr;
}

CIM* parseXML(const char* text) {
  start_over();
  const char* start = text ? find_document(text) : nullptr;
  if (!start) return nullptr;

  XmlParseState state;
  XmlDocument* document = parseText(&state, start);
  if (!document) {
    std::printf("\n Invalid XML... %s", getErrorText(&state));
    return nullptr;
  }
  const bool complete = read(document->root);
  freeXMLDoc(document);
  if (!complete) start_over();
  printStack();
  return complete ? returnAddress : nullptr;
}

}  // extern "C"
