#include "reports/budgets.h"

#include <array>
#include <map>
#include <utility>

#include "core/case.h"
#include "core/codes.h"
#include "reports/conditions.h"
#include "reports/views.h"

namespace cuvexa::reports {

namespace {

constexpr int months = 12;

constexpr Column used_columns[] = {
    {"Usado_01", "Usado ene", Column_kind::amount}, {"Usado_02", "Usado feb", Column_kind::amount},
    {"Usado_03", "Usado mar", Column_kind::amount}, {"Usado_04", "Usado abr", Column_kind::amount},
    {"Usado_05", "Usado may", Column_kind::amount}, {"Usado_06", "Usado jun", Column_kind::amount},
    {"Usado_07", "Usado jul", Column_kind::amount}, {"Usado_08", "Usado ago", Column_kind::amount},
    {"Usado_09", "Usado sep", Column_kind::amount}, {"Usado_10", "Usado oct", Column_kind::amount},
    {"Usado_11", "Usado nov", Column_kind::amount}, {"Usado_12", "Usado dic", Column_kind::amount},
};

/// The columns of the view, and the twelve.
Columns columns_with_used() {
    static const std::vector<Column> columns = [] {
        const Columns budget = find_view("budgets")->columns;
        std::vector<Column> all(budget.begin(), budget.end());
        all.insert(all.end(), std::begin(used_columns), std::end(used_columns));
        return all;
    }();
    return columns;
}

/// Which checks are charged to a kind of budget: those of a purpose to parties of a class.
struct Kind {
    std::string_view budget;  ///< as the view calls it
    std::string_view purpose;
    std::string_view party_level;  ///< 'PV', 'DE' or 'CL'
};

constexpr Kind kinds[] = {
    {"Anticipo a proveedor", check_purpose::supplier_advance, "PV"},
    {"Gasto x comprobar", check_purpose::expense_to_verify, "DE"},
    {"Préstamo a deudor", check_purpose::debtor_loan, "DE"},
    {"Devolución a cliente", check_purpose::customer_refund, "CL"},
};

using Months = std::array<double, months>;

/// What was used by budget, level and holder; in capitals, since keys compare without regard to case.
using Used = std::map<std::array<std::string, 3>, Months>;

std::string statement_of(const Source& source, const Kind& kind, int year) {
    const bool supplier = kind.party_level == "PV";
    const std::string party = supplier
                                  ? "INNER JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = Cheque.Ch_Solicitar_Valor "
                                    "INNER JOIN Grupo_Proveedor ON Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = "
                                    "Proveedor.Gp_Cve_Grupo_Proveedor "
                                  : "INNER JOIN Cliente ON Cliente.Cl_Cve_Cliente = Cheque.Ch_Solicitar_Valor AND "
                                    "Cliente.Tc_Cve_Tipo_Cliente = '" +
                                        std::string(kind.party_level) + "' ";
    return std::string("SELECT Cheque.Ch_Fecha AS Fecha, Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio AS Importe, ") +
           (supplier ? "Proveedor.Pv_Cve_Proveedor AS Parte, Grupo_Proveedor.Gp_Cve_Grupo_Proveedor AS Grupo, "
                     : "Cliente.Cl_Cve_Cliente AS Parte, '' AS Grupo, ") +
           "Sucursal.Sc_Cve_Sucursal AS Sucursal, Sucursal.Em_Cve_Empresa AS Empresa FROM Cheque "
           "INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
           "INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal " +
           party + "WHERE " +
           between_days("Cheque.Ch_Fecha", make_date(year, 1, 1), make_date(year, 12, 31), source.dates) +
           " AND Tipo_Cheque.Tc_Solicitar = '" + std::string(kind.purpose) +
           "' AND Cheque.Es_Cve_Estado NOT IN ('CA','PXA')";
}

void add_used(const Source& source, const Kind& kind, int year, Used& used) {
    for (Rows check = source.query(statement_of(source, kind, year)); !check.eof(); check.next()) {
        const auto month = static_cast<std::size_t>(calendar(check.date("Fecha")).month - 1);
        const std::pair<std::string_view, std::string_view> holders[] = {
            {kind.party_level, "Parte"}, {"GP", "Grupo"}, {"SC", "Sucursal"}, {"EM", "Empresa"}};
        for (const auto& [level, column] : holders) {
            const std::string holder = check.text(column);
            if (holder.empty()) continue;
            used[{std::string(kind.budget), std::string(level), upper_ascii(std::string_view(holder))}][month] +=
                number_or_zero(check.value("Importe"));
        }
    }
}

}  // namespace

Table read_budgets(const Source& source, int year) {
    const View& view = *find_view("budgets");
    Table table = read_view(source, view);
    if (year == 0) return table;
    Used used;
    for (const Kind& kind : kinds) add_used(source, kind, year, used);

    Table with_used{columns_with_used()};
    for (Row& row : table.rows) {
        const auto text = [&](std::string_view name) { return to_text(value_in(row, view.columns, name)); };
        if (to_number(value_in(row, view.columns, "Periodo")) != year) continue;
        const auto found = used.find({text("Presupuesto"), upper_ascii(std::string_view(text("Tipo"))),
                                      upper_ascii(std::string_view(text("Valor")))});
        for (std::size_t month = 0; month < months; ++month) {
            row.emplace_back(found == used.end() ? 0.0 : found->second[month]);
        }
        with_used.rows.push_back(std::move(row));
    }
    return with_used;
}

}  // namespace cuvexa::reports
