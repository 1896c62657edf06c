// tesela-idl FILE: writes the source of the type library. A file that is right already stays as it is.

#include "activex/TypeLibrarySource.h"

#include <fstream>
#include <iostream>
#include <sstream>

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "tesela-idl FILE: writes the source of the type library\n";
        return 2;
    }
    const std::string source = activex::typeLibrarySource();
    std::ifstream former(arguments[1], std::ios::binary);
    std::stringstream present;
    present << former.rdbuf();
    if (former && present.str() == source) return 0;
    std::ofstream file(arguments[1], std::ios::binary);
    file << source;
    file.close();
    if (!file) {
        std::cerr << "tesela-idl: " << arguments[1] << " cannot be written\n";
        return 1;
    }
    return 0;
}
