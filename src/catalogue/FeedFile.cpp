#include "catalogue/FeedFile.h"

#include "runtime/RuntimeError.h"
#include "runtime/Text.h"

namespace quillon {

namespace {

// Works on bytes: "|" is never part of another character in UTF-8, and counting characters would walk each line
// from its front again for every field.
std::string TakeField(std::string_view& line) {
    const std::size_t end = line.find('|');
    if (end == std::string_view::npos) Raise(InvalidCall);
    std::string field(line.substr(0, end));
    line.remove_prefix(end + 1);
    return field;
}

} // namespace

bool IsFeedLine(std::string_view line) {
    return !line.starts_with("//") && line.find('|') != std::string_view::npos;
}

FeedRecord SplitFeedLine(std::string_view line) {
    FeedRecord record;
    record.ICAO = TakeField(line);
    record.City = TakeField(line);
    record.URL = TakeField(line);
    record.Freq = line;
    return record;
}

bool StatesFrequency(const FeedRecord& record) {
    return Len(record.Freq) == 6;
}

} // namespace quillon
