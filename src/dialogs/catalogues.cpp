#include "dialogs/catalogues.h"

#include <array>
#include <utility>

#include "core/query.h"
#include "core/report.h"
#include "dialogs/key_text.h"

namespace cuvexa::dialogs {
namespace {

/// A longer list helps nobody: typing narrows it.
constexpr std::size_t most_rows = 500;

const std::array<std::pair<const char*, Catalogue>, 3>& catalogues() {
    static const std::array<std::pair<const char*, Catalogue>, 3> all = {{
        {"BANCO_CUENTA",
         {"Cuentas de banco",
          "SELECT "
          "   Banco_Cuenta.Bc_Cve_Banco_Cuenta AS CUENTA, "
          "   Banco_Cuenta.Bc_Descripcion AS DESCRIPCION, "
          "   Banco_Cuenta.Mn_Cve_Moneda AS MONEDA, "
          "   Empresa.Em_Descripcion AS EMPRESA "
          "FROM Banco_Cuenta "
          "   LEFT JOIN Empresa ON Empresa.Em_Cve_Empresa = Banco_Cuenta.Em_Cve_Empresa "
          "WHERE "
          "   (Banco_Cuenta.Bc_Cve_Banco_Cuenta LIKE ? OR "
          "   Banco_Cuenta.Bc_Descripcion LIKE ?) AND "
          "   Banco_Cuenta.Es_Cve_Estado <> 'BA'",
          "ORDER BY Banco_Cuenta.Bc_Cve_Banco_Cuenta",
          {"CUENTA", "DESCRIPCION", "MONEDA", "EMPRESA"}}},
        {"BANCO",
         {"Bancos",
          "SELECT "
          "   Banco.Bn_Cve_Banco AS BANCO, "
          "   Banco.Bn_Descripcion AS DESCRIPCION, "
          "   Banco.Bn_Codigo AS CODIGO "
          "FROM Banco "
          "WHERE "
          "   (Banco.Bn_Cve_Banco LIKE ? OR "
          "   Banco.Bn_Codigo LIKE ? OR "
          "   Banco.Bn_Descripcion LIKE ?) AND "
          "   Banco.Es_Cve_Estado <> 'BA'",
          "ORDER BY Banco.Bn_Cve_Banco",
          {"BANCO", "DESCRIPCION", "CODIGO"}}},
        {"FORMA_PAGO",
         {"Formas de pago",
          "SELECT "
          "   Forma_Pago.Fp_Cve_Forma_Pago AS FORMA_PAGO, "
          "   Forma_Pago.Fp_Descripcion AS DESCRIPCION "
          "FROM Forma_Pago "
          "WHERE "
          "   (Forma_Pago.Fp_Cve_Forma_Pago LIKE ? OR "
          "   Forma_Pago.Fp_Descripcion LIKE ?) AND "
          "   Forma_Pago.Es_Cve_Estado <> 'BA'",
          "ORDER BY Forma_Pago.Fp_Cve_Forma_Pago",
          {"FORMA_PAGO", "DESCRIPCION"}}},
    }};
    return all;
}

class Catalogue_list : public Choice_list {
public:
    Catalogue_list(Module& module, Catalogue catalogue, std::vector<std::string> conditions)
        : module_(module), catalogue_(std::move(catalogue)), conditions_(std::move(conditions)) {}

    std::string title() const override { return catalogue_.title; }
    std::vector<std::string> columns() const override { return catalogue_.columns; }

    std::vector<std::vector<std::string>> rows(const std::string& text) override {
        std::vector<std::vector<std::string>> found;
        reporting(module_, "LookupTextBox_Lista()", "", [&] {
            Rows rows = query_text(module_, statement(text));
            for (; !rows.eof() && found.size() < most_rows; rows.next()) {
                auto& row = found.emplace_back();
                for (const auto& column : catalogue_.columns) row.push_back(rows.text(column));
            }
        });
        return found;
    }

private:
    std::string statement(const std::string& text) const {
        std::string sql = with_pattern(catalogue_.sql, text);
        for (const auto& condition : conditions_) sql += " AND " + condition;
        if (!catalogue_.order.empty()) sql += " " + catalogue_.order;
        return sql;
    }

    Module& module_;
    Catalogue catalogue_;
    std::vector<std::string> conditions_;
};

}  // namespace

std::optional<Catalogue> catalogue(const std::string& idconsulta) {
    for (const auto& [name, found] : catalogues()) {
        if (idconsulta == name) return found;
    }
    return std::nullopt;
}

std::unique_ptr<Choice_list> choice_list(Module& module, Catalogue catalogue, std::vector<std::string> conditions) {
    return std::make_unique<Catalogue_list>(module, std::move(catalogue), std::move(conditions));
}

}  // namespace cuvexa::dialogs
