#include "around/summit_book.h"

#include <utility>
#include <vector>

#include "base/record_faults.h"
#include "core/trap.h"
#include "places/summits_list.h"

namespace brelwin {
namespace {

// Put into the store at once; between two parts the window is served.
constexpr std::size_t SummitsOfPart = 4000;

// A store that somebody holds keeps whoever asks it waiting: it is left alone for so long.
constexpr auto TimeAfterFailure = std::chrono::seconds(30);

// A summit is remembered whether it is on the list or not; more codes than this are nonsense from outside.
constexpr std::size_t MostKnown = 50'000;

KeptSummit Kept(const SummitRow& row) {
  KeptSummit summit{std::string(row.Code), std::string(row.Name), {}, {}, row.Points, row.ActivationCount};
  if (row.Place) {
    summit.Latitude = row.Place->Latitude;
    summit.Longitude = row.Place->Longitude;
  }
  return summit;
}

// Hands the summits over in parts. After a failure, or at the program's end, it takes no more.
class Import {
 public:
  Import(Host& world, std::function<void(std::size_t)> progress)
      : world_(world), progress_(std::move(progress)) {
    Note(world_.Store.BeginSummits());
  }

  void Take(const SummitRow& row) {
    if (!failure_.empty()) return;
    part_.push_back(Kept(row));
    if (part_.size() >= SummitsOfPart) Flush();
  }

  // Empty when the new list is there.
  std::string End() {
    Flush();
    if (failure_.empty()) Note(world_.Store.EndSummits());
    return failure_;
  }

 private:
  void Flush() {
    if (!failure_.empty()) return;
    Note(world_.Store.AddSummits(part_));
    count_ += std::exchange(part_, {}).size();
    progress_(count_);
    world_.Events.DoEvents();
    if (world_.ShuttingDown) failure_ = "the program ends";
  }

  void Note(const StoreResult& result) {
    if (result.Outcome != StoreOutcome::Done) failure_ = result.Words;
  }

  Host& world_;
  std::function<void(std::size_t)> progress_;
  std::vector<KeptSummit> part_;
  std::size_t count_ = 0;
  std::string failure_;
};

}  // namespace

std::optional<GeoPoint> PlaceOf(const KeptSummit& summit) {
  if (!summit.Latitude || !summit.Longitude) return {};
  return GeoPoint{*summit.Latitude, *summit.Longitude};
}

void SummitBook::Open() {
  LogErrors(world_, "OpenSummits", false, [&] {
    const auto result = world_.Store.CountSummits(count_);
    if (result.Outcome != StoreOutcome::Done) LogEvent(world_, "OpenSummits - " + result.Words);
    SayCount();
    return true;
  });
}

void SummitBook::Warm(std::span<const std::string> codes) {
  const auto now = world_.Time.Now();
  if (IsEmpty() || (failedAt_ && now - *failedAt_ < TimeAfterFailure)) return;
  std::vector<KeptSummit> found;
  failedAt_.reset();
  if (world_.Store.LoadSummits(codes, found).Outcome != StoreOutcome::Done) {
    failedAt_ = world_.Time.Now();
    return;
  }
  if (known_.size() + codes.size() > MostKnown) known_.clear();
  for (const auto& code : codes) known_.try_emplace(code);
  for (auto& summit : found) known_.insert_or_assign(summit.Code, std::move(summit));
}

const KeptSummit* SummitBook::Find(const std::string& code) {
  if (code.empty() || IsEmpty()) return nullptr;
  auto found = known_.find(code);
  if (found == known_.end()) {
    Warm({&code, 1});
    found = known_.find(code);
  }
  return found == known_.end() || !found->second ? nullptr : &*found->second;
}

void SummitBook::Import(std::string_view path) {
  if (std::exchange(isImporting_, true)) return;
  LogErrors(world_, "ImportSummits", false, [&] {
    ImportFile(path);
    return true;
  });
  isImporting_ = false;
}

void SummitBook::ImportFile(std::string_view path) {
  Say("Reading " + std::string(path));
  world_.Events.DoEvents();
  const auto bytes = world_.Disk.Read(path);
  const auto words = bytes ? Take(*bytes) : "the file cannot be read";
  known_.clear();
  if (const auto counted = world_.Store.CountSummits(count_); counted.Outcome != StoreOutcome::Done)
    count_ = 0;
  if (!words.empty()) LogEvent(world_, "ImportSummits - " + std::string(path) + ": " + words);
  SayCount(words);
  Changed.Raise();
}

// Empty when all went well; else what is to be told.
std::string SummitBook::Take(std::string_view bytes) {
  brelwin::Import import(world_, [this](std::size_t count) {
    Say("Importing the summit list: " + std::to_string(count) + " summits");
  });
  const auto result = ReadSummitsList(bytes, [&](const SummitRow& row) { import.Take(row); });
  if (!result.ErrorText.empty()) return "this is no summit list: " + result.ErrorText;
  if (result.RowCount == 0) return "this summit list is empty";
  const auto failure = import.End();
  return failure.empty() ? FaultWords(result.Faults) : "the list was not imported: " + failure;
}

void SummitBook::Say(const std::string& words) {
  state_.Caption = words;
}

void SummitBook::SayCount(std::string_view behind) {
  const auto count = IsEmpty() ? "No summit list yet: import the file summitslist.csv of the SOTA database."
                               : std::to_string(count_) + " summits";
  Say(count + std::string(behind.empty() ? "" : ". Last import: ") + std::string(behind));
}

}  // namespace brelwin
