#include "reports/whole_statement.h"

#include <utility>

#include "core/text.h"
#include "reports/lists.h"

namespace cuvexa::reports {

namespace {

std::string company_of(const Source& source, const std::string& company) {
    const Rows row = source.query("SELECT Em_Descripcion FROM Empresa WHERE Em_Cve_Empresa = " + sql_quoted(company));
    return row.eof() ? company : row.text("Em_Descripcion");
}

}  // namespace

std::optional<Whole_statement> read_whole_statement(const Source& source, const std::string& account,
                                                    const Period& period, std::size_t most) {
    const View& accounts = *find_view("accounts");
    auto row = read_document_row(source, accounts, account);
    if (!row) return std::nullopt;
    const auto text = [&](std::string_view name) { return to_text(value_in(*row, accounts.columns, name)); };
    Whole_statement whole;
    whole.account = text("Bc_Cve_Banco_Cuenta");
    whole.description = text("Bc_Descripcion");
    whole.number = text("Bc_Cuenta");
    whole.bank = text("Bn_Descripcion");
    whole.currency = text("Mn_Cve_Moneda");
    whole.company = company_of(source, text("Em_Cve_Empresa"));
    whole.account_columns = accounts.columns;
    whole.account_row = std::move(*row);
    whole.period = period;
    whole.movements = read_statement(source, whole.account, period, most);
    if (!whole.movements.next.empty()) {
        throw Bad_question("more than " + std::to_string(most) + " movements: ask for fewer days");
    }
    whole.daily = read_daily_balances(source, whole.account, period);
    return whole;
}

}  // namespace cuvexa::reports
