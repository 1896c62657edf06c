// Prints how many seconds the library's start alone takes, in a process that has done nothing before.
#include "../measure.h"

#include "frame/Globales.h"

int main() {
    const double since = bench::seconds();
    tesela::ProcedimientoInicio();
    std::printf("%.9f\n", bench::seconds() - since);
    return 0;
}
