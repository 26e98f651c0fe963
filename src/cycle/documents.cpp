#include "cycle/documents.h"

#include <string>
#include <string_view>

#include "alerts/matching.h"
#include "base/text.h"
#include "core/data_files.h"
#include "core/file_names.h"
#include "core/program_path.h"
#include "radio/dates.h"
#include "radio/web_address.h"
#include "ui/spot_filtering.h"

namespace brelwin {
namespace {

void ViewFile(Host& host, const std::string& path) {
  if (FileExists(host, path)) {
    ViewTextFile(host, path);
  } else {
    host.Messages.ShowMessage("The file " + path + " does not exist.", "View File", MessageIcon::Information);
  }
}

void OpenPage(Host& host, const std::string& address, std::string_view of) {
  OpenDocument(host, Replace(address, "ZZZZ", URLEncode(of)));
}

// The summit's page when the spot has a summit, else the operator's.
void OpenSpotPage(Host& host, const URLTemplates& addresses, const Spot& spot) {
  const auto summit = Trim(spot.SummitDesignator);
  if (summit.empty()) return OpenPage(host, addresses.Callsign, spot.stationBaseCallsign);
  OpenPage(host, addresses.Summit, summit);
}

DateTime TimeHeard(const Clock& time, const Spot& spot) {
  const auto local = spot.LocalDateAndTime.value_or(time.LocalNow());
  return AddMinutes(local, TimeZoneOffsetInMinutes(time));
}

// More about the spot than its line has room for: above all, why it matched an announced activation or not.
std::string SpotDetails(const Library& library, const Spot& spot) {
  if (!spot.IsRBNSpot) {
    return spot.Station + " on " + spot.SummitDesignator + ", " + spot.FormattedFrequencyString + " MHz " +
           spot.ModeString + ": " + spot.Comment + " [" + spot.Spotter + "]";
  }
  SpotFilter filter;
  FillFilterFromScreen(library.Controls, library.Config, filter);
  const auto heard = TimeHeard(library.World.Time, spot);
  return ExplainMatch(spot.stationBaseCallsign, heard, library.Alerts, filter).Text;
}

}  // namespace

void ConnectViewers(Host& host, Screen& screen, Entries& ways) {
  const auto view = [&](Button& button, std::string_view fileName) {
    button.Click =
        ways.Handler([&host, name = std::string(fileName)] { ViewFile(host, InProgramFolder(host, name)); });
  };
  const auto viewLog = [&](Button& button, const TextBox& path) {
    button.Click = ways.Handler([&host, &path] {
      const auto name = FullLogName(host, path.Text.Get());
      if (!name.empty()) ViewFile(host, name);
    });
  };
  view(screen.RBN.cmdViewKnownActivators, KnownActivatorsFile);
  view(screen.RBN.cmdViewAlerts, AlertsFile);
  view(screen.Gateway.cmdViewGatewaySpotLog, GatewaySpotLogFile);
  view(screen.Gateway.cmdViewGatewayServerResponseLog, GatewayServerResponseLogFile);
  view(screen.Gateway.cmdViewExcludedActivators, ExcludedActivatorsFile);
  view(screen.Files.cmdViewEventLog, EventLogFile);
  view(screen.Files.cmdViewRawSpots, RawSpotsFile);
  view(screen.Files.cmdViewSpotsRSS, FeedCopyFile);
  view(screen.Files.cmdViewTrustedSpotters, TrustedSpottersFile);
  viewLog(screen.Logs.cmdViewLogFile1, screen.Logs.txtLogFile1);
  viewLog(screen.Logs.cmdViewLogFile2, screen.Logs.txtLogFile2);
  screen.About.cmdViewUserGuide.Click =
      ways.Handler([&host] { OpenDocument(host, InProgramFolder(host, UserGuideFile)); });
}

void ConnectLists(const Library& library, Entries& ways) {
  auto& host = library.World;
  auto& screen = library.Controls;
  screen.Spots.txtSPOTList.DoubleClick = [library, &ways](const Spot& spot) {
    ways.Take(Work::Handler, [&] { OpenSpotPage(library.World, library.Config.Addresses, spot); });
  };
  screen.Spots.txtSPOTList.Select = [library, &ways](const Spot& spot) {
    ways.Take(Work::Handler,
              [&] { library.Controls.Spots.lblSpotDetails.Caption = SpotDetails(library, spot); });
  };
  screen.Spots.txtSPOTList.AddToList = [library, &ways](CallsignListName name, const Spot& spot) {
    ways.Take(Work::Handler, [&] {
      library.Controls.Spots.lblStatus.Caption =
          AddCallsign(library.World, name, library.Callsigns.Named(name), spot);
    });
  };
  const auto& addresses = library.Config.Addresses;
  screen.Board.OpenSummit = [&host, &addresses, &ways](const std::string& summit) {
    ways.Take(Work::Handler, [&] { OpenPage(host, addresses.Summit, summit); });
  };
  screen.Board.OpenStation = [&host, &addresses, &ways](const std::string& baseCallsign) {
    ways.Take(Work::Handler, [&] { OpenPage(host, addresses.Callsign, baseCallsign); });
  };
  screen.Files.lstWebsites.DoubleClick = [&host, &websites = library.Websites, &ways](std::size_t index) {
    ways.Take(Work::Handler, [&] {
      if (index < websites.size()) OpenDocument(host, AddressToOpen(host, websites[index].Address));
    });
  };
}

}  // namespace brelwin
