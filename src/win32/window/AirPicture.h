#pragma once

#include "state/Forms.h"

#include <windows.h>

#include <functional>
#include <vector>

namespace quillon {

/// The picture beside the list of "On the air": north up, the aircraft in the middle with its track, rings at
/// half and full range, and a dot for each airport, filled if one of its feeds plays. The list says the same.
class AirPicture {
  public:
    /// `picked` is called with the row whose dot was clicked.
    explicit AirPicture(std::function<void(std::size_t)> picked) : picked_(std::move(picked)) {}

    /// Registers the window class that the dialog's resource names.
    static void Register();

    /// Takes over the control, which shows that form from then on.
    void Attach(HWND control, const OnTheAirForm& form);

  private:
    struct Dot {
        std::size_t row; ///< the first of the airport's
        POINT at;
        bool plays;
        bool selected;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT Handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    void Paint(HWND window);
    void Draw(HDC paper, const RECT& area);
    void DrawRings(HDC paper);
    void DrawTrack(HDC paper);
    void DrawAircraft(HDC paper);
    void DrawDots(HDC paper);
    void DrawCodes(HDC paper, const RECT& area);
    void DrawCode(HDC paper, const RECT& area, const Dot& dot);
    bool IsFree(const RECT& place, const RECT& area) const;
    void Measure(const RECT& area);
    void PlaceDots();
    void Click(POINT at);
    RECT Around(POINT centre, int radius) const;
    POINT At(const OnTheAirForm::Place& place) const;
    int Px(int at_96_dpi) const { return MulDiv(at_96_dpi, dpi_, 96); }

    std::function<void(std::size_t)> picked_;
    const OnTheAirForm* form_ = nullptr;
    HFONT font_ = nullptr;
    int dpi_ = 96;
    POINT centre_{};
    int radius_ = 0; ///< of the outer ring, in pixels
    std::vector<Dot> dots_;
    std::vector<RECT> taken_; ///< by dots and texts
};

} // namespace quillon
