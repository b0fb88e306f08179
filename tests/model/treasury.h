// The operations once more, as simply as they can be said: plain rows in memory, one step after the other.
//
// Written from what the operations are required to do, apart from the component's own code. `Treasury` has the members of
// `Tesoreria` under the same names; a property is a plain member, its let, where it does more than store, a function
// `let_…`.
#pragma once

#include <memory>

#include "cuvexa/records.h"
#include "model/accounting.h"
#include "model/payables.h"
#include "model/receivables.h"

namespace cuvexa::model {

/// What a loaded component keeps for all its instances.
struct Module {
    explicit Module(Suite& suite);

    Suite& suite;
    Text server_id;
    bool GEN_FORZAR_TIEMPO_REAL = false;
    bool TES_AUTORIZAR_SOLICITUD_CHEQUE = false;
    Text TES_FORMA_PAGO_CHEQUE, TES_FORMA_PAGO_TRANSFERENCIA;
};

/// Extra values of a receipt line.
struct Extras {
    Text Rp_Cve_Banco, Rp_Vendedor, Rp_Comisionista, Rp_Promotor, Rp_Chofer, Rp_Cobratario;
};

struct Treasury {
    explicit Treasury(Module& module);

    // ---- Properties -------------------------------------------------------------------------------------------------

    Text Error;
    Text FolioMovimiento;
    Text Dp_Folio;
    Text Ch_Banco_Destino;
    bool Validar_Forma_Pago = false;
    tRpEncabezado RpEncabezado;
    tRpDetalle RpDetalle;
    std::shared_ptr<Extras> RpDetalle2;
    tTsEncabezado Encabezado;
    tTsDetalle Detalle;
    tSchEncabezado SchEncabezado;
    tSchDetalle SchDetalle;

    void let_RpEncabezado(const tRpEncabezado& value);
    void let_Encabezado(const tTsEncabezado& value);
    void let_SchEncabezado(const tSchEncabezado& value);

    // ---- Receipts ---------------------------------------------------------------------------------------------------

    void NuevoReciboCaja(Date local_today);
    bool Add_Recibo_Caja_Detalle();
    bool FinReciboCaja(const Text& Rp_Folio);
    bool Cancelar_Recibo_Caja(const Text& Rp_Folio, bool bCancelaDeposito, bool bCancelaPagos);

    // ---- Checks -----------------------------------------------------------------------------------------------------

    void Nuevo();
    bool Add_Cheque_Detalle();
    bool Crear_Cheque_Pago_Proveedor(const Text& Ch_Folio);
    bool Crear_Cheque_Devolucion_Anticipo(const Text& Ch_Folio);
    bool Crear_Cheque_Anticipo_Cxp();
    bool Crear_Cheque_Devolucion_Cliente();
    bool Crear_Cheque_Gasto_x_Comprobar();
    bool Crear_Cheque_Deudor();
    bool Crear_Traspaso_Cuenta_Propia();
    bool Crear_Cheque(const Text& Ch_Folio);
    bool Aplicar_Cheque(const Text& Ch_Folio, Date Fecha, bool Firme);
    bool Finalizar_Cheque(const Text& Ch_Folio);
    bool Cancelar_Aplicacion_Cheque(const Text& Ch_Folio);
    bool Cancelar_Cheque(const Text& Ch_Folio);

    // ---- Banks ------------------------------------------------------------------------------------------------------

    bool Registra_Movimiento_Banco(tBnMovimiento& Datos);
    bool Registra_Movimiento_Bancario_Cheque(const Text& Ch_Folio);
    bool Cancelar_Movimiento_Bancos(const Text& Bm_Folio);
    bool Cancelar_Documento_Bancos(const Text& Bm_Tabla, const Text& Bm_Documento);
    double GetSaldo(const Text& Bc_Cve_Banco_Cuenta, bool SoloFirme);

    // ---- Deposits ---------------------------------------------------------------------------------------------------

    bool Genera_Deposito(const Text& Bc_Cve_Banco_Cuenta, const Text& Rp_Folio, Date Dp_Fecha, bool Bm_Firme,
                         Date Bm_Fecha_Firme, const Text& sComentario);
    bool Cancelar_Deposito(const Text& Dp_Folio);
    bool Registrar_Deposito_Recibo_Caja(const Text& Rp_Folio, const Text& Bc_Cve_Banco_Cuenta);

    // ---- Check requests and budgets ---------------------------------------------------------------------------------

    bool Add_Solicitud_Cheque();
    bool Add_Solicitud_Cheque_Detalle();
    bool Autorizar_Solicitud_Cheque(const Text& Folio);
    bool Cancelar_Solicitud_Cheque(const Text& Folio);
    bool Afectar_Cheque_Presupuesto(const Text& Ch_Folio, int Tipo);

private:
    // ---- How an operation ends --------------------------------------------------------------------------------------

    struct Stop {};  ///< `Error` stands as a called member left it

    /// Runs the steps of an operation; its run-time failures stand behind `tag`.
    template <class Steps>
    bool operation(const Text& tag, Steps&& steps);
    [[noreturn]] static void fail(const Text& message) { throw Refusal{message}; }
    static void fail_if(bool condition, const Text& message) {
        if (condition) throw Refusal{message};
    }
    /// A called member that fails ends the operation and its text stands.
    static void stop_unless(bool done) {
        if (!done) throw Stop{};
    }

    // ---- What operations share --------------------------------------------------------------------------------------

    void check_central_server(const Text& branch_server);
    /// The message about a document of another day, without tag; empty when the day does not matter or is today.
    Text other_day(Date document_date);
    /// The message about a closed period, likewise.
    Text closed_period(Date document_date);
    Text line_id();
    Text server_of_branch(const Text& branch);
    bool exists_currency(const Text& key);
    bool exists_account(const Text& key);
    Text check_type(const Text& key, Text rows::Tipo_Cheque::*column);
    bool exists_customer(const Text& key, const Text& kind);
    bool exists_supplier(const Text& key);
    void check_branch(const Text& branch, const Text& message);
    void check_currency_and_type(const Text& currency, const Text& type);
    void post(const Text& tag, const Text& code, const Text& folio, const Text& company);
    Text company_of(const Text& branch);

    // ---- Private operations -----------------------------------------------------------------------------------------

    bool Inserta_Recibo_Pago();
    bool Inserta_Cheque(const Text& Ch_Folio);
    bool Inserta_Detalle_Cheque();
    bool Contabiliza_Banco_Movimiento(const Text& Bm_Folio, const Text& Bm_Tabla, const Text& Bm_Documento);
    bool Valida_Poliza_Contable(const Text& Tabla, const Text& Documento);
    bool Inserta_Solicitud_Cheque();
    bool Inserta_Solicitud_Cheque_Detalle();
    bool Aplicar_Anticipo_Cxc(const Text& Ch_Folio, Date Fecha);
    bool Cancelar_Aplicacion_Cheque_Anticipo(const Text& Ch_Folio);

    // ---- Steps with a name of their own -----------------------------------------------------------------------------

    struct Receipt_group;
    std::vector<Receipt_group> receipt_groups(const Text& folio);
    void close_group(const Text& tag, const Text& folio, const Receipt_group& group);
    void mark_receipt_applied(const Text& folio);
    void undo_closing(const Text& tag, const Text& folio, bool payments_too);
    void undo_deposit(const Text& tag, const Text& folio, const Text& deposit, bool allowed);
    void check_header_of_check();
    void open_check_folio();
    bool write_and_charge(bool adds_line, int budget_kind);
    bool is_held_back(const Text& folio);
    Text write_expense();
    struct Check_line;
    std::vector<Check_line> open_lines(const Text& folio);
    Text apply_line(const Text& tag, const Text& folio, const Check_line& line, Date date);
    void pay_supplier(const Text& tag, const Check_line& line, Date date);
    void charge_customer(const Text& tag, const Check_line& line, bool debtor);
    Text advance_to_supplier(const Text& tag, const Check_line& line);
    void take_line_back(const Text& tag, const Text& folio, const rows::Cheque_x_Aplicar& line,
                        const rows::Tipo_Cheque& type);
    void cancel_expense(const Text& folio, const Text& line_document);
    void reverse(const rows::Banco_Movimiento& movement, const Text& bank);
    struct Deposit_group;
    std::vector<Deposit_group> deposit_groups(const std::vector<Text>& folios, bool depositable_only);
    void deposit_group(const Deposit_group& group, const Text& id, const Text& account, const std::vector<Text>& folios,
                       Date date, bool firm, Date firm_date, const Text& comment, const Text& stamp);
    struct Budget_kind;
    struct Budget_data;
    std::optional<Budget_data> budget_data(const Budget_kind& kind, const rows::Cheque& check);
    void charge_to_budget(const Budget_kind& kind, const Budget_data& check, int mode, const Text& folio);
    void hold_back(const Text& folio);
    void check_beneficiary_of_request();
    struct Advance_to_apply;
    void apply_advance(const Text& tag, const Text& folio, const rows::Cuenta_x_Cobrar& expense,
                       const Advance_to_apply& advance, Date date, const Text& method);

    Module& module_;
    Suite& suite_;
    Database& db;
    Data_services data_;
    int line_counter_ = 0;
    Text branch_server_id_;
    Text receipt_stamp_, check_stamp_, request_stamp_;
};

template <class Steps>
bool Treasury::operation(const Text& tag, Steps&& steps) {
    Error.clear();
    try {
        steps();
        return true;
    } catch (const Stop&) {
    } catch (const Refusal& refusal) {
        Error = refusal.text;
    } catch (const Failure& failure) {
        Error = tagged(tag, failure.description);
    } catch (const std::exception& failure) {  // of a date, of a number's text
        Error = tagged(tag, failure.what());
    }
    return false;
}

}  // namespace cuvexa::model
