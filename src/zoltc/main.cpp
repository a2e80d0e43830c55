#include "zoltc/command.h"

int main(int argc, char **argv) {
    return zolt::cli::run({argv + 1, argv + argc});
}
