#pragma once

#include <windows.h>

#define SECURITY_WIN32
#include <security.h>

namespace quillon {

/// Windows' security functions; null if there are none. Loaded on first use, because loading makes Windows
/// enumerate its security packages, which most runs of the program do not need.
const SecurityFunctionTableW* SecurityFunctions();

} // namespace quillon
