// How documents lead to each other, and what tells of their lives: one table for each kind.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace cuvexa::reports {

/// The documents of a view that belong to one document. In the condition "{}" is the folio, in quotes.
struct Relation {
    std::string_view name;  ///< as a person reads it
    std::string_view view;
    std::string_view condition;
};

/// What happened through another row: a query of Quien, Cuando, Estado, and of the Folio of a document of `view`.
struct Event_source {
    std::string_view name;
    std::string_view view;  ///< empty: Folio is empty too
    std::string_view query;
};

/// The columns of a header that name another document: its code and its folio.
struct Reference {
    std::string_view code;
    std::string_view folio;
};

struct Document_links {
    std::string_view view;
    Reference named = {};
    std::string_view initial_state = {};     ///< of one that was captured; empty: it depends
    std::string_view registered_state = {};  ///< after its registration; empty: as before
    std::string_view paid_where = {};        ///< condition of its own payments, of receivables and payables
    std::span<const Relation> relations = {};
    std::span<const Event_source> events = {};
};

/// Of the view of that name; there must be one.
const Document_links& links_of(std::string_view view);

/// A text with its "{}" replaced by a folio in quotes.
std::string with_folio(std::string_view text, std::string_view folio);

}  // namespace cuvexa::reports
