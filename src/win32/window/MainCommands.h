#pragma once

#include "app/Program.h"

namespace quillon {

/// Runs what a button, a menu entry or a picture of the main window stands for.
void RunCommand(Program& program, int id);

} // namespace quillon
