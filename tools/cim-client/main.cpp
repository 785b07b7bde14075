// cim-client: CIM operations from the command line.
#include "command_line.h"

int main(int argc, char** argv) { return cli::run(argc, argv); }
