#include "platform/sqlite_summits.h"

#include <sqlite3.h>

#include <string_view>

namespace brelwin {
namespace {

constexpr auto Columns =
    " (code TEXT PRIMARY KEY, name TEXT NOT NULL, latitude REAL, longitude REAL, points INTEGER NOT NULL, "
    "activations INTEGER NOT NULL) WITHOUT ROWID;";

void Create(SqliteDatabase& database, const std::string& table) {
  database.Run(("CREATE TABLE " + table + Columns).c_str());
}

// The file may have been made anew since the list was begun; that is no damage.
void RequireBegun(SqliteDatabase& database) {
  if (database.Number("SELECT count(*) FROM sqlite_master WHERE name = 'summits_coming'") == 0)
    throw SqliteError(SQLITE_NOTFOUND, "the new list of summits is no longer there");
}

}  // namespace

void PrepareSummits(SqliteDatabase& database) {
  Create(database, "IF NOT EXISTS summits");
}

void BeginSummits(SqliteDatabase& database) {
  database.Run("DROP TABLE IF EXISTS summits_coming;");
  Create(database, "summits_coming");
}

void AddSummits(SqliteDatabase& database, std::span<const KeptSummit> summits) {
  RequireBegun(database);
  SqliteTransaction transaction(database);
  SqliteStatement add(database, "INSERT OR REPLACE INTO summits_coming VALUES (?, ?, ?, ?, ?, ?)");
  for (const auto& summit : summits)
    add.Bind(summit.Code)
        .Bind(summit.Name)
        .Bind(summit.Latitude)
        .Bind(summit.Longitude)
        .Bind(summit.Points)
        .Bind(summit.Activations)
        .Step();
  transaction.Commit();
}

void EndSummits(SqliteDatabase& database) {
  RequireBegun(database);
  SqliteTransaction transaction(database);
  database.Run("DROP TABLE summits; ALTER TABLE summits_coming RENAME TO summits;");
  transaction.Commit();
}

std::vector<KeptSummit> SummitsOf(SqliteDatabase& database, std::span<const std::string> codes) {
  std::vector<KeptSummit> summits;
  SqliteStatement find(database,
                       "SELECT name, latitude, longitude, points, activations FROM summits WHERE code = ?");
  for (const auto& code : codes) {
    find.Bind(std::string_view(code));
    while (find.Step())
      summits.push_back(
          {code, std::string(find.Text(0)), find.Real(1), find.Real(2), find.Number(3), find.Number(4)});
  }
  return summits;
}

std::int64_t SummitCountOf(SqliteDatabase& database) {
  return database.Number("SELECT count(*) FROM summits");
}

}  // namespace brelwin
