#include "app/HandlerGate.h"

#include "runtime/WhileSet.h"

#include <utility>

namespace quillon {

void HandlerGate::Enter(Handler handler) {
    if (running_) return;
    if (waiting_)
        line_.push_back(std::move(handler));
    else
        Run(std::move(handler));
}

void HandlerGate::Interrupt(const Handler& handler) {
    if (running_) return;
    RunOne(handler);
    if (!waiting_) Run(NextInLine());
}

void HandlerGate::RunOne(const Handler& handler) {
    const WhileSet running(running_);
    run_(handler);
}

void HandlerGate::Ask(Handler question, Handler then) {
    question_ = std::move(question);
    then_ = std::move(then);
}

void HandlerGate::AskMeanwhile(Handler question, Handler then) {
    background_.Start(std::move(question), [this, then = std::move(then)] {
        if (running_)
            line_.push_back(then);
        else
            Interrupt(then);
    });
}

void HandlerGate::Close() {
    question_ = {};
    then_ = {};
    line_.clear();
}

bool HandlerGate::ServeEvents(Clock& clock, std::chrono::milliseconds time) {
    running_ = false;
    bool goes_on = clock.ServeEvents(time);
    while (goes_on && waiting_) goes_on = clock.ServeEvents(time);
    running_ = true;
    return goes_on;
}

void HandlerGate::Run(Handler handler) {
    while (handler) {
        RunOne(handler);
        if (question_ && SendQuestion()) return;
        handler = NextInLine();
    }
}

/// If the question cannot be asked, that is reported as an error of the handler, whose rest never runs.
bool HandlerGate::SendQuestion() {
    waiting_ = true;
    try {
        background_.Start(std::exchange(question_, {}), [this] {
            waiting_ = false;
            Run(std::exchange(then_, {}));
        });
        return true;
    } catch (...) {
        waiting_ = false;
        then_ = {};
        RunOne([] { throw; });
        return false;
    }
}

HandlerGate::Handler HandlerGate::NextInLine() {
    if (line_.empty()) return {};
    Handler next = std::move(line_.front());
    line_.pop_front();
    return next;
}

} // namespace quillon
