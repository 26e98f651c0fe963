#include "platform/sqlite_database.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace brelwin {
namespace {

constexpr std::chrono::milliseconds PatienceAtTheOpening{500};

SqliteError ErrorOf(sqlite3* database, int number) {
  return {number, database == nullptr ? sqlite3_errstr(number) : sqlite3_errmsg(database)};
}

}  // namespace

bool SqliteError::IsBroken() const {
  constexpr std::array Numbers = {SQLITE_ERROR,  SQLITE_CORRUPT,    SQLITE_NOTADB,  SQLITE_FORMAT,
                                  SQLITE_SCHEMA, SQLITE_CONSTRAINT, SQLITE_MISMATCH};
  return std::ranges::find(Numbers, number_) != Numbers.end();
}

bool SqliteError::IsLocked() const {
  return number_ == SQLITE_BUSY || number_ == SQLITE_LOCKED;
}

void SqliteDatabase::Closer::operator()(sqlite3* database) const {
  sqlite3_close_v2(database);
}

SqliteDatabase::SqliteDatabase(const std::string& path) {
  sqlite3* opened = nullptr;
  const auto result =
      sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  database_.reset(opened);
  if (result != SQLITE_OK) throw ErrorOf(opened, result);
  WaitForOthers(PatienceAtTheOpening);
}

void SqliteDatabase::WaitForOthers(std::chrono::milliseconds atMost) {
  sqlite3_busy_timeout(database_.get(), static_cast<int>(atMost.count()));
}

void SqliteDatabase::Run(const char* statements) {
  const auto result = sqlite3_exec(database_.get(), statements, nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) throw ErrorOf(database_.get(), result);
}

std::int64_t SqliteDatabase::Number(const char* statement) {
  SqliteStatement query(*this, statement);
  return query.Step() ? query.Number(0) : 0;
}

void SqliteStatement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(SqliteDatabase& database, std::string_view text)
    : database_(database.database_.get()) {
  sqlite3_stmt* prepared = nullptr;
  const auto length = static_cast<int>(text.size());
  const auto result = sqlite3_prepare_v2(database_, text.data(), length, &prepared, nullptr);
  statement_.reset(prepared);
  Check(result);
}

SqliteStatement& SqliteStatement::Bind(std::int64_t value) {
  Check(sqlite3_bind_int64(statement_.get(), ++bound_, value));
  return *this;
}

SqliteStatement& SqliteStatement::Bind(std::string_view value) {
  Check(sqlite3_bind_text64(statement_.get(), ++bound_, value.data(), value.size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8));
  return *this;
}

SqliteStatement& SqliteStatement::Bind(std::optional<double> value) {
  ++bound_;
  Check(value ? sqlite3_bind_double(statement_.get(), bound_, *value)
              : sqlite3_bind_null(statement_.get(), bound_));
  return *this;
}

bool SqliteStatement::Step() {
  const auto result = sqlite3_step(statement_.get());
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE) throw ErrorOf(database_, result);
  sqlite3_reset(statement_.get());
  bound_ = 0;
  return false;
}

std::int64_t SqliteStatement::Number(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

std::string_view SqliteStatement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
  const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
  return text == nullptr ? std::string_view() : std::string_view(text, length);
}

std::optional<double> SqliteStatement::Real(int column) const {
  if (sqlite3_column_type(statement_.get(), column) == SQLITE_NULL) return {};
  return sqlite3_column_double(statement_.get(), column);
}

void SqliteStatement::Check(int result) const {
  if (result != SQLITE_OK) throw ErrorOf(database_, result);
}

SqliteTransaction::SqliteTransaction(SqliteDatabase& database) : database_(&database) {
  database.Run("BEGIN IMMEDIATE");
}

SqliteTransaction::~SqliteTransaction() {
  if (database_ == nullptr) return;
  try {
    database_->Run("ROLLBACK");
  } catch (const SqliteError&) {  // the library has undone it by itself
  }
}

void SqliteTransaction::Commit() {
  database_->Run("COMMIT");
  database_ = nullptr;
}

}  // namespace brelwin
