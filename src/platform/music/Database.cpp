// SPDX-License-Identifier: MIT
#include "platform/music/Database.h"

#include <sqlite3.h>

namespace zelvo::music {

using foundation::Cause;
using foundation::fail;
using foundation::Result;

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

bool Statement::step() {
    return statement != nullptr && sqlite3_step(statement.get()) == SQLITE_ROW;
}

void Statement::reset() {
    if (statement == nullptr)
        return;
    sqlite3_reset(statement.get());
    sqlite3_clear_bindings(statement.get());
}

Statement& Statement::bind(int at, std::string_view text) {
    sqlite3_bind_text64(
        statement.get(), at, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    return *this;
}

Statement& Statement::bind(int at, std::int64_t number) {
    sqlite3_bind_int64(statement.get(), at, number);
    return *this;
}

Statement& Statement::bind(int at, double number) {
    sqlite3_bind_double(statement.get(), at, number);
    return *this;
}

std::string Statement::text(int column) const {
    const auto* const bytes =
        reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
    const int count = sqlite3_column_bytes(statement.get(), column);
    return bytes == nullptr ? std::string() : std::string(bytes, static_cast<std::size_t>(count));
}

std::int64_t Statement::number(int column) const {
    return sqlite3_column_int64(statement.get(), column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(statement.get(), column);
}

void Database::Close::operator()(sqlite3* connection) const {
    sqlite3_close(connection);
}

Result<Database> Database::open(const std::filesystem::path& file) {
    sqlite3* opened = nullptr;
    const int status = sqlite3_open_v2(
        file.c_str(),
        &opened,
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
        nullptr);
    Database database(opened);
    if (status != SQLITE_OK)
        return fail(Cause::unwritable, sqlite3_errstr(status));
    sqlite3_busy_timeout(opened, kPatience);
    return database;
}

Result<void> Database::run(const std::string& sql) {
    sqlite3_exec(connection.get(), sql.c_str(), nullptr, nullptr, nullptr);
    return state();
}

Statement Database::prepare(std::string_view sql) {
    sqlite3_stmt* prepared = nullptr;
    sqlite3_prepare_v2(
        connection.get(), sql.data(), static_cast<int>(sql.size()), &prepared, nullptr);
    return Statement(prepared);
}

Result<void> Database::state() const {
    const int status = sqlite3_errcode(connection.get());
    if (status == SQLITE_OK || status == SQLITE_ROW || status == SQLITE_DONE)
        return {};
    const bool isDamaged = status == SQLITE_CORRUPT || status == SQLITE_NOTADB ||
                           status == SQLITE_ERROR || status == SQLITE_MISMATCH;
    return fail(isDamaged ? Cause::malformed : Cause::unwritable, sqlite3_errmsg(connection.get()));
}

Transaction::Transaction(Database& written)
    : database(written)
    , isOpen(written.run("BEGIN IMMEDIATE").has_value()) {}

Transaction::~Transaction() {
    if (isOpen)
        (void)database.run("ROLLBACK");
}

Result<void> Transaction::commit() {
    if (!isOpen)
        return database.state();
    auto committed = database.run("COMMIT");
    isOpen = !committed.has_value();
    return committed;
}

} // namespace zelvo::music
