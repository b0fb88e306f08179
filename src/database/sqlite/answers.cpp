#include "database/sqlite/answers.h"

#include <sqlite3.h>

#include <new>

#include "cuvexa/errors.h"
#include "database/sqlite/functions.h"

namespace cuvexa::sqlite {
namespace {

/// Number and key as one text.
std::string mark_of(sqlite3_value* number, sqlite3_value* key) {
    return std::string(text_of(number)).append(" ").append(text_of(key));
}

bool is_null(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

// The engine is C: nothing may be thrown through the two.

void recall(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
    if (is_null(arguments[1])) return sqlite3_result_null(context);
    try {
        sqlite3_value* const answer =
            static_cast<Answers*>(sqlite3_user_data(context))->find(arguments[0], arguments[1]);
        if (answer == nullptr) return sqlite3_result_null(context);
        sqlite3_result_value(context, answer);
    } catch (...) {
        sqlite3_result_error_nomem(context);
    }
}

void remember(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
    try {
        if (!is_null(arguments[1])) {
            static_cast<Answers*>(sqlite3_user_data(context))->keep(arguments[0], arguments[1], arguments[2]);
        }
        sqlite3_result_value(context, arguments[2]);
    } catch (...) {
        sqlite3_result_error_nomem(context);
    }
}

}  // namespace

void Answers::Free::operator()(sqlite3_value* value) const noexcept {
    sqlite3_value_free(value);
}

void Answers::install(sqlite3* database) {
    constexpr int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS;
    const int failures =
        sqlite3_create_function_v2(database, "cuvexa_recall", 2, flags, this, recall, nullptr, nullptr, nullptr) |
        sqlite3_create_function_v2(database, "cuvexa_remember", 3, flags, this, remember, nullptr, nullptr, nullptr);
    if (failures != SQLITE_OK) throw Database_error(sqlite3_errmsg(database));
}

sqlite3_value* Answers::find(sqlite3_value* number, sqlite3_value* key) const {
    const auto found = kept_.find(mark_of(number, key));
    return found == kept_.end() ? nullptr : found->second.get();
}

void Answers::keep(sqlite3_value* number, sqlite3_value* key, sqlite3_value* answer) {
    std::unique_ptr<sqlite3_value, Free> copy(sqlite3_value_dup(answer));
    if (!copy) throw std::bad_alloc();
    kept_.insert_or_assign(mark_of(number, key), std::move(copy));
}

}  // namespace cuvexa::sqlite
