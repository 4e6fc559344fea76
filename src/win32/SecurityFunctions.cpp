#include "win32/SecurityFunctions.h"

namespace quillon {

namespace {

const SecurityFunctionTableW* Load() {
    HMODULE library = LoadLibraryExW(L"secur32.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr) return nullptr;
    const auto table = reinterpret_cast<INIT_SECURITY_INTERFACE_W>(
        reinterpret_cast<void*>(GetProcAddress(library, "InitSecurityInterfaceW")));
    return table != nullptr ? table() : nullptr;
}

} // namespace

const SecurityFunctionTableW* SecurityFunctions() {
    static const SecurityFunctionTableW* const functions = Load();
    return functions;
}

} // namespace quillon
