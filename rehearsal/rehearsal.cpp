#include "rehearsal.h"

#include <array>
#include <fstream>
#include <optional>

#include "controls/screen.h"
#include "cycle/program.h"
#include "disturbances.h"
#include "rehearsal_folder.h"
#include "rehearsed_stream.h"
#include "rehearsed_web.h"
#include "test_host.h"

namespace rehearsal {
namespace {

using brelwin::Milliseconds;

constexpr std::int64_t FirstDay = 1'767'260'000;  // 1 January 2026, about half past nine
constexpr std::int64_t SecondsOfDay = 86'400;
constexpr std::int64_t SecondsOfARun = 10'800;      // after which the program is ended and started anew
constexpr std::int64_t SecondsOfAFalseStart = 600;  // at its begin, while the alerts may still be away
constexpr std::size_t ItemsOfAPage = 60;            // more than the longest time of a duplicate needs

constexpr auto Faulty =
    "honest:60,wrong-password:2,unknown-association:2,bad-frequency:2,failed:2,without-echo:3,server-error:3,"
    "redirect:8,pieces:8,slow:3,cut:4,late:4";

constexpr std::array Shapes{practice::RowShapes::New, practice::RowShapes::Old, practice::RowShapes::Mixed,
                            practice::RowShapes::Mixed};

practice::SiteOptions SiteOptionsOf(const Plan& plan, std::int64_t begin) {
  practice::Random random(plan.Seed, 604);
  practice::SiteOptions options;
  options.Play = {plan.Seed, 1, begin, plan.Crowd};
  options.ItemsOfAPage = ItemsOfAPage;
  options.Form.SecondsOfLag = static_cast<double>(random.Between(0, 60));
  options.Form.SecondsOfWait = static_cast<double>(random.Between(7, 20));
  if (plan.IsByService) options.Json.Shapes = random.Pick(Shapes);
  if (plan.HasFaults) {
    options.Form.Mix = *practice::ReadSpotliteMix(Faulty);
    options.TroublesInAThousand = 40;
    options.UndatedInAHundred = 20;
    options.AlertsAreAwayEvery = SecondsOfARun;
    options.SecondsWithoutAlerts = random.Between(0, 40) * 60;
    options.Json.OutagesInAHundred = 20;
  }
  return options;
}

void Save(const std::filesystem::path& file, const std::string& text) {
  std::ofstream(file, std::ios::binary) << text;
}

// The practice network and the program, side by side.
class Stage {
 public:
  Stage(const Plan& plan, const std::string& ledgerFile)
      : begin_(FirstDay + static_cast<std::int64_t>(plan.Seed % 365) * SecondsOfDay),
        ledger_(ledgerFile, [this] { return clock_.Milliseconds(); }),
        feed_(practice::Feed(plan.Seed, 1, begin_, plan.Crowd)),
        site_(feed_, ledger_, SiteOptionsOf(plan, begin_)),
        web_(host_.Queue, site_, clock_, plan.Seed),
        stream_(host_.Queue, clock_, feed_, ledger_, {plan.Seed, plan.LinesAnHour, plan.HasFaults}) {
    host_.Time.SetLocalTime({begin_});
  }

  void Put(const std::string& name, const std::string& text) { host_.Disk.Put("/brelwin/" + name, text); }
  std::string Text(const std::string& name) const { return host_.Disk.Text("/brelwin/" + name); }

  // With faults in several runs, which the ledger tells apart.
  void Play(const Plan& plan) {
    auto rest = static_cast<std::int64_t>(plan.Hours * 3600);
    for (auto run = SecondsOfAFalseStart; plan.HasFaults && rest > run; run = SecondsOfARun - run) {
      PlayRun(plan, run);
      ledger_.Write(practice::Record("start"));
      rest -= run;
    }
    PlayRun(plan, rest);
  }

 private:
  void PlayRun(const Plan& plan, std::int64_t seconds) {
    host_.Queue.HasQuit = world_.ShuttingDown = false;
    brelwin::Program program(world_);
    auto& label = program.Controls().Spots.lblCheckingForSpots;
    const auto onlooking = label.Visible.WhenChanged([this, &label] {
      if (label.Visible) ledger_.Write(practice::Record("check"));
    });
    program.Start({}, Password);
    std::optional<Disturbances> disturbances;
    if (plan.HasFaults)
      disturbances.emplace(host_.Queue, host_.Time, program.Controls().Gateway, ledger_, plan.Seed);
    host_.Queue.RunFor(std::chrono::seconds(seconds));
    program.Quit();
  }

  std::int64_t begin_;
  brelwin::test::TestHost host_;
  RehearsalClock clock_{host_.Time, begin_};
  practice::Ledger ledger_;
  practice::SharedFeed feed_;
  practice::Site site_;
  RehearsedWeb web_;
  RehearsedStream stream_;
  brelwin::Host world_{host_.Time,  host_.Queue,   host_.Disk,  web_,       stream_, host_.Sound,
                       host_.Shell, host_.Dialogs, host_.Store, "/brelwin", false,   {}};
};

}  // namespace

void Rehearse(const Plan& plan, const std::filesystem::path& folder) {
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  Stage stage(plan, (folder / "ledger.txt").string());
  for (const auto& [name, text] : FolderOf(plan.Seed, plan.Crowd, plan.IsByService)) {
    stage.Put(name, text);
    Save(folder / name, text);
  }
  stage.Play(plan);
  Save(folder / "BrelwinEventLog.txt", stage.Text("BrelwinEventLog.txt"));
  Save(folder / "GatewaySpotLog.txt", stage.Text("GatewaySpotLog.txt"));
}

}  // namespace rehearsal
