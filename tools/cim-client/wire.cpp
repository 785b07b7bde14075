// Escaping the texts of records.
#include "wire.h"

#include <cstdlib>
#include <string>

#include "escape.h"
#include "records.h"

namespace cli {
namespace {

using cli::escape_texts;

void escape_text(char*& text, std::string_view what) {
  if (text == nullptr) return;
  const std::string safe = escaped(text, what);
  if (safe == text) return;
  char* replacement = new_text(safe);
  std::free(text);
  text = replacement;
}

void escape_texts(Namespace* list) {
  for (; list != nullptr; list = list->next) escape_text(list->name, "the namespace");
}

void escape_texts(LocalNamespacePath* path) {
  if (path != nullptr) escape_texts(path->namespaces);
}

void escape_texts(NamespacePath* path) {
  if (path == nullptr) return;
  escape_text(path->host, "the host");
  escape_texts(path->localNamespacePath);
}

void escape_texts(ValueReference* list) {
  for (; list != nullptr; list = list->next) {
    if (list->classPath != nullptr) {
      escape_texts(list->classPath->namespacePath);
      escape_texts(list->classPath->className);
    }
    if (list->localClassPath != nullptr) {
      escape_texts(list->localClassPath->localNamespacePath);
      escape_texts(list->localClassPath->className);
    }
    escape_texts(list->className);
    if (list->instancePath != nullptr) {
      escape_texts(list->instancePath->namespacePath);
      escape_texts(list->instancePath->instanceName);
    }
    if (list->localInstancePath != nullptr) {
      escape_texts(list->localInstancePath->localNamespacePath);
      escape_texts(list->localInstancePath->instanceName);
    }
    escape_texts(list->instanceName);
  }
}

void escape_texts(KeyValue* value) {
  if (value == nullptr) return;
  escape_text(value->text, "the value of a key");
  escape_text(value->valueType, "the type of a key");
  escape_text(value->cimType, "the type of a key");
}

void escape_texts(Value* list) {
  for (; list != nullptr; list = list->next) {
    escape_text(list->text, "a value");
    escape_texts(list->instance);
  }
}

void escape_texts(ValueArray* list) {
  for (; list != nullptr; list = list->next) escape_texts(list->values);
}

void escape_texts(Qualifier* list) {
  for (; list != nullptr; list = list->next) {
    escape_text(list->name, "the name of a qualifier");
    escape_text(list->type, "the type of a qualifier");
    escape_texts(list->value);
    escape_texts(list->valueArray);
  }
}

// What every property has.
template <class Record>
void escape_common(Record& property) {
  escape_text(property.name, "the name of a property");
  escape_text(property.classOrigin, "the class of a property");
  escape_texts(property.qualifiers);
}

}  // namespace

void escape_texts(ClassName* list) {
  for (; list != nullptr; list = list->next) escape_text(list->name, "the name of a class");
}

void escape_texts(InstanceName* list) {
  for (; list != nullptr; list = list->next) {
    escape_texts(list->className);
    escape_texts(list->keyValue);
    escape_texts(list->valueReference);
    for (KeyBinding* key = list->keyBindings; key != nullptr; key = key->next) {
      escape_text(key->name, "the name of a key");
      escape_texts(key->keyValue);
      escape_texts(key->valueReference);
    }
  }
}

void escape_texts(Instance* list) {
  for (; list != nullptr; list = list->next) {
    escape_texts(list->className);
    escape_texts(list->qualifiers);
    for (Property* property = list->properties; property != nullptr; property = property->next) {
      escape_common(*property);
      escape_text(property->type, "the type of a property");
      escape_texts(property->value);
    }
    for (PropertyArray* array = list->propertyArrays; array != nullptr; array = array->next) {
      escape_common(*array);
      escape_text(array->type, "the type of a property");
      escape_texts(array->valueArray);
    }
    for (PropertyReference* reference = list->propertyReferences; reference != nullptr;
         reference = reference->next) {
      escape_common(*reference);
      escape_text(reference->referenceClass, "the class of a reference");
      escape_texts(reference->valueReference);
    }
  }
}

void escape_texts(ParamValue* list) {
  for (; list != nullptr; list = list->next) {
    escape_text(list->name, "the name of a parameter");
    escape_text(list->paramType, "the type of a parameter");
    escape_texts(list->value);
    escape_texts(list->valueArray);
    escape_texts(list->valueReference);
    for (ValueRefArray* array = list->valueRefArray; array != nullptr; array = array->next)
      escape_texts(array->valueReferences);
  }
}

}  // namespace cli
