#include "database/postgresql/engine.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/case.h"
#include "cuvexa/errors.h"
#include "database/postgresql/results.h"

namespace cuvexa::postgresql {
namespace {

using dialect::Translation;

// A shape longer than this goes as text, so that what is kept stays small whatever the texts.
constexpr std::size_t longest_kept_shape = 16 * 1024;
constexpr std::size_t most_parameters = 250;
constexpr std::size_t largest_idle_buffer = 256 * 1024;

// For a parameter that stands nowhere, because its literal stayed in the text.
constexpr Oid text_type = 25;

template <std::size_t count>
bool is_one_of(std::string_view word, const std::array<std::string_view, count>& words) {
    return std::any_of(words.begin(), words.end(), [&](std::string_view each) { return same_text(word, each); });
}

constexpr std::array<std::string_view, 5> with_rows = {"SELECT", "INSERT", "UPDATE", "DELETE", "WITH"};
constexpr std::array<std::string_view, 2> ends_of_transactions = {"COMMIT", "ROLLBACK"};

// The server has forgotten the name, as after DISCARD ALL; or the table has other columns now.
bool is_outdated(const PGresult* result) {
    if (!failed(result)) return false;
    const std::string_view state = state_of(result);
    if (state == "26000") return true;
    const char* const message = PQresultErrorField(result, PG_DIAG_SOURCE_FUNCTION);
    return state == "0A000" && message != nullptr && std::string_view(message) == "RevalidateCachedQuery";
}

}  // namespace

Engine::Engine(const std::string& conninfo, const Postgresql_options& options)
    : session_(conninfo, options),
      interpreter_(session_.server(), [this](std::string_view text) { return rows_of(session_.run(text).get()); }),
      kept_(std::max<std::size_t>(options.kept_statements, 1)),
      keeps_(options.kept_statements > 0),
      queue_table_(options.queue_table) {}

std::unique_ptr<Recordset> Engine::execute(std::string_view text) {
    auto rows = rows_of(run(text).get());
    shape_.shrink(largest_idle_buffer);
    if (texts_.capacity() > largest_idle_buffer) texts_ = {};
    return rows;
}

void Engine::prepare_database() {
    if (!session_.server().preparation.empty()) session_.run(session_.server().preparation);
    if (rows_of(session_.run(session_.server().letters_are_equal).get())->eof()) {
        throw Database_error(
            "La base de datos distingue mayúsculas de minúsculas; créela con una intercalación que no las distinga");
    }
}

std::optional<Replica> Engine::replica() {
    return session_.server().replica_told([this](std::string_view text) { return rows_of(session_.run(text).get()); });
}

Result Engine::run(std::string_view text) {
    const auto& tokens = interpreter_.read(text);
    const std::string_view verb = tokens.front().in(text);
    if (same_text(verb, "BEGIN")) {
        session_.begin_with_next(beginning(text));
        return {};
    }
    if (!is_one_of(verb, with_rows)) {
        // Nothing of the unit has been sent.
        if (is_one_of(verb, ends_of_transactions) && session_.drop_begin()) return {};
        // After a definition, or DISCARD ALL, what was known of names and types may be so no more.
        if (!is_one_of(verb, ends_of_transactions)) kept_.forget_all();
        return run_as_text(text);
    }
    shape_.read(text, tokens);
    if (!keeps_ || shape_.marked().size() > longest_kept_shape || session_.transaction_failed()) {
        return run_as_text(text);
    }
    for (;;) {
        const Kept_statement* kept = kept_.find(shape_);
        const bool fresh = kept == nullptr;
        if (fresh) kept = &prepare(text);
        if (!kept->prepared) {
            try {
                return run_as_text(text);
            } catch (const Database_error&) {
                // It may be prepared yet, when the table that is missing now has been made.
                kept_.forget_last_used();
                throw;
            }
        }
        Result result = run_prepared(*kept);
        if (!failed(result.get())) return result;
        const bool again = is_outdated(result.get());
        if (again) kept_.forget_last_used();
        if (!again || fresh || session_.in_transaction()) session_.refuse(result.get());
    }
}

// A unit that met another one in its way mostly comes again, and meets the next: what it is to see of the rows is settled by its
// first statement, long before it comes to the row that all of them change. Locking a table settles nothing yet, so those who
// come again wait there for one another.
std::vector<std::string> Engine::beginning(std::string_view text) {
    std::vector<std::string> texts = {interpreter_.translation(text).with_literals()};
    const std::uint64_t conflicts = session_.conflicts();
    if (std::exchange(conflicts_seen_, conflicts) != conflicts && may_queue()) {
        texts.push_back("LOCK TABLE " + queue_table_ + " IN SHARE UPDATE EXCLUSIVE MODE");
    }
    return texts;
}

bool Engine::may_queue() {
    if (!queue_is_known_ && !queue_table_.empty()) {
        const auto rows =
            rows_of(session_
                        .run("SELECT 1 WHERE NOT pg_is_in_recovery() AND has_table_privilege(to_regclass('" +
                             queue_table_ + "')::oid, 'UPDATE')")
                        .get());
        if (rows->eof()) queue_table_.clear();
        queue_is_known_ = true;
    }
    return !queue_table_.empty();
}

Result Engine::run_as_text(std::string_view text) {
    return session_.run(interpreter_.translation(text).with_literals());
}

Kept_statement& Engine::prepare(std::string_view text) {
    const Translation translation = interpreter_.translation(text);
    Kept_statement kept;
    kept.shape = shape_.marked();
    const std::vector<std::size_t> pinned = translation.pinned();
    for (const std::size_t literal : pinned) kept.pinned.emplace_back(literal, shape_.literal(literal));
    if (translation.takes_parameters() && shape_.literals() <= most_parameters) {
        kept.prepared = prepared(translation, pinned);
    }
    return *kept_.keep(std::move(kept));
}

Prepared Engine::prepared(const Translation& translation, const std::vector<std::size_t>& pinned) {
    std::vector<Oid> types;
    for (std::size_t literal = 0; literal < shape_.literals(); ++literal) types.push_back(type_of(shape_, literal));
    for (const std::size_t literal : pinned) types[literal] = text_type;
    std::string name = "cuvexa_" + std::to_string(++preparations_);
    if (!session_.prepare(name, translation.with_parameters('$'), types)) return {};
    return Prepared(session_, std::move(name));
}

Result Engine::run_prepared(const Kept_statement& kept) {
    fill_values();
    return session_.run_prepared(kept.prepared.name(), values_);
}

void Engine::fill_values() {
    texts_.clear();
    std::vector<std::size_t> begins;
    std::string scratch;
    for (std::size_t literal = 0; literal < shape_.literals(); ++literal) {
        const std::string_view text = shape_.literal(literal);
        begins.push_back(texts_.size());
        texts_.append(shape_.is_number(literal) ? text : dialect::text_content(text, scratch)).push_back('\0');
    }
    values_.clear();
    for (const std::size_t begin : begins) values_.push_back(texts_.data() + begin);
}

}  // namespace cuvexa::postgresql
