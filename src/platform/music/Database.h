// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace zelvo::music {

/// A statement of SQL with its parameters and its row. An error of the data base ends the rows, and
/// can be asked for at the Database.
class Statement {
public:
    /// Runs it up to the next row. False: there is none.
    bool step();
    /// Begins again, with other parameters.
    void reset();

    /// `at` counts from 1. The text is copied.
    Statement& bind(int at, std::string_view text);
    Statement& bind(int at, std::int64_t number);
    Statement& bind(int at, double number);

    /// `column` counts from 0.
    [[nodiscard]] std::string text(int column) const;
    [[nodiscard]] std::int64_t number(int column) const;
    [[nodiscard]] double real(int column) const;

private:
    friend class Database;

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    explicit Statement(sqlite3_stmt* prepared)
        : statement(prepared) {}

    std::unique_ptr<sqlite3_stmt, Finalize> statement;
};

/// A connection to an SQLite file. Each thread has its own. SQLite is used without Qt's layer, which
/// would need a plug-in and a name for each connection.
class Database {
public:
    /// Waits for another process this long, in milliseconds.
    static constexpr int kPatience = 5000;

    /// Opens the file, or makes it. Errors: `unwritable`, `malformed`.
    [[nodiscard]] static foundation::Result<Database> open(const std::filesystem::path& file);

    /// Several statements without parameters.
    foundation::Result<void> run(const std::string& sql);
    /// Null inside if the SQL is wrong; then `step` returns false.
    [[nodiscard]] Statement prepare(std::string_view sql);
    /// Whether the last call has failed, and why.
    [[nodiscard]] foundation::Result<void> state() const;

private:
    struct Close {
        void operator()(sqlite3* connection) const;
    };

    explicit Database(sqlite3* opened)
        : connection(opened) {}

    std::unique_ptr<sqlite3, Close> connection;
};

/// Undoes what has been written since, unless it is committed.
class Transaction {
public:
    explicit Transaction(Database& written);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    foundation::Result<void> commit();

private:
    Database& database;
    bool isOpen;
};

} // namespace zelvo::music
