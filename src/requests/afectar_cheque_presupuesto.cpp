// The budget check: a written check goes on, or waits for an authorization because its month is spent.
#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "core/codes.h"
#include "core/operation.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

/// A level of a budget table, and the column by which the checks of its holder are found.
struct Level {
    const char* code;
    const char* holder;  ///< where the check's budget data names the holder
    Words column;
};

constexpr Level supplier{"PV", "Proveedor", "Proveedor.Pv_Cve_Proveedor"};
constexpr Level supplier_group{"GP", "Grupo_Proveedor", "Grupo_Proveedor.Gp_Cve_Grupo_Proveedor"};
constexpr Level debtor{"DE", "Deudor", "Cliente.Cl_Cve_Cliente"};
constexpr Level customer{"CL", "Cliente", "Cliente.Cl_Cve_Cliente"};
constexpr Level branch{"SC", "Sucursal", "Sucursal.Sc_Cve_Sucursal"};
constexpr Level company{"EM", "Empresa", "Sucursal.Em_Cve_Empresa"};

constexpr Level supplier_levels[] = {supplier, supplier_group, branch, company};
constexpr Level debtor_levels[] = {debtor, branch, company};
constexpr Level customer_levels[] = {customer, branch, company};

constexpr Words supplier_join =
    "INNER JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = Cheque.Ch_Solicitar_Valor "
    "   INNER JOIN Grupo_Proveedor ON Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = Proveedor.Gp_Cve_Grupo_Proveedor";
constexpr Words debtor_join =
    "INNER JOIN Cliente ON Cliente.Cl_Cve_Cliente = Cheque.Ch_Solicitar_Valor AND "
    "      Cliente.Tc_Cve_Tipo_Cliente = 'DE'";
constexpr Words customer_join =
    "INNER JOIN Cliente ON Cliente.Cl_Cve_Cliente = Cheque.Ch_Solicitar_Valor AND "
    "      Cliente.Tc_Cve_Tipo_Cliente = 'CL'";

/// One kind of check under budget control.
struct Kind {
    int type;  ///< the argument `Tipo`
    const char* mode_parameter;
    const char* asks_for;  ///< `Tc_Solicitar` of its check types
    const char* name;      ///< in messages
    Words table;
    Words prefix;
    std::span<const Level> levels;  ///< most specific first
    Words holder_columns;
    Words holder_join;
};

constexpr std::array kinds = {
    Kind{budget::supplier_advance, "TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR", check_purpose::supplier_advance,
         "un anticipo a proveedor", "Anticipo_Proveedor_Presupuesto", "App_", supplier_levels,
         "Proveedor.Pv_Cve_Proveedor AS Proveedor, Grupo_Proveedor.Gp_Cve_Grupo_Proveedor AS Grupo_Proveedor",
         supplier_join},
    Kind{budget::expense_to_verify, "TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", check_purpose::expense_to_verify,
         "un gasto x comprobar", "Gasto_x_Comprobar_Presupuesto", "Gcp_", debtor_levels,
         "Cliente.Cl_Cve_Cliente AS Deudor", debtor_join},
    Kind{budget::debtor_loan, "TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR", check_purpose::debtor_loan, "un préstamo a deudor",
         "Prestamo_Deudor_Presupuesto", "Pdp_", debtor_levels, "Cliente.Cl_Cve_Cliente AS Deudor", debtor_join},
    Kind{budget::customer_refund, "TES_MODO_AUTORIZAR_DEVOLUCION_CLIENTE", check_purpose::customer_refund,
         "una devolución a cliente", "Devolucion_Cliente_Presupuesto", "Dcp_", customer_levels,
         "Cliente.Cl_Cve_Cliente AS Cliente", customer_join},
};

// Control modes; every other value is no control either.
constexpr int no_control = 0;
constexpr int where_a_budget_exists = 1;
constexpr int strict = 2;

using Modes = std::array<int, kinds.size()>;

/// The modes of all kinds. A parameter that is absent means no control.
Modes read_modes(Operation& op) {
    Modes modes;
    std::transform(kinds.begin(), kinds.end(), modes.begin(), [&](const Kind& kind) -> int {
        const Value value = op.session().GetParameter(kind.mode_parameter, 0, "", "");
        return to_text(value).empty() ? no_control : to_integer(value);
    });
    return modes;
}

void check_chargeable(Operation& op, const std::string& folio) {
    const Rows check = op.query("SELECT * FROM Cheque WHERE Ch_Folio = '{}' ", folio);
    op.refuse_if(check.eof(), "el cheque: {} no existe!", folio);
    const std::string state = check.text("Es_Cve_Estado");
    op.refuse_if(state == state::cancelled || state == state::applied || state == state::waiting,
                 "Imposible afectar el cheque: {}, con estado: {}", folio, state);
}

/// The month of a check, as the budget tables and the sum of the spent amount see it.
struct Period {
    explicit Period(Date date) : Period(calendar(date)) {}
    explicit Period(const Calendar& day) : year(day.year), month(day.month) {}

    /// The budget column without its prefix: "01" to "12".
    Part column() const { return part("{}{}", month / 10, month % 10); }

    int year, month;
};

Rows read_budget_data(Operation& op, const Kind& kind, const std::string& folio) {
    Rows data = op.query(
        "SELECT "
        "   {}, "
        "   Sucursal.Sc_Cve_Sucursal AS Sucursal, "
        "   Sucursal.Em_Cve_Empresa AS Empresa, "
        "   Tipo_Cheque.Tc_Solicitar AS Tipo, "
        "   Cheque.Ch_Fecha AS Fecha, "
        "   Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio AS Importe "
        "FROM Cheque "
        "   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
        "   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal "
        "   {} "
        "WHERE "
        "   Cheque.Ch_Folio = '{}' AND "
        "   Cheque.Es_Cve_Estado NOT IN ('CA','AP') ",
        kind.holder_columns, kind.holder_join, folio);
    op.refuse_if(data.eof(), "el cheque: {} no existe o no es {}!", folio, kind.name);
    op.refuse_if(data.text("Tipo") != kind.asks_for, "el cheque: {} no es {}!", folio, kind.name);
    return data;
}

struct Governing_budget {
    Level level;
    std::string holder;
    double amount;
};

/// The most specific level with an amount for the month; a missing row, a zero and a negative amount pass on.
std::optional<Governing_budget> governing_budget(Operation& op, const Kind& kind, const Rows& data,
                                                 const Period& period) {
    for (const Level& level : kind.levels) {
        const std::string holder = data.text(level.holder);
        const Rows budget = op.query(
            "SELECT {}{} AS Importe "
            "FROM {} "
            "WHERE "
            "   {}Tipo = '{}' AND "
            "   {}Valor = '{}' AND "
            "   {}Periodo = {} ",
            kind.prefix, period.column(), kind.table, kind.prefix, level.code, kind.prefix, holder, kind.prefix,
            period.year);
        if (budget.eof()) continue;
        const double amount = budget.number("Importe");
        if (amount > 0) return Governing_budget{level, holder, amount};
    }
    return std::nullopt;
}

/// What the holder's checks of the month amount to, this one among them, those that wait for authorization not.
double spent(Operation& op, const Kind& kind, const Governing_budget& budget, const Period& period) {
    return op
        .query(
            "SELECT SUM(Cheque.Ch_Importe * Cheque.Ch_Tipo_Cambio) AS Importe "
            "FROM Cheque "
            "   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
            "   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal "
            "   {} "
            "WHERE "
            "   {} = '{}' AND "
            "   Tipo_Cheque.Tc_Solicitar = '{}' AND "
            "   MONTH(Cheque.Ch_Fecha) = {} AND "
            "   YEAR(Cheque.Ch_Fecha) = {} AND "
            "   Cheque.Es_Cve_Estado NOT IN ('CA','PXA') ",
            kind.holder_join, budget.level.column, budget.holder, kind.asks_for, period.month, period.year)
        .number("Importe");
}

void hold_back(Operation& op, const std::string& folio) {
    const std::string user = op.session().GetUserName();
    const std::string stamp = op.server_stamp();
    op.execute(
        "UPDATE Cheque SET "
        "   Es_Cve_Estado = 'PXA', "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Ch_Folio = '{}'",
        user, stamp, folio);
}

}  // namespace

bool Tesoreria::Afectar_Cheque_Presupuesto(const std::string& Ch_Folio, int Tipo) {
    return operation(module_, error_, "Afectar_Cheque_Presupuesto()", [&](Operation& op) {
        const Modes modes = read_modes(op);
        op.refuse_if(Ch_Folio.empty(), "No se ha especificado el folio del cheque");
        const auto kind = std::find_if(kinds.begin(), kinds.end(), [&](const Kind& each) { return each.type == Tipo; });
        if (kind == kinds.end()) return;  // a purpose without budget: the check is not even read

        check_chargeable(op, Ch_Folio);
        const Rows data = read_budget_data(op, *kind, Ch_Folio);
        const Period period(data.date("Fecha"));

        const int mode = modes[static_cast<std::size_t>(kind - kinds.begin())];
        if (mode != where_a_budget_exists && mode != strict) return;
        const auto budget = governing_budget(op, *kind, data, period);
        const bool exceeded = budget ? budget->amount < spent(op, *kind, *budget, period) : mode == strict;
        if (exceeded) hold_back(op, Ch_Folio);
    });
}

}  // namespace cuvexa
