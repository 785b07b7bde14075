// Where the two routes are meant to differ.
#include "clientapi/intended_differences.h"

namespace support {
namespace {

// clang-format off
const std::vector<IntendedDifference> differences = {
    // Properties without value.
    {"*", "null", "(absent)",
     "the broker's nulls are skipped"},
    {"*:type", "@(boolean|string|datetime|char16|uint*|sint*|real*)", "(absent)",
     "and so are their types"},
    {"*:size", "[34]", "(absent)",
     "the broker's interface does not tell how many elements were declared"},

    // Types.
    {"*s:type", "@(uint8|uint32|uint64|sint16|sint32|sint64)", "",
     "of the array codes only those of uint16, sint8 and string have a name"},
    {"*@(AReal32|AReal64|Weight|InputVoltage):type", "real*", "",
     "codes of real numbers have no name"},
    {"*.AChar16:type", "char16", "",
     "nor has that of a character"},
    {"*.AChar16", "*", "null",
     "which has no text either"},
    {"*.key*.type", "numeric", "?int*",
     "keys carry the name of their CIM type"},
    {"*.key*.type", "string", "datetime",
     "keys carry the name of their CIM type"},
    {"typed keys*.key*.value", "TRUE", "true",
     "the text of a boolean key is the broker's own; only properties go through the list that "
     "puts it into upper case"},

    // Arrays and instances that the back end does not read.
    {"*@(Booleans|Char16s|DateTimes|Real32s|Real64s|Instances|FormerLocations):type", "*", "",
     "their array codes have no name"},
    {"*@(Booleans|Char16s|DateTimes|Real32s|Real64s|Instances|FormerLocations)", "(absent)",
     "empty",
     "only arrays of integers and of strings have values"},
    {"*@(Booleans|Char16s|DateTimes|Real32s|Real64s|Instances|FormerLocations)[[]*", "*",
     "(absent)",
     "only arrays of integers and of strings have values"},
    {"*@(AnInstance|Location)", "instance", "null",
     "an embedded instance has no text"},
    {"*@(AnInstance|Location):type", "string", "",
     "the code of an instance has no name"},
    {"*@(AnInstance|Location).*", "*", "(absent)",
     "an embedded instance is not read"},

    // Paths and references.
    {"*.path.host", "localhost", "(none)",
     "paths of the local broker name no host"},
    {"*references*.path.host", "localhost", "(absent)",
     "References gives paths without namespace"},
    {"*references*.path.namespaces", "root cimv2", "(absent)",
     "References gives paths without namespace"},
    {"*.@(Antecedent|Dependent|GroupComponent|PartComponent)", "instance path",
     "local instance path",
     "a reference of the broker names no host"},
    {"*.@(Antecedent|Dependent|GroupComponent|PartComponent).host", "localhost", "(absent)",
     "a reference of the broker names no host"},
    {"*.@(Antecedent|Dependent|GroupComponent|PartComponent).namespaces", "root cimv2",
     "root/cimv2",
     "the whole namespace stands in one segment"},
    {"*.@(Antecedent|Dependent|GroupComponent|PartComponent):class", "CIM_*", "CIM_*",
     "the class of the instance stands for the class that was declared"},
    {"*.key*.reference", "instance path", "local instance path",
     "a reference of the broker names no host"},
    {"*.key*.reference.host", "localhost", "(absent)",
     "a reference of the broker names no host"},
    {"names of *.key*.name", "[a-z]*", "[A-Z]*",
     "over CIM-XML object managers tell the names of keys in lower case"},

    // Operations.
    {"* class names", "(absent)", "nothing",
     "class names are enumerated over CIM-XML alone"},
    {"* class names[[]*", "CIM_*", "(absent)",
     "class names are enumerated over CIM-XML alone"},
    {"* classes", "(absent)", "nothing",
     "classes are enumerated over CIM-XML alone"},
    {"* classes[[]*", "*", "(absent)",
     "classes are enumerated over CIM-XML alone"},
    {"* reference names", "nothing", "(absent)",
     "over CIM-XML the operation reads names, and object managers answer paths"},
    {"* reference names[[]*", "(absent)", "*",
     "over CIM-XML the operation reads names, and object managers answer paths"},
    {"delete again result", "0", "-1",
     "an instance that was not deleted gives -1"},
    {"@(unknown method|reboot) result", "-1", "@(17|1)",
     "an error gives the broker's status code"},
    {"get by number*", "*", "*",
     "keys go to the broker as texts, which do not match numbers"},

    // Values that are sent.
    {"get modified beyond 32 bits.DesiredSpeed", "5000000000", "2147483647",
     "a 64-bit number is read as 32 bits have it"},
    {"get created.Weight", "2.5", "(absent)",
     "real numbers are not sent"},
};
// clang-format on

}  // namespace

const std::vector<IntendedDifference>& intended_differences() { return differences; }

}  // namespace support
