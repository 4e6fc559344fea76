#include "runtime/Text.h"

#include "runtime/RuntimeError.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace quillon {

namespace {

bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Byte offset of the character at 1-based `position`; the text's size if it is past the end.
std::size_t OffsetOf(std::string_view text, std::ptrdiff_t position) {
    std::size_t offset = 0;
    while (offset < text.size() && position > 1) {
        ++offset;
        while (offset < text.size() && IsContinuation(text[offset])) ++offset;
        --position;
    }
    return offset;
}

/// How many leading bytes are certainly ASCII; looks at eight at a time.
std::size_t AsciiLength(std::string_view bytes) {
    std::size_t length = 0;
    for (std::uint64_t glance = 0; length + sizeof glance <= bytes.size(); length += sizeof glance) {
        std::memcpy(&glance, bytes.data() + length, sizeof glance);
        if ((glance & 0x8080808080808080U) != 0) break;
    }
    return length;
}

/// Length of the well-formed sequence at the start of `bytes`, 0 if there is none.
std::size_t SequenceLength(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return 0;
    const auto second = static_cast<unsigned char>(bytes[1]);
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) || (lead == 0xF0 && second < 0x90) ||
        (lead == 0xF4 && second > 0x8F))
        return 0;
    return std::all_of(bytes.begin() + 1, bytes.begin() + static_cast<std::ptrdiff_t>(length), IsContinuation)
               ? length
               : 0;
}

/// Lower case of ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic.
std::uint32_t LowerCodePoint(std::uint32_t c) {
    if (c >= 'A' && c <= 'Z') return c + 32;
    if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) ||
        (c >= 0x410 && c <= 0x42F))
        return c + 32;
    if (c >= 0x400 && c <= 0x40F) return c + 80;
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return c + c % 2; // upper case is odd there
    if (c == 0x178) return 0xFF;
    if (c >= 0x100 && c <= 0x177 && c != 0x130 && c != 0x138) return c | 1U; // upper case is even
    return c;
}

/// All letters that have a case here are one or two bytes long, and so is the other case of each.
template <typename Change>
std::string ChangeCase(std::string_view text, Change change) {
    std::string changed(text);
    for (std::size_t i = 0; i < changed.size(); ++i) {
        const auto byte = static_cast<unsigned char>(changed[i]);
        if (byte < 0x80) {
            changed[i] = static_cast<char>(change(byte));
        } else if (byte >= 0xC3 && byte <= 0xD1 && i + 1 < changed.size() && IsContinuation(changed[i + 1])) {
            const std::uint32_t c =
                change((byte & 0x1FU) << 6U | (static_cast<unsigned char>(changed[i + 1]) & 0x3FU));
            changed[i] = static_cast<char>(0xC0U | c >> 6U);
            changed[++i] = static_cast<char>(0x80U | (c & 0x3FU));
        }
    }
    return changed;
}

} // namespace

std::size_t Len(std::string_view text) {
    return text.size() - static_cast<std::size_t>(std::count_if(text.begin(), text.end(), IsContinuation));
}

std::ptrdiff_t InStr(std::ptrdiff_t start, std::string_view text, std::string_view find) {
    if (start < 1) Raise(InvalidCall);
    const std::size_t at = text.find(find, OffsetOf(text, start));
    return at == std::string_view::npos ? 0 : static_cast<std::ptrdiff_t>(Len(text.substr(0, at))) + 1;
}

std::string Mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t length) {
    if (start < 1 || length < 0) Raise(InvalidCall);
    const std::string_view rest = text.substr(OffsetOf(text, start));
    return std::string(rest.substr(0, OffsetOf(rest, length + 1)));
}

std::string Mid(std::string_view text, std::ptrdiff_t start) {
    return Mid(text, start, static_cast<std::ptrdiff_t>(text.size()));
}

std::string Left(std::string_view text, std::ptrdiff_t length) {
    return Mid(text, 1, length);
}

std::string Right(std::string_view text, std::ptrdiff_t length) {
    if (length < 0) Raise(InvalidCall);
    return Mid(text, std::max<std::ptrdiff_t>(1, static_cast<std::ptrdiff_t>(Len(text)) - length + 1));
}

std::uint32_t UpperCodePoint(std::uint32_t c) {
    for (const std::uint32_t distance : {32U, 80U, 1U})
        if (c >= distance && c - distance != c && LowerCodePoint(c - distance) == c) return c - distance;
    return c == 0xFF ? 0x178 : c;
}

std::string LCase(std::string_view text) {
    return ChangeCase(text, LowerCodePoint);
}

std::string UCase(std::string_view text) {
    return ChangeCase(text, UpperCodePoint);
}

int CompareLCase(std::string_view a, std::string_view b) {
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (a[i] == b[i]) continue;
        if (!IsAscii(a[i]) || !IsAscii(b[i])) return LCase(a).compare(LCase(b));
        const std::uint32_t left = LowerCodePoint(static_cast<unsigned char>(a[i]));
        const std::uint32_t right = LowerCodePoint(static_cast<unsigned char>(b[i]));
        if (left != right) return left < right ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        bytes.remove_prefix(AsciiLength(bytes));
        if (bytes.empty()) break;
        const std::size_t length = SequenceLength(bytes);
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

} // namespace quillon
