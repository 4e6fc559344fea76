#include "app/ListPages.h"

#include "runtime/Number.h"
#include "runtime/Text.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

constexpr std::size_t RowsPerPage = 55;
constexpr std::size_t StatedRowsPerPage = 62;
static_assert((RowsPerPage + 6) * PointsOf(PrintFont::Normal) + 2 * PointsOf(PrintFont::Heading) ==
              PageTypePoints);

/// "September 03, 2026 - 4:05 PM".
std::string DateAndTime(TimePoint now) {
    constexpr std::array Months{"January", "February", "March",     "April",   "May",      "June",
                                "July",    "August",   "September", "October", "November", "December"};
    const auto day = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(now - day);
    const auto hour = std::chrono::make12(time.hours()).count();
    return std::string(Months.at(unsigned{date.month()} - 1)) + " " + Format(unsigned{date.day()}, "00") +
           ", " + Format(int{date.year()}, "0000") + " - " + std::to_string(hour) + ":" +
           Format(static_cast<double>(time.minutes().count()), "00") +
           (std::chrono::is_am(time.hours()) ? " AM" : " PM");
}

} // namespace

std::size_t SheetsFor(std::size_t rows) {
    return rows / RowsPerPage + 1;
}

std::int16_t TotalPagesFor(std::size_t rows) {
    const std::int16_t pages = CInt(static_cast<double>(rows) / StatedRowsPerPage);
    return rows > StatedRowsPerPage && rows % StatedRowsPerPage != 0 ? CInt(pages + 1.0) : pages;
}

PrintedLine PrintRow(const FeedRecord& feed) {
    constexpr std::size_t LongestCity = 33;
    constexpr std::size_t LongestUrl = 40;
    std::string city(feed.City);
    if (Len(city) > LongestCity) city = Left(city, LongestCity) + "...";
    std::string url = LCase(feed.URL);
    if (Len(url) > LongestUrl) url = "..." + Mid(url, 6);
    return {PrintFont::Normal,
            {{8, std::string(feed.ICAO)}, {18, city}, {60, std::string(feed.Freq)}, {70, url}}};
}

void PrintHeader(PrintedPage& page) {
    page.resize(page.size() + 4);
    page.push_back({PrintFont::Heading, {{20, MasterListTitle}}});
    page.push_back({PrintFont::Heading, {}});
}

void PrintFooter(PrintedPage& page, frmATC& form, TimePoint now) {
    ++form.PageNumber;
    page.emplace_back();
    page.push_back({PrintFont::Normal,
                    {{55, "Page: " + Format(form.PageNumber, "00") + " of " + std::to_string(form.TotalPages)},
                     {90, DateAndTime(now)}}});
}

PrintedPage PrintNextPage(frmATC& form, TimePoint now) {
    const std::vector<FeedRecord>& feeds = form.lvwDB.Items();
    const std::size_t first = static_cast<std::size_t>(form.PageNumber) * RowsPerPage;
    PrintedPage page;
    PrintHeader(page);
    for (std::size_t row = first; row < std::min(first + RowsPerPage, feeds.size()); ++row)
        page.push_back(PrintRow(feeds[row]));
    PrintFooter(page, form, now);
    return page;
}

} // namespace quillon
