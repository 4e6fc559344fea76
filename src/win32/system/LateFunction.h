#pragma once

#include <windows.h>

namespace quillon {

/// A function of one of Windows' libraries, which is loaded now and stays: most starts of the program have no
/// use for some of them, and each would cost a start some milliseconds. Null where there is none.
template <typename Function>
Function* LateFunction(const wchar_t* library, const char* name) {
    HMODULE loaded = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (loaded == nullptr) return nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(loaded, name)));
}

} // namespace quillon
