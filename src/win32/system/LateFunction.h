#pragma once

#include <windows.h>

#include <atomic>

namespace quillon {

/// A function of one of Windows' libraries, which stays loaded. For libraries that are rarely needed, because
/// linking to one would slow every start by milliseconds, and for those that Windows would look for beside the
/// program first, where anybody may have put one. Null if the library or function is missing.
template <typename Function>
Function* LateFunction(const wchar_t* library, const char* name) {
    HMODULE loaded = LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (loaded == nullptr) return nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(loaded, name)));
}

template <typename Function>
class LateCall;

/// The same to be called like the function itself, which is looked up on the first call. Where it is missing,
/// a call does nothing and returns `missing`.
template <typename Result, typename... Arguments>
class LateCall<Result WINAPI(Arguments...)> {
  public:
    constexpr LateCall(const wchar_t* library, const char* name, Result missing)
        : library_(library), name_(name), missing_(missing) {}

    Result operator()(Arguments... arguments) const {
        if (found_ == nullptr) found_ = LateFunction<Function>(library_, name_);
        Function* const found = found_;
        return found != nullptr ? found(arguments...) : missing_;
    }

  private:
    using Function = Result WINAPI(Arguments...);

    const wchar_t* library_;
    const char* name_;
    Result missing_;
    mutable std::atomic<Function*> found_{nullptr}; // by any thread
};

} // namespace quillon
