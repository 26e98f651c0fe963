// Reading the large files that users bring along: the list of all summits, and a long log of either kind.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "around/summit_book.h"
#include "controls/screen.h"
#include "memory_files.h"
#include "needs/log_file.h"
#include "places/summits_list.h"
#include "platform/sqlite_activation_store.h"
#include "temporary_folder.h"
#include "test_host.h"

namespace brelwin::benchmarks {
namespace {

constexpr int SummitCount = 180'000;
constexpr int ContactCount = 100'000;

std::string Number(int number, std::size_t digits) {
  const auto text = std::to_string(number);
  return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string SummitCode(int number) {
  const auto region = std::string{static_cast<char>('A' + number / 1000 % 20), 'Y'};
  return "W" + std::to_string(number / 20000) + "/" + region + "-" + Number(number % 1000, 3);
}

// About 24 MB, as the database hands it out.
const std::string& SummitsList() {
  static const auto list = [] {
    std::string text =
        "SOTA Summits List (Date=26/11/2026)\n"
        "SummitCode,AssociationName,RegionName,SummitName,AltM,AltFt,GridRef1,GridRef2,Longitude,Latitude,"
        "Points,BonusPoints,ValidFrom,ValidTo,ActivationCount,ActivationDate,ActivationCall\n";
    for (int i = 0; i < SummitCount; ++i)
      text +=
          SummitCode(i) + ",\"USA, North\",Colorado Front Range,Mount Number " + std::to_string(i) +
          ",2500,8202,-105.1234,39.5678,-105.1234,39.5678,8,3,01/05/2010,31/12/2099,12,24/11/2026,W0ABC/P\n";
    return text;
  }();
  return list;
}

std::string Adif() {
  std::string text = "Made by a logger <EOH>\n";
  for (int i = 0; i < ContactCount; ++i)
    text +=
        "<CALL:7>W0ABC/P <QSO_DATE:8>20261124 <TIME_ON:4>1012 <BAND:3>20m <FREQ:6>14.062 <MODE:2>CW "
        "<NAME:5>J\xC3\xB6"
        "rg <RST_SENT:3>599 <SOTA_REF:9>" +
        SummitCode(i) + " <EOR>\n";
  return text;
}

std::string SotaCsv() {
  std::string text;
  for (int i = 0; i < ContactCount; ++i)
    text += "V2,G4XYZ,,24/11/26,1012,14MHz,CW,W0ABC/P," + SummitCode(i) + ",thanks\n";
  return text;
}

void ReadListOfSummits(benchmark::State& state) {
  const auto& list = SummitsList();
  for (auto _ : state) {
    std::size_t named = 0;
    const auto result = ReadSummitsList(list, [&](const SummitRow& row) { named += row.Place ? 1 : 0; });
    if (result.RowCount != SummitCount || named != SummitCount)
      state.SkipWithError("not every summit was read");
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(list.size()));
}
BENCHMARK(ReadListOfSummits)->Unit(benchmark::kMillisecond);

// Into the database, with the transactions and all that the window is served meanwhile.
void ImportListOfSummits(benchmark::State& state) {
  const test::TemporaryFolder folder;
  test::TestHost host;
  host.Disk.Put("/list.csv", SummitsList());
  SqliteActivationStore store(folder.In("brelwin.db"), host.Time);
  Host world{host.Time,  host.Queue,   host.Disk, host.Internet, host.Sockets, host.Sound,
             host.Shell, host.Dialogs, store,     "/brelwin",    false,        {}};
  PlacesTab tab;
  SummitBook book(world, tab.lblSummits);
  for (auto _ : state) book.Import("/list.csv");
  if (tab.lblSummits.Caption.Get() != std::to_string(SummitCount) + " summits")
    state.SkipWithError(tab.lblSummits.Caption.Get().c_str());
}
BENCHMARK(ImportListOfSummits)->Unit(benchmark::kMillisecond);

// What the start of the program costs: the summits of a full board are looked up.
void LookUpSummitsOfABoard(benchmark::State& state) {
  const test::TemporaryFolder folder;
  const test::TestClock clock;
  SqliteActivationStore store(folder.In("brelwin.db"), clock);
  std::vector<KeptSummit> summits;
  summits.reserve(SummitCount);
  for (int i = 0; i < SummitCount; ++i) summits.push_back({SummitCode(i), "Mount", 39.5, -105.1, 8, 12});
  store.BeginSummits();
  store.AddSummits(summits);
  store.EndSummits();
  std::vector<std::string> codes;
  for (int i = 0; i < SummitCount; i += SummitCount / 5000) codes.push_back(SummitCode(i));
  for (auto _ : state) {
    std::vector<KeptSummit> found;
    store.LoadSummits(codes, found);
    if (found.size() != codes.size()) state.SkipWithError("not every summit was found");
  }
}
BENCHMARK(LookUpSummitsOfABoard)->Unit(benchmark::kMillisecond);

void ReadLog(benchmark::State& state, const std::string& text) {
  test::MemoryFiles files;
  files.Put("log", text);
  for (auto _ : state) {
    LogFile log("log");
    log.Look(files);
    if (log.ContactCount() != ContactCount) state.SkipWithError("not every contact was read");
  }
}
BENCHMARK_CAPTURE(ReadLog, Adif, Adif())->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ReadLog, SotaCsv, SotaCsv())->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brelwin::benchmarks
