#pragma once

#include "zoltc/command.h"

namespace zolt::cli {

// One row for each command, each made in the file of the command's name.

} // namespace zolt::cli
