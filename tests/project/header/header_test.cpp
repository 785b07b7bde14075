// The public header compiles alone, as C++.
#include "cim_client.h"
