#include "console/spot_printer.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include "base/line_text.h"
#include "base/text.h"
#include "spots/spot_text.h"

namespace brelwin {
SpotPrinter::SpotPrinter(Screen& screen, PrintLine print) : screen_(screen), print_(std::move(print)) {
  PrintLines(screen_.Spots.lblSpotListHeader.Caption.Get());
  FollowCaption(screen_.Spots.lblSpotListHeader);
  FollowCaption(screen_.Spots.lblSettingsNotice);
  FollowCaption(screen_.Spots.lblStatus);
  FollowCaption(screen_.RBN.lblRBNStatus);
  FollowCaption(screen_.RBN.lblRBNStatus2);
  FollowCaption(screen_.RBN.lblAnnouncements);
  FollowCaption(screen_.RBN.lblUnmatchedSpot);
  FollowGateway();
  FollowLabels();
  watches_.push_back(screen_.Spots.txtSPOTList.Contents.WhenChanged([this] { PrintList(); }));
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
  for (Label* label :
       {&spots.lblCheckingForSpots, &spots.lblNoConnectionToTwitter, &spots.lblNoSotawatchConnection,
        &spots.lblNoConnectionToRBN, &spots.lblNoConnectionToRBN2, &spots.lblSpotsHidden})
    watches_.push_back(label->Visible.WhenChanged([this, label] {
      if (label->Visible) PrintLines(label->Caption.Get());
    }));
}

void SpotPrinter::PrintList() {
  const auto& contents = screen_.Spots.txtSPOTList.Contents.Get();
  if (const auto* text = std::get_if<std::string>(&contents))
    PrintText(*text);
  else
    PrintSpots(std::get<SpotRows>(contents));
}

void SpotPrinter::PrintText(std::string_view text) {
  if (text.empty() || text == lastText_) return;
  lastText_ = text;
  PrintLines(text);
}

void SpotPrinter::PrintSpots(const SpotRows& spots) {
  for (const auto& spot : spots | std::views::reverse)
    if (!shown_.contains(spot)) Print(FixedWidthLine(*spot));
  shown_ = {spots.begin(), spots.end()};
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
  std::replace_if(printable.begin(), printable.end(), IsControlByte, ' ');
  print_(printable);
}

}  // namespace brelwin
