#include "win32/print/WinPrintJob.h"

#include "runtime/RuntimeError.h"
#include "win32/system/Utf16.h"

#include <array>

namespace quillon {

namespace {

// The abort procedure is passed nothing but the device.
thread_local PrintProgress* shown_progress = nullptr;

/// ": " and the system's message for the code, empty if it has none.
std::string Because(DWORD code) {
    std::array<wchar_t, 512> text{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, text.data(), text.size(), nullptr);
    std::string words = Narrow({text.data(), length});
    words.erase(words.find_last_not_of(" \r\n") + 1);
    return code == 0 || words.empty() ? "" : ": " + words;
}

} // namespace

WinPrintJob::WinPrintJob(DeviceContext device, HWND owner, int pages)
    : device_(std::move(device)), paper_(device_.Get()), progress_(owner, pages) {
    shown_progress = &progress_;
}

WinPrintJob::~WinPrintJob() {
    shown_progress = nullptr;
    if (open_) AbortDoc(device_.Get());
}

BOOL CALLBACK WinPrintJob::AbortProcedure(HDC, int) {
    return shown_progress == nullptr || shown_progress->Serve() ? TRUE : FALSE;
}

/// Makes a printing call. Returns false if the user cancelled, raises PrinterError if it failed; not every
/// failure sets an error code.
bool WinPrintJob::Do(const std::function<int()>& call, const char* failure) const {
    SetLastError(ERROR_SUCCESS);
    const int result = call();
    const DWORD code = GetLastError();
    if (result > 0) return true;
    if (progress_.Cancelled() || result == SP_APPABORT || result == SP_USERABORT || code == ERROR_CANCELLED ||
        code == ERROR_PRINT_CANCELLED)
        return false;
    throw RuntimeError{PrinterError, failure + Because(code)};
}

bool WinPrintJob::Start(const std::string& title) {
    const std::wstring name = Wide(title);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    SetAbortProc(device_.Get(), AbortProcedure);
    open_ = Do([&] { return StartDocW(device_.Get(), &document); }, "The printer refused the document");
    return open_;
}

bool WinPrintJob::PrintPage(const PrintedPage& page) {
    constexpr const char* Failure = "The printer did not take the page";
    progress_.SetPage(++page_);
    if (!progress_.Serve() || !Do([this] { return StartPage(device_.Get()); }, Failure)) return false;
    paper_.Draw(page);
    return Do([this] { return EndPage(device_.Get()); }, Failure);
}

bool WinPrintJob::Finish() {
    if (!progress_.Serve() ||
        !Do([this] { return EndDoc(device_.Get()); }, "The printer did not take the document"))
        return false;
    open_ = false;
    return true;
}

} // namespace quillon
