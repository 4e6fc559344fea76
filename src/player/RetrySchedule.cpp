#include "player/RetrySchedule.h"

#include <algorithm>
#include <iterator>

namespace quillon {

using namespace std::chrono_literals;

namespace {

constexpr RetrySchedule::Time Waits[] = {1s, 2s, 4s, 8s, 15s, 30s};

/// Looking for a device costs the server little, and a headset that is plugged in should be heard soon.
constexpr RetrySchedule::Time WaitForDevice = 5s;

} // namespace

void RetrySchedule::Begin(const std::string& address, Time now) {
    const std::lock_guard lock(mutex_);
    std::erase_if(entries_, [now](const auto& entry) { return entry.second.not_before <= now; });
    Entry& entry = entries_[address];
    entry = {.not_before = entry.not_before, .problem = entry.problem};
    random_.seed(static_cast<std::uint32_t>(now.count()));
}

RetrySchedule::Time RetrySchedule::NotBefore(const std::string& address) const {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(address);
    return found == entries_.end() ? Time(0) : found->second.not_before;
}

/// Only a cool-down and a missing device bind whoever plays the address next. Any other wait ends when the user
/// starts it again.
std::optional<RetrySchedule::Time> RetrySchedule::NextTry(const std::string& address, Outcome outcome,
                                                          Time played, Time now) {
    if (outcome == Outcome::PausedTooLong) return now;
    const std::lock_guard lock(mutex_);
    Entry& entry = entries_[address];
    const auto wait = WaitAfter(entry, outcome, played);
    const bool binds = !wait || outcome == Outcome::NoDevice;
    entry.not_before = binds ? now + wait.value_or(CoolDown) : Time(0);
    return wait ? std::optional(now + *wait) : std::nullopt;
}

/// Returns nothing if the address is to be given up.
std::optional<RetrySchedule::Time> RetrySchedule::WaitAfter(Entry& entry, Outcome outcome, Time played) {
    if (outcome == Outcome::NoDevice) return WaitForDevice;
    if (played >= SteadySound) entry.failures = 0;
    if (played > 0ms || outcome != Outcome::NotAudio) entry.wrong_answers = 0;
    if (outcome == Outcome::NotAudio && ++entry.wrong_answers == MostWrongAnswers) return {};
    if (outcome == Outcome::Refused || outcome == Outcome::Unsupported) return {};
    const auto wait = static_cast<double>(Waits[entry.failures].count());
    entry.failures = std::min(entry.failures + 1, std::size(Waits) - 1);
    std::uniform_real_distribution<double> factor(1 - Jitter, 1 + Jitter);
    return Time(static_cast<std::int64_t>(wait * factor(random_)));
}

void RetrySchedule::GiveUp(const std::string& address, Time now) {
    const std::lock_guard lock(mutex_);
    entries_[address].not_before = now + CoolDown;
}

void RetrySchedule::Forgive(const std::string& address) {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(address);
    if (found == entries_.end()) return;
    found->second.not_before = Time(0);
    found->second.problem = {};
}

SilenceReason RetrySchedule::Problem(const std::string& address) const {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(address);
    return found == entries_.end() ? SilenceReason() : found->second.problem;
}

void RetrySchedule::SetProblem(const std::string& address, const SilenceReason& problem) {
    const std::lock_guard lock(mutex_);
    entries_[address].problem = problem;
}

} // namespace quillon
