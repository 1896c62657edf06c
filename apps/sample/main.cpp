// tesela-sample OUT.sqlite: writes the sample database.

#include "sample/SampleDatabase.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Uso: tesela-sample SALIDA.sqlite\n");
        return 2;
    }
    try {
        sample::writeSampleDatabase(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
