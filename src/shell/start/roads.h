#pragma once

#include "shell/base/frame.h"

namespace zolt {

/// Takes the document in use to the other edition. What the new window needs of the old
/// one is made before that closes; if it doesn't close, nothing happens.
void takeRoad(Road road);

} // namespace zolt
