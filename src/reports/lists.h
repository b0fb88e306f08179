// Lists of documents, page by page: each page begins behind the last row of the one before, wherever that stands by then.
#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "reports/views.h"

namespace cuvexa::reports {

/// A question that a list does not understand; the text says what is wrong with it.
class Bad_question : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

enum class Order {
    newest_first,  ///< by date, then folio; documents without a date are not among them
    by_key,
};

/// Which rows of a list; what is not given does not limit.
struct Question {
    Order order = Order::newest_first;
    std::optional<Date> from = {};
    std::optional<Date> to = {};  ///< that day included
    std::string state = {};
    std::string branch = {};
    std::string account = {};
    std::string text = {};                 ///< somewhere in the texts of the view, in either case
    std::optional<double> amount = {};     ///< to the cent, whatever its sign
    std::vector<std::string> behind = {};  ///< the place where the page before ended
    std::size_t limit = 100;
};

struct Page {
    Table table;
    std::vector<std::string> next = {};  ///< the place where this page ended; empty when it is the last
};

/// How many documents one page looks at when it searches for what no index leads to.
constexpr std::size_t searched_documents = 10'000;

/// Throws `Bad_question`, and `Database_error`.
Page read_list(const Source& source, const View& view, const Question& question);

/// The row of one document, or account; nothing when there is none. Throws `Database_error`.
std::optional<Row> read_document_row(const Source& source, const View& view, const std::string& key);

/// The rows of a view that a condition selects, by key. Throws `Database_error`.
std::vector<Row> read_rows_where(const Source& source, const View& view, const std::string& condition,
                                 std::size_t most);

}  // namespace cuvexa::reports
