#pragma once

#include "ports/Background.h"
#include "ports/Clock.h"
#include "simlink/SimInquiry.h"

#include <deque>
#include <functional>

namespace quillon {

/// Lets one handler run at a time, to its end, even if it asks the simulator in between.
class HandlerGate : public SimInquiry {
  public:
    using Handler = std::function<void()>;

    /// `run` runs a handler, or a part of one, and reports what is thrown. If it throws itself, the gate opens
    /// again all the same.
    HandlerGate(Background& background, std::function<void(const Handler&)> run)
        : background_(background), run_(std::move(run)) {}

    /// Runs the handler. While another one runs it is dropped; while another one waits for the simulator it
    /// stands in line.
    void Enter(Handler handler);

    /// Runs the handler even while another one waits for the simulator. It must not ask anything itself.
    void Interrupt(const Handler& handler);

    void Ask(Handler question, Handler then) override;

    /// Asks the simulator without keeping anybody waiting: other handlers run meanwhile, and `then` as one of
    /// them.
    void AskMeanwhile(Handler question, Handler then);

    bool Running() const { return running_; }

    /// Whether a handler waits for the simulator.
    bool Waiting() const { return waiting_; }

    /// Drops what waits or stands in line: the program is ending.
    void Close();

    /// Serves events in the middle of a handler. Others may run meanwhile; those that have begun end first.
    /// Returns false once the program is ending.
    bool ServeEvents(Clock& clock, std::chrono::milliseconds time);

  private:
    void Run(Handler handler);
    void RunOne(const Handler& handler);
    bool SendQuestion();
    Handler NextInLine();

    Background& background_;
    std::function<void(const Handler&)> run_;
    bool running_ = false;
    bool waiting_ = false;
    Handler question_; ///< the running handler's
    Handler then_;     ///< the rest of the handler that asked
    std::deque<Handler> line_;
};

/// The clock as handlers see it.
class GatedClock : public Clock {
  public:
    GatedClock(Clock& clock, HandlerGate& gate) : clock_(clock), gate_(gate) {}

    TimePoint Now() override { return clock_.Now(); }
    std::chrono::milliseconds Uptime() override { return clock_.Uptime(); }
    void Sleep(std::chrono::milliseconds time) override { clock_.Sleep(time); }
    bool ServeEvents(std::chrono::milliseconds time) override { return gate_.ServeEvents(clock_, time); }

  private:
    Clock& clock_;
    HandlerGate& gate_;
};

} // namespace quillon
