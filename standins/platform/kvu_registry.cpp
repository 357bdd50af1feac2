#include "kvu_registry.h"

#include "StateDirectory.hpp"

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

/*
 * The registry is one table in one SQLite file. The file is opened for each call: a call costs more that way,
 * but needs nothing that a fork, another state directory or a file replaced by hand could invalidate.
 */

namespace
{

using namespace kvplatform;

constexpr int kAbsent = 2097165;
constexpr int kBusyMilliseconds = 10000;

/** One statement; what SQLite refuses is thrown as std::runtime_error with its text. */
class Statement
{
  public:
    Statement(sqlite3* database, const char* sql) : m_database(database)
    {
        sqlite3_stmt* statement = nullptr;
        check(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr));
        m_statement.reset(statement);
    }

    void bind(int index, int value) { check(sqlite3_bind_int(m_statement.get(), index, value)); }
    void bind(int index, const char* text)
    {
        check(sqlite3_bind_text(m_statement.get(), index, text, -1, SQLITE_STATIC));
    }
    void bindName(int area, const char* keyPath, const char* valueName)
    {
        bind(1, area);
        bind(2, keyPath);
        bind(3, valueName);
    }

    /** Whether there is a row. */
    bool step()
    {
        const int result = sqlite3_step(m_statement.get());
        if (result != SQLITE_ROW && result != SQLITE_DONE)
            check(result);
        return result == SQLITE_ROW;
    }

    sqlite3_int64 number() { return sqlite3_column_int64(m_statement.get(), 0); }

  private:
    void check(int result)
    {
        if (result != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(m_database));
    }

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

/** The registry file. Closing it rolls an unfinished change back. */
class Registry
{
  public:
    Registry(const std::string& path, int flags)
    {
        sqlite3* database = nullptr;
        const int result = sqlite3_open_v2(path.c_str(), &database, flags, nullptr);
        m_database.reset(database);
        if (result != SQLITE_OK)
            throw std::runtime_error(sqlite3_errstr(result));
        sqlite3_busy_timeout(database, kBusyMilliseconds);
        // EXTRA also flushes the folder, so that a stored value outlives a power cut.
        execute("PRAGMA synchronous = EXTRA");
    }

    std::optional<uint16_t> get(int area, const char* keyPath, const char* valueName)
    {
        // A writer creates the file before the table; a reader in between finds no value.
        if (!Statement(m_database.get(), "SELECT 1 FROM sqlite_master WHERE name = 'entry'").step())
            return std::nullopt;
        Statement select(m_database.get(),
                         "SELECT value FROM entry WHERE area = ? AND key_path = ? AND value_name = ?");
        select.bindName(area, keyPath, valueName);
        if (!select.step())
            return std::nullopt;
        const sqlite3_int64 value = select.number();
        if (value < 0 || value > UINT16_MAX)
            throw std::runtime_error("value " + std::to_string(value) + " does not fit 16 bits");
        return static_cast<uint16_t>(value);
    }

    void set(int area, const char* keyPath, const char* valueName, uint16_t value)
    {
        execute("BEGIN IMMEDIATE");
        execute(
            "CREATE TABLE IF NOT EXISTS entry (area INTEGER NOT NULL, key_path TEXT NOT NULL,"
            " value_name TEXT NOT NULL, value INTEGER NOT NULL, PRIMARY KEY (area, key_path, value_name))");
        {
            Statement store(m_database.get(), "INSERT OR REPLACE INTO entry VALUES (?, ?, ?, ?)");
            store.bindName(area, keyPath, valueName);
            store.bind(4, value);
            store.step();
        }
        execute("COMMIT");
    }

  private:
    void execute(const char* sql) { Statement(m_database.get(), sql).step(); }

    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };

    std::unique_ptr<sqlite3, Close> m_database;
};

std::string registryPath()
{
    return statePath("registry.db");
}

int readEntry(const char* operation, int area, const char* keyPath, const char* valueName, uint16_t* out)
{
    const std::optional<bool> exists = entryExists(operation, "registry.db");
    if (!exists)
        return kFailure;
    if (!*exists)
        return kAbsent;
    try {
        // Opened for writing as well: what a writer left behind when it was killed is undone by the next
        // opener.
        const auto value = Registry(registryPath(), SQLITE_OPEN_READWRITE).get(area, keyPath, valueName);
        if (!value)
            return kAbsent;
        *out = *value;
        return 0;
    } catch (const std::runtime_error& e) {
        complain(operation, registryPath(), e.what());
        return kFailure;
    }
}

int writeEntry(const char* operation, int area, const char* keyPath, const char* valueName, uint16_t value)
{
    try {
        Registry(registryPath(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)
            .set(area, keyPath, valueName, value);
        return 0;
    } catch (const std::runtime_error& e) {
        complain(operation, registryPath(), e.what());
        return kFailure;
    }
}

} // namespace

unsigned int KvuGetRegEntryUint16Ex(int area, const char* keyPath, const char* valueName, uint16_t* out)
{
    return static_cast<unsigned int>(guarded(__func__, [&](const char* function) {
        if (keyPath == nullptr || valueName == nullptr || out == nullptr)
            return kFailure;
        return readEntry(function, area, keyPath, valueName, out);
    }));
}

unsigned int KvuSetRegEntryUint16Ex(int area, const char* keyPath, const char* valueName, uint16_t value)
{
    return static_cast<unsigned int>(guarded(__func__, [&](const char* function) {
        int status = kFailure;
        if (keyPath != nullptr && valueName != nullptr)
            status = writeEntry(function, area, keyPath, valueName, value);
        recordEvent(function,
                    {std::to_string(area), quoted(keyPath), quoted(valueName), std::to_string(value)},
                    status);
        return status;
    }));
}
