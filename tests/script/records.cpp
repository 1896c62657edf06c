// Reads a table of a database by name, as a program on Linux does that has only the package.
#include "host/linux/Recordset.h"

#include <cstdio>

int main(int, char** argv) {
    host::Recordset records;
    records.Open(u"clientes", automation::String::fromUtf8(argv[1]));
    std::printf("clientes %d of %d\n", records.AbsolutePosition(), records.RecordCount());
}
