// inpdeck: the command-line driver (grows with the library's phases).
#include <cstdio>

int main() {
    std::printf("inpdeck %s\n", INP_VERSION);
    return 0;
}
