// Reading an alerts page into alerts: what a refresh of the announcements costs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <tuple>
#include <unordered_set>

#include "alerts/alerts_page.h"
#include "alerts_page_text.h"
#include "base/encoding.h"
#include "plain_alerts_reader.h"
#include "taking.h"
#include "test_host.h"

namespace brelwin::benchmarks {
namespace {

constexpr std::size_t RowsADay = 500;
constexpr std::size_t RowsAStation = 4;

std::string StationOfRow(std::size_t row) {
  const auto number = row / RowsAStation;
  const auto letter = [number](std::size_t power) { return static_cast<char>('A' + number / power % 26); };
  return "G" + std::to_string(number % 10) + letter(10) + letter(260) + letter(6760) + "/P";
}

// Every twentieth row has a window of its own, every fiftieth is withdrawn, one in three has an entity.
test::PageAlert MakeRow(std::size_t row) {
  test::PageAlert alert;
  alert.Time = std::to_string(10 + row % 14) + ":" + std::to_string(10 + row % 50);
  alert.Callsign = StationOfRow(row);
  alert.Summit = "G/LD-" + std::to_string(100 + row % 900);
  alert.Comment = std::to_string(row) + " caf\xC3\xA9 first, QSY to 2 m on request";
  if (row % 3 == 0) alert.Comment += " &amp; &quot;S2S&quot;";
  if (row % 20 == 0) alert.Comment += " S+2";
  if (row % 50 == 7) alert.Comment += " cancelled";
  return alert;
}

// The rows lie within the next days, so that the entries of the modifications file are live.
std::string MakePage(std::size_t rows) {
  std::string page;
  for (std::size_t row = 0; row < rows; ++row) {
    if (row % RowsADay == 0)
      page += test::Heading("Wednesday " + std::to_string(25 + row / RowsADay % 6) + "th November 2026");
    page += test::Table(MakeRow(row));
  }
  return page;
}

std::unordered_set<std::string> StationsWithLongWindow() {
  std::unordered_set<std::string> stations;
  for (std::size_t row = 0; row < 1000; row += 10) stations.insert(BaseOf(StationOfRow(row)));
  return stations;
}

// The files as a refresh finds them: windows for some stations, and entries of the refresh before.
void PutFiles(test::TestHost& host) {
  std::string overrides;
  for (const auto& station : StationsWithLongWindow())
    overrides += "[" + station + "]\nMaxMinutesAfterAlertTime=120\n";
  host.Disk.Put("/brelwin/SOTAAlertDurationOverrides.ini", overrides);
}

void ReadAlertsPage(benchmark::State& state) {
  const auto page = MakePage(static_cast<std::size_t>(state.range(0)));
  test::TestHost host;
  PutFiles(host);
  AlertCollection alerts;
  CallsignCollection known;
  std::string errorText;
  for (auto _ : state) {
    const auto text = TextFromBytes(page);
    TakeAlertsFromPage(host.World, text, page.size(), {"", 60, 0}, alerts, known, errorText);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}
BENCHMARK(ReadAlertsPage)->Arg(100)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

auto FieldsOf(const SOTAAlert& alert) {
  return std::tie(alert.AlertKey, alert.AnnouncedCallsign, alert.Comment, alert.FrequencyModes, alert.ID,
                  alert.IsSelfSpotAlert, alert.LocalDateAndTimeRetrieved, alert.MaxMinutesBeforeAlertTime,
                  alert.MaxMinutesAfterAlertTime, alert.OperatorName, alert.Spotter, alert.Station,
                  alert.stationBaseCallsign, alert.SummitDesignator, alert.SummitName,
                  alert.SummitElevationInMeters, alert.SummitElevationInFeet, alert.SummitPoints,
                  alert.SummitDescription, alert.UTCAlertDateStr, alert.UTCAlertDate,
                  alert.UTCAlertDateAndTime, alert.UTCAlertTimeStr, alert.UTCAlertTime);
}

bool AreSame(const AlertPointer& left, const AlertPointer& right) {
  return FieldsOf(*left) == FieldsOf(*right);
}

bool AreSameAlerts(const AlertCollection& left, const AlertCollection& right) {
  const auto& one = left.All();
  const auto& other = right.All();
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](const auto& a, const auto& b) { return AreSame(a.Item.Alert, b.Item.Alert); }) &&
         left.Stations().Count() == right.Stations().Count() &&
         left.AllWithdrawn().size() == right.AllWithdrawn().size() &&
         std::ranges::all_of(left.AllWithdrawn(), [&](const auto& station) {
           return std::ranges::equal(station.second, right.WithdrawnOf(station.first),
                                     [](const auto& a, const auto& b) { return AreSame(a.Alert, b.Alert); });
         });
}

// Whether both are what reading the page gives.
bool AreOfPage(const PlainAlerts& read, std::string_view page, test::TestHost& host) {
  AlertCollection expected;
  CallsignCollection known;
  std::string errorText;
  TakeAlertsFromPage(host.World, TextFromBytes(page), page.size(), {"", 60, 0}, expected, known, errorText);
  return AreSameAlerts(read.Alerts, expected) &&
         host.Disk.Read("/brelwin/SOTAAlertModifications.txt") == read.Modifications;
}

// The same alerts by code that knows this one page.
void ReadAlertsPageFloor(benchmark::State& state) {
  const auto page = MakePage(static_cast<std::size_t>(state.range(0)));
  const auto withLongWindow = StationsWithLongWindow();
  test::TestHost host;
  PutFiles(host);
  CallsignCollection known;
  if (!AreOfPage(ReadMadeAlerts(page, withLongWindow, host.World, known), page, host))
    state.SkipWithError("the floor makes other alerts");
  for (auto _ : state) benchmark::DoNotOptimize(ReadMadeAlerts(page, withLongWindow, host.World, known));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}
BENCHMARK(ReadAlertsPageFloor)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
