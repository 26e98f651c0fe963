#include "platform/sqlite_activation_store.h"

#include <sqlite3.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <utility>

#include "platform/sqlite_summits.h"

namespace brelwin {
namespace {

constexpr std::int64_t Version = 1;  // of the tables

// Somebody waits for the window; what is not saved now is saved a little later.
constexpr std::chrono::milliseconds PatienceWhileRunning{20};
constexpr std::chrono::milliseconds PatienceAtTheEnd{500};

constexpr auto Preparation = R"(
  PRAGMA journal_mode = WAL;
  PRAGMA synchronous = NORMAL;
  BEGIN IMMEDIATE;
  CREATE TABLE IF NOT EXISTS activations (
    number INTEGER PRIMARY KEY, last INTEGER NOT NULL, station TEXT NOT NULL, summit TEXT NOT NULL,
    row TEXT NOT NULL);
  CREATE TABLE IF NOT EXISTS events (
    number INTEGER PRIMARY KEY AUTOINCREMENT, moment INTEGER NOT NULL, event TEXT NOT NULL);
  CREATE INDEX IF NOT EXISTS events_by_moment ON events (moment);
  PRAGMA user_version = 1;
  COMMIT;)";

constexpr auto ForgetTooMany = "DELETE FROM events WHERE number <= (SELECT max(number) FROM events) - 500000";

// The library keeps what is not yet in the file itself under these names beside it.
constexpr std::array<std::string_view, 3> Companions = {"", "-wal", "-shm"};

std::string MomentText(DateTime local) {
  const auto parts = CalendarFromDateTime(local);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d%02d%02d-%02d%02d%02d", parts.Year, parts.Month, parts.Day,
                parts.Hour, parts.Minute, parts.Second);
  return text.data();
}

bool IsThere(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

std::string NameAside(const std::string& path, DateTime local) {
  const auto name = path + ".broken-" + MomentText(local);
  auto free = name;
  for (int i = 2; IsThere(free); ++i) free = name + "-" + std::to_string(i);
  return free;
}

// The file itself has to be moved; its companions may not be there.
std::error_code PutAside(const std::string& path, const std::string& aside) {
  std::error_code error;
  for (const auto companion : Companions) {
    std::error_code failure;
    std::filesystem::rename(path + std::string(companion), aside + std::string(companion), failure);
    if (companion.empty()) error = failure;
  }
  return error;
}

void SaveRows(SqliteDatabase& database, const StoreChange& change) {
  SqliteStatement save(database, "INSERT OR REPLACE INTO activations VALUES (?, ?, ?, ?, ?)");
  for (const auto& row : change.Rows)
    save.Bind(row.Number).Bind(row.Last.Seconds).Bind(row.Station).Bind(row.Summit).Bind(row.Text).Step();
  SqliteStatement forget(database, "DELETE FROM activations WHERE number = ?");
  for (const auto number : change.GoneRows) forget.Bind(number).Step();
}

void SaveEvents(SqliteDatabase& database, const StoreChange& change) {
  SqliteStatement save(database, "INSERT INTO events (moment, event) VALUES (?, ?)");
  for (const auto& event : change.Events) save.Bind(event.When.Seconds).Bind(event.Text).Step();
  SqliteStatement forget(database, "DELETE FROM events WHERE moment < ?");
  forget.Bind(change.Since.Seconds).Step();
  database.Run(ForgetTooMany);
}

}  // namespace

StoreResult SqliteActivationStore::Load(std::vector<KeptRow>& rows) {
  auto result = Try([&](SqliteDatabase& database) {
    std::vector<KeptRow> kept;
    SqliteStatement query(database,
                          "SELECT number, last, station, summit, row FROM activations ORDER BY number");
    while (query.Step())
      kept.push_back({query.Number(0),
                      {query.Number(1)},
                      std::string(query.Text(2)),
                      std::string(query.Text(3)),
                      std::string(query.Text(4))});
    rows.insert(rows.end(), std::make_move_iterator(kept.begin()), std::make_move_iterator(kept.end()));
  });
  if (result.Outcome == StoreOutcome::MadeAnew) madeAnew_.clear();
  return result;
}

StoreResult SqliteActivationStore::Save(const StoreChange& change) {
  if (!madeAnew_.empty()) return {StoreOutcome::MadeAnew, std::exchange(madeAnew_, {})};
  auto result = Try([&](SqliteDatabase& database) {
    if (change.IsLast) database.WaitForOthers(PatienceAtTheEnd);
    SqliteTransaction transaction(database);
    SaveRows(database, change);
    SaveEvents(database, change);
    transaction.Commit();
  });
  if (result.Outcome == StoreOutcome::MadeAnew) madeAnew_.clear();
  return result;
}

StoreResult SqliteActivationStore::LoadEvents(DateTime begin, DateTime end, std::vector<KeptEvent>& events) {
  return Try([&](SqliteDatabase& database) {
    std::vector<KeptEvent> kept;
    SqliteStatement query(
        database, "SELECT moment, event FROM events WHERE moment >= ? AND moment < ? ORDER BY number");
    query.Bind(begin.Seconds).Bind(end.Seconds);
    while (query.Step()) kept.push_back({{query.Number(0)}, std::string(query.Text(1))});
    events.insert(events.end(), std::make_move_iterator(kept.begin()), std::make_move_iterator(kept.end()));
  });
}

StoreResult SqliteActivationStore::BeginSummits() {
  return Try(brelwin::BeginSummits);
}

StoreResult SqliteActivationStore::AddSummits(std::span<const KeptSummit> summits) {
  return Try([&](SqliteDatabase& database) { brelwin::AddSummits(database, summits); });
}

StoreResult SqliteActivationStore::EndSummits() {
  return Try(brelwin::EndSummits);
}

StoreResult SqliteActivationStore::LoadSummits(std::span<const std::string> codes,
                                               std::vector<KeptSummit>& summits) {
  return Try([&](SqliteDatabase& database) {
    auto found = SummitsOf(database, codes);
    summits.insert(summits.end(), std::make_move_iterator(found.begin()),
                   std::make_move_iterator(found.end()));
  });
}

StoreResult SqliteActivationStore::CountSummits(std::int64_t& count) {
  return Try([&](SqliteDatabase& database) { count = SummitCountOf(database); });
}

StoreResult SqliteActivationStore::Try(const std::function<void(SqliteDatabase&)>& body) {
  const bool wasOpen = database_.has_value();
  try {
    if (wasOpen && !IsThere(path_)) return AfterRemoval();
    if (!wasOpen) Open();
    body(*database_);
    return {};
  } catch (const SqliteError& error) {
    return AfterFailure(error, wasOpen);
  }
}

// Without a look at the name, what is saved would go into a file without one.
StoreResult SqliteActivationStore::AfterRemoval() {
  database_.reset();
  madeAnew_ = path_ + " was removed. A new one is begun.";
  Open();
  return {StoreOutcome::MadeAnew, madeAnew_};
}

// Whoever holds the file while the program runs may let go of it again.
StoreResult SqliteActivationStore::AfterFailure(const SqliteError& error, bool wasOpen) {
  if (error.IsBroken() || (error.IsLocked() && !wasOpen)) return MakeAnew(error);
  if (!wasOpen) database_.reset();
  return {StoreOutcome::NotDone, path_ + " cannot be used: " + error.what()};
}

StoreResult SqliteActivationStore::MakeAnew(const SqliteError& error) {
  database_.reset();
  const auto aside = NameAside(path_, clock_.LocalNow());
  const auto words = path_ + " cannot be used: " + error.what();
  if (const auto failure = PutAside(path_, aside))
    return {StoreOutcome::NotDone, words + ", nor renamed: " + failure.message()};
  madeAnew_ = words + ". It was renamed to " + aside + ", and a new one is begun.";
  try {
    Open();
  } catch (const SqliteError& second) {
    database_.reset();
    return {StoreOutcome::NotDone, words + ", nor made anew: " + second.what()};
  }
  return {StoreOutcome::MadeAnew, madeAnew_};
}

void SqliteActivationStore::Open() {
  database_.emplace(path_);
  if (database_->Number("PRAGMA user_version") > Version)
    throw SqliteError(SQLITE_FORMAT, "it was made by a later version of the program");
  database_->Run(Preparation);
  PrepareSummits(*database_);
  database_->WaitForOthers(PatienceWhileRunning);
}

}  // namespace brelwin
