// The summits of the user's list as a table of the database. Every failure throws SqliteError.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/activation_store.h"
#include "platform/sqlite_database.h"

namespace brelwin {

// Makes the tables when there are none: of the list, and of one that is coming.
void PrepareSummits(SqliteDatabase& database);

// What is coming replaces the list at its end. Each part of it is on the disk or not at all.
void BeginSummits(SqliteDatabase& database);
void AddSummits(SqliteDatabase& database, std::span<const KeptSummit> summits);
void EndSummits(SqliteDatabase& database);

// Those of the codes that the table has, and how many it has in all.
std::vector<KeptSummit> SummitsOf(SqliteDatabase& database, std::span<const std::string> codes);
std::int64_t SummitCountOf(SqliteDatabase& database);

}  // namespace brelwin
