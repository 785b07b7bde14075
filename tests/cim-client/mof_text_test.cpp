// Class definitions in MOF.
#include "mof_text.h"

#include <gtest/gtest.h>

#include <sstream>

#include "records.h"
#include "sample_records.h"

namespace cli {
namespace {

std::string written(const Class& definition) {
  std::ostringstream out;
  write_mof(out, definition);
  return out.str();
}

TEST(MofText, a_class_is_written_whole) {
  EXPECT_EQ(written(*samples::fan_class()),
            "[Version(\"2.6.0\")]\n"
            "class CIM_Fan : CIM_CoolingDevice\n"
            "{\n"
            "  [Key, MaxLen(64)]\n"
            "  string DeviceID;\n"
            "\n"
            "  uint64 DesiredSpeed = 1000;\n"
            "\n"
            "  [Values {\"OK\", \"Degraded\"}]\n"
            "  uint16 OperationalStatus[];\n"
            "\n"
            "  CIM_Chassis REF Chassis;\n"
            "\n"
            "  [Description(\"Sets the \\\"speed\\\".\")]\n"
            "  uint32 SetSpeed(\n"
            "    [In] uint64 DesiredSpeed,\n"
            "    [Out] boolean Reached,\n"
            "    CIM_Sensor REF Sensor,\n"
            "    uint16 Steps[4],\n"
            "    CIM_Fan REF Followers[]);\n"
            "};\n");
}

TEST(MofText, an_empty_root_class_has_no_superclass_and_no_members) {
  const ClassOwner definition(new_record<Class>());
  definition->name = new_text("CIM_Root");
  EXPECT_EQ(written(*definition), "class CIM_Root\n{\n};\n");
}

TEST(MofText, a_false_qualifier_shows_its_value) {
  const ClassOwner definition(new_record<Class>());
  definition->name = new_text("CIM_X");
  definition->qualifiers = new_record<Qualifier>();
  definition->qualifiers->name = new_text("Abstract");
  definition->qualifiers->type = new_text("boolean");
  AddToValueList(&definition->qualifiers->value, "FALSE");
  EXPECT_EQ(written(*definition), "[Abstract(false)]\nclass CIM_X\n{\n};\n");
}

}  // namespace
}  // namespace cli
