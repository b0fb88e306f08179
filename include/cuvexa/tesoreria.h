// The one class that callers see.
//
// Every operation is a Boolean function (a few give a text or a number) that never throws: on entry `Error` is emptied;
// a refusal or a failure leaves its text in `Error` and gives False (empty, or 0). Nothing runs in a transaction: each
// statement commits by itself, and what was written before a failure stays; each member says what that may be. Texts are
// UTF-8, line breaks in `Error` are CR LF. Four forms of `Error` exist, and callers parse them: the message alone; the
// message with a value in it; the source tag ("Cuvexa.dll - " + member + "()"), CR LF and the message; the tag, CR LF and
// the text of the member or service that failed, so tags nest from the outside in.
//
// Amounts are compared as the numbers they are: what equals a budget passes it, what is larger by any digit does not. One
// comparison is coarser: a total that a statement added up is zero when it is nearer to zero than half a millionth (lines of
// 0.1, 0.2 and -0.3 add up to 5.55E-17). A column of a row is converted when a step uses it: a NULL, which converts to no
// number and no date, stops the step that needs one and no earlier one. "Number order" of lines is the order of their texts:
// "10000" stands before "9999". A result that is no finite number is stored nowhere and read from nowhere: its statement fails
// with the same text on every engine, "El resultado no cabe en un número".
//
// Nothing is locked either. Every member looks before it writes, each with statements of its own, so two users who at the same
// moment deposit one receipt, apply one check or cancel one movement may both be told True, and the money moves twice. A host
// with more than one user runs each call as a unit of work (cuvexa/unit_of_work.h; `--atomic` of `cuvexa rpc`): then one of them
// is told True, and the other one a refusal, or that another session was in the way. FinReciboCaja does not ask whether a
// receipt was closed before: who calls it twice closes twice, whether at once or one after the other.
//
// The two dialogs, `PedirDatosDeposito` and `PedirDatosFormaPago`, leave `Error` as it is: what their forms refuse is shown
// through `SessionServices::ReportError`, and what fails outside the forms reaches the caller as an exception.
//
// One thread at a time uses an instance, the same that uses its `Module`.
#pragma once

#include <memory>
#include <string>

#include "cuvexa/module.h"
#include "cuvexa/records.h"

namespace cuvexa {

/// Extra values of a cash-receipt line. Held by reference: what the caller changes here is what the next line writes.
class clsRpDetalle {
public:
    std::string Rp_Cve_Banco;     ///< bank key, checked against the catalog when not empty
    std::string Rp_Vendedor;      ///< seller key, required when the receipt type asks for a seller
    std::string Rp_Comisionista;  ///< commission agent
    std::string Rp_Promotor;      ///< promoter
    std::string Rp_Chofer;        ///< driver
    std::string Rp_Cobratario;    ///< collector
};

class Tesoreria {
public:
    /// An instance of the component. The module must outlive it.
    explicit Tesoreria(Module& module);

    // ---- Members in the published order -------------------------------------------------------------------------------

    /// Folio of the last bank movement that this instance generated, also those made inside a deposit or a check. Set as
    /// soon as the folio is given, kept when the same call fails later. The caller may write it.
    std::string FolioMovimiento;

    /// Undoes a deposit: its receipt lines go back ('DP' to 'AC', 'AD' to 'AP') and lose their link to it, its lines become
    /// 'CA', and its bank movements are cancelled, which takes them out of the balances.
    ///
    /// Refuses, in this order: a folio without lines; a deposit already cancelled; while "GEN_FORZAR_TIEMPO_REAL" is on, one
    /// not of the server's day; one that accounting does not let go. Up to here nothing is written. Then the receipts, the
    /// lines and the movements are written in that order: a movement that cannot be cancelled leaves the receipts restored
    /// and the lines 'CA' while the bank still counts the money.
    bool Cancelar_Deposito(const std::string& Dp_Folio);

    /// Text of the last operation's refusal or failure; empty after a success. Read it right after the call.
    std::string Error() const { return error_; }

    /// While True, every receipt line is also checked by the payment-method service. `NuevoReciboCaja` sets it to False.
    bool Validar_Forma_Pago() const { return validate_payment_method_; }
    void Validar_Forma_Pago(bool value) { validate_payment_method_ = value; }

    /// Folio of the last deposit that this instance generated, set as soon as it is given.
    std::string Dp_Folio() const { return deposit_folio_; }

    /// Destination bank of a transfer, written to `Cheque.Ch_Banco_Destino`.
    void Ch_Banco_Destino(const std::string& value) { destination_bank_ = value; }
    std::string Ch_Banco_Destino() const { return destination_bank_; }

    /// Starts a receipt: line counter to 0, `Validar_Forma_Pago` to False, the header's texts, rate and keys emptied, both dates
    /// to today on the clock of this machine. Kept on purpose: `Rp_Deposito_ID`, the description and flags of the receipt type,
    /// the rest of the branch, the line and its extras.
    void NuevoReciboCaja();
    /// Closes the receipt `Rp_Folio`: per payment method, creates the payable ("04") or applies the receipt to the customer
    /// ("02", "03") that its type asks for and marks all its lines 'AP', and creates the receivable that the method asks for;
    /// then posts the receipt to accounting when that is automatic, and registers it. Gives True when all of it is done.
    /// Refusals, in order: no live line of that folio; then, row by row, what payables or receivables refuse; what accounting
    /// refuses, or reports after a success; what the registration refuses. All carry the tag.
    /// Left half done by a failure: everything done for earlier rows, the state 'AP' included. A second call repeats all rows.
    bool FinReciboCaja(const std::string& Rp_Folio);

    /// Header of the receipt in capture. A let looks up the server of the branch, takes the whole record, folio included (an
    /// empty folio starts a new receipt with the next line), and fills description and flags from the catalog of receipt types
    /// when the type exists. The let has no trap: it throws what the database throws.
    tRpEncabezado RpEncabezado() const { return receipt_; }
    void RpEncabezado(const tRpEncabezado& value);

    /// Line of the receipt in capture; plain copies.
    tRpDetalle RpDetalle() const { return receipt_line_; }
    void RpDetalle(const tRpDetalle& value) { receipt_line_ = value; }

    /// Validates the current line, and with the first one the header, and writes it at once as a row of `Recibo_Pago`. The first
    /// line takes the folio; lines are numbered "0001", "0002", …
    /// Refusals, in order. First line only: central server, same day (tagged), operating period (tagged), currency, exchange rate
    /// not above 0, no folio. Every line: payment method, amount 0 (negative ones pass), bank of the extras when given, seller of
    /// the extras when the type asks for one; then, while `Validar_Forma_Pago` is True, what the payment-method service refuses
    /// (tagged). A failing INSERT leaves the database's description alone, without tag.
    /// Left half done by a failure: the folio stays with the header once given, so the next call checks only the line; a line
    /// that fails after its checks uses up its number; lines written before stay.
    bool Add_Recibo_Caja_Detalle();

    /// Header of the check in capture. A let is ignored once the check has its folio; it never takes `Ch_Folio`,
    /// `Mn_Cve_Moneda_2` or `Ch_Tipo_Cambio_2`, and of the branch takes the key alone.
    tTsEncabezado Encabezado() const { return check_; }
    void Encabezado(const tTsEncabezado& value);

    /// Line of the check in capture; a let takes the whole record.
    tTsDetalle Detalle() const { return check_line_; }
    void Detalle(const tTsDetalle& value);

    /// Starts a check: line counter to 0, folio, keys, texts and rate of the header emptied, its date to the server's date. Kept
    /// on purpose: `Bc_Cve_Banco_Cuenta2`, the second currency and its rate, the branch.
    void Nuevo();

    /// Validates the current line, and with the first one the header, and writes it at once as a row of `Cheque_x_Aplicar`. The
    /// first line takes the folio into `Encabezado`; lines are numbered "0001", "0002", …
    /// Refusals, in order, all without tag. First line only: central server (of the check's branch); same day; operating
    /// period; branch, currency, check type in their catalogs; no transfer marker; exchange rate not above 0; beneficiary that
    /// the type asks for (type "0000" asks for none); number already issued on that account and not cancelled; no folio. Every
    /// line: amount 0 (negative ones pass), rate of the line not above 0. A failing INSERT stands behind the tag of
    /// `Inserta_Detalle_Cheque`.
    /// Left half done by a failure: nothing up to the folio, and the next call validates the header again. Later the folio stays
    /// open, the line has used its number, and lines written before stay.
    bool Add_Cheque_Detalle();
    // The seven creation members write the check in capture: the row of `Cheque` with the total of its lines, each at its own
    // rate, brought back to the check's currency. What else each does stands with it. A failure inside stops at that step and
    // leaves that step's text; what was written before stays, the check's row included, and is taken back by `Cancelar_Cheque`.
    // All refuse, without tag, a check whose lines add up to 0.

    /// Writes the check of supplier payments, its lines captured before, and its bank movement. `Ch_Folio` must be the folio in
    /// `Encabezado`: it says which lines are added up, while the row and the movement take the header's.
    /// Refusals, in order: total 0; those of `Registra_Movimiento_Bancario_Cheque`.
    bool Crear_Cheque_Pago_Proveedor(const std::string& Ch_Folio);
    /// Writes the check that gives back an advance: as `Crear_Cheque_Pago_Proveedor`.
    bool Crear_Cheque_Devolucion_Anticipo(const std::string& Ch_Folio);
    /// Adds the current line, writes the check of a supplier advance, and charges it to its budget; unless the budget holds it
    /// back ('PXA', still True), registers its bank movement. A line added before is counted as well.
    /// Refusals, in order: those of `Add_Cheque_Detalle`; total 0; those of `Afectar_Cheque_Presupuesto` for kind 0; those of
    /// `Registra_Movimiento_Bancario_Cheque`.
    bool Crear_Cheque_Anticipo_Cxp();
    /// Writes the check of a customer refund, its lines captured before; budget and movement as `Crear_Cheque_Anticipo_Cxp`.
    /// Refusals, in order: total 0; those of `Afectar_Cheque_Presupuesto` for kind 4; those of the movement.
    bool Crear_Cheque_Devolucion_Cliente();
    /// Adds the current line, writes the check of an expense to be justified and the expense itself ('PXA', at the line's rate),
    /// to which every line then points; budget and movement as `Crear_Cheque_Anticipo_Cxp`. With the movement the expense
    /// becomes 'PA'.
    /// Refusals, in order: those of `Add_Cheque_Detalle`; total 0; no folio for the expense (without tag); those of
    /// `Afectar_Cheque_Presupuesto` for kind 1; those of the movement.
    /// Left half done by a failure: the check, then the expense in 'PXA', then the lines that point to it, then the movement.
    bool Crear_Cheque_Gasto_x_Comprobar();
    /// Adds the current line and writes the check of a loan to a debtor; budget and movement as `Crear_Cheque_Anticipo_Cxp`.
    /// Refusals, in order: those of `Add_Cheque_Detalle`; total 0; those of `Afectar_Cheque_Presupuesto` for kind 3; those of
    /// the movement.
    bool Crear_Cheque_Deudor();

    /// Cancels a check for good: undoes its application when its first line is 'AP', cancels the expense to be justified
    /// that it created, marks the check and its lines 'CA' and cancels its bank movement (a check in 'PXA' has none).
    ///
    /// Refuses, in this order: a folio without check, lines or check type; while "GEN_FORZAR_TIEMPO_REAL" is on, a check not
    /// of the server's day; one that accounting does not let go (this text alone stands under the tag of
    /// `Cancelar_Deposito`); what `Cancelar_Aplicacion_Cheque` refuses. At the end, what `Cancelar_Documento_Bancos`
    /// refuses: then the check is already 'CA' while its movement still counts. A check already cancelled is not refused
    /// here but there.
    bool Cancelar_Cheque(const std::string& Ch_Folio);

    /// Applies the check `Ch_Folio` on `Fecha`: line by line in number order, pays the payable ("01", when the type pays
    /// suppliers), turns the expense into a receivable and applies the check's advances to it ("02"), charges the whole check
    /// to the customer or debtor ("03", "04"), or creates a supplier advance for the whole check ("05", its folio goes to the
    /// line); each line done becomes 'AP', and the check when no line is left in 'AC'. `Firme`: the check is marked firm on
    /// `Fecha` and its movement 'FI', else 'TR'. Then the movement is handed to accounting. A receivable falls due after the
    /// credit days of the customer or debtor; on the check's own date when the catalog has none of that class any more.
    /// Refusals, in order, all behind the tag: no such check; state other than 'AC'; no open line; line by line, no payment
    /// method configured for the check's kind ("01"), what the services and the advances refuse; accounting.
    /// Left half done by a failure: lines already 'AP' and their effects, and what the failing line's services had done; the
    /// check stays 'AC' and a second call goes on with the open lines. A failure of the last three steps leaves all lines 'AP',
    /// and once the check is 'AP' too it cannot be applied again.
    bool Aplicar_Cheque(const std::string& Ch_Folio, Date Fecha, bool Firme = false);
    /// Registers the bank movement of the check or transfer `Ch_Folio`, always in transit, by `Registra_Movimiento_Banco`. The
    /// movement type is the parameter "TES_MOVIMIENTO_CHEQUE" or "TES_MOVIMIENTO_TRANSFERENCIA" and must be an outflow. The
    /// amount is the check's, times its rate when the currency of its lines is not the account's.
    /// Refusals, in order: no such check (tagged); those of `Registra_Movimiento_Banco`, as they are.
    bool Registra_Movimiento_Bancario_Cheque(const std::string& Ch_Folio);
    /// Writes one bank movement and moves the balances of its account and of the account's bank by the same signed amount, hands
    /// it to accounting and registers it. `Datos` (by reference) comes back changed, also after a failure: account data filled
    /// in, the amount negated for outflow types, an empty table as "Cheque". `FolioMovimiento` gets the folio.
    /// Refusals, in order: account unknown; account inactive; same day; movement type unknown or inactive; no folio; accounting;
    /// registration. All tagged; the tag has a blank behind it, but for same day, accounting and registration.
    /// Left half done by a failure: none up to the type; the folio after that; then the row and the balances already moved.
    bool Registra_Movimiento_Banco(tBnMovimiento& Datos);

    /// Cancels every bank movement of a source document: takes each out of the balances of its account and bank, marks it
    /// 'CA' and registers it. `Bm_Tabla` is the document's table code as the registration wrote it ("Cheque" for checks and
    /// transfers, "DEPOSITO_PAGO"), compared without regard to case; `Bm_Documento` is its folio.
    /// Neither the date nor the operating period is looked at.
    ///
    /// Refuses a document without movements; then, movement by movement: one already cancelled (they are read too, so a
    /// second call stops at once), one that accounting does not let go, one that cannot be registered. The movements before
    /// it stay cancelled; the one that cannot be registered is cancelled as well.
    bool Cancelar_Documento_Bancos(const std::string& Bm_Tabla, const std::string& Bm_Documento);

    /// Undoes the application of a check: takes back each line's effect (supplier payments, customer advances, receivables,
    /// the supplier advance), returns the check and all its lines to 'AC' and its bank movement to 'TR'. What was created is
    /// withdrawn by rewriting its table code to "<code>-CA:<own folio>", once. The check's own state is not looked at.
    ///
    /// Refuses a folio without check, lines or check type; then, line by line: a payment that payables does not cancel; the
    /// advances or the receivable that receivables does not let go; a supplier advance already applied, or that payables
    /// does not let go. What the earlier lines took back stays taken back, and the states stay as they were.
    bool Cancelar_Aplicacion_Cheque(const std::string& Ch_Folio);

    /// Not supported; kept for old callers. Always False with a text in `Error`.
    bool Crear_Cheque(const std::string& Ch_Folio);
    /// Not supported; kept for old callers. Always False with a text in `Error`.
    bool Registrar_Deposito_Recibo_Caja(const std::string& Rp_Folio, const std::string& Bc_Cve_Banco_Cuenta);
    /// Deposits receipts into the account `Bc_Cve_Banco_Cuenta`. `Rp_Folio` lists their folios, separated by commas; blanks are
    /// ignored. The depositable lines in 'AC' or 'AP' are grouped by branch, company, method, comment, bank, check, currency and
    /// rate (cash folds: its bank, check and comment do not count); each group becomes a line of one deposit dated `Dp_Fecha`,
    /// with comment `sComentario` and one bank movement, firm at `Bm_Fecha_Firme` when `Bm_Firme`, else in transit; the receipt
    /// lines go from 'AC' to 'DP', from 'AP' to 'AD'. `Dp_Folio` gets the deposit's folio. True with nothing written when no line
    /// is depositable.
    /// Refusals, in order, all tagged but those of the movement: account unknown or inactive; same day; no receipt in a state to
    /// deposit; no folio; what `Registra_Movimiento_Banco` refuses (as it is); accounting; registration.
    /// Left half done by a failure: lines, movements and marks of the earlier groups, the current line, the consumed folio.
    bool Genera_Deposito(const std::string& Bc_Cve_Banco_Cuenta, const std::string& Rp_Folio, Date Dp_Fecha,
                         bool Bm_Firme, Date Bm_Fecha_Firme, const std::string& sComentario = {});

    /// The balance of a bank account in its own currency: the sum of its movements that are not cancelled, in transit ones
    /// included; 0 when there is none. The running balance of the account is not read. 0 with a text in `Error` for an
    /// account that does not exist or is inactive, and whenever `SoloFirme` is True: the database does not take that
    /// statement.
    double GetSaldo(const std::string& Bc_Cve_Banco_Cuenta, bool SoloFirme = false);

    /// Asks the user for the account, the firm date (that of the deposit proposed) and whether the deposit is firm: the three
    /// joined by "|"; empty when cancelled. Throws what fails before or after the form, and `Automation_error` (440) when this
    /// program can show no dialog.
    std::string PedirDatosDeposito(Date FechaDeposito, const std::string& Moneda, int EnFirme = 0,
                                   const std::string& Empresa = {});

    /// Cancels one bank movement: takes it out of the balances of its account and bank, marks it 'CA' and registers it.
    ///
    /// Refuses, in this order: a folio that does not exist; a movement already cancelled; while "GEN_FORZAR_TIEMPO_REAL" is
    /// on, one not of the server's day; while "GEN_VALIDAR_PERIODO_OPERATIVO" is on, one outside an open period of
    /// "FINANZAS"; one that accounting does not let go. Up to here nothing is written. A failed registration (reported under
    /// the tag of `Registra_Movimiento_Banco`) leaves the movement cancelled.
    bool Cancelar_Movimiento_Bancos(const std::string& Bm_Folio);

    /// Cancels a cash receipt, all its lines, with the advances, payables and receivables that its closing produced.
    /// `bCancelaPagos` lets payments that it made on receivables be undone too; `bCancelaDeposito` lets its deposit be
    /// cancelled along with it when no other receipt is in it.
    ///
    /// Refuses, in this order: a folio that does not exist; a receipt whose first line is cancelled; while
    /// "GEN_FORZAR_TIEMPO_REAL" is on, one not of the server's day; one that accounting does not let go; a payment line that
    /// its method does not release; the document's payments; payments applied (without `bCancelaPagos`) or not cancellable;
    /// advances, payables and receivables that their modules do not cancel; a deposit (without `bCancelaDeposito`, or with
    /// other receipts in it, or that `Cancelar_Deposito` refuses). What the steps before the refusal undid stays undone
    /// while the receipt stays live.
    bool Cancelar_Recibo_Caja(const std::string& Rp_Folio, bool bCancelaDeposito = false, bool bCancelaPagos = false);

    /// Writes the check or transfer between own accounts, its lines captured before; no budget, no bank movement.
    /// Refusals, in order, without tag: no folio in the header; total 0.
    bool Crear_Traspaso_Cuenta_Propia();
    /// Closes the check `Ch_Folio`: generates its own voucher when checks are posted automatically, and registers the document.
    /// Refusals, in order, all behind the tag: company not to be found (no such check, a cancelled one, an inactive branch); what
    /// accounting refuses, or reports after a success; what the registration refuses.
    /// Left half done by a failure: the voucher.
    bool Finalizar_Cheque(const std::string& Ch_Folio);

    /// Header of the check request in capture. Letting it copies all but the folio, and of the branch the key; once the
    /// request has its folio a let changes nothing, so an instance captures one request.
    tSchEncabezado SchEncabezado() const { return request_; }
    void SchEncabezado(const tSchEncabezado& value);

    /// Line of the check request in capture.
    tSchDetalle SchDetalle() const { return request_line_; }
    void SchDetalle(const tSchDetalle& value);

    /// Writes the header of the check request, in state 'PXA' while "TES_AUTORIZAR_SOLICITUD_CHEQUE" is on, else 'AC'. The
    /// folio is then in `SchEncabezado`. True, and nothing written, when the request already has its folio.
    ///
    /// Refuses, in this order: a server that does not own the branch; while "GEN_FORZAR_TIEMPO_REAL" is on, a date other
    /// than the server's day; a closed operating period; a branch, currency or check type that does not exist; an empty
    /// `Sch_Transferencia`, `Sch_Aplicar` or `Sch_Firme`; a rate not above 0; the beneficiary that the check type asks for
    /// (types "01" to "04"; key "0000" asks for none); an amount of 0 (a negative one passes); no folio to be had. When the
    /// row cannot be written the folio stays in the header, and another call on this instance writes nothing.
    bool Add_Solicitud_Cheque();

    /// Writes `SchDetalle` as the next line ("0001", …) of the request in capture, in the state its header was given.
    ///
    /// Refuses, in this order: an empty `Sch_Folio`; one that is not, letter by letter, the request's; an empty `Scd_Tabla`;
    /// an empty `Scd_Documento`; an amount not above 0; an empty currency; a rate not above 0. These use up no line number;
    /// a line that cannot be written does.
    bool Add_Solicitud_Cheque_Detalle();

    /// Authorizes a check request: its header becomes 'AC', and so do all its lines, cancelled ones too, when at least one
    /// is not cancelled. Refuses an empty folio, and one of no request or of a cancelled one.
    bool Autorizar_Solicitud_Cheque(const std::string& Folio);

    /// Cancels a check request, lines first. Refuses, in this order: an empty folio; one of no request; a request already
    /// cancelled; one paid by a check that is not cancelled. A failure between the two writes leaves cancelled lines under a
    /// live header.
    bool Cancelar_Solicitud_Cheque(const std::string& Folio);

    /// Charges the written check `Ch_Folio` to the budget of its month and puts it in 'PXA' when the budget is exceeded. `Tipo`:
    /// 0 supplier advance, 1 expense to verify, 3 loan to a debtor, 4 customer refund; any other value passes. The kind's
    /// parameter gives the mode: 1 control where a budget exists, 2 strict (no budget holds back), else none. The budget is that
    /// of the most specific level with an amount above 0; what equals it passes. True also when the check is held back.
    /// Refusals, in order, behind the tag "Afectar_Cheque_Presupuesto()": no folio; no such check; state 'CA', 'AP' or 'PXA'; no
    /// beneficiary of the kind's class; type of another kind.
    /// Left half done by a failure: nothing.
    bool Afectar_Cheque_Presupuesto(const std::string& Ch_Folio, int Tipo);
    /// Asks the user for what the payment method `FormaPago` requires: bank name, reference, account and bank key joined by "|";
    /// empty when cancelled, or when the method is cancelled or cannot be read, which is reported. With a document, the
    /// account is remembered for it and, with `bSugerirCuenta`, suggested. Throws as `PedirDatosDeposito`.
    std::string PedirDatosFormaPago(const std::string& FormaPago, const std::string& Dcb_Tabla = {},
                                    const std::string& Dcb_Documento = {}, const std::string& Banco = {},
                                    const std::string& Referencia = {}, const std::string& Cuenta = {},
                                    const std::string& nBanco = {}, bool bSugerirCuenta = false);

    /// Extras of the receipt lines. A let keeps the object itself. The get never hands it back: it throws `Automation_error`
    /// (91), as callers know it.
    std::shared_ptr<clsRpDetalle> RpDetalle2() const;
    void RpDetalle2(std::shared_ptr<clsRpDetalle> value);
    /// What a let of an object of another class comes to, as only callers of other languages can pass one: the let's trap
    /// leaves its text in `Error`, and the object that is held stays.
    void RpDetalle2_mismatch();

private:
    bool Inserta_Recibo_Pago();
    /// Writes the check in capture with the total of the lines of `Ch_Folio`. Refuses, without tag, a total of 0.
    bool Inserta_Cheque(const std::string& Ch_Folio);
    /// Writes the current line.
    bool Inserta_Detalle_Cheque();
    bool Contabiliza_Banco_Movimiento(const std::string& Bm_Folio, const std::string& Bm_Tabla,
                                      const std::string& Bm_Documento);
    bool Valida_Poliza_Contable(const std::string& Tabla, const std::string& Documento);
    bool Inserta_Solicitud_Cheque();
    bool Inserta_Solicitud_Cheque_Detalle();
    /// Sets every open advance named by the lines of the check's expense against it: a payment on the expense's receivable and
    /// one on the advance's, both dated `Fecha`; an advance wholly used becomes 'AP'.
    /// Refusals, in order, behind the tag "Aplicar_Anticipo_Cxc()" but for those of the receivables service, which stand alone:
    /// no receivable of the expense; no advance to apply; per advance, no receivable, balance of the expense, the service, paid
    /// twice, balance of the advance, the service. Balances are compared in whole units.
    /// Left half done by a failure: the advances handled before, and the failing one's first payment.
    bool Aplicar_Anticipo_Cxc(const std::string& Ch_Folio, Date Fecha);
    /// Takes back what `Aplicar_Anticipo_Cxc` did for the check: cancels every live payment of the receivables of the advances
    /// that paid its expense, and opens those advances. Without such payments only marks the expense's lines 'CA'.
    /// Refusals are the receivables service's, as they stand. Left half done by a failure: the advances handled before.
    bool Cancelar_Aplicacion_Cheque_Anticipo(const std::string& Ch_Folio);

    /// The next line number of the document in capture, as four digits; the 16-bit counter that receipts, checks and check
    /// requests share. Throws `Automation_error` (6) after 32767.
    std::string next_line_id();

    Module& module_;
    std::string error_;
    tTsEncabezado check_;
    tTsDetalle check_line_;
    std::string destination_bank_;
    tRpEncabezado receipt_;
    tRpDetalle receipt_line_;
    std::shared_ptr<clsRpDetalle> receipt_line_extras_;
    tSchEncabezado request_;
    tSchDetalle request_line_;
    std::int16_t line_counter_ = 0;
    bool validate_payment_method_ = false;
    std::string branch_server_id_;
    std::string deposit_folio_;
    std::string receipt_stamp_;  ///< creation stamp of the receipt in capture
    std::string check_stamp_;    ///< registration stamp of the check in capture
    std::string request_stamp_;  ///< capture stamp of the check request in capture
};

}  // namespace cuvexa
