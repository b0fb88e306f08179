#include "suite/folio_series.h"

#include <array>
#include <cstdio>

#include "core/case.h"
#include "core/codes.h"
#include "cuvexa/lost_connection.h"
#include "cuvexa/suite/administration.h"
#include "suite/statements.h"

namespace cuvexa {
namespace reference {
namespace {

struct Prefix {
    std::string_view code, prefix;
};

constexpr std::array<Prefix, 12> prefixes = {{{document::receipt, "RP"},
                                              {document::check, "CH"},
                                              {document::bank_movement, "BM"},
                                              {document::deposit, "DP"},
                                              {document::check_request, "SC"},
                                              {document::expense, "GC"},
                                              {document::customer_advance, "AN"},
                                              {document::supplier_advance, "AP"},
                                              {document::receivable, "CXC"},
                                              {document::payable, "CXP"},
                                              {document::expense_record, "GR"},
                                              {document::voucher, "PZ"}}};

std::string folio_text(const std::string& code, const std::string& branch, std::int64_t number) {
    std::string text = code;
    for (const Prefix& known : prefixes) {
        if (known.code == code) text = known.prefix;
    }
    if (!branch.empty()) text += '-' + branch;
    char digits[24];
    std::snprintf(digits, sizeof digits, "-%08lld", static_cast<long long>(number));
    return text + digits;
}

/// A row of the series, so that it can be counted up or changed.
void begin_series(Connection& connection, const std::string& code, const std::string& branch) {
    try {
        query(connection,
              "INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo, Fs_Abierta) SELECT '{}', '{}', 0, 'SI' "
              "WHERE NOT EXISTS (SELECT Fs_Codigo FROM Folio_Serie WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}')",
              upper_ascii(code), branch, code, branch);
    } catch (const Conflict_error&) {
        throw;
    } catch (const Lost_connection_error&) {
        throw;
    } catch (const Database_error&) {
        // A server may look in two sessions at once and find no series in either; then the other one has begun it.
        const Rows begun =
            query(connection, "SELECT Fs_Codigo FROM Folio_Serie WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}'", code,
                  branch);
        if (begun.eof()) throw;
    }
}

Folio_series series_row(const Rows& rows) {
    return {rows.text("Fs_Codigo"), rows.text("Fs_Sucursal"), static_cast<int>(rows.number("Fs_Ultimo")),
            rows.text("Fs_Abierta") == "SI"};
}

}  // namespace

std::string next_folio(Connection& connection, const std::string& branch, const std::string& document_code,
                       std::string& why) {
    const std::string code = upper_ascii(document_code);
    // One statement takes the number, so that two sessions never get the same one. The second round is for a new
    // series.
    for (int round = 0; round < 2; ++round) {
        const Rows taken = query(connection,
                                 "UPDATE Folio_Serie SET Fs_Ultimo = Fs_Ultimo + 1 OUTPUT inserted.Fs_Ultimo "
                                 "WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}' AND Fs_Abierta = 'SI'",
                                 code, branch);
        if (!taken.eof()) return folio_text(code, branch, static_cast<std::int64_t>(taken.number("Fs_Ultimo")));
        begin_series(connection, code, branch);
    }
    why = filled("La serie de folios de {} de la sucursal: {}, está cerrada; ábrala antes de continuar", code, branch);
    return {};
}

}  // namespace reference

// ---- For the administrator ------------------------------------------------------------------------------------------

std::vector<Folio_series> folio_series(Connection& connection) {
    std::vector<Folio_series> all;
    for (Rows rows = reference::query(connection, "SELECT * FROM Folio_Serie ORDER BY Fs_Codigo, Fs_Sucursal");
         !rows.eof(); rows.next()) {
        all.push_back(reference::series_row(rows));
    }
    return all;
}

Folio_series folio_series_of(Connection& connection, const std::string& code, const std::string& branch) {
    const Rows rows = reference::query(
        connection, "SELECT * FROM Folio_Serie WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}'", code, branch);
    return rows.eof() ? Folio_series{upper_ascii(code), branch, 0, true} : reference::series_row(rows);
}

void set_next_folio(Connection& connection, const std::string& code, const std::string& branch, int next) {
    reference::begin_series(connection, code, branch);
    const Rows moved = reference::query(connection,
                                        "UPDATE Folio_Serie SET Fs_Ultimo = {} OUTPUT inserted.Fs_Ultimo "
                                        "WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}' AND Fs_Ultimo < {}",
                                        next - 1, code, branch, next);
    if (moved.eof()) {
        throw Database_error(filled("The series {} of branch {} has given {} already; folios are given once",
                                    upper_ascii(code), branch, next));
    }
}

void set_folio_series_open(Connection& connection, const std::string& code, const std::string& branch, bool open) {
    reference::begin_series(connection, code, branch);
    reference::query(connection,
                     "UPDATE Folio_Serie SET Fs_Abierta = '{}' WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}'",
                     open ? "SI" : "NO", code, branch);
}

}  // namespace cuvexa
