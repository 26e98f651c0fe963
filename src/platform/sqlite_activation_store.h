// The board's rows and events in one file.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/activation_store.h"
#include "platform/clock.h"
#include "platform/sqlite_database.h"

namespace brelwin {

// The file is opened when it is first asked for, and again after a failure. One that is broken, or that
// others hold when it is opened, is renamed: ".broken-" and the local date and time come behind its name.
class SqliteActivationStore final : public ActivationStore {
 public:
  SqliteActivationStore(std::string path, const Clock& clock) : path_(std::move(path)), clock_(clock) {}

  StoreResult Load(std::vector<KeptRow>& rows) override;
  StoreResult Save(const StoreChange& change) override;
  StoreResult LoadEvents(DateTime begin, DateTime end, std::vector<KeptEvent>& events) override;
  StoreResult BeginSummits() override;
  StoreResult AddSummits(std::span<const KeptSummit> summits) override;
  StoreResult EndSummits() override;
  StoreResult LoadSummits(std::span<const std::string> codes, std::vector<KeptSummit>& summits) override;
  StoreResult CountSummits(std::int64_t& count) override;

 private:
  StoreResult Try(const std::function<void(SqliteDatabase&)>& body);
  StoreResult AfterRemoval();
  StoreResult AfterFailure(const SqliteError& error, bool wasOpen);
  StoreResult MakeAnew(const SqliteError& error);
  void Open();

  // What was renamed on another occasion; told to whoever loads or saves rows next.
  std::string madeAnew_;
  std::string path_;
  const Clock& clock_;
  std::optional<SqliteDatabase> database_;
};

}  // namespace brelwin
