#include "geo/Geodesy.h"

#include "runtime/RuntimeError.h"

#include <array>

namespace quillon {

namespace {

struct Ellipsoid {
    const char* name;
    double major;   // metres
    double minor;   // metres
    double inverse; // of the flattening
};

constexpr std::array<Ellipsoid, 22> Ellipsoids{{
    {"Airy", 6377563.396, 6356256.909, 299.3249646},
    {"Airy Modified", 6377340.189, 6356034.448, 299.3249646},
    {"Australian National", 6378160.0, 6356774.719, 298.25},
    {"Bessel 1841", 6377397.155, 6356078.963, 299.1528128},
    {"Clark 1866 - NAD27", 6378206.4, 6356583.8, 294.9786982},
    {"Clarke 1880", 6378249.145, 6356514.87, 293.465},
    {"Everest", 6377276.345, 6356075.413, 300.8017},
    {"Everest Modified", 6377304.063, 6356103.039, 300.8017},
    {"Fischer 1960", 6378166.0, 6356784.284, 298.3},
    {"Fischer 1960 Modified", 6378155.0, 6356773.32, 298.3},
    {"Fischer 1968", 6378150.0, 6356768.337, 298.3},
    {"Geodetic Reference 1967", 6378160.0, 6356774.516, 298.247167427},
    {"Geodetic Reference 1980", 6378137.0, 6356752.314, 298.257222101},
    {"Helmert", 6378200.0, 6356818.17, 298.3},
    {"Hough", 6378270.0, 6356794.343, 297.0},
    {"International", 6378388.0, 6356911.946, 297.0},
    {"Krassovsky", 6378245.0, 6356863.019, 298.3},
    {"South American 1969", 6378160.0, 6356774.719, 298.25},
    {"WGS-60", 6378165.0, 6356783.287, 298.3},
    {"WGS-66", 6378145.0, 6356759.769, 298.25},
    {"WGS-72", 6378135.0, 6356750.52, 298.26},
    {"WGS-84", 6378137.0, 6356752.314, 298.257223563},
}};

struct Datum {
    const char* name;
    std::int16_t ellipsoid;
};

// A star is part of the datum's name.
constexpr std::array<Datum, 103> Datums{{
    {"Adindan", 6},
    {"Afgooye", 17},
    {"Ain El Abd 1970", 16},
    {"Anna 1 Astro", 3},
    {"ARC 1950", 6},
    {"ARC 1960", 6},
    {"Ascension Island 1958", 16},
    {"Astro B4 Sorol Atoll", 16},
    {"Astro Beacon E", 16},
    {"Astro Dos 71/4", 16},
    {"Astronomic Station 1952", 16},
    {"Australian Geodetic 1966", 3},
    {"Australian Geodetic 1984", 3},
    {"Bellevue IGN", 16},
    {"Bermuda 1957", 5},
    {"Bogota Observatory", 16},
    {"Campo Inchauspe", 16},
    {"Canto Astro 1966", 16},
    {"Cape South Africa", 6},
    {"Cape Canaveral", 6},
    {"Carthage", 5},
    {"Chatham 1971", 16},
    {"Chua Astro", 16},
    {"Corrego Alegre", 16},
    {"Djakarta", 4},
    {"Dos 1968", 16},
    {"Easter Island 1967", 16},
    {"European 1950", 16},
    {"European 1979", 16},
    {"*Finland Hayford", 16},
    {"Gandajika Base", 16},
    {"Geodetic Datum 1949", 16},
    {"Guam 1963", 5},
    {"Gux 1 Astro", 16},
    {"Hjorsey 1955", 16},
    {"Hong Kong 1963", 16},
    {"Indian", 7},
    {"*Indian Thailand", 16},
    {"Ireland 1965", 2},
    {"ISTS 073 Astro 1969", 16},
    {"Johnson Island 1961", 16},
    {"Kandawala", 7},
    {"Kergulen Island", 16},
    {"Kertau 1948", 8},
    {"L. C. 5 Astro", 5},
    {"Liberia 1964", 6},
    {"*Luzon Mindanao", 5},
    {"Luzon Phillipines", 5},
    {"Mahe 1971", 6},
    {"Marco Astro", 16},
    {"Massawa", 4},
    {"Merchich", 6},
    {"Midway Astro 1961", 16},
    {"Minna", 6},
    {"NAD27 Alaska", 5},
    {"NAD27 Bahamas", 5},
    {"NAD27 Canada", 5},
    {"NAD27 Canal Zone", 5},
    {"NAD27 Caribbean", 5},
    {"NAD27 Central America", 5},
    {"NAD27 Conus", 5},
    {"NAD27 Cuba", 5},
    {"NAD27 Greenland", 5},
    {"NAD27 Mexico", 5},
    {"NAD27 San Salvador", 5},
    {"NAD83", 13},
    {"*Nahrwn Masirah Island", 6},
    {"*Nahrwn Saudi Arabia", 6},
    {"*Nahrwn United Arab Emirates", 6},
    {"*Naparima BWI", 6},
    {"Observatorio 1966", 16},
    {"Old Egyptian", 14},
    {"Old Hawaiian", 5},
    {"Oman", 6},
    {"Ord Survey G. Britian 1936", 1},
    {"Pico De Las Nieves", 16},
    {"Pitcairn Astro 1967", 16},
    {"Prov. So. America 1956", 16},
    {"Prov. So. Chilean 1963", 16},
    {"Puerto Rico", 5},
    {"Qatar National", 16},
    {"Qornoq", 16},
    {"Reunion", 16},
    {"Rome 1940", 16},
    {"*RT 90 Sweden", 16},
    {"Santo (DOS)", 16},
    {"Sao Braz", 16},
    {"Sapper Hill 1943", 16},
    {"Schwarzeck", 4},
    {"South American 1969", 18},
    {"South Asia", 10},
    {"Southeast Base - Maderia", 16},
    {"Southwest Base - Azores", 16},
    {"Timbalai 1948", 7},
    {"Tokyo", 4},
    {"Tristan Astro 1968", 16},
    {"Viti Levu 1916", 6},
    {"Wake-Eniwetok 1960", 15},
    {"WGS 1960", 19},
    {"WGS 1966", 20},
    {"WGS 1972", 21},
    {"WGS 1984", 22},
    {"Zanderij", 16},
}};

template <typename Table>
const auto& At(const Table& table, std::int16_t index) {
    const std::ptrdiff_t row = index - 1;
    if (row < 0 || row >= std::ssize(table)) Raise(SubscriptOutOfRange);
    return table[static_cast<std::size_t>(row)];
}

} // namespace

double Geodesy::eMajor(std::int16_t index) {
    return At(Ellipsoids, index).major;
}
double Geodesy::eMinor(std::int16_t index) {
    return At(Ellipsoids, index).minor;
}
double Geodesy::eflat(std::int16_t index) {
    return At(Ellipsoids, index).inverse;
}
std::string_view Geodesy::ename(std::int16_t index) {
    return At(Ellipsoids, index).name;
}
std::int16_t Geodesy::Choices() {
    return static_cast<std::int16_t>(Ellipsoids.size());
}
std::int16_t Geodesy::DChoices() {
    return static_cast<std::int16_t>(Datums.size());
}
std::string_view Geodesy::dName(std::int16_t index) {
    return At(Datums, index).name;
}
std::int16_t Geodesy::dNumber(std::int16_t index) {
    return At(Datums, index).ellipsoid;
}

} // namespace quillon
