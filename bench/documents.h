// The documents that are measured, generated: what object managers answer, and requests.
#pragma once

#include <string>
#include <string_view>

namespace bench {

// An answer of EnumerateInstances: about 4.1 KB for each instance with four keys, seventeen
// properties, two arrays and a reference; a line break after each tag; entities in one text.
std::string instances(int count);

// The same of about 600 bytes each: one key, four properties.
std::string small_instances(int count);

// An answer of GetClass: `count` properties with three qualifiers each.
std::string class_definition(int count);

// An answer with an instance that holds one array of `count` values.
std::string array_of_values(int count);

// An answer with a reference whose key is a reference, and so on: `levels` of them.
std::string nested_references(int levels);

// A request to create an instance with `count` properties.
std::string request(int count);

// A request to create an instance with a reference of `levels` levels.
std::string nested_request(int levels);

// The document of that name; empty when there is none.
std::string document(std::string_view name, int size);

}  // namespace bench
