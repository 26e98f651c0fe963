// Where places are: locators, paths, the map, the sun, the summit list and the country list.
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "base/text.h"
#include "places/coast.h"
#include "places/country_list.h"
#include "places/great_circle.h"
#include "places/locator.h"
#include "places/map_projection.h"
#include "places/summits_list.h"
#include "places/sun.h"
#include "places_properties.h"
#include "radio/dates.h"
#include "random_text.h"

namespace brelwin {
namespace {

// Text, the locator of its place.
TEST(Places, AreReadFromLocatorsAndCoordinates) {
  for (const auto line : Split("IN80|IN80mm\n in80dk |IN80dk\nIN80dk25|IN80dk\nRE78jr|RE78jr\nAA00|AA00mm\n"
                               "RR99xx99|RR99xx\n40.4, -3.7|IN80dj\n40.4N,3.7W|IN80dj\n-41.3,174.8|RE78jq\n"
                               "90,180|RR99xx\nIN8|\nIN80d|\nIN80zz|\nSA00|\nIN80dk251|\n91,0|\n0,181|\n"
                               "40.4|\n40.4,|\n40.4,x|\nnan,0|\n|\nÄÖ80|",
                               "\n")) {
    const auto parts = Split(line, "|");
    const auto place = ReadPlace(parts[0]);
    EXPECT_EQ(place ? LocatorText(*place) : "", parts[1]) << line;
  }
}

// The long way ends where the short way does, from the other side.
TEST(Paths, GoTheShortAndTheLongWay) {
  const GeoPoint madrid{40, -4};
  const GeoPoint wellington{-41.3, 174.8};
  EXPECT_EQ(PathText(madrid, {51.5, 0}), "1315 km at 12°, long path 38715 km at 192°");
  EXPECT_EQ(PathText(madrid, {40, -4}), "0 km at 0°, long path 40030 km at 180°");
  EXPECT_EQ(PathText({0, 179}, {0, -179}), "222 km at 90°, long path 39808 km at 270°");
  EXPECT_GT(DistanceInKm(madrid, wellington), 19700);
  EXPECT_LT(DistanceInKm(madrid, wellington), LongDistanceInKm(madrid, wellington));
}

// Distances and bearings from the centre are those of the great circle, and every point leads back.
TEST(Map, IsTrueFromItsCentre) {
  for (const GeoPoint center : {GeoPoint{40, -4}, GeoPoint{-41.3, 174.8}, GeoPoint{90, 0}}) {
    const MapProjection map(center);
    for (const GeoPoint place : {GeoPoint{51.5, 0}, GeoPoint{-33.9, 18.4}, GeoPoint{0, 179.9}, center}) {
      const auto point = map.Project(place);
      EXPECT_NEAR(std::hypot(point.East, point.North), DistanceInKm(center, place), 1e-6);
      const auto back = map.PlaceAt(point);
      ASSERT_TRUE(back);
      EXPECT_NEAR(DistanceInKm(*back, place), 0, 1e-6);
    }
    EXPECT_FALSE(map.PlaceAt({MapRadiusInKm, 1000}));
  }
  EXPECT_GT(MapProjection({40, -4}).Project(GeoPoint{40, 10}).East, 1000);
}

struct KnownPlace {
  std::string_view Name;
  GeoPoint Place;
  bool IsLand;
};

// Also where the antipode of the centre is on land, on the date line, and on the line of an edge.
TEST(Map, TellsLandFromSea) {
  const KnownPlace places[] = {
      {"Madrid", {40.4, -3.7}, true},          {"Palmerston North", {-40.35, 175.6}, true},
      {"Christchurch", {-43.5, 172.3}, true},  {"Denver", {39.7, -105}, true},
      {"Moscow", {55.75, 37.6}, true},         {"Chita", {52, 113.5}, true},
      {"Alice Springs", {-23.7, 133.9}, true}, {"Brasilia", {-15.8, -47.9}, true},
      {"Nairobi", {-1.3, 36.8}, true},         {"Vostok", {-78.5, 106.8}, true},
      {"South pole", {-90, 0}, true},          {"Chukotka", {67, 180}, true},
      {"Greenland", {72, -40}, true},          {"Mid Atlantic", {30, -40}, false},
      {"Bay of Biscay", {45.5, -5}, false},    {"Tasman Sea", {-38, 162}, false},
      {"South Pacific", {-45, -120}, false},   {"Date line", {0, 180}, false},
      {"Indian Ocean", {-30, 80}, false},      {"Caspian Sea", {42, 50.5}, false},
      {"North pole", {90, 0}, false},          {"Hudson Bay", {60, -86}, false}};
  for (const GeoPoint center :
       {GeoPoint{40, -4}, GeoPoint{-41.3, 174.8}, GeoPoint{-23.7, -46}, GeoPoint{0, 0}, GeoPoint{-66, 0},
        GeoPoint{90, 0}, GeoPoint{-90, 0}, GeoPoint{16.07, 0}}) {
    const MapProjection map(center);
    const auto land = AreaOnMap(map, Coast(), VectorOf({90, 0}));
    for (const auto& known : places)
      EXPECT_EQ(IsInArea(land, map.Project(known.Place)), known.IsLand)
          << known.Name << " from " << center.Latitude << ", " << center.Longitude;
  }
}

// Equinox and solstice within a twentieth of a degree, and the night on the other side of the grey line.
TEST(Sun, StandsOverTheRightPlace) {
  const std::pair<std::string_view, GeoPoint> suns[] = {
      {"2026-03-20 14:46:00", {0, -39.7}},       // equinox
      {"2026-06-21 08:24:00", {23.436, 54.45}},  // solstice
      {"2026-11-03 11:43:36", {-15.144, 0}},     // the sun is 16.4 minutes early
  };
  for (const auto& [time, place] : suns) {
    const auto sun = SubsolarPoint(*ReadDateTime(time));
    EXPECT_NEAR(sun.Latitude, place.Latitude, 0.05) << time;
    EXPECT_NEAR(sun.Longitude, place.Longitude, 0.1) << time;
    for (const GeoPoint center : {GeoPoint{40, -4}, GeoPoint{-41.3, 174.8}}) {
      const MapProjection map(center);
      const auto night = AreaOnMap(map, {GreyLine(sun)}, VectorOf(sun));
      EXPECT_FALSE(IsInArea(night, map.Project(sun)));
      EXPECT_TRUE(IsInArea(night, map.Project(GeoPoint{-sun.Latitude, sun.Longitude + 179})));
    }
  }
}

std::string RowText(const SummitRow& row) {
  const auto number = [](std::optional<int> value) { return value ? std::to_string(*value) : "-"; };
  const auto day = [](std::optional<DateTime> value) {
    return value ? DateTimeText(*value).substr(0, 10) : "-";
  };
  return std::string(row.Code) + "|" + std::string(row.Name) + "|" + number(row.AltitudeInMeters) + "|" +
         (row.Place ? LocatorText(*row.Place) : "-") + "|" + std::to_string(row.Points) + "|" +
         day(row.ValidFrom) + "|" + day(row.ValidTo) + "|" + std::to_string(row.ActivationCount) + "|" +
         day(row.LastActivated) + "|" + std::string(row.LastActivator);
}

TEST(SummitsList, IsReadByTheNamesOfItsColumns) {
  std::string rows;
  const auto result = ReadSummitsList(
      "SOTA Summits List (Date=26/11/2026)\r\n"
      "SummitCode,AssociationName,RegionName,SummitName,AltM,AltFt,GridRef1,GridRef2,Longitude,Latitude,"
      "Points,"
      "BonusPoints,ValidFrom,ValidTo,ActivationCount,ActivationDate,ActivationCall\r\n"
      "G/LD-003,England,Lake District,\"Helvellyn, \"\"the\"\" top\",950,3117,NY 342151,,-3.0164,54.5275,8,3,"
      "02/03/2002,31/12/2099,412,2026-11-20,G4ABC/P\r\n"
      "no code,England,,Nowhere,1,3,,,0,0,1,0,,,0,,\r\n"
      "\r\n"
      "OE/TI-123,Austria,Tirol,Gro\xDF"
      "er Kamp,2001,6565,,,11.5,,10,3,2005-01-01,31/02/2099,x,,\r\n"
      "XX/YY-001,,,Off earth,,,,,200,95,,,,,,,\r\n"
      "G/LD-004,England,,Cut,1,3,,,-3.0,5",
      [&](const SummitRow& row) { rows += RowText(row) + "\n"; });
  EXPECT_EQ(rows,
            "G/LD-003|Helvellyn, \"the\" top|950|IO84lm|8|2002-03-02|2099-12-31|412|2026-11-20|G4ABC/P\n"
            "OE/TI-123|Großer Kamp|2001|-|10|2005-01-01|-|0|-|\n");
  EXPECT_EQ(result.RowCount, 2U);
  EXPECT_EQ(result.Faults.Named,
            (std::vector<std::string>{"line 4: no summit code", "line 7: a place that is not on earth",
                                      "line 8: fewer columns than the header"}));
  const auto other = ReadSummitsList("<html>\nno such list\n", [](const SummitRow&) { FAIL(); });
  EXPECT_EQ(other.ErrorText, "no header line with the columns SummitCode and SummitName");
}

constexpr std::string_view CountryFile =
    "Fed. Rep. of Germany:     14:  28:  EU:   51.00:   -10.00:    -1.0:  DL:\r\n"
    "    DA,DB,DL,=DL0XX(15)[29]<48.0/-12.5>;\r\n"
    "Canary Islands:           33:  36:  AF:   28.32:    15.85:     0.0:  EA8:\r\n    AM8,EA8;\r\n"
    "England:                  14:  27:  EU:   52.77:     1.47:     0.0:  G:\r\n    G,M,2E;\r\n"
    "United States:            05:  08:  NA:   37.53:    91.67:     5.0:  K:\r\n"
    "    K,N,W,AA,K7(3)[6]<43.0/117.0>,W7(3)[6]<43.0/117.0>{NA}~8.0~,=KH6ABC;\r\n"
    "Hawaii:                   31:  61:  OC:   21.12:   157.48:    10.0:  KH6:\r\n    KH6;\r\n"
    "Guantanamo Bay:           08:  11:  NA:   20.00:    75.00:     5.0:  KG4:\r\n    KG4;\r\n"
    "broken:record;\r\n"
    "Sicily:                   15:  28:  EU:   37.50:   -14.00:    -1.0:  *IT9:\r\n    IT9,I?9;\r\n";

// Callsign, country and longitude: west is negative here.
TEST(Countries, AreFoundByCallsign) {
  const CountryList list(CountryFile);
  for (const auto line :
       Split("DL1ABC|Fed. Rep. of Germany EU 10\nDL0XX|Fed. Rep. of Germany EU 12\n"
             "dl1abc/p|Fed. Rep. of Germany EU 10\nG4ABC-#|England EU -1\nM/DL1ABC|England EU -1\n"
             "EA8/G4ABC|Canary Islands AF -15\nG4ABC/EA8/P|Canary Islands AF -15\n"
             "W1AW|United States NA -91\nW1AW/7|United States NA -117\nG4ABC/MM|\n"
             "KH6ABC|United States NA -91\nKH6XX-2|Hawaii OC -157\nKG4AB|Guantanamo Bay NA -75\n"
             "KG4ABC|United States NA -91\nIT9ABC|Sicily EU 14\nXX1ABC|\n|\n/|",
             "\n")) {
    const auto parts = Split(line, "|");
    const auto* country = list.Find(parts[0]);
    const auto text = country == nullptr ? ""
                                         : country->Name + " " + country->Continent + " " +
                                               std::to_string(static_cast<int>(country->Place.Longitude));
    EXPECT_EQ(text, parts[1]) << line;
  }
  EXPECT_EQ(list.Faults().Named,
            (std::vector<std::string>{"line 13: no country record", "line 14: a broken prefix"}));
  EXPECT_EQ(CountryList(CountryFile.substr(0, 300)).Faults().Count, 1U);
}

TEST(PlaceFiles, OfAnyBytesAreRead) {
  test::RandomText countries(
      1, {"K:", "5:", "NA:", "37.5:", "91.6:", ";", ",", "W7", "<43/117>", "{OC}", "=", "(", "\n"});
  test::RandomText summits(
      2, {"SummitCode,SummitName,Latitude,Longitude\n", "G/LD-003", ",", "\"", "54.5", "\n", "999", "\xFC"});
  for (int i = 0; i < 2000; ++i) {
    EXPECT_TRUE(test::CountriesAreOnEarth(countries.Next(30), "W7ABC/P"));
    EXPECT_TRUE(test::CutListGivesItsFirstSummits(summits.Next(30), static_cast<std::size_t>(i) % 60));
  }
}

}  // namespace
}  // namespace brelwin
