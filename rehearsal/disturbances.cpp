#include "disturbances.h"

#include <array>

#include "rehearsal_folder.h"

namespace rehearsal {
namespace {

using brelwin::Milliseconds;

constexpr std::int64_t Minute = 60'000;  // milliseconds

void Click(brelwin::CheckBox& box, bool value) {
  if (box.Value == value) return;
  box.Value = value;
  box.Click();
}

}  // namespace

Disturbances::Disturbances(brelwin::EventQueue& queue, brelwin::test::TestClock& time,
                           brelwin::GatewayTab& tab, practice::Ledger& ledger, std::uint64_t seed)
    : queue_(queue), time_(time), tab_(tab), ledger_(ledger), random_(seed, 605) {
  ComeBack();
}

void Disturbances::Wait(Milliseconds pause, void (Disturbances::*next)()) {
  pending_ = queue_.CallAfter(pause, [this, next] { (this->*next)(); });
}

void Disturbances::Disturb() {
  constexpr std::array<Wish, 3> Wishes{Wish{false, false, true}, Wish{false, true, true},
                                       Wish{true, false, false}};
  if (random_.OneIn(2)) {
    Sleep(random_.OneIn(3) ? random_.Between(20, 100) : random_.Between(150, 1200));
    return ComeBack();
  }
  Switch(random_.Pick(Wishes));
  Wait(Milliseconds(random_.Between(Minute, 6 * Minute)), &Disturbances::ComeBack);
}

void Disturbances::ComeBack() {
  Switch({});
  Wait(Milliseconds(random_.Between(5 * Minute, 25 * Minute)), &Disturbances::Disturb);
}

// Everything else that is due meanwhile comes late.
void Disturbances::Sleep(std::int64_t seconds) {
  time_.MoveTo(time_.Now() + std::chrono::seconds(seconds));
  ledger_.Write(practice::Record("stall").Number("seconds", seconds));
}

void Disturbances::Switch(const Wish& wish) {
  tab_.txtSotawatchPassword.Text = wish.Login ? Password : "";
  Click(tab_.chkRBNSendMySpotsToSotawatch, wish.Mine);
  Click(tab_.chkRBNSendAllSpotsToSotawatch, wish.Everyone);
  ledger_.Write(practice::Record("switch")
                    .Flag("everyone", wish.Everyone)
                    .Flag("mine", wish.Mine)
                    .Flag("login", wish.Login));
}

}  // namespace rehearsal
