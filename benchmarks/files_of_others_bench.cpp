// Reading the large files that users bring along: the list of all summits, and a long log of either kind.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "memory_files.h"
#include "needs/log_file.h"
#include "places/summits_list.h"

namespace brelwin::benchmarks {
namespace {

constexpr int SummitCount = 180'000;
constexpr int ContactCount = 100'000;

std::string Number(int number, std::size_t digits) {
  const auto text = std::to_string(number);
  return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string SummitCode(int number) {
  return "W" + std::to_string(number / 20000) + "/XY-" + Number(number % 1000, 3);
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
