#pragma once

#include <windows.h>

namespace quillon {

/// A function of one of Windows' libraries, which stays loaded. For libraries that are rarely needed: linking
/// to one would slow every start by milliseconds. Null if the library or function is missing.
template <typename Function>
Function* LateFunction(const wchar_t* library, const char* name) {
    HMODULE loaded = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (loaded == nullptr) return nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(loaded, name)));
}

} // namespace quillon
