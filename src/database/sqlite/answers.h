// What a statement under way remembers of its sub-selects, so that it asks once for each key (dialect/rewrite_repeated.cpp).
#pragma once

#include <map>
#include <memory>
#include <string>

struct sqlite3;
struct sqlite3_value;

namespace cuvexa::sqlite {

/// Adds to an open SQLite handle, which it must outlive:
/// - cuvexa_recall(n, key): the answer of the n-th sub-select to that key; NULL when it has none yet;
/// - cuvexa_remember(n, key, answer): the answer, kept until `forget`.
class Answers {
public:
    Answers() = default;
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;

    /// Throws `Database_error` when the engine does not take them.
    void install(sqlite3* database);

    /// Before each statement.
    void forget() noexcept { kept_.clear(); }

    /// Null when there is none.
    sqlite3_value* find(sqlite3_value* number, sqlite3_value* key) const;
    void keep(sqlite3_value* number, sqlite3_value* key, sqlite3_value* answer);

private:
    struct Free {
        void operator()(sqlite3_value* value) const noexcept;
    };

    std::map<std::string, std::unique_ptr<sqlite3_value, Free>, std::less<>> kept_;
};

}  // namespace cuvexa::sqlite
