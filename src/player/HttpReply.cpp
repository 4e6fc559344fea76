#include "player/HttpReply.h"

#include "runtime/Text.h"
#include "runtime/Trim.h"

#include <algorithm>

namespace quillon {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

HttpReply::Progress HttpReply::Feed(std::string_view bytes) {
    buffer_.append(bytes);
    if (!StartsLikeAReply()) return Progress::Malformed;
    for (std::size_t end = 0; (end = buffer_.find('\n', taken_)) != std::string::npos;) {
        std::string_view line = std::string_view(buffer_).substr(taken_, end - taken_);
        if (line.ends_with('\r')) line.remove_suffix(1);
        const bool is_first = taken_ == 0;
        taken_ = end + 1;
        if (line.empty()) {
            buffer_.erase(0, taken_);
            return Progress::Complete;
        }
        if (!is_first)
            TakeHeaderLine(line);
        else if (!TakeStatusLine(line))
            return Progress::Malformed;
    }
    return buffer_.size() < MaximumHead ? Progress::Head : Progress::Malformed;
}

bool HttpReply::StartsLikeAReply() const {
    const auto starts = [this](std::string_view mark) {
        return mark.substr(0, buffer_.size()) == buffer_.substr(0, mark.size());
    };
    return starts("HTTP/1.") || starts("ICY ");
}

bool HttpReply::TakeStatusLine(std::string_view line) {
    line.remove_prefix(std::min(line.find(' '), line.size()));
    line = Trimmed(line);
    if (line.size() < 3 || !std::all_of(line.begin(), line.begin() + 3, IsDigit)) return false;
    if (line.size() > 3 && line[3] != ' ') return false;
    status_ = (line[0] - '0') * 100 + (line[1] - '0') * 10 + (line[2] - '0');
    return true;
}

void HttpReply::TakeHeaderLine(std::string_view line) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) return;
    headers_.emplace(LCase(Trimmed(line.substr(0, colon))), Trimmed(line.substr(colon + 1)));
}

std::string HttpReply::Header(const std::string& name) const {
    const auto found = headers_.find(name);
    return found == headers_.end() ? std::string() : found->second;
}

std::string HttpReply::ContentType() const {
    const std::string type = Header("content-type");
    return LCase(Trimmed(std::string_view(type).substr(0, type.find(';'))));
}

} // namespace quillon
