#include "console/spot_printer.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "base/text.h"

namespace brelwin {
namespace {

bool IsControl(char byte) {
  return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

}  // namespace

SpotPrinter::SpotPrinter(Screen& screen, PrintLine print) : screen_(screen), print_(std::move(print)) {
  PrintLines(screen_.Spots.lblSpotListHeader.Caption.Get());
  FollowCaption(screen_.Spots.lblSpotListHeader);
  FollowCaption(screen_.Spots.lblStatus);
  FollowCaption(screen_.RBN.lblRBNStatus);
  FollowCaption(screen_.RBN.lblUnmatchedSpot);
  FollowGateway();
  FollowLabels();
  watches_.push_back(screen_.Spots.txtSPOTList.Text.WhenChanged([this] { PrintList(); }));
}

void SpotPrinter::FollowCaption(Label& label) {
  watches_.push_back(label.Caption.WhenChanged([this, &label] { PrintLines(label.Caption.Get()); }));
}

void SpotPrinter::FollowGateway() {
  auto& tab = screen_.Gateway;
  for (Label* label : {&tab.lblGatewayState, &tab.lblGatewayLoginWarning, &tab.lblGatewayAddressWarning,
                       &tab.lblGatewayTemplateWarning})
    FollowCaption(*label);
  watches_.push_back(tab.lstGatewayJournal.Items.WhenChanged([this] { PrintDecisions(); }));
}

void SpotPrinter::FollowLabels() {
  auto& spots = screen_.Spots;
  for (Label* label : {&spots.lblCheckingForSpots, &spots.lblNoConnectionToTwitter,
                       &spots.lblNoSotawatchConnection, &spots.lblNoConnectionToRBN})
    watches_.push_back(label->Visible.WhenChanged([this, label] {
      if (label->Visible) PrintLines(label->Caption.Get());
    }));
}

void SpotPrinter::PrintList() {
  const auto& list = screen_.Spots.txtSPOTList;
  if (list.Text.Get().empty()) return;
  if (list.Spots.empty())
    PrintText(list.Text.Get());
  else
    PrintSpots(list.Text.Get());
}

void SpotPrinter::PrintText(std::string_view text) {
  if (text == lastText_) return;
  lastText_ = text;
  PrintLines(text);
}

void SpotPrinter::PrintSpots(std::string_view text) {
  const auto lines = SplitLines(text);
  const auto& spots = screen_.Spots.txtSPOTList.Spots;
  const std::unordered_set<std::shared_ptr<const Spot>> known(shown_.begin(), shown_.end());
  for (auto row = std::min(lines.size(), spots.size()); row-- > 0;)
    if (!known.contains(spots[row])) Print(lines[row]);
  shown_ = spots;
}

// The journal has the newest decision first.
void SpotPrinter::PrintDecisions() {
  const auto& decisions = screen_.Gateway.lstGatewayJournal.Items.Get();
  for (auto line = std::ranges::find(decisions, lastDecision_); line != decisions.begin();)
    Print("Gateway: " + *--line);
  if (!decisions.empty()) lastDecision_ = decisions.front();
}

void SpotPrinter::PrintLines(std::string_view text) const {
  for (const auto line : SplitLines(text)) Print(line);
}

void SpotPrinter::Print(std::string_view line) const {
  std::string printable(line);
  std::replace_if(printable.begin(), printable.end(), IsControl, ' ');
  print_(printable);
}

}  // namespace brelwin
