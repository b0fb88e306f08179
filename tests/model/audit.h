// The audit once more: what does not add up in the rows, said rule by rule as docs/audit.md says it.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/database.h"

namespace cuvexa::model {

struct Finding {
    Text check, document, figures;
    /// Not so when the last digits decide of what a database adds up in an order of its own.
    bool certain = true;
};

class Audit {
public:
    explicit Audit(const Database& db) : db(db) {}

    std::vector<Finding> findings();

private:
    /// An amount, and how far the last digits of what it was added up from may carry it away.
    struct Sum {
        double total = 0, blur = 0;

        Sum() = default;
        Sum(double amount);
        Sum& operator+=(const Sum& other);
    };

    /// The rows of a table by a column that is not its key.
    template <class Row>
    class Index {
    public:
        Index(const Table<Row>& table, Text Row::*column) {
            for (const Row& row : table.rows()) rows_[in_one_case(row.*column)].push_back(&row);
        }
        const std::vector<const Row*>& of(const Text& key) const {
            static const std::vector<const Row*> none;
            const auto found = rows_.find(in_one_case(key));
            return found == rows_.end() ? none : found->second;
        }

    private:
        std::unordered_map<Text, std::vector<const Row*>> rows_;
    };

    // ---- The rules, by families -------------------------------------------------------------------------------------

    void numbers();
    void balances();
    void deposits();
    void deposit_of(const Text& folio);
    void receipts();
    void receipt(const Text& folio);
    void receivables_of_receipts();
    void movements();
    void check(const rows::Cheque& check);
    void effects_of_check(const rows::Cheque& check);
    void payments_of_check(const rows::Cheque& check);
    void movement_of_check(const rows::Cheque& check);
    void application_in_movement(const rows::Cheque& check, const rows::Banco_Movimiento& movement);
    void expenses_of_check(const rows::Cheque& check);
    bool lacks_its_advance(const rows::Cheque& check, const rows::Gasto_x_Comprobar& expense,
                           const rows::Gasto_x_Comprobar_Documento& link, bool& certain) const;
    void checks();
    void duplicated_checks();
    void supplier_advances();
    void expenses();
    void requests();
    void receivables();
    void payables();
    void customer_advances();
    void vouchers();

    // ---- What rules ask ---------------------------------------------------------------------------------------------

    template <class Row>
    static bool live(const Row& row) {
        return differs(row.Es_Cve_Estado, "CA");
    }
    template <class Row>
    static bool cancelled(const Row& row) {
        return same(row.Es_Cve_Estado, "CA");
    }
    /// The row of that key; null when there is none.
    template <class Row>
    static const Row* row_of(const Table<Row>& table, Text Row::*key, const Text& value) {
        return row_of(table, key, value, key, value);
    }
    template <class Row>
    static const Row* row_of(const Table<Row>& table, Text Row::*key, const Text& value, Text Row::*other,
                             const Text& other_value) {
        Row row;
        row.*key = value;
        row.*other = other_value;
        const auto place = table.place_of(row);
        return place ? &table.rows()[*place] : nullptr;
    }
    bool is_registered(const Text& code, const Text& folio) const;
    const rows::Tipo_Cheque* type_of(const rows::Cheque& check) const;
    bool receipt_made_something(const Text& folio) const;
    std::vector<const rows::Banco_Movimiento*> movements_of(const Text& table, const Text& document) const;
    Sum live_receivables(const Text& table, const Text& document) const;
    bool ever_charged(const Text& table, const Text& document) const;
    bool is_document_live(const Text& table, const Text& document) const;

    // ---- What they say ----------------------------------------------------------------------------------------------

    void found(const Text& check, const Text& document, const Text& figures, bool certain = true);
    void found(const Text& check, const Text& document, const Text& label, double amount);
    /// Only when the two differ.
    void found_if_different(const Text& check, const Text& document, const Text& label, const Sum& amount,
                            const Text& other_label, const Sum& other);

    const Database& db;
    const Index<rows::Banco_Movimiento> movements_by_document{db.Banco_Movimiento,
                                                              &rows::Banco_Movimiento::Bm_Documento};
    const Index<rows::Cheque_x_Aplicar> lines_by_check{db.Cheque_x_Aplicar, &rows::Cheque_x_Aplicar::Ch_Folio};
    const Index<rows::Recibo_Pago> lines_by_receipt{db.Recibo_Pago, &rows::Recibo_Pago::Rp_Folio};
    const Index<rows::Recibo_Pago> lines_by_deposit{db.Recibo_Pago, &rows::Recibo_Pago::Rp_Folio_Deposito};
    const Index<rows::Deposito_Pago> lines_of_deposit{db.Deposito_Pago, &rows::Deposito_Pago::Dp_Folio};
    const Index<rows::Cuenta_x_Cobrar> receivables_by_document{db.Cuenta_x_Cobrar,
                                                               &rows::Cuenta_x_Cobrar::Cxc_Documento};
    const Index<rows::Cuenta_x_Pagar> payables_by_document{db.Cuenta_x_Pagar, &rows::Cuenta_x_Pagar::Cxp_Documento};
    const Index<rows::Pago_Cxc> payments_by_receivable{db.Pago_Cxc, &rows::Pago_Cxc::Cxc_Folio};
    const Index<rows::Pago_Cxc> received_by_document{db.Pago_Cxc, &rows::Pago_Cxc::Pc_Documento};
    const Index<rows::Pago_Cxp> payments_by_payable{db.Pago_Cxp, &rows::Pago_Cxp::Cxp_Folio};
    const Index<rows::Pago_Cxp> paid_by_document{db.Pago_Cxp, &rows::Pago_Cxp::Pc_Documento};
    const Index<rows::Anticipo_Cxc> advances_by_document{db.Anticipo_Cxc, &rows::Anticipo_Cxc::An_Documento};
    const Index<rows::Poliza> vouchers_by_document{db.Poliza, &rows::Poliza::Pz_Documento};
    const Index<rows::Poliza_Detalle> lines_by_voucher{db.Poliza_Detalle, &rows::Poliza_Detalle::Pz_Folio};
    const Index<rows::Gasto_x_Comprobar> expenses_by_document{db.Gasto_x_Comprobar,
                                                              &rows::Gasto_x_Comprobar::Gc_Documento};
    const Index<rows::Gasto_x_Comprobar_Documento> advances_by_check{db.Gasto_x_Comprobar_Documento,
                                                                     &rows::Gasto_x_Comprobar_Documento::Gc_Documento};
    const Index<rows::Solicitud_Cheque_Detalle> lines_by_request{db.Solicitud_Cheque_Detalle,
                                                                 &rows::Solicitud_Cheque_Detalle::Sch_Folio};
    std::vector<Finding> findings_;
};

}  // namespace cuvexa::model
