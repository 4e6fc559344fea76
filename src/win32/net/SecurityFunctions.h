#pragma once

#include <windows.h>

#define SECURITY_WIN32
#include <security.h>

namespace quillon {

/// Windows' security functions, loaded when they are first asked for: loading them makes Windows look through
/// all its security packages, which most starts of the program have no use for. Null where there are none.
const SecurityFunctionTableW* SecurityFunctions();

} // namespace quillon
