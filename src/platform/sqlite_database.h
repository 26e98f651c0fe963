// An SQLite database and its statements, as objects that close themselves.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace brelwin {

// A failure of the library, in its words.
class SqliteError : public std::runtime_error {
 public:
  SqliteError(int number, const std::string& words) : std::runtime_error(words), number_(number) {}

  // The file is no database, is damaged, or holds other tables than ours.
  bool IsBroken() const;
  // Somebody else holds it.
  bool IsLocked() const;

 private:
  int number_;
};

// Opens the file, making it when there is none. Every failure throws SqliteError.
class SqliteDatabase {
 public:
  explicit SqliteDatabase(const std::string& path);

  // How long to wait for a lock of others; at first half a second.
  void WaitForOthers(std::chrono::milliseconds atMost);

  // Runs statements without results, separated by ";".
  void Run(const char* statements);

  // The one whole number that the statement gives; 0 when it gives none.
  std::int64_t Number(const char* statement);

 private:
  friend class SqliteStatement;

  struct Closer {
    void operator()(sqlite3* database) const;
  };
  std::unique_ptr<sqlite3, Closer> database_;
};

// One statement with "?" for its values, which are bound anew for every run. It must not outlive its
// database. Every failure throws SqliteError.
class SqliteStatement {
 public:
  SqliteStatement(SqliteDatabase& database, std::string_view text);

  // Sets the next value. A text is copied.
  SqliteStatement& Bind(std::int64_t value);
  SqliteStatement& Bind(std::string_view value);
  SqliteStatement& Bind(std::optional<double> value);

  // Takes the next row of the result; false when there is none, after which the values are to be bound anew.
  bool Step();

  // The columns of the row, from 0. A text lives until the next step.
  std::int64_t Number(int column) const;
  std::string_view Text(int column) const;
  std::optional<double> Real(int column) const;

 private:
  void Check(int result) const;

  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  sqlite3* database_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  int bound_ = 0;
};

// A transaction that is undone unless it is committed.
class SqliteTransaction {
 public:
  explicit SqliteTransaction(SqliteDatabase& database);
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;
  ~SqliteTransaction();

  void Commit();

 private:
  SqliteDatabase* database_;  // null once it is committed
};

}  // namespace brelwin
