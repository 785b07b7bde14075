// Reading the embedded instance of a CDATA section.
#include <cstring>

#include "XMLParser.h"
#include "base/memory.h"
#include "base/trace.h"
#include "cim_client.h"
#include "model/records.h"
#include "model/release.h"
#include "reader/nodes.h"

namespace {

using cim::allocate;
using cim::duplicate;
using cim::release;
using cim::value_of;

bool is_named(const XmlNode& node, const char* name) {
  return std::strcmp(node.nodeName, name) == 0;
}

// The node `depth` levels below `node`, always by the first child; null when there is none.
const XmlNode* first_below(const XmlNode* node, int depth) {
  for (; node && depth > 0; --depth) node = node->firstChild;
  return node;
}

// The character data that is `depth` levels below `element`; null when there is none.
const char* character_data(const XmlNode& element, int depth) {
  const XmlNode* node = first_below(&element, depth);
  return node ? node->nodeValue : nullptr;
}

// Stores an attribute of a property.  False when memory runs out.
template <class AnyProperty>
bool store(AnyProperty& property, const XmlNode& attribute) {
  char** place = nullptr;
  if (is_named(attribute, "NAME")) place = &property.name;
  if (is_named(attribute, "TYPE")) place = &property.type;
  return !place || (*place = duplicate(value_of(attribute)));
}

// What has been read of an embedded instance.  Releases what nobody has taken.
class EmbeddedInstance {
 public:
  EmbeddedInstance() = default;
  EmbeddedInstance(const EmbeddedInstance&) = delete;
  EmbeddedInstance& operator=(const EmbeddedInstance&) = delete;
  ~EmbeddedInstance() {
    release(instance_);
    release(properties_);
    release(arrays_);
  }

  // Reads one element.  False when memory runs out.
  bool read(const XmlNode& element) {
    if (is_named(element, "INSTANCE")) return read_instance(element);
    if (is_named(element, "PROPERTY")) return read_property(element);
    if (is_named(element, "PROPERTY.ARRAY")) return read_array(element);
    return true;
  }

  // Hands the instance over; null when there was no INSTANCE.
  Instance* take() {
    Instance* instance = instance_;
    if (!instance) return nullptr;
    instance->properties = properties_;
    instance->propertyArrays = arrays_;
    instance_ = nullptr;
    properties_ = nullptr;
    arrays_ = nullptr;
    return instance;
  }

 private:
  // A later INSTANCE replaces the one in hand.
  bool read_instance(const XmlNode& element) {
    release(instance_);
    instance_ = allocate<Instance>();
    if (!instance_) return false;
    for (const XmlNode* a = element.attributes; a; a = a->nextSibling) {
      if (!is_named(*a, "CLASSNAME")) continue;
      release(instance_->className);
      instance_->className = allocate<ClassName>();
      if (!instance_->className) return false;
      instance_->className->name = duplicate(value_of(*a));
      if (!instance_->className->name) return false;
    }
    return true;
  }

  // One record per attribute, each with the value: applications collect a property's name and
  // type from neighbouring records.
  bool read_property(const XmlNode& element) {
    const char* text = character_data(element, 2);  // VALUE, its text
    for (const XmlNode* a = element.attributes; a; a = a->nextSibling) {
      auto* property = *last_property_ = allocate<Property>();
      if (!property) return false;
      last_property_ = &property->next;
      if (!store(*property, *a)) return false;
      if (!text) continue;
      property->value = allocate<Value>();
      if (!property->value || !(property->value->text = duplicate(text))) return false;
    }
    return true;
  }

  // As for a property, but the value arrives empty: applications get room for it and fill it
  // themselves.
  bool read_array(const XmlNode& element) {
    const char* text = character_data(element, 3);  // VALUE.ARRAY, VALUE, its text
    for (const XmlNode* a = element.attributes; a; a = a->nextSibling) {
      auto* array = *last_array_ = allocate<PropertyArray>();
      if (!array) return false;
      last_array_ = &array->next;
      if (!store(*array, *a)) return false;
      if (!text) continue;
      array->valueArray = allocate<ValueArray>();
      if (!array->valueArray) return false;
      auto* value = array->valueArray->values = allocate<Value>();
      if (!value) return false;
      value->text = static_cast<char*>(std::calloc(std::strlen(text) + 1, 1));
      if (!value->text) return false;
    }
    return true;
  }

  Instance* instance_ = nullptr;
  Property* properties_ = nullptr;
  Property** last_property_ = &properties_;
  PropertyArray* arrays_ = nullptr;
  PropertyArray** last_array_ = &arrays_;
};

}  // namespace

extern "C" int ParseCDataContent(const char* text, Instance** instance) {
  if (!text || !instance) return -1;
  XmlParseState state;
  XmlDocument* document = parseText(&state, text);
  if (!document) {
    cim::trace("\n Invalid XML... %s", getErrorText(&state));
    return -1;
  }

  EmbeddedInstance embedded;
  bool read = true;
  for (const XmlNode* node = document->root; node && read; node = cim::next_node(node))
    if (!cim::is_character_data(*node)) read = embedded.read(*node);
  freeXMLDoc(document);

  Instance* found = read ? embedded.take() : nullptr;
  if (!found) return -1;
  *instance = found;
  return 0;
}
