// Records as lines of text, one for each thing that they say.
#pragma once

#include <map>
#include <string>

#include "cim_client.h"

namespace support {

// What records say, by where they say it: "[0].name.key[0].value" is "fan1".  Properties stand
// under their names, and so do their types and array elements: "Speed", "Speed:type", "Names[1]".
using Lines = std::map<std::string, std::string>;

void add_lines(Lines& lines, const std::string& place, const Class* record);
void add_lines(Lines& lines, const std::string& place, const ClassName* list);
void add_lines(Lines& lines, const std::string& place, const Error* record);
void add_lines(Lines& lines, const std::string& place, const Instance* record);
void add_lines(Lines& lines, const std::string& place, const InstanceName* list);
void add_lines(Lines& lines, const std::string& place, const NamedInstance* list);
void add_lines(Lines& lines, const std::string& place, const ObjectPath* list);
void add_lines(Lines& lines, const std::string& place, const ObjectWithPath* list);
void add_lines(Lines& lines, const std::string& place, const ParamValue* list);

}  // namespace support
