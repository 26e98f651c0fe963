// What holds of alerts whatever comes over the wire or stands in a file. The fuzzers try it with any bytes,
// the tests with seeded ones.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "alerts/alerts_page_reader.h"
#include "alerts/modifications.h"
#include "base/encoding.h"
#include "base/text.h"
#include "radio/dates.h"
#include "test_host.h"

namespace brelwin::test {

inline bool IsOneLine(std::string_view text) {
  return text.find_first_of("\r\n") == std::string_view::npos;
}

inline std::vector<AnnouncedActivation> ActivationsOf(std::string_view page) {
  std::vector<AnnouncedActivation> activations;
  ReadAlertsPage(page, {}, [&](AnnouncedActivation&& taken) { activations.push_back(std::move(taken)); });
  return activations;
}

// A page that is cut anywhere announces the first activations of the whole one, each with texts that fit a
// line.
inline bool CutPageAnnouncesFirstAlerts(std::string_view page, std::size_t cut) {
  const auto whole = ActivationsOf(page);
  const auto first = ActivationsOf(page.substr(0, cut));
  const auto isSame = [](const AnnouncedActivation& a, const AnnouncedActivation& b) {
    const auto line = DelimitedData(a.Alert);
    return line == DelimitedData(b.Alert) && a.Stations == b.Stations && IsOneLine(a.Alert.Comment) &&
           IsOneLine(a.Alert.SummitDescription);
  };
  return first.size() <= whole.size() && std::equal(first.begin(), first.end(), whole.begin(), isSame);
}

// The line has the fields that an alert has, whatever they hold, and reads back with the alert's key and
// window; its entry is one line. The texts are cut out of the bytes at each NUL.
inline bool DelimitedDataReadsBack(std::string_view bytes) {
  auto texts = Split(bytes, std::string_view("\0", 1));
  texts.resize(9);
  SOTAAlert alert;
  if (const auto time = ReadDateTime(texts[0])) SetAlertDateAndTime(alert, *time);
  alert.UTCAlertTimeStr = alert.UTCAlertDateAndTime ? texts[1] : std::string_view();
  alert.Station = texts[2];
  alert.SummitDesignator = texts[3];
  alert.OperatorName = texts[4];
  alert.Comment = texts[5];
  alert.Spotter = texts[6];
  alert.FrequencyModes = texts[7];
  alert.AlertKey = texts[8];
  alert.MaxMinutesAfterAlertTime = static_cast<std::int32_t>(bytes.size());
  alert.MaxMinutesBeforeAlertTime = 30;
  const auto line = DelimitedData(alert);
  SOTAAlert rebuilt;
  return SetDelimitedData(rebuilt, line) && DelimitedData(rebuilt) == line &&
         Split(line, DataDelimiter()).size() == 13 && rebuilt.ID == DelimitedField(alert.AlertKey) &&
         rebuilt.MaxMinutesBeforeAlertTime == 30 &&
         rebuilt.MaxMinutesAfterAlertTime == alert.MaxMinutesAfterAlertTime &&
         IsOneLine(ModificationLine(ModificationCommand::Add, alert));
}

// A modifications file of any bytes is cleaned once: what is written reads back the same, and every line of
// it was a line before. (A byte-order mark that comes to stand in front is no part of the text any more.)
inline bool ModificationsReadBack(std::string_view bytes) {
  constexpr std::string_view File = "/brelwin/SOTAAlertModifications.txt";
  TestHost host;
  host.Disk.Put(File, std::string(bytes));
  const auto rewrite = [&host] {
    return Modifications::Load(host.World, "", UTCNow(host.Time), 60).Save(host.World);
  };
  if (!rewrite()) return false;
  const auto cleaned = host.Disk.Text(File);
  const auto before = "\n" + TextFromBytes(bytes);
  const auto lines = SplitLines(cleaned);
  return std::ranges::all_of(lines, [&](std::string_view line) { return Contains(before, line); }) &&
         rewrite() && (host.Disk.Text(File) == cleaned || cleaned.starts_with("\xEF\xBB\xBF"));
}

}  // namespace brelwin::test
