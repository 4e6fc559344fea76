#include "player/RetrySchedule.h"

#include <algorithm>
#include <iterator>

namespace quillon {

using namespace std::chrono_literals;

namespace {

constexpr RetrySchedule::Time Waits[] = {1s, 2s, 4s, 8s, 15s, 30s};

/// Short, because looking for a device costs the server little and a headset is plugged in to be heard.
constexpr RetrySchedule::Time WaitForDevice = 5s;

} // namespace

void RetrySchedule::Begin(const std::string& address, Time now) {
    const std::lock_guard lock(mutex_);
    std::erase_if(entries_, [now](const auto& entry) { return entry.second.not_before <= now; });
    Entry& entry = entries_[address];
    entry = {.not_before = entry.not_before};
    random_.seed(static_cast<std::uint32_t>(now.count()));
}

RetrySchedule::Time RetrySchedule::NotBefore(const std::string& address) const {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(address);
    return found == entries_.end() ? Time(0) : found->second.not_before;
}

/// Only a cool-down and a missing device bind whoever plays the address next. Any other wait ends when the user
/// starts it again.
std::optional<RetrySchedule::Time> RetrySchedule::NextTry(const std::string& address, Ending ending, Time heard,
                                                          Time now) {
    if (ending == Ending::PausedLong) return now;
    const std::lock_guard lock(mutex_);
    Entry& entry = entries_[address];
    const auto wait = WaitAfter(entry, ending, heard);
    const bool binds = !wait || ending == Ending::NoDevice;
    entry.not_before = binds ? now + wait.value_or(CoolDown) : Time(0);
    return wait ? std::optional(now + *wait) : std::nullopt;
}

/// Nothing: give the address up.
std::optional<RetrySchedule::Time> RetrySchedule::WaitAfter(Entry& entry, Ending ending, Time heard) {
    if (ending == Ending::NoDevice) return WaitForDevice;
    if (heard >= SteadySound) entry.failures = 0;
    if (heard > 0ms || ending != Ending::NotAudio) entry.wrong_answers = 0;
    if (ending == Ending::NotAudio && ++entry.wrong_answers == MostWrongAnswers) return {};
    if (ending == Ending::Refused) return {};
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
    if (const auto found = entries_.find(address); found != entries_.end()) found->second.not_before = Time(0);
}

} // namespace quillon
