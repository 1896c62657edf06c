// The control library is measured on Windows: this runs the program that does so, where it was built.

#include <cstdio>
#include <cstdlib>

int main() {
    const char* command = std::getenv("TESELA_BENCH_WINDOWS");
    if (!command) {
        std::printf("bench activex: no Windows program was built: nothing is measured\n");
        return 0;
    }
    return std::system(command) == 0 ? 0 : 1; // NOLINT(bugprone-command-processor): our own script
}
