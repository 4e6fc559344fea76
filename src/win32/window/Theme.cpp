#include "win32/window/Theme.h"

#include "win32/system/LateFunction.h"

#include <algorithm>
#include <cmath>
#include <dwmapi.h>
#include <vector>

namespace quillon {

namespace {

/// The system's message font, scaled.
Font MakeFont(UINT dpi, double scale, bool bold) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi);
    LOGFONTW font = metrics.lfMessageFont;
    font.lfHeight = static_cast<LONG>(std::lround(font.lfHeight * scale));
    if (bold) font.lfWeight = FW_BOLD;
    return Font(CreateFontIndirectW(&font));
}

/// Whether the headset covers a point of the unit square: band, two ear cups, microphone boom.
bool CoversHeadset(double x, double y) {
    const double side = std::abs(x - 0.5);
    const double band = std::hypot(side, y - 0.47);
    if (y < 0.47 && band > 0.35 && band < 0.44) return true;
    if (side > 0.24 && side < 0.46 && y > 0.47 && y < 0.8) return true;
    const double boom = std::hypot(x - 0.5, y - 0.55);
    if (x < 0.5 && y > 0.75 && boom > 0.32 && boom < 0.4) return true;
    return std::hypot((x - 0.55) / 1.5, y - 0.91) < 0.08;
}

/// A loudspeaker and a cross.
bool CoversMute(double x, double y) {
    const double up = std::abs(y - 0.5);
    if (x > 0.05 && x < 0.25 && up < 0.16) return true;
    if (x >= 0.25 && x < 0.5 && up < 0.16 + (x - 0.25)) return true;
    const double right = std::abs(x - 0.76);
    return right < 0.2 && std::abs(right - up) < 0.07;
}

/// Crossed out, with a gap beside the line.
bool CoversNoHeadset(double x, double y) {
    const double off = std::abs(x - y) / 1.414;
    if (off < 0.06) return true;
    return off > 0.13 && CoversHeadset(x, y);
}

/// Whether the glyph covers a point of the unit square.
bool Covers(Glyph glyph, double x, double y) {
    switch (glyph) {
    case Glyph::Play:
        return x > 0.2 && x < 0.9 && std::abs(y - 0.5) < 0.42 * (0.9 - x) / 0.7;
    case Glyph::Pause:
        return y > 0.12 && y < 0.88 && ((x > 0.18 && x < 0.42) || (x > 0.58 && x < 0.82));
    case Glyph::Stop:
        return x > 0.15 && x < 0.85 && y > 0.15 && y < 0.85;
    case Glyph::Mute:
        return CoversMute(x, y);
    case Glyph::Headset:
        return CoversHeadset(x, y);
    case Glyph::NoHeadset:
        return CoversNoHeadset(x, y);
    }
    return false;
}

/// The unit square with round corners.
bool CoversTile(double x, double y) {
    constexpr double Radius = 0.2;
    const double right = std::max(0.0, std::abs(x - 0.5) - (0.5 - Radius));
    const double down = std::max(0.0, std::abs(y - 0.5) - (0.5 - Radius));
    return std::hypot(right, down) < Radius;
}

/// Share of a pixel that a shape covers, 0 to 255.
template <typename Shape>
unsigned Coverage(Shape covers, int x, int y, int size) {
    constexpr int Samples = 4;
    unsigned hits = 0;
    for (int sy = 0; sy < Samples; ++sy)
        for (int sx = 0; sx < Samples; ++sx)
            hits += covers((x + (sx + 0.5) / Samples) / size, (y + (sy + 0.5) / Samples) / size) ? 1U : 0U;
    return hits * 255U / (Samples * Samples);
}

/// `color_of` gives each pixel's alpha, red, green and blue, from the highest byte on.
template <typename ColorOf>
IconHandle MakeIcon(int size_px, ColorOf color_of) {
    BITMAPV5HEADER header{};
    header.bV5Size = sizeof header;
    header.bV5Width = size_px;
    header.bV5Height = -size_px;
    header.bV5Planes = 1;
    header.bV5BitCount = 32;
    header.bV5Compression = BI_BITFIELDS;
    header.bV5RedMask = 0x00FF0000;
    header.bV5GreenMask = 0x0000FF00;
    header.bV5BlueMask = 0x000000FF;
    header.bV5AlphaMask = 0xFF000000;
    void* bits = nullptr;
    const Handle<HBITMAP, DeleteObject> picture(
        CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&header), DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!picture) return {};

    auto* pixel = static_cast<unsigned*>(bits);
    for (int y = 0; y < size_px; ++y)
        for (int x = 0; x < size_px; ++x) *pixel++ = color_of(x, y);

    const std::vector<unsigned char> opaque(static_cast<std::size_t>((size_px + 15) / 16 * 2 * size_px));
    const Handle<HBITMAP, DeleteObject> mask(CreateBitmap(size_px, size_px, 1, 1, opaque.data()));
    ICONINFO info{TRUE, 0, 0, mask.Get(), picture.Get()};
    return IconHandle(CreateIconIndirect(&info));
}

} // namespace

Theme::Theme(UINT dpi)
    : dpi_(dpi),
      text_(MakeFont(dpi, 1, false)),
      bold_(MakeFont(dpi, 1, true)),
      large_(MakeFont(dpi, 1.5, true)),
      huge_(MakeFont(dpi, 2.6, true)),
      paper_(CreateCompatibleDC(nullptr)) {}

SIZE Theme::Measure(HFONT font, const std::wstring& text) const {
    const HGDIOBJ old = SelectObject(paper_.Get(), font);
    SIZE size{};
    GetTextExtentPoint32W(paper_.Get(), text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(paper_.Get(), old);
    return size;
}

bool HighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
    return (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

void MatchTitleToApps(HWND window) {
    DWORD light = 1;
    DWORD size = sizeof light;
    RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                 L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
    constexpr DWORD UseImmersiveDarkMode = 20; // Windows 10 2004 and later
    const BOOL dark = light == 0 ? TRUE : FALSE;
    static constinit const LateCall<decltype(DwmSetWindowAttribute)> SetAttribute(
        L"dwmapi.dll", "DwmSetWindowAttribute", E_NOTIMPL);
    SetAttribute(window, UseImmersiveDarkMode, &dark, sizeof dark);
}

IconHandle DrawGlyph(Glyph glyph, int size_px, COLORREF ink) {
    const unsigned rgb = unsigned{GetRValue(ink)} << 16U | unsigned{GetGValue(ink)} << 8U | GetBValue(ink);
    const auto shape = [glyph](double x, double y) { return Covers(glyph, x, y); };
    return MakeIcon(size_px, [=](int x, int y) { return Coverage(shape, x, y, size_px) << 24U | rgb; });
}

IconHandle DrawTile(Glyph glyph, int size_px, COLORREF tile) {
    constexpr double Scale = 0.8; // of the glyph on it
    const auto shape = [glyph](double x, double y) {
        return Covers(glyph, (x - 0.5) / Scale + 0.5, (y - 0.5) / Scale + 0.5);
    };
    return MakeIcon(size_px, [=](int x, int y) {
        const unsigned white = Coverage(shape, x, y, size_px);
        const auto mixed = [white](unsigned ground) { return ground + (255 - ground) * white / 255; };
        return Coverage(CoversTile, x, y, size_px) << 24U | mixed(GetRValue(tile)) << 16U |
               mixed(GetGValue(tile)) << 8U | mixed(GetBValue(tile));
    });
}

} // namespace quillon
