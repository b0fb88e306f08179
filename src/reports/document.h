// One document's page: its header and lines, what it moved and owes, its life, and the ways to other documents.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/views.h"

namespace cuvexa::reports {

/// A document by the name of its view and its folio; an account likewise. Empty: none.
struct Address {
    std::string_view kind = {};
    std::string folio = {};

    bool operator==(const Address&) const = default;
};

/// Something that happened to a document, and the state it was in then; empty when nothing tells the state.
struct Event {
    std::string name;
    std::string who;
    std::string when;
    std::string state;
    Address document = {};  ///< through which it happened
};

struct Link {
    std::string relation;
    Address to;
};

/// Rows of another view that belong to the document; vouchers have their lines beside them.
struct Related_rows {
    std::string_view name;
    Table table;
    std::vector<Table> lines = {};
};

struct Document {
    const View* view = nullptr;
    std::string folio;
    std::string state;
    Row header;
    Table lines;
    std::vector<Event> life;
    std::vector<Link> links;
    std::vector<Related_rows> related;  ///< movements, receivables, payables, advances, payments, vouchers
};

/// How many documents of one kind a page leads to, at most.
constexpr std::size_t related_documents = 1000;

/// Nothing when there is no such document. Throws `Database_error`.
std::optional<Document> read_document(const Source& source, const View& view, const std::string& folio);

}  // namespace cuvexa::reports
