#include "app/AddFeedKeys.h"

#include "runtime/Text.h"

namespace quillon {

namespace {

constexpr int Backspace = 8;
constexpr int Paste = 22;

int Upper(int key) {
    return static_cast<int>(UpperCodePoint(static_cast<std::uint32_t>(key)));
}

bool Between(int key, int first, int last) {
    return key >= first && key <= last;
}

int IcaoKey(int key) {
    if (key < '0' && key != Backspace && key != Paste) return RefusedKey;
    return Upper(key);
}

int FreqKey(int key) {
    // From the control keys to the digits: blanks and punctuation pass here and are refused with the entry.
    return key == Backspace || Between(key, 16, '9') ? key : RefusedKey;
}

int CityKey(int key, const std::string& text, int previous) {
    if (key == 11 || key == 12 || Between(key, 14, 21)) return RefusedKey;
    return text.empty() || previous == ' ' ? Upper(key) : key;
}

int UrlKey(int key) {
    return Between(key, 14, 21) || key == '<' || key == '>' ? RefusedKey : key;
}

} // namespace

int KeyPress(AddBox box, int key, const std::string& text, int previous) {
    switch (box) {
    case AddBox::txtICAO:
        return IcaoKey(key);
    case AddBox::txtCity:
        return CityKey(key, text, previous);
    case AddBox::txtURL:
        return UrlKey(key);
    case AddBox::txtFreq:
        return FreqKey(key);
    }
    return key;
}

} // namespace quillon
