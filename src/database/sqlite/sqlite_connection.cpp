#include "cuvexa/database/sqlite_connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <list>
#include <system_error>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/case.h"
#include "cuvexa/errors.h"
#include "database/dialect/dialect.h"
#include "database/dialect/lexer.h"
#include "database/row_set.h"
#include "database/sqlite/functions.h"

namespace cuvexa {
namespace {

// A shape longer than this is run and forgotten, so that what is kept stays small whatever the texts.
constexpr std::size_t longest_kept_shape = 16 * 1024;
// The engine compares the parameters of a statement in pairs; a long list costs less with its literals in place.
constexpr std::size_t most_parameters = 250;

constexpr std::size_t largest_idle_buffer = 256 * 1024;

struct Statement_closer {
    void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Statement_closer>;

struct Database_closer {
    void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, Database_closer>;

const char* operator_text(int code) {
    switch (code & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "La base de datos está ocupada por otro programa";
        case SQLITE_READONLY:
            return "La base de datos es de solo lectura";
        case SQLITE_FULL:
            return "No hay espacio en el disco para la base de datos";
        case SQLITE_IOERR:
            return "Error al leer o escribir el archivo de la base de datos";
        case SQLITE_CANTOPEN:
            return "No es posible abrir el archivo de la base de datos";
        case SQLITE_NOTADB:
            return "El archivo no es una base de datos";
        case SQLITE_CORRUPT:
            return "El archivo de la base de datos está dañado";
        default:
            return nullptr;
    }
}

// What concerns the file is said in the operator's language, with the engine's words after it; what concerns the
// statement is said in the engine's words alone.
std::string description(sqlite3* database, int code) {
    const std::string engine = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
    const char* text = operator_text(code);
    return text == nullptr ? engine : std::string(text) + " (" + engine + ")";
}

[[noreturn]] void fail(sqlite3* database, int code) {
    throw Database_error(description(database, code));
}

void run(sqlite3* database, const std::string& text) {
    if (const int code = sqlite3_exec(database, text.c_str(), nullptr, nullptr, nullptr); code != SQLITE_OK)
        fail(database, code);
}

std::string pragma(sqlite3* database, const char* text) {
    sqlite3_stmt* raw = nullptr;
    int code = sqlite3_prepare_v2(database, text, -1, &raw, nullptr);
    const Statement statement(raw);
    if (code == SQLITE_OK) code = sqlite3_step(raw);
    if (code != SQLITE_ROW) fail(database, code);
    const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(raw, 0));
    return value == nullptr ? std::string() : value;
}

// The engine does not wait by itself when two programs meet in this change.
void use_write_ahead_log(sqlite3* database, int timeout_ms) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
    while (pragma(database, "PRAGMA journal_mode") == "delete") {
        const int code = sqlite3_exec(database, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
        if (code == SQLITE_OK) return;
        if ((code & 0xFF) != SQLITE_BUSY || std::chrono::steady_clock::now() >= deadline) fail(database, code);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

const char* name_of(Synchronous synchronous) {
    switch (synchronous) {
        case Synchronous::normal:
            return "NORMAL";
        case Synchronous::off:
            return "OFF";
        case Synchronous::full:
            break;
    }
    return "FULL";
}

void configure(sqlite3* database, const Sqlite_options& options) {
    sqlite3_extended_result_codes(database, 1);
    sqlite3_busy_timeout(database, options.busy_timeout_ms);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    pragma(database, "PRAGMA schema_version");
    if (!options.read_only) use_write_ahead_log(database, options.busy_timeout_ms);
    run(database, std::string("PRAGMA synchronous = ") + name_of(options.synchronous));
    run(database, "PRAGMA cache_size = -65536");
    run(database, "PRAGMA temp_store = MEMORY");
    install_functions(database);
}

Database open_database(const std::string& path, const Sqlite_options& options) {
    int flags = options.read_only ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if ((options.create && !options.read_only) || path == ":memory:") flags |= SQLITE_OPEN_CREATE;
    sqlite3* raw = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    Database database(raw);
    try {
        if (code != SQLITE_OK) fail(raw, code);
        configure(raw, options);
    } catch (const Database_error& error) {
        throw Database_error(std::string(error.what()) + ": " + path);
    }
    return database;
}

void bind_number(sqlite3_stmt* statement, int parameter, std::string_view text) {
    std::int64_t whole = 0;
    const char* end = text.data() + text.size();
    if (const auto [stop, error] = std::from_chars(text.data(), end, whole); error == std::errc() && stop == end) {
        sqlite3_bind_int64(statement, parameter, whole);
        return;
    }
    double real = 0;
    if (std::from_chars(text.data(), end, real).ec == std::errc::result_out_of_range)
        real = std::strtod(std::string(text).c_str(), nullptr);
    sqlite3_bind_double(statement, parameter, real);
}

struct Kept_statement {
    std::string shape;
    std::vector<std::pair<std::size_t, std::string>> pinned;  ///< literals that stayed in the text
    Statement statement;
    Column_names columns;
    int parameters = 0;
    int repreparations = 0;
};

Column_names names_of(sqlite3_stmt* statement) {
    auto names = std::make_shared<std::vector<std::string>>();
    const int count = sqlite3_column_count(statement);
    names->reserve(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column) {
        const char* name = sqlite3_column_name(statement, column);
        names->emplace_back(name == nullptr ? "" : name);
    }
    return names;
}

void add_row(Row_set& rows, sqlite3_stmt* statement) {
    const int count = sqlite3_column_count(statement);
    for (int column = 0; column < count; ++column) {
        switch (sqlite3_column_type(statement, column)) {
            case SQLITE_INTEGER:
                rows.add(static_cast<std::int64_t>(sqlite3_column_int64(statement, column)));
                break;
            case SQLITE_FLOAT:
                rows.add(sqlite3_column_double(statement, column));
                break;
            case SQLITE_NULL:
                rows.add_null();
                break;
            default: {
                const void* bytes = sqlite3_column_blob(statement, column);
                const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
                rows.add(std::string_view(static_cast<const char*>(bytes), bytes == nullptr ? 0 : size));
            }
        }
    }
}

/// Whatever happens, the statement is ready for its next use and lets go of the texts it was given.
class Use {
public:
    explicit Use(sqlite3_stmt* statement) : statement_(statement) {}
    ~Use() {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    sqlite3_stmt* statement_;
};

}  // namespace

class Sqlite_connection::Engine {
public:
    Engine(const std::string& path, const Sqlite_options& options)
        : database_(open_database(path, options)), limit_(std::max<std::size_t>(options.kept_statements, 1)) {}

    std::unique_ptr<Recordset> execute(std::string_view text) {
        tokenize(text, tokens_);
        if (tokens_.empty()) refuse_empty();
        read_shape(text);
        Kept_statement* kept = find(text);
        Kept_statement passing;
        if (kept == nullptr) {
            passing = prepare(text);
            kept = shape_.size() <= longest_kept_shape && passing.parameters >= 0 ? keep(std::move(passing)) : &passing;
        }
        auto rows = run_statement(*kept, text);
        if (shape_.capacity() > largest_idle_buffer) shape_ = {};
        if (tokens_.capacity() * sizeof(Token) > largest_idle_buffer) tokens_ = {};
        return rows;
    }

    sqlite3* handle() const noexcept { return database_.get(); }
    std::size_t kept() const noexcept { return kept_.size(); }
    std::uint64_t translations() const noexcept { return translations_; }

private:
    // The text with a mark in place of each literal. Neither mark occurs in a text that the lexer lets through.
    void read_shape(std::string_view text) {
        shape_.clear();
        literals_.clear();
        std::size_t from = 0;
        for (const Token& token : tokens_) {
            if (!token.is_literal()) continue;
            shape_.append(text, from, token.begin - from);
            shape_.push_back(token.kind == Token_kind::text ? '?' : '\0');
            literals_.push_back(token);
            from = token.begin + token.length;
        }
        shape_.append(text, from);
    }

    Kept_statement* find(std::string_view text) {
        const auto [first, last] = by_shape_.equal_range(shape_);
        for (auto it = first; it != last; ++it) {
            const auto& pinned = it->second->pinned;
            const bool same = std::all_of(pinned.begin(), pinned.end(), [&](const auto& literal) {
                return literals_[literal.first].in(text) == literal.second;
            });
            if (!same) continue;
            kept_.splice(kept_.begin(), kept_, it->second);
            return &kept_.front();
        }
        return nullptr;
    }

    Kept_statement prepare(std::string_view text) {
        ++translations_;
        const Translation translation = cuvexa::translate(text, tokens_, sqlite_dialect());
        Kept_statement result;
        result.shape = shape_;
        if (translation.takes_parameters() && literals_.size() <= most_parameters)
            result.statement = try_prepare(translation.with_parameters());
        if (result.statement) {
            for (const std::size_t literal : translation.pinned())
                result.pinned.emplace_back(literal, literals_[literal].in(text));
            result.parameters = sqlite3_bind_parameter_count(result.statement.get());
        } else {
            // With its literals in place the statement may be accepted after all; if not, the engine names them.
            result.statement = try_prepare(translation.with_literals());
            if (!result.statement) fail_unprepared();
            result.parameters = -1;
        }
        result.columns = names_of(result.statement.get());
        return result;
    }

    Statement try_prepare(const std::string& text) {
        sqlite3_stmt* raw = nullptr;
        sqlite3_prepare_v3(database_.get(), text.data(), static_cast<int>(text.size() + 1), SQLITE_PREPARE_PERSISTENT,
                           &raw, nullptr);
        return Statement(raw);
    }

    [[noreturn]] void fail_unprepared() const {
        const int code = sqlite3_extended_errcode(database_.get());
        if (code == SQLITE_OK) refuse_empty();
        fail(database_.get(), code);
    }

    [[noreturn]] static void refuse_empty() { throw Database_error("La instrucción está vacía"); }

    Kept_statement* keep(Kept_statement&& statement) {
        while (kept_.size() >= limit_) forget_oldest();
        kept_.push_front(std::move(statement));
        by_shape_.emplace(kept_.front().shape, kept_.begin());
        return &kept_.front();
    }

    void forget_oldest() {
        const auto oldest = std::prev(kept_.end());
        const auto [first, last] = by_shape_.equal_range(oldest->shape);
        by_shape_.erase(std::find_if(first, last, [&](const auto& entry) { return entry.second == oldest; }));
        kept_.pop_back();
    }

    std::unique_ptr<Recordset> run_statement(Kept_statement& kept, std::string_view text) {
        sqlite3_stmt* const statement = kept.statement.get();
        const Use use(statement);
        bind(kept, text);
        int code = sqlite3_step(statement);
        refresh_columns(kept);
        auto rows = std::make_unique<Row_set>(kept.columns);
        for (; code == SQLITE_ROW; code = sqlite3_step(statement)) add_row(*rows, statement);
        if (code != SQLITE_DONE) fail(database_.get(), code);
        if (kept.columns->empty()) rows->set_changes(sqlite3_changes64(database_.get()));
        return rows;
    }

    // The engine prepares anew by itself when the schema has changed; `SELECT *` may then give other columns.
    static void refresh_columns(Kept_statement& kept) {
        const int count = sqlite3_stmt_status(kept.statement.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
        if (count == kept.repreparations) return;
        kept.repreparations = count;
        kept.columns = names_of(kept.statement.get());
    }

    void bind(const Kept_statement& kept, std::string_view text) {
        const std::size_t count = std::min(literals_.size(), static_cast<std::size_t>(std::max(kept.parameters, 0)));
        for (std::size_t i = 0; i < count; ++i) {
            const std::string_view literal = literals_[i].in(text);
            const int parameter = static_cast<int>(i + 1);
            if (literals_[i].kind == Token_kind::number)
                bind_number(kept.statement.get(), parameter, literal);
            else
                bind_text(kept.statement.get(), parameter, literal);
        }
    }

    void bind_text(sqlite3_stmt* statement, int parameter, std::string_view literal) {
        const std::string_view content = text_content(literal, scratch_);
        const bool in_scratch = content.data() == scratch_.data();
        const int code = sqlite3_bind_text64(statement, parameter, content.data(), content.size(),
                                             in_scratch ? SQLITE_TRANSIENT : SQLITE_STATIC, SQLITE_UTF8);
        if (code != SQLITE_OK) fail(database_.get(), code);
        if (scratch_.capacity() > largest_idle_buffer) scratch_ = {};
    }

    Database database_;
    std::size_t limit_;
    std::uint64_t translations_ = 0;

    std::list<Kept_statement> kept_;  ///< last used first
    std::unordered_multimap<std::string_view, std::list<Kept_statement>::iterator> by_shape_;

    std::vector<Token> tokens_;
    std::vector<Token> literals_;
    std::string shape_;
    std::string scratch_;
};

Synchronous synchronous_named(std::string_view name) {
    for (const Synchronous value : {Synchronous::full, Synchronous::normal, Synchronous::off})
        if (same_text(name, name_of(value))) return value;
    throw Database_error("No existe la sincronización: " + std::string(name) + " (full, normal, off)");
}

Sqlite_connection::Sqlite_connection(const std::string& path, const Sqlite_options& options)
    : engine_(std::make_unique<Engine>(path, options)) {}

Sqlite_connection::~Sqlite_connection() = default;

std::unique_ptr<Recordset> Sqlite_connection::execute(std::string_view text) {
    if (!engine_) throw Database_error("La conexión está cerrada");
    return engine_->execute(text);
}

std::string Sqlite_connection::translate(std::string_view text) const {
    std::vector<Token> tokens;
    tokenize(text, tokens);
    return cuvexa::translate(text, tokens, sqlite_dialect()).with_literals();
}

std::int64_t Sqlite_connection::changes() const noexcept {
    return engine_ ? sqlite3_changes64(engine_->handle()) : 0;
}

void Sqlite_connection::close() noexcept {
    engine_.reset();
}

std::size_t Sqlite_connection::kept_statements() const noexcept {
    return engine_ ? engine_->kept() : 0;
}

std::uint64_t Sqlite_connection::translations() const noexcept {
    return engine_ ? engine_->translations() : 0;
}

sqlite3* Sqlite_connection::handle() const noexcept {
    return engine_ ? engine_->handle() : nullptr;
}

sqlite3* open_sqlite(const std::string& path, const Sqlite_options& options) {
    return open_database(path, options).release();
}

}  // namespace cuvexa
