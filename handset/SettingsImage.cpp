// The image of the settings file on SQLite: it lives in memory here, the file is replaced as a whole.
#include "SettingsImage.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>

#include <sqlite3.h>

namespace {

constexpr std::uint32_t applicationId = 0x4B565153; // "KVQS"
constexpr std::uint32_t schemaVersion = 1;

constexpr char createTable[] = "CREATE TABLE settings (app INTEGER NOT NULL, grp TEXT NOT NULL, "
                               "key TEXT NOT NULL, type INTEGER NOT NULL, value NOT NULL, "
                               "PRIMARY KEY (app, grp, key, type)) WITHOUT ROWID";
constexpr char setVersion[] = "PRAGMA application_id = 0x4B565153; PRAGMA user_version = 1";
constexpr char selectSchema[] = "SELECT sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite\\_%' ESCAPE '\\'";
constexpr char selectValues[] = "SELECT app, grp, key, type, value FROM settings";
constexpr char replaceValue[] = "REPLACE INTO settings (app, grp, key, type, value) VALUES (?, ?, ?, ?, ?)";

/** Where the header keeps what. Numbers are big-endian. */
constexpr char magicText[] = "SQLite format 3";
constexpr std::string_view magic(magicText, sizeof magicText); // with its end
constexpr std::size_t headerSize = 100;
constexpr std::size_t pageSizeAt = 16;
constexpr std::size_t formatsAt = 18; // of writing and of reading; 2 stands for write-ahead mode
constexpr std::size_t changeCounterAt = 24;
constexpr std::size_t pageCountAt = 28;
constexpr std::size_t userVersionAt = 60;
constexpr std::size_t applicationIdAt = 68;
constexpr std::size_t countedAtChangeAt = 92;

struct CloseConnection {
    void operator()(sqlite3 *connection) const { sqlite3_close_v2(connection); }
};
struct FinalizeStatement {
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
struct FreeMemory {
    void operator()(unsigned char *memory) const { sqlite3_free(memory); }
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;
using Memory = std::unique_ptr<unsigned char, FreeMemory>;

std::uint32_t numberAt(const std::string &image, std::size_t position)
{
    std::uint32_t number = 0;
    for (std::size_t byte = 0; byte < 4; ++byte)
        number = number << 8 | static_cast<unsigned char>(image[position + byte]);
    return number;
}

Fault damaged(const std::string &why)
{
    return {EUCLEAN, "is damaged (" + why + ")"};
}

Fault foreign(const std::string &why)
{
    return {EMEDIUMTYPE, "is not a settings file of this phone (" + why + ")"};
}

Fault faultOf(sqlite3 *connection)
{
    const int code = sqlite3_errcode(connection) & 0xFF;
    if (code == SQLITE_NOMEM)
        return {ENOMEM, "does not fit into memory"};
    if (code == SQLITE_FULL || code == SQLITE_TOOBIG)
        return {ENOSPC, "cannot grow any further"};
    return damaged(sqlite3_errmsg(connection));
}

/** What can be told without asking SQLite, which does not mind a file that is too long. */
Fault checkHeader(const std::string &image)
{
    if (image.size() < headerSize || image.compare(0, magic.size(), magic) != 0)
        return damaged("no header");
    if (image[formatsAt] != 1 || image[formatsAt + 1] != 1)
        return damaged("a format that is none"); // SQLite would let it be read, and not written
    const std::size_t stored = numberAt(image, pageSizeAt) >> 16;
    const std::size_t pageSize = stored == 1 ? 65536 : stored;
    const bool counted = numberAt(image, changeCounterAt) == numberAt(image, countedAtChangeAt);
    const std::size_t pages =
        counted || pageSize == 0 ? numberAt(image, pageCountAt) : image.size() / pageSize;
    if (pageSize * pages != image.size())
        return damaged("its length is not what its header says");
    const std::uint32_t application = numberAt(image, applicationIdAt);
    const std::uint32_t version = numberAt(image, userVersionAt);
    if (application == applicationId && version > schemaVersion)
        return {EMEDIUMTYPE, "is of version " + std::to_string(version) + ", newer than this program"};
    if ((application != applicationId || version != schemaVersion) && (application != 0 || version != 0))
        return foreign("another application's mark");
    return {};
}

/** The image as a database in memory: itself for reading, a copy for writing. */
Connection open(const std::string &image, bool forWriting)
{
    sqlite3 *opened = nullptr;
    const int code =
        sqlite3_open_v2(":memory:", &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    Connection connection(opened);
    if (code != SQLITE_OK)
        return nullptr;
    sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    if (image.empty())
        return connection;
    const auto size = static_cast<sqlite3_int64>(image.size());
    // Without the flag for writing SQLite only reads the memory that it is given.
    auto *memory = reinterpret_cast<unsigned char *>(const_cast<char *>(image.data()));
    unsigned int flags = SQLITE_DESERIALIZE_READONLY;
    if (forWriting) {
        memory = static_cast<unsigned char *>(sqlite3_malloc64(image.size()));
        if (!memory)
            return nullptr;
        std::memcpy(memory, image.data(), image.size());
        flags = SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE;
    }
    if (sqlite3_deserialize(opened, "main", memory, size, size, flags) != SQLITE_OK)
        return nullptr;
    return connection;
}

Statement prepare(sqlite3 *connection, const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr);
    return Statement(statement);
}

QString textOf(sqlite3_stmt *row, int column)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(row, column)),
                             sqlite3_column_bytes(row, column));
}

/** Calls @p use for each row of the answer. */
template <typename Use>
Fault forEachRow(sqlite3 *connection, const char *sql, Use use)
{
    const Statement statement = prepare(connection, sql);
    if (!statement)
        return faultOf(connection);
    for (;;) {
        switch (sqlite3_step(statement.get())) {
        case SQLITE_ROW:
            use(statement.get());
            break;
        case SQLITE_DONE:
            return {};
        default:
            return faultOf(connection);
        }
    }
}

Fault checkPages(sqlite3 *connection)
{
    std::string verdict;
    if (const Fault fault = forEachRow(connection, "PRAGMA integrity_check(1)",
                                       [&](sqlite3_stmt *row) { verdict = textOf(row, 0).toStdString(); }))
        return fault;
    return verdict == "ok" ? Fault() : damaged(verdict);
}

/** @param tables receives the number of tables: none in a file that nothing has been stored in */
Fault checkSchema(sqlite3 *connection, int &tables)
{
    tables = 0;
    bool ours = true;
    if (const Fault fault = forEachRow(connection, selectSchema, [&](sqlite3_stmt *row) {
            ++tables;
            ours = ours && textOf(row, 0) == QLatin1String(createTable);
        }))
        return fault;
    return ours && tables <= 1 ? Fault() : foreign("its tables are others");
}

/** Nothing for a row that holds a value of another type than it says. */
std::optional<SettingsImage::Value> valueOf(sqlite3_stmt *row, SettingsImage::Type type)
{
    constexpr int column = 4;
    if (type == SettingsImage::Type::Text) {
        if (sqlite3_column_type(row, column) != SQLITE_TEXT)
            return std::nullopt;
        return textOf(row, column);
    }
    if (sqlite3_column_type(row, column) != SQLITE_INTEGER)
        return std::nullopt;
    const sqlite3_int64 number = sqlite3_column_int64(row, column);
    const bool isBool = type == SettingsImage::Type::Bool;
    const sqlite3_int64 lowest = isBool ? 0 : std::numeric_limits<int>::min();
    const sqlite3_int64 highest = isBool ? 1 : std::numeric_limits<int>::max();
    if (number < lowest || number > highest)
        return std::nullopt;
    return static_cast<int>(number);
}

void bindText(sqlite3_stmt *statement, int position, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    sqlite3_bind_text(statement, position, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

bool execute(sqlite3 *connection, const char *sql)
{
    return sqlite3_exec(connection, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

} // namespace

Fault SettingsImage::read(const std::string &image, Values &values)
{
    values.clear();
    if (image.empty())
        return {};
    if (Fault fault = checkHeader(image))
        return fault;
    const Connection connection = open(image, false);
    if (!connection)
        return {ENOMEM, "does not fit into memory"};
    int tables = 0;
    if (Fault fault = checkPages(connection.get()))
        return fault;
    if (Fault fault = checkSchema(connection.get(), tables))
        return fault;
    if (tables == 0)
        return {};
    Fault fault = forEachRow(connection.get(), selectValues, [&](sqlite3_stmt *row) {
        const int number = sqlite3_column_int(row, 3);
        const auto type = static_cast<Type>(number);
        if (number < static_cast<int>(Type::Bool) || number > static_cast<int>(Type::Text))
            return;
        if (const auto value = valueOf(row, type)) {
            const auto app = static_cast<unsigned int>(sqlite3_column_int64(row, 0));
            values.insert_or_assign({app, textOf(row, 1), textOf(row, 2), type}, *value);
        }
    });
    if (fault)
        values.clear();
    return fault;
}

Fault SettingsImage::write(std::string &image, const Key &key, const Value &value)
{
    const Connection connection = open(image, true);
    if (!connection)
        return {ENOMEM, "does not fit into memory"};
    int tables = 0;
    if (Fault fault = checkSchema(connection.get(), tables))
        return fault;
    if ((tables == 0 && !execute(connection.get(), createTable)) || !execute(connection.get(), setVersion))
        return faultOf(connection.get());
    const Statement statement = prepare(connection.get(), replaceValue);
    if (!statement)
        return faultOf(connection.get());
    sqlite3_bind_int64(statement.get(), 1, key.app);
    bindText(statement.get(), 2, key.group);
    bindText(statement.get(), 3, key.key);
    sqlite3_bind_int(statement.get(), 4, static_cast<int>(key.type));
    if (const auto *const number = std::get_if<int>(&value))
        sqlite3_bind_int(statement.get(), 5, *number);
    else
        bindText(statement.get(), 5, std::get<QString>(value));
    if (sqlite3_step(statement.get()) != SQLITE_DONE)
        return faultOf(connection.get());
    sqlite3_reset(statement.get());
    sqlite3_int64 size = 0;
    const Memory memory(sqlite3_serialize(connection.get(), "main", &size, 0));
    if (!memory)
        return {ENOMEM, "does not fit into memory"};
    image.assign(reinterpret_cast<const char *>(memory.get()), static_cast<std::size_t>(size));
    return {};
}

bool SettingsImage::endWriteAheadMode(std::string &image)
{
    constexpr char writeAhead = 2;
    if (image.size() < headerSize || image[formatsAt + 1] != writeAhead)
        return false;
    image[formatsAt] = 1;
    image[formatsAt + 1] = 1;
    return true;
}
