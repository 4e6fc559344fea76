#include "win32/window/AirPicture.h"

#include "win32/system/Handle.h"
#include "win32/system/Utf16.h"
#include "win32/window/ControlIds.h"
#include "win32/window/Controls.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillon {

namespace {

using Pen = Handle<HPEN, DeleteObject>;
using Bitmap = Handle<HBITMAP, DeleteObject>;
using Paper = Handle<HDC, DeleteDC>;

constexpr int DotRadius = 4; // lengths at 96 dpi
constexpr int Reachable = 10;
constexpr std::size_t MostCodes = 200; // looking for room for more takes time and finds none

Pen MakePen(int color, int width) {
    return Pen(CreatePen(PS_SOLID, width, GetSysColor(color)));
}

void Write(HDC paper, const std::wstring& text, const RECT& place) {
    ExtTextOutW(paper, place.left, place.top, 0, nullptr, text.c_str(), static_cast<UINT>(text.size()),
                nullptr);
}

SIZE SizeOf(HDC paper, const std::wstring& text) {
    SIZE size{};
    GetTextExtentPoint32W(paper, text.c_str(), static_cast<int>(text.size()), &size);
    return size;
}

} // namespace

void AirPicture::Register() {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = Procedure;
    window_class.hInstance = GetModuleHandleW(nullptr);
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.lpszClassName = AirPictureClass;
    RegisterClassW(&window_class); // fails the second time, which does no harm
}

void AirPicture::Attach(HWND control, const OnTheAirForm& form) {
    form_ = &form;
    SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

LRESULT CALLBACK AirPicture::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    auto* self = reinterpret_cast<AirPicture*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self != nullptr ? self->Handle(window, message, wparam, lparam)
                           : DefWindowProcW(window, message, wparam, lparam);
}

LRESULT AirPicture::Handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_ERASEBKGND: // it is painted whole
        return 1;
    case WM_PAINT:
        Paint(window);
        return 0;
    case WM_SIZE:
    case WM_SYSCOLORCHANGE:
        InvalidateRect(window, nullptr, FALSE);
        return 0;
    case WM_LBUTTONDOWN:
        Click({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
        return 0;
    default:
        return DefWindowProcW(window, message, wparam, lparam);
    }
}

void AirPicture::Paint(HWND window) {
    PAINTSTRUCT paint{};
    HDC screen = BeginPaint(window, &paint);
    RECT area{};
    GetClientRect(window, &area);
    const Paper paper(CreateCompatibleDC(screen));
    const Bitmap sheet(CreateCompatibleBitmap(screen, std::max(1L, area.right), std::max(1L, area.bottom)));
    const HGDIOBJ old = SelectObject(paper.Get(), sheet.Get());
    font_ = FontOf(GetParent(window));
    dpi_ = static_cast<int>(GetDpiForWindow(window));
    Draw(paper.Get(), area);
    BitBlt(screen, 0, 0, area.right, area.bottom, paper.Get(), 0, 0, SRCCOPY);
    SelectObject(paper.Get(), old);
    EndPaint(window, &paint);
}

void AirPicture::Draw(HDC paper, const RECT& area) {
    FillRect(paper, &area, GetSysColorBrush(COLOR_WINDOW));
    if (form_->Reach <= 0) {
        dots_.clear();
        return;
    }
    const HGDIOBJ old = SelectObject(paper, font_);
    SetBkMode(paper, TRANSPARENT);
    SelectObject(paper, GetStockObject(NULL_BRUSH));
    Measure(area);
    DrawRings(paper);
    DrawTrack(paper);
    DrawDots(paper);
    DrawAircraft(paper);
    DrawCodes(paper, area);
    SelectObject(paper, GetStockObject(BLACK_PEN)); // those of our own are about to be deleted
    SelectObject(paper, old);
}

void AirPicture::Measure(const RECT& area) {
    taken_.clear();
    centre_ = {area.right / 2, area.bottom / 2};
    radius_ = std::max(1L, std::min(area.right, area.bottom) / 2 - Px(18));
    PlaceDots();
}

/// One dot for each airport, nearest first; the feeds of an airport are neighbours in the list.
void AirPicture::PlaceDots() {
    dots_.clear();
    for (std::size_t row = 0; row < form_->Rows.size(); ++row) {
        const OnTheAirForm::Row& feed = form_->Rows[row];
        if (row == 0 || feed.What.Icao != form_->Rows[row - 1].What.Icao)
            dots_.push_back({row, At(feed.Where), false, false});
        dots_.back().plays |= feed.Now == OnTheAirForm::Mark::Playing;
        dots_.back().selected |= row == form_->Selected;
    }
}

POINT AirPicture::At(const OnTheAirForm::Place& place) const {
    constexpr double Farthest = 3; // of what is drawn, in radii
    const double length = radius_ * std::min(Farthest, place.NauticalMiles / form_->Reach);
    const double angle = place.Bearing * std::numbers::pi / 180;
    return {centre_.x + std::lround(length * std::sin(angle)),
            centre_.y - std::lround(length * std::cos(angle))};
}

RECT AirPicture::Around(POINT centre, int radius) const {
    return {centre.x - radius, centre.y - radius, centre.x + radius + 1, centre.y + radius + 1};
}

void AirPicture::DrawRings(HDC paper) {
    SetTextColor(paper, GetSysColor(COLOR_GRAYTEXT));
    const Pen pen = MakePen(COLOR_GRAYTEXT, Px(1));
    for (const int part : {2, 1}) {
        SelectObject(paper, pen.Get());
        const RECT ring = Around(centre_, radius_ / part);
        Ellipse(paper, ring.left, ring.top, ring.right, ring.bottom);
        const std::wstring miles =
            std::to_wstring(form_->Reach / part) + (form_->Reach % part != 0 ? L".5 NM" : L" NM");
        const SIZE size = SizeOf(paper, miles);
        const POINT below{centre_.x - size.cx / 2, ring.bottom + Px(1)};
        taken_.push_back({below.x, below.y, below.x + size.cx, below.y + size.cy});
        Write(paper, miles, taken_.back());
    }
    const SIZE size = SizeOf(paper, L"N");
    const LONG top = centre_.y - radius_ - size.cy - Px(1);
    taken_.push_back({centre_.x - size.cx / 2, top, centre_.x + size.cx, top + size.cy});
    Write(paper, L"N", taken_.back());
    SelectObject(paper, GetStockObject(BLACK_PEN));
}

void AirPicture::DrawTrack(HDC paper) {
    for (const OnTheAirForm::Place& place : form_->Track) {
        const RECT spot = Around(At(place), Px(1));
        FillRect(paper, &spot, GetSysColorBrush(COLOR_HIGHLIGHT));
    }
}

void AirPicture::DrawAircraft(HDC paper) {
    const RECT place = Around(centre_, Px(7));
    const int half = Px(2) / 2;
    const RECT across{place.left, centre_.y - half, place.right, centre_.y + half + 1};
    const RECT down{centre_.x - half, place.top, centre_.x + half + 1, place.bottom};
    for (const RECT& bar : {across, down}) FillRect(paper, &bar, GetSysColorBrush(COLOR_HIGHLIGHT));
    taken_.push_back(place);
}

void AirPicture::DrawDots(HDC paper) {
    const Pen plain = MakePen(COLOR_WINDOWTEXT, Px(1));
    const Pen chosen = MakePen(COLOR_HIGHLIGHT, Px(2));
    for (const Dot& dot : dots_) {
        const RECT disc = Around(dot.at, Px(DotRadius));
        SelectObject(paper, plain.Get());
        SelectObject(paper, GetSysColorBrush(dot.plays ? COLOR_WINDOWTEXT : COLOR_WINDOW));
        Ellipse(paper, disc.left, disc.top, disc.right, disc.bottom);
        taken_.push_back(disc);
        if (!dot.selected) continue;
        SelectObject(paper, chosen.Get());
        SelectObject(paper, GetStockObject(NULL_BRUSH));
        const RECT ring = Around(dot.at, Px(DotRadius + 3));
        Ellipse(paper, ring.left, ring.top, ring.right, ring.bottom);
        taken_.push_back(ring);
    }
    SelectObject(paper, GetStockObject(BLACK_PEN));
    SelectObject(paper, GetStockObject(NULL_BRUSH));
}

/// What is selected or plays comes first, then the nearest.
void AirPicture::DrawCodes(HDC paper, const RECT& area) {
    std::vector<Dot> order = dots_;
    std::stable_sort(order.begin(), order.end(), [](const Dot& a, const Dot& b) {
        return 2 * a.selected + a.plays > 2 * b.selected + b.plays;
    });
    if (order.size() > MostCodes) order.resize(MostCodes);
    for (const Dot& dot : order) DrawCode(paper, area, dot);
}

/// Beside the dot, on the first of four sides that has room.
void AirPicture::DrawCode(HDC paper, const RECT& area, const Dot& dot) {
    constexpr std::size_t Longest = 8; // characters
    const std::wstring code = Wide(form_->Rows[dot.row].What.Icao).substr(0, Longest);
    const SIZE size = SizeOf(paper, code);
    const int gap = Px(DotRadius + (dot.selected ? 6 : 3));
    const LONG left = dot.at.x - size.cx / 2;
    const LONG top = dot.at.y - size.cy / 2;
    for (const POINT corner : {POINT{dot.at.x + gap, top}, POINT{dot.at.x - gap - size.cx, top},
                               POINT{left, dot.at.y - gap - size.cy}, POINT{left, dot.at.y + gap}}) {
        const RECT place{corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
        if (!IsFree(place, area)) continue;
        if (dot.selected) FillRect(paper, &place, GetSysColorBrush(COLOR_HIGHLIGHT));
        SetTextColor(paper, GetSysColor(dot.selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        Write(paper, code, place);
        taken_.push_back(place);
        return;
    }
}

bool AirPicture::IsFree(const RECT& place, const RECT& area) const {
    const bool inside = place.left >= area.left && place.top >= area.top && place.right <= area.right &&
                        place.bottom <= area.bottom;
    return inside && std::none_of(taken_.begin(), taken_.end(), [&](const RECT& taken) {
               return place.left < taken.right && taken.left < place.right && place.top < taken.bottom &&
                      taken.top < place.bottom;
           });
}

/// The dot nearest to the click, if it lies close enough.
void AirPicture::Click(POINT at) {
    const auto away = [&](const Dot& dot) { return std::hypot(dot.at.x - at.x, dot.at.y - at.y); };
    const auto nearest = std::min_element(dots_.begin(), dots_.end(),
                                          [&](const Dot& a, const Dot& b) { return away(a) < away(b); });
    if (nearest != dots_.end() && away(*nearest) <= Px(Reachable)) picked_(nearest->row);
}

} // namespace quillon
