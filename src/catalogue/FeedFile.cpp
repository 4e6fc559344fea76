#include "catalogue/FeedFile.h"

#include "radio/Channel.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

#include <algorithm>

namespace quillon {

namespace {

// Works on bytes: in UTF-8 "|" is never part of another character, and counting characters would walk the line
// again for every field.
std::string_view TakeField(std::string_view& line) {
    const std::size_t end = line.find('|');
    if (end == std::string_view::npos) Raise(InvalidCall);
    const std::string_view field = line.substr(0, end);
    line.remove_prefix(end + 1);
    return field;
}

} // namespace

bool IsFeedLine(std::string_view line) {
    return !line.starts_with("//") && line.find('|') != std::string_view::npos;
}

bool IsWholeLine(std::string_view line) {
    return std::count(line.begin(), line.end(), '|') >= 3;
}

FeedLine SplitFeedLine(std::string_view line) {
    FeedLine feed;
    feed.ICAO = TakeField(line);
    feed.City = TakeField(line);
    feed.URL = TakeField(line);
    feed.Freq = line;
    return feed;
}

bool FeedLine::StatesFrequency() const {
    return Len(Freq) == 6 || (Freq.size() == 7 && Channel::Named(Freq));
}

} // namespace quillon
