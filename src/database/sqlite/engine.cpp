#include "database/sqlite/engine.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <new>
#include <system_error>
#include <utility>

#include "cuvexa/errors.h"
#include "database/dialect/sqlite.h"
#include "database/dialect/translation.h"
#include "database/row_set.h"

namespace cuvexa::sqlite {
namespace {

using database::Column_names;
using database::Row_set;
using dialect::Token;
using dialect::Translation;

// A shape longer than this is run and forgotten, so that what is kept stays small whatever the texts.
constexpr std::size_t longest_kept_shape = 16 * 1024;
// The engine compares the parameters of a statement in pairs; a long list costs less with its literals in place.
constexpr std::size_t most_parameters = 250;

constexpr std::size_t largest_idle_buffer = 256 * 1024;

[[noreturn]] void refuse_empty() {
    throw Database_error("La instrucción está vacía");
}

void bind_number(sqlite3_stmt* statement, int parameter, std::string_view text) {
    std::int64_t whole = 0;
    const char* end = text.data() + text.size();
    if (const auto [stop, error] = std::from_chars(text.data(), end, whole); error == std::errc() && stop == end) {
        sqlite3_bind_int64(statement, parameter, whole);
        return;
    }
    double real = 0;
    if (std::from_chars(text.data(), end, real).ec == std::errc::result_out_of_range) {
        real = std::strtod(std::string(text).c_str(), nullptr);
    }
    if (!std::isfinite(real)) database::refuse_no_number();
    sqlite3_bind_double(statement, parameter, real);
}

Column_names names_of(sqlite3_stmt* statement) {
    auto names = std::make_shared<std::vector<std::string>>();
    const int count = sqlite3_column_count(statement);
    names->reserve(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column) {
        const char* name = sqlite3_column_name(statement, column);
        if (name == nullptr) throw std::bad_alloc();  // kept, it would be missed each time
        names->emplace_back(name);
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

// The engine prepares anew by itself when the schema has changed; `SELECT *` may then give other columns. Whether it did.
bool refresh_columns(Kept_statement& kept) {
    const int count = sqlite3_stmt_status(kept.statement.get(), SQLITE_STMTSTATUS_REPREPARE, 0);
    if (count == kept.repreparations) return false;
    kept.repreparations = count;
    kept.columns = names_of(kept.statement.get());
    return true;
}

/// Whatever happens, the statement is ready for its next use and lets go of the texts it was given.
class Use {
public:
    Use(sqlite3_stmt* statement, Statement_clock& clock) : statement_(statement), clock_(clock) { clock_.start(); }
    ~Use() {
        clock_.stop();
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    sqlite3_stmt* statement_;
    Statement_clock& clock_;
};

// Called by the engine after so many of its steps, to be told whether to stop.
constexpr int steps_between_looks = 10'000;

int is_over_time(void* clock) noexcept {
    return static_cast<const Statement_clock*>(clock)->is_over() ? 1 : 0;
}

}  // namespace

Engine::Engine(const std::string& path, const Sqlite_options& options)
    : clock_(options.statement_timeout_s, options.interrupt),
      database_(open_database(path, options)),
      kept_(std::max<std::size_t>(options.kept_statements, 1)) {
    answers_.install(database_.get());
    if (clock_.is_watching()) {
        sqlite3_progress_handler(database_.get(), steps_between_looks, is_over_time, &clock_);
    }
}

std::unique_ptr<Recordset> Engine::execute(std::string_view text) {
    tokenize(text, tokens_);
    if (tokens_.empty()) refuse_empty();
    shape_.read(text, tokens_);
    Kept_statement* kept = kept_.find(shape_);
    Kept_statement passing;
    if (kept == nullptr) {
        passing = prepare(text);
        const bool keeps = shape_.marked().size() <= longest_kept_shape && passing.parameters >= 0;
        kept = keeps ? kept_.keep(std::move(passing)) : &passing;
    }
    auto rows = run(*kept);
    shrink_buffers();
    return rows;
}

Kept_statement Engine::prepare(std::string_view text) {
    ++translations_;
    const Translation translation = dialect::translate(text, tokens_, dialect::sqlite);
    Kept_statement result;
    result.shape = shape_.marked();
    if (translation.takes_parameters() && shape_.literals() <= most_parameters) {
        result.statement = try_prepare(translation.with_parameters());
    }
    if (result.statement) {
        for (const std::size_t literal : translation.pinned()) {
            result.pinned.emplace_back(literal, shape_.literal(literal));
        }
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

Statement Engine::try_prepare(const std::string& text) {
    sqlite3_stmt* raw = nullptr;
    sqlite3_prepare_v3(database_.get(), text.data(), static_cast<int>(text.size() + 1), SQLITE_PREPARE_PERSISTENT, &raw,
                       nullptr);
    return Statement(raw);
}

void Engine::fail_unprepared() const {
    const int code = sqlite3_extended_errcode(database_.get());
    if (code == SQLITE_OK) refuse_empty();
    fail(database_.get(), code);
}

std::unique_ptr<Recordset> Engine::run(Kept_statement& kept) {
    sqlite3_stmt* const statement = kept.statement.get();
    const Use use(statement, clock_);
    answers_.forget();
    bind(kept);
    // Made before it runs: what changes something must not fail for want of memory when it has.
    auto rows = std::make_unique<Row_set>(kept.columns);
    int code = sqlite3_step(statement);
    if (!kept.columns->empty() && refresh_columns(kept)) rows = std::make_unique<Row_set>(kept.columns);
    for (; code == SQLITE_ROW; code = sqlite3_step(statement)) add_row(*rows, statement);
    if (code != SQLITE_DONE) fail_running(code);
    if (kept.columns->empty()) rows->set_changes(sqlite3_changes64(database_.get()));
    return rows;
}

void Engine::fail_running(int code) const {
    if ((code & 0xFF) != SQLITE_INTERRUPT) fail(database_.get(), code);
    if (clock_.is_interrupted()) throw Database_error("La instrucción se interrumpió");
    throw Database_error("La instrucción tardó más de " + std::to_string(clock_.limit().count()) +
                         " segundos y se interrumpió (" + sqlite3_errmsg(database_.get()) + ")");
}

void Engine::bind(const Kept_statement& kept) {
    const std::size_t count = std::min(shape_.literals(), static_cast<std::size_t>(std::max(kept.parameters, 0)));
    for (std::size_t i = 0; i < count; ++i) {
        const int parameter = static_cast<int>(i + 1);
        if (shape_.is_number(i)) {
            bind_number(kept.statement.get(), parameter, shape_.literal(i));
        } else {
            bind_text(kept.statement.get(), parameter, shape_.literal(i));
        }
    }
}

void Engine::bind_text(sqlite3_stmt* statement, int parameter, std::string_view literal) {
    const std::string_view content = dialect::text_content(literal, scratch_);
    const bool in_scratch = content.data() == scratch_.data();
    const int code = sqlite3_bind_text64(statement, parameter, content.data(), content.size(),
                                         in_scratch ? SQLITE_TRANSIENT : SQLITE_STATIC, SQLITE_UTF8);
    if (code != SQLITE_OK) fail(database_.get(), code);
}

// An uncommonly long text leaves nothing behind.
void Engine::shrink_buffers() {
    shape_.shrink(largest_idle_buffer);
    if (tokens_.capacity() * sizeof(Token) > largest_idle_buffer) tokens_ = {};
    if (scratch_.capacity() > largest_idle_buffer) scratch_ = {};
}

}  // namespace cuvexa::sqlite
