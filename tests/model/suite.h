// The suite's services once more: session, data, payment methods, document payments. Payables, receivables and
// accounting have files of their own.
//
// They follow docs/reference-suite.md. What it leaves open follows the suite itself: the words of the refusals, what the
// services write into comments, concepts and references, and which of several rows comes first.
#pragma once

#include <initializer_list>

#include "model/database.h"

namespace cuvexa::model {

/// A date, a user and the tables: what all services work on.
struct Suite {
    Database& db;
    Date now;  ///< the server's date and time
    Text user;

    Text stamp() const { return sql_date_time(now); }

    // ---- Session ----------------------------------------------------------------------------------------------------

    Text parameter(const Text& name, const Text& fallback = {}) const;
    bool flag(const Text& name) const;
    Text server_id() const;
    bool is_replica() const;

    // ---- Data -------------------------------------------------------------------------------------------------------

    /// `column` of the active row whose key equals and that meets `also`; empty when there is none.
    template <class Row, class Column, class Also>
    Text look_up(const Table<Row>& table, Column Row::*column, Text Row::*key_column, const Text& key,
                 Also&& also) const;
    template <class Row, class Column>
    Text look_up(const Table<Row>& table, Column Row::*column, Text Row::*key_column, const Text& key) const {
        return look_up(table, column, key_column, key, [](const Row&) { return true; });
    }

    /// Empty, with the reason in `why`, when the series is closed.
    Text next_folio(const Text& branch, const Text& document_code, Text& why);
    /// The same for a service, which refuses.
    Text take_folio(const Text& branch, const Text& document_code);

    bool is_period_open(Date date, const Text& module) const { return period_state(date, module) == "AB"; }
    bool is_period_closed(Date date, const Text& module) const { return period_state(date, module) == "CE"; }

    void register_document(const Text& document_code, const Text& folio);
    bool is_posted(const Text& document_code, const Text& folio) const;

private:
    Text period_state(Date date, const Text& module) const;
};

/// A service: its operations answer False for a refusal and leave the text here.
struct Service {
    explicit Service(Suite& suite) : suite(suite), db(suite.db) {}

    Suite& suite;
    Database& db;
    Text LastError;

    template <class Body>
    bool serve(Body&& body) {
        LastError.clear();
        try {
            body();
            return true;
        } catch (const Refusal& refusal) {
            LastError = refusal.text;
            return false;
        }
    }
};

/// Refuses with the pieces of a text put together.
void refuse_if(bool condition, std::initializer_list<std::string_view> pieces);

struct Data_services : Service {
    using Service::Service;
    Text GetNextFolio(const Text& branch, const Text& document_code);
    bool RegisterDocument(const Text& document_code, const Text& folio);
    bool IsDocumentPosted(const Text& document_code, const Text& folio);
};

struct Payment_methods : Service {
    using Service::Service;
    bool ValidatePaymentLine(const Text& method, const Text& reference, const Text& bank);
    bool ReleasePaymentLine() { return true; }
};

struct Document_payments : Service {
    using Service::Service;
    bool CancelDocumentPayments(const Text& document_code, const Text& folio);
};

template <class Row, class Column, class Also>
Text Suite::look_up(const Table<Row>& table, Column Row::*column, Text Row::*key_column, const Text& key,
                    Also&& also) const {
    for (const Row& row : table.rows()) {
        if (!same(row.*key_column, key) || !differs(row.Es_Cve_Estado, "BA") || !also(row)) continue;
        if constexpr (std::is_same_v<Column, rows::Whole>) {
            return std::to_string(row.*column);
        } else {
            return row.*column;
        }
    }
    return {};
}

}  // namespace cuvexa::model
