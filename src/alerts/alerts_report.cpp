#include "alerts/alerts_report.h"

#include "base/encoding.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/trap.h"

namespace brelwin {
namespace {

class AlertsReport {
 public:
  void AddAlert(const SOTAAlert& alert) {
    if (alert.UTCAlertDateStr != heading_) AddHeading(alert.UTCAlertDateStr);
    text_.append(alert.UTCAlertTimeStr).append(" ").append(alert.Station).append(" ");
    text_.append(alert.SummitDesignator);
    if (alert.IsSelfSpotAlert) {
      text_.append(" *Self-spot Alert* Self-spot");
    } else {
      AddSummit(alert.SummitDescription);
    }
    text_.append(" Comment: [").append(alert.Comment).append("] (Posted by ").append(alert.Spotter);
    text_.append(")").append(LineEnd);
  }

  const std::string& Text() const { return text_; }

 private:
  void AddHeading(const std::string& heading) {
    if (!heading_.empty()) text_.append(" ").append(LineEnd);
    text_.append("===== ").append(heading).append(" =====").append(LineEnd);
    heading_ = heading;
  }

  // A description too short to end in a figure keeps the word of the alert before it.
  void AddSummit(const std::string& description) {
    if (CharacterCount(description) >= 2) pointWord_ = description.ends_with('1') ? "point" : "points";
    text_.append(" ").append(description).append(" ").append(pointWord_);
  }

  std::string text_;
  std::string heading_;
  std::string_view pointWord_;
};

}  // namespace

std::string AlertsReportText(const AlertCollection& alerts) {
  AlertsReport report;
  for (const auto& entry : alerts.All()) report.AddAlert(*entry.Item.Alert);
  return report.Text();
}

bool WriteAlertsReport(Host& host, std::string_view path, const AlertCollection& alerts) {
  return TrapErrors(
      [&] {
        const auto file = path.empty() ? InProgramFolder(host, AlertsFile) : std::string(path);
        return host.Disk.Write(file, AlertsReportText(alerts), FileAccess::Everyone).Done();
      },
      false, [](const RuntimeError&) {});
}

}  // namespace brelwin
