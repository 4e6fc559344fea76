#include "win32/print/Paper.h"

#include "runtime/Text.h"
#include "win32/system/Utf16.h"

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

constexpr double WidestColumn = 6;   // points
constexpr double LineSpacing = 1.15; // of the type size
constexpr double LeastSpacing = 1.1;

double PixelsPerPoint(HDC device, int resolution) {
    return GetDeviceCaps(device, resolution) / 72.0;
}

double ColumnWidth(HDC device) {
    return std::min(WidestColumn * PixelsPerPoint(device, LOGPIXELSX),
                    1.0 * GetDeviceCaps(device, HORZRES) / PageColumns);
}

double LineHeight(HDC device) {
    return std::min(LineSpacing * PixelsPerPoint(device, LOGPIXELSY),
                    1.0 * GetDeviceCaps(device, VERTRES) / PageTypePoints);
}

Font MakeFont(double height, int weight) {
    LOGFONTW font{};
    font.lfHeight = -static_cast<LONG>(std::lround(height));
    font.lfWeight = weight;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfOutPrecision = OUT_TT_PRECIS;
    font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN; // if Consolas is missing
    wcscpy_s(font.lfFaceName, L"Consolas");
    return Font(CreateFontIndirectW(&font));
}

double CharacterWidth(HDC device, const Font& font) {
    constexpr int Sample = 20;
    const HGDIOBJ old = SelectObject(device, font.Get());
    SIZE size{1, 1};
    GetTextExtentPoint32W(device, std::wstring(Sample, L'W').c_str(), Sample, &size);
    SelectObject(device, old);
    return 1.0 * size.cx / Sample;
}

/// Rounds down to a scale at which the type has a whole size, as a printer driver may round a fraction up.
double SqueezeFor(double wanted, double type_px) {
    const double size = std::round(PointsOf(PrintFont::Normal) * type_px);
    return std::min(1.0, std::floor(wanted * size) / size);
}

} // namespace

Paper::Paper(HDC device)
    : device_(device),
      line_px_(LineHeight(device)),
      type_px_(std::min(PixelsPerPoint(device, LOGPIXELSY), line_px_ / LeastSpacing)),
      normal_(MakeFont(PointsOf(PrintFont::Normal) * type_px_, FW_NORMAL)),
      heading_(MakeFont(PointsOf(PrintFont::Heading) * type_px_, FW_BOLD)),
      column_px_(ColumnWidth(device)),
      squeeze_(SqueezeFor(column_px_ / CharacterWidth(device, normal_), type_px_)) {}

/// In the condensed coordinates that Draw sets.
int Paper::Left(int column) const {
    return static_cast<int>(std::lround((column - 1) * column_px_ / squeeze_));
}

void Paper::Draw(const PrintedPage& page) const {
    const int saved = SaveDC(device_);
    // Not by the font's width: Wine's printer driver measures with it but draws at the natural width.
    const XFORM squeeze{static_cast<FLOAT>(squeeze_), 0, 0, 1, 0, 0};
    SetGraphicsMode(device_, GM_ADVANCED);
    SetWorldTransform(device_, &squeeze);
    SetBkMode(device_, TRANSPARENT);
    double top = 0;
    for (const PrintedLine& line : page) {
        DrawLine(line, static_cast<int>(std::lround(top)));
        top += PointsOf(line.Font) * line_px_;
    }
    RestoreDC(device_, saved);
}

void Paper::DrawLine(const PrintedLine& line, int top) const {
    SelectObject(device_, FontOf(line.Font).Get());
    for (std::size_t i = 0; i < line.Texts.size(); ++i) {
        const bool last = i + 1 == line.Texts.size();
        const int left = Left(line.Texts[i].Column);
        // Leaves a column free before the next text. The last text ends at the edge of the paper.
        const int right = last ? 2 * Left(PageColumns) : Left(line.Texts[i + 1].Column - 1);
        const RECT place{left, top, right, top + static_cast<int>(2 * PointsOf(line.Font) * line_px_)};
        // Far more than fits, yet short enough for Windows, which draws nothing if a text is too long.
        const std::wstring text = Wide(quillon::Left(line.Texts[i].Text, 4 * PageColumns));
        ExtTextOutW(device_, left, top, ETO_CLIPPED, &place, text.c_str(), static_cast<UINT>(text.size()),
                    nullptr);
    }
}

} // namespace quillon
