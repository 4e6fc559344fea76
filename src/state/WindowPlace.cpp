#include "state/WindowPlace.h"

#include <algorithm>

namespace quillon {

namespace {

long long SharedArea(const ScreenArea& a, const ScreenArea& b) {
    const long long width = std::min(a.Left + a.Width, b.Left + b.Width) - std::max(a.Left, b.Left);
    const long long height = std::min(a.Top + a.Height, b.Top + b.Height) - std::max(a.Top, b.Top);
    return std::max(width, 0LL) * std::max(height, 0LL);
}

int Within(int at, int length, int from, int room) {
    return std::max(std::min(at, from + room - length), from);
}

} // namespace

WindowPlace OnScreen(const ScreenArea& window, std::span<const ScreenArea> screens) {
    if (screens.empty()) return {window.Left, window.Top};
    const auto best =
        std::max_element(screens.begin(), screens.end(), [&](const ScreenArea& a, const ScreenArea& b) {
            return SharedArea(window, a) < SharedArea(window, b);
        });
    return {Within(window.Left, window.Width, best->Left, best->Width),
            Within(window.Top, window.Height, best->Top, best->Height)};
}

} // namespace quillon
