// The layout of the records, as C++ sees it.
#include "layout_check.h"
