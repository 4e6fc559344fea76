#include "settings/EventLog.h"

#include "runtime/Files.h"
#include "runtime/RuntimeError.h"

#include <algorithm>
#include <utility>

namespace quillon {

namespace {

constexpr std::uint64_t LongestFile = 250'000; // bytes; a line more stays below 256 KiB
constexpr std::size_t LongestLine = 1000;

std::string Digits(unsigned number, std::size_t count) {
    std::string text = std::to_string(number);
    return text.insert(0, count - std::min(count, text.size()), '0');
}

std::string TimeText(TimePoint local) {
    using namespace std::chrono;
    const auto day = floor<days>(local);
    const year_month_day date(day);
    const hh_mm_ss time(floor<seconds>(local - day));
    return Digits(static_cast<unsigned>(static_cast<int>(date.year())), 4) + "-" +
           Digits(static_cast<unsigned>(date.month()), 2) + "-" + Digits(static_cast<unsigned>(date.day()), 2) +
           " " + Digits(static_cast<unsigned>(time.hours().count()), 2) + ":" +
           Digits(static_cast<unsigned>(time.minutes().count()), 2) + ":" +
           Digits(static_cast<unsigned>(time.seconds().count()), 2);
}

/// Runs beside the window's thread.
void Append(const std::string& folder, const std::string& lines) {
    try {
        const std::string path = folder + EventLogName;
        if (StampOf(path).value_or(FileStamp()).Length > LongestFile)
            MoveFileOver(path, folder + OldEventLogName);
        AppendFile(path, lines);
    } catch (const RuntimeError&) { // a log is not worth a box
    }
}

} // namespace

std::string LoggedText(std::string_view text) {
    std::string logged;
    while (!text.empty()) {
        const std::size_t start = std::min(text.find("://"), text.size());
        logged += text.substr(0, start);
        text.remove_prefix(start);
        if (text.empty()) break;
        const std::string_view address = text.substr(3, text.find_first_of(" |\r\n\t\"", 3) - 3);
        text.remove_prefix(3 + address.size());
        std::string_view shown = address.substr(0, address.find_first_of("?#"));
        const std::string_view authority = shown.substr(0, shown.find('/'));
        if (const std::size_t at = authority.rfind('@'); at != authority.npos) shown.remove_prefix(at + 1);
        logged.append("://").append(shown);
    }
    std::replace_if(
        logged.begin(), logged.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return logged.substr(0, LongestLine);
}

void EventLog::Add(std::string_view text) {
    std::string line = LoggedText(text);
    if (line == last_ || folders_.DataPath.empty()) return;
    waiting_ += TimeText(clock_.Now()) + " " + line + "\r\n";
    last_ = std::move(line);
    if (!writing_) Write();
}

void EventLog::Write() {
    writing_ = true;
    disk_.Start([folder = folders_.DataPath, lines = std::exchange(waiting_, "")] { Append(folder, lines); },
                [this] {
                    writing_ = false;
                    if (!waiting_.empty()) Write();
                });
}

} // namespace quillon
