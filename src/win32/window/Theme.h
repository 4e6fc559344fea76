#pragma once

#include "win32/system/Handle.h"

#include <windows.h>

#include <string>

namespace quillon {

using Font = Handle<HFONT, DeleteObject>;
using IconHandle = Handle<HICON, DestroyIcon>;

/// Sizes and fonts for a window's resolution.
class Theme {
  public:
    explicit Theme(UINT dpi = 96);

    UINT Dpi() const { return dpi_; }

    /// Pixels for a length given in pixels at 96 dpi, and for one in twips (1/1440 inch).
    int Px(int at_96_dpi) const { return MulDiv(at_96_dpi, static_cast<int>(dpi_), 96); }
    int TwipsToPx(int twips) const { return MulDiv(twips, static_cast<int>(dpi_), 1440); }

    HFONT Text() const { return text_.Get(); }
    HFONT Bold() const { return bold_.Get(); }
    HFONT Large() const { return large_.Get(); }
    HFONT Huge() const { return huge_.Get(); }

    /// Size in pixels of a line of text.
    SIZE Measure(HFONT font, const std::wstring& text) const;

  private:
    UINT dpi_;
    Font text_;
    Font bold_;
    Font large_;
    Font huge_;
    Handle<HDC, DeleteDC> paper_; // for measuring text
};

/// Whether a high-contrast theme is on. Nothing may then be drawn in colours of our own.
bool HighContrast();

/// Makes the window's title bar light or dark, as the user has chosen for apps. No effect before Windows 10
/// 2004.
void MatchTitleToApps(HWND window);

enum class Glyph { Play, Pause, Stop, Mute, Headset, NoHeadset };

/// Draws a button's picture. Returns an empty handle if Windows refuses.
IconHandle DrawGlyph(Glyph glyph, int size_px, COLORREF ink);

/// The same in white on a tile, for places where transparent pixels let clicks through.
IconHandle DrawTile(Glyph glyph, int size_px, COLORREF tile);

} // namespace quillon
