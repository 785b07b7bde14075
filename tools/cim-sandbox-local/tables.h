// The function tables of the objects.
#pragma once

#include "cimc.h"

namespace sandbox_local {

extern CIMCStringFT string_table;
extern CIMCDateTimeFT date_time_table;
extern CIMCObjectPathFT path_table;
extern CIMCInstanceFT instance_table;
extern CIMCClassFT class_table;
extern CIMCArrayFT array_table;
extern CIMCArgsFT args_table;
extern CIMCEnumerationFT enumeration_table;

}  // namespace sandbox_local
