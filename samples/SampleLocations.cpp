#include "samples/SampleLocations.h"

#include "data/MoneyText.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

struct City
{
    const char *code;
    const char *name;
    const char *state;
    const char *zip;
    double latitude;
    double longitude;
};

constexpr auto cities = std::to_array<City>({
    {"ABQ", "Albuquerque", "NM", "87105", 35.08, -106.65},
    {"AMA", "Amarillo", "TX", "79104", 35.19, -101.83},
    {"ATL", "Atlanta", "GA", "30336", 33.75, -84.39},
    {"BAK", "Bakersfield", "CA", "93307", 35.37, -119.02},
    {"BAL", "Baltimore", "MD", "21224", 39.29, -76.61},
    {"BIL", "Billings", "MT", "59101", 45.78, -108.50},
    {"BIR", "Birmingham", "AL", "35217", 33.52, -86.80},
    {"BOI", "Boise", "ID", "83705", 43.62, -116.20},
    {"BUF", "Buffalo", "NY", "14206", 42.89, -78.88},
    {"CHA", "Charlotte", "NC", "28208", 35.23, -80.84},
    {"CHE", "Cheyenne", "WY", "82007", 41.14, -104.82},
    {"CHI", "Chicago", "IL", "60632", 41.88, -87.63},
    {"CIN", "Cincinnati", "OH", "45241", 39.10, -84.51},
    {"CLE", "Cleveland", "OH", "44135", 41.50, -81.69},
    {"COL", "Columbus", "OH", "43207", 39.96, -83.00},
    {"DAL", "Dallas", "TX", "75212", 32.78, -96.80},
    {"DEN", "Denver", "CO", "80216", 39.74, -104.99},
    {"DET", "Detroit", "MI", "48209", 42.33, -83.05},
    {"DOD", "Dodge City", "KS", "67801", 37.75, -100.02},
    {"DSM", "Des Moines", "IA", "50317", 41.59, -93.62},
    {"ELP", "El Paso", "TX", "79928", 31.76, -106.49},
    {"FAR", "Fargo", "ND", "58102", 46.88, -96.79},
    {"FRE", "Fresno", "CA", "93725", 36.74, -119.79},
    {"GRB", "Green Bay", "WI", "54302", 44.51, -88.01},
    {"GRI", "Grand Island", "NE", "68801", 40.92, -98.34},
    {"GSO", "Greensboro", "NC", "27409", 36.07, -79.79},
    {"HAR", "Harrisburg", "PA", "17111", 40.27, -76.88},
    {"HOU", "Houston", "TX", "77029", 29.76, -95.37},
    {"IND", "Indianapolis", "IN", "46241", 39.77, -86.16},
    {"JAC", "Jackson", "MS", "39208", 32.30, -90.18},
    {"JAX", "Jacksonville", "FL", "32254", 30.33, -81.66},
    {"JOP", "Joplin", "MO", "64801", 37.08, -94.51},
    {"KNX", "Knoxville", "TN", "37921", 35.96, -83.92},
    {"LAR", "Laredo", "TX", "78045", 27.51, -99.51},
    {"LAS", "Las Vegas", "NV", "89115", 36.17, -115.14},
    {"LIT", "Little Rock", "AR", "72206", 34.75, -92.29},
    {"LOS", "Los Angeles", "CA", "90058", 34.05, -118.24},
    {"LOU", "Louisville", "KY", "40213", 38.25, -85.76},
    {"LUB", "Lubbock", "TX", "79404", 33.58, -101.86},
    {"MEM", "Memphis", "TN", "38118", 35.15, -90.05},
    {"MIN", "Minneapolis", "MN", "55413", 44.98, -93.27},
    {"MOB", "Mobile", "AL", "36608", 30.69, -88.04},
    {"NAS", "Nashville", "TN", "37210", 36.16, -86.78},
    {"OKC", "Oklahoma City", "OK", "73128", 35.47, -97.52},
    {"OMA", "Omaha", "NE", "68110", 41.26, -95.93},
    {"PHX", "Phoenix", "AZ", "85043", 33.45, -112.07},
    {"PIT", "Pittsburgh", "PA", "15205", 40.44, -80.00},
    {"POR", "Portland", "OR", "97210", 45.52, -122.68},
    {"RIC", "Richmond", "VA", "23231", 37.54, -77.44},
    {"SAC", "Sacramento", "CA", "95828", 38.58, -121.49},
    {"SAN", "San Antonio", "TX", "78219", 29.42, -98.49},
    {"SAV", "Savannah", "GA", "31408", 32.08, -81.09},
    {"SEA", "Seattle", "WA", "98108", 47.61, -122.33},
    {"SFD", "Sioux Falls", "SD", "57104", 43.55, -96.73},
    {"SLC", "Salt Lake City", "UT", "84104", 40.76, -111.89},
    {"SPO", "Spokane", "WA", "99212", 47.66, -117.43},
    {"STL", "St. Louis", "MO", "63147", 38.63, -90.20},
    {"TUC", "Tucson", "AZ", "85714", 32.22, -110.97},
    {"TUL", "Tulsa", "OK", "74116", 36.15, -95.99},
    {"WIC", "Wichita", "KS", "67219", 37.69, -97.34},
});

constexpr int docksPerCity = 2;

constexpr auto dockNames =
    std::to_array({"Cold Storage", "Produce Terminal", "Packing Plant", "Food Warehouse",
                   "Distribution Center", "Steel Yard", "Lumber Yard", "Freight Terminal"});
constexpr auto streets = std::to_array(
    {"Industrial Blvd", "Commerce St", "Warehouse Rd", "Railroad Ave", "Airport Rd", "Depot St"});
constexpr auto notes = std::to_array({"", "", "", "Check in at gate 2.", "No overnight parking.",
                                      "Appointment required.", "Call one hour out."});

template <typename Texts>
QString drawn(const Texts &texts, SampleDraw &draw)
{
    return QString::fromLatin1(
        texts[static_cast<size_t>(draw.between(0, static_cast<int>(texts.size()) - 1))]);
}

SampleLocation dockIn(const City &city, int number, SampleDraw &draw)
{
    SampleLocation dock;
    dock.code = QString::fromLatin1(city.code) + "-0"_L1 + QString::number(number);
    dock.city = QString::fromLatin1(city.name);
    dock.state = QString::fromLatin1(city.state);
    dock.zip = QString::fromLatin1(city.zip);
    dock.name = dock.city + u' ' + drawn(dockNames, draw);
    dock.street = QString::number(draw.between(1, 99) * 100) + u' ';
    dock.street += drawn(streets, draw);
    dock.latitude = roundTo(city.latitude + draw.between(-40, 40) / 1000.0, 4);
    dock.longitude = roundTo(city.longitude + draw.between(-40, 40) / 1000.0, 4);
    dock.notes = drawn(notes, draw);
    return dock;
}

} // namespace

QList<SampleLocation> sampleLocations(SampleDraw &draw)
{
    QList<SampleLocation> locations;
    for (const City &city : cities) {
        for (int number = 1; number <= docksPerCity; ++number)
            locations.append(dockIn(city, number, draw));
    }
    return locations;
}

// The map is taken as flat, with degrees of longitude that shorten evenly from 60 miles in the Gulf
// to 49 in the north; roads are a sixth longer. Only a square root is needed, which every
// processor rounds alike.
int roadMiles(const SampleLocation &from, const SampleLocation &to)
{
    const double latitude = (from.latitude + to.latitude) / 2.0;
    const double north = 69.0 * (to.latitude - from.latitude);
    const double east = (81.8 - 0.733 * latitude) * (to.longitude - from.longitude);
    const double miles = std::sqrt(north * north + east * east) * 7.0 / 6.0;
    return std::max(1, static_cast<int>(roundTo(miles, 0)));
}

qsizetype locationAtDistance(const QList<SampleLocation> &locations, qsizetype from,
                             int wantedMiles)
{
    qsizetype best = from;
    int bestError = 0;
    for (qsizetype i = 0; i < locations.size(); ++i) {
        const int error = std::abs(roadMiles(locations.at(from), locations.at(i)) - wantedMiles);
        if (i != from && (best == from || error < bestError)) {
            best = i;
            bestError = error;
        }
    }
    return best;
}
