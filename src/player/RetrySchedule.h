#pragma once

#include "player/Outcome.h"
#include "state/FeedCondition.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <random>
#include <string>

namespace quillon {

/// When each address may be requested again. Waits grow while an address keeps failing and vary at random, so
/// that a server's listeners do not all return at the same moment; an address that was given up has to cool
/// down. `now` is a time of any clock that never goes back. May be called on any thread.
class RetrySchedule {
  public:
    using Time = std::chrono::milliseconds;

    /// How long an address that was given up is left alone.
    static constexpr std::chrono::seconds CoolDown{60};

    /// A wait is longer or shorter than its round value by up to this fraction.
    static constexpr double Jitter = 0.2;

    /// This much uninterrupted sound resets the waits.
    static constexpr std::chrono::seconds SteadySound{30};

    /// An address is given up after this many answers in a row that are not sound.
    static constexpr int MostWrongAnswers = 3;

    /// Starts the waits at the shortest again. A cool-down keeps running.
    void Begin(const std::string& address, Time now);

    /// Before this time nobody may request the address; 0 if it may be requested at any time.
    Time NotBefore(const std::string& address) const;

    /// When to request the address again after an attempt that ended like this and played for `played`. Nothing
    /// if it is given up.
    std::optional<Time> NextTry(const std::string& address, Outcome outcome, Time played, Time now);

    /// Gives the address up: its cool-down starts now.
    void GiveUp(const std::string& address, Time now);

    /// Why the address was not heard when it was tried last.
    SilenceReason Problem(const std::string& address) const;
    void SetProblem(const std::string& address, const SilenceReason& problem);

    /// Ends the address's cool-down and forgets its problem.
    void Forgive(const std::string& address);

  private:
    struct Entry {
        Time not_before{0};
        std::size_t failures = 0; // waits since there was steady sound
        int wrong_answers = 0;    // in a row
        SilenceReason problem;
    };

    std::optional<Time> WaitAfter(Entry& entry, Outcome outcome, Time played);

    mutable std::mutex mutex_;
    std::map<std::string, Entry> entries_;
    std::minstd_rand random_;
};

} // namespace quillon
