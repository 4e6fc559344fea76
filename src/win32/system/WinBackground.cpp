#include "win32/system/WinBackground.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

namespace quillon {

namespace {

constexpr const wchar_t* WindowClass = L"QuillonBackground";
constexpr UINT WorkDone = WM_APP;

} // namespace

struct WinBackground::Jobs {
    struct Job {
        std::function<void()> work;
        std::function<void()> done;
    };

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Job> waiting;
    std::deque<Job> finished;
    bool working = false;
    bool closed = false;
    HWND window = nullptr;

    bool Idle() const { return waiting.empty() && !working; }
};

WinBackground::WinBackground(std::function<void()> after)
    : jobs_(std::make_shared<Jobs>()), after_(std::move(after)) {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = Procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.lpszClassName = WindowClass;
    RegisterClassW(&window_class);
    window_ =
        CreateWindowW(WindowClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, window_class.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    jobs_->window = window_;
    std::thread([jobs = jobs_] { Work(jobs); }).detach();
}

WinBackground::~WinBackground() {
    DestroyWindow(window_);
    const std::lock_guard lock(jobs_->mutex);
    jobs_->closed = true;
    jobs_->changed.notify_all();
}

void WinBackground::Start(std::function<void()> work, std::function<void()> done) {
    const std::lock_guard lock(jobs_->mutex);
    jobs_->waiting.push_back({std::move(work), std::move(done)});
    jobs_->changed.notify_all();
}

bool WinBackground::Busy() {
    const std::lock_guard lock(jobs_->mutex);
    return !jobs_->Idle();
}

bool WinBackground::Finish(std::chrono::milliseconds time) {
    std::unique_lock lock(jobs_->mutex);
    return jobs_->changed.wait_for(lock, time, [this] { return jobs_->Idle(); });
}

void WinBackground::Work(const std::shared_ptr<Jobs>& jobs) {
    std::unique_lock lock(jobs->mutex);
    while (true) {
        jobs->changed.wait(lock, [&] { return jobs->closed || !jobs->waiting.empty(); });
        if (jobs->closed) return;
        Jobs::Job job = std::move(jobs->waiting.front());
        jobs->waiting.pop_front();
        jobs->working = true;
        lock.unlock();
        try {
            job.work();
        } catch (const std::exception&) {
            // What it was to find out stays unknown, as if nobody had answered.
        }
        lock.lock();
        jobs->working = false;
        jobs->finished.push_back(std::move(job));
        jobs->changed.notify_all();
        PostMessageW(jobs->window, WorkDone, 0, 0);
    }
}

LRESULT CALLBACK WinBackground::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* self = reinterpret_cast<WinBackground*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != WorkDone || self == nullptr) return DefWindowProcW(window, message, wparam, lparam);
    self->ReportDone();
    return 0;
}

void WinBackground::ReportDone() {
    std::unique_lock lock(jobs_->mutex);
    while (!jobs_->finished.empty()) {
        const Jobs::Job job = std::move(jobs_->finished.front());
        jobs_->finished.pop_front();
        lock.unlock();
        job.done();
        after_();
        lock.lock();
    }
}

} // namespace quillon
