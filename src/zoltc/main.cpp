#include "core/new_file.h"
#include "zoltc/command.h"

int main(int argc, char **argv) {
    zolt::leaveNoFilesOnSignals();
    return zolt::cli::run({argv + 1, argv + argc});
}
