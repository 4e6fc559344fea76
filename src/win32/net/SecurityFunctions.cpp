#include "win32/net/SecurityFunctions.h"

#include "win32/system/LateFunction.h"

#include <type_traits>

namespace quillon {

namespace {

const SecurityFunctionTableW* Load() {
    const auto table = LateFunction<std::remove_pointer_t<INIT_SECURITY_INTERFACE_W>>(L"secur32.dll",
                                                                                      "InitSecurityInterfaceW");
    return table != nullptr ? table() : nullptr;
}

} // namespace

const SecurityFunctionTableW* SecurityFunctions() {
    static const SecurityFunctionTableW* const Functions = Load();
    return Functions;
}

} // namespace quillon
