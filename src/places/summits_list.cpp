#include "places/summits_list.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/csv_fields.h"
#include "base/encoding.h"
#include "base/text.h"
#include "radio/day_text.h"

namespace brelwin {
namespace {

enum class Column : std::uint8_t {
  SummitCode,
  AssociationName,
  RegionName,
  SummitName,
  AltM,
  AltFt,
  GridRef1,
  GridRef2,
  Longitude,
  Latitude,
  Points,
  BonusPoints,
  ValidFrom,
  ValidTo,
  ActivationCount,
  ActivationDate,
  ActivationCall
};

constexpr std::array<std::string_view, 17> ColumnNames{
    "SummitCode", "AssociationName", "RegionName",      "SummitName",     "AltM",          "AltFt",
    "GridRef1",   "GridRef2",        "Longitude",       "Latitude",       "Points",        "BonusPoints",
    "ValidFrom",  "ValidTo",         "ActivationCount", "ActivationDate", "ActivationCall"};

constexpr std::size_t NoColumn = static_cast<std::size_t>(-1);

// A title is one line; a few more before the header do no harm.
constexpr std::size_t MostLinesBeforeHeader = 10;

using Fields = std::vector<std::string_view>;

class Header {
 public:
  explicit Header(const Fields& fields) : fieldCount_(fields.size()) {
    for (std::size_t column = 0; column < ColumnNames.size(); ++column)
      positions_[column] = PositionOf(fields, ColumnNames[column]);
  }

  bool IsComplete() const { return Has(Column::SummitCode) && Has(Column::SummitName); }

  // A line that was cut has fewer.
  std::size_t FieldCount() const { return fieldCount_; }

  // Empty when there is no such column.
  std::string_view Value(const Fields& fields, Column column) const {
    const auto position = positions_[static_cast<std::size_t>(column)];
    return position < fields.size() ? Trim(fields[position]) : std::string_view{};
  }

 private:
  static std::size_t PositionOf(const Fields& fields, std::string_view name) {
    const auto found = std::ranges::find_if(
        fields, [name](std::string_view field) { return EqualsIgnoringCase(Trim(field), name); });
    return found == fields.end() ? NoColumn : static_cast<std::size_t>(found - fields.begin());
  }

  bool Has(Column column) const { return positions_[static_cast<std::size_t>(column)] != NoColumn; }

  std::array<std::size_t, ColumnNames.size()> positions_{};
  std::size_t fieldCount_;
};

std::optional<double> ReadNumber(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// Heights below the sea and decimals occur; nothing on earth needs more than five digits.
std::optional<int> ReadHeight(std::string_view text) {
  const auto height = ReadNumber(text);
  if (!height || std::abs(*height) > 99999) return std::nullopt;
  return static_cast<int>(std::lround(*height));
}

std::optional<GeoPoint> ReadPoint(std::string_view latitudeText, std::string_view longitudeText) {
  const auto latitude = ReadNumber(latitudeText);
  const auto longitude = ReadNumber(longitudeText);
  if (!latitude || !longitude) return std::nullopt;
  return GeoPoint{*latitude, *longitude};
}

bool IsOnEarth(GeoPoint point) {
  return std::abs(point.Latitude) <= 90 && std::abs(point.Longitude) <= 180;
}

SummitRow RowOf(const Header& header, const Fields& fields) {
  const auto value = [&](Column column) { return header.Value(fields, column); };
  return {.Code = value(Column::SummitCode),
          .Association = value(Column::AssociationName),
          .Region = value(Column::RegionName),
          .Name = value(Column::SummitName),
          .GridReference1 = value(Column::GridRef1),
          .GridReference2 = value(Column::GridRef2),
          .AltitudeInMeters = ReadHeight(value(Column::AltM)),
          .AltitudeInFeet = ReadHeight(value(Column::AltFt)),
          .Place = ReadPoint(value(Column::Latitude), value(Column::Longitude)),
          .Points = ReadDigits(value(Column::Points)).value_or(0),
          .BonusPoints = ReadDigits(value(Column::BonusPoints)).value_or(0),
          .ValidFrom = ReadDay(value(Column::ValidFrom)),
          .ValidTo = ReadDay(value(Column::ValidTo)),
          .ActivationCount = ReadDigits(value(Column::ActivationCount)).value_or(0),
          .LastActivated = ReadDay(value(Column::ActivationDate)),
          .LastActivator = value(Column::ActivationCall)};
}

// "G/LD-003": a slash, and behind it a hyphen.
bool IsSummitCode(std::string_view text) {
  const auto slash = text.find('/');
  const auto hyphen = text.rfind('-');
  return slash != std::string_view::npos && hyphen != std::string_view::npos && slash > 0 && hyphen > slash &&
         hyphen + 1 < text.size();
}

std::string_view FaultOf(const SummitRow& row) {
  if (!IsSummitCode(row.Code)) return "no summit code";
  if (row.Place && !IsOnEarth(*row.Place)) return "a place that is not on earth";
  return {};
}

// Looks for the header first, then hands over row after row.
class ListReader {
 public:
  explicit ListReader(const std::function<void(const SummitRow&)>& take) : take_(take) {}

  void Read(std::string_view line) {
    ++lineNumber_;
    if (Trim(line).empty()) return;
    const auto& fields = reader_.Read(line);
    if (header_) return TakeRow(fields);
    if (const Header candidate(fields); candidate.IsComplete()) header_ = candidate;
  }

  bool IsNoSuchList() const { return !header_ && lineNumber_ >= MostLinesBeforeHeader; }

  SummitsListResult Result() && {
    if (!header_) result_.ErrorText = "no header line with the columns SummitCode and SummitName";
    return std::move(result_);
  }

 private:
  void TakeRow(const Fields& fields) {
    if (fields.size() < header_->FieldCount())
      return result_.Faults.Add(lineNumber_, "fewer columns than the header");
    const auto row = RowOf(*header_, fields);
    const auto fault = FaultOf(row);
    if (!fault.empty()) return result_.Faults.Add(lineNumber_, fault);
    take_(row);
    ++result_.RowCount;
  }

  const std::function<void(const SummitRow&)>& take_;
  CsvFields reader_;
  std::optional<Header> header_;
  std::size_t lineNumber_ = 0;
  SummitsListResult result_;
};

}  // namespace

SummitsListResult ReadSummitsList(std::string_view bytes, const std::function<void(const SummitRow&)>& take) {
  const auto text = TextFromBytes(bytes);
  ListReader reader(take);
  for (const auto line : SplitLines(text)) {
    reader.Read(line);
    if (reader.IsNoSuchList()) break;
  }
  return std::move(reader).Result();
}

}  // namespace brelwin
