#include "company/version.h"
#include "cuvexa/suite/administration.h"
#include "cuvexa/suite/audit.h"
#include "statements/cases.h"
#include "suite/expenses.h"
#include "support/service_records.h"

namespace cuvexa::tests {
namespace {

const std::string receipt = "RP-MTY-00000001";
const std::string check = "CH-MTY-00000001";

/// A case that asks one service for something and is told by what that sent.
template <class Ask>
Case asking(std::string title, Preparation given, Ask ask) {
    return {std::move(title), std::move(given), [=](Company& company) {
                ask(company);
                return true;
            }};
}

template <class Ask>
void in_an_operation(Company& company, Ask ask) {
    company.suite()->session()->operation_begins();
    ask();
    company.suite()->session()->operation_ends();
}

// ---- Session, data, payment methods ---------------------------------------------------------------------------------

std::vector<Case> session_cases() {
    return {
        asking("GetParameter", {},
               [](Company& company) { company.suite()->session()->GetParameter("FIN_MONEDA_LOCAL", 0, "", ""); }),
        asking("GetServerId", {}, [](Company& company) { company.suite()->session()->GetServerId(); }),
        asking("IsReplicaServer", {}, [](Company& company) { company.suite()->session()->IsReplicaServer(); }),
        asking("GetParameter, in an operation", {},
               [](Company& company) {
                   in_an_operation(company, [&] {
                       company.suite()->session()->GetServerId();
                       company.suite()->session()->IsReplicaServer();
                       company.suite()->session()->GetParameter("TES_MOVIMIENTO_DEPOSITO", 0, "", "");
                       company.suite()->new_accounting()->IsPostingEnabled("CHEQUE");
                   });
               }),
    };
}

void post_receipt_by_hand(Company& company) {
    mark_posted(company.connection(), "RECIBO_PAGO", receipt, "CONTA1");
}

std::vector<Case> data_cases() {
    const auto folio = [](Company& company) { company.suite()->data()->GetNextFolio("MTY", "RECIBO_PAGO"); };
    const auto registers = [](Company& company) { company.suite()->data()->RegisterDocument("RECIBO_PAGO", receipt); };
    const auto look_up = [](const std::string& table, const std::string& condition) {
        return [=](Company& company) {
            company.suite()->data()->LookupValue("Cl_Dias_Credito", "Cl_Cve_Cliente", "DE01", table, condition);
        };
    };
    return {
        asking("LookupValue", {}, look_up("Cliente", "")),
        asking("LookupValue, with a condition", {}, look_up("Cliente", "Tc_Cve_Tipo_Cliente = 'DE'")),
        asking("LookupValue, in a table without states", {},
               [](Company& company) {
                   company.suite()->data()->LookupValue("Ps_Valor", "Ps_Nombre", "FIN_MONEDA_LOCAL",
                                                        "Parametro_Sistema", "");
               }),
        asking("LookupValue, of a row that operations ask for more than once", {},
               [](Company& company) {
                   in_an_operation(company, [&] {
                       const auto data = company.suite()->data();
                       data->LookupValue("Bt_Tipo", "Bt_Cve_Banco_Tipo_Movimiento", "DEP", "Banco_Tipo_Movimiento");
                       data->LookupValue("Bt_Descripcion", "Bt_Cve_Banco_Tipo_Movimiento", "DEP",
                                         "Banco_Tipo_Movimiento");
                   });
               }),
        asking(
            "GetServerDate, while none is fixed",
            [](Company& company) { company.suite()->set_server_date(std::nullopt); },
            [](Company& company) { company.suite()->data()->GetServerDate(); }),
        asking("GetNextFolio, of a series that begins", {}, folio),
        asking("GetNextFolio, of a series in use", folio, folio),
        asking("GetNextFolio, of a series that cannot be begun: another session may have done it", {},
               [](Company& company) {
                   company.wire().fail_at(2);
                   EXPECT_THROW(company.suite()->data()->GetNextFolio("MTY", "RECIBO_PAGO"), Database_error);
               }),
        asking("IsOperatingPeriodOpen", {},
               [](Company& company) { company.suite()->data()->IsOperatingPeriodOpen(Company::today(), "FINANZAS"); }),
        asking("RegisterDocument, for the first time", {}, registers),
        asking("RegisterDocument, again", registers, registers),
        asking("IsDocumentPosted", post_receipt_by_hand,
               [](Company& company) { company.suite()->data()->IsDocumentPosted("RECIBO_PAGO", receipt); }),
    };
}

std::vector<Case> payment_method_cases() {
    return {asking("ValidatePaymentLine", {}, [](Company& company) {
        company.suite()->payment_methods()->ValidatePaymentLine("02", "1", "Sierra", 100, "RECIBO_PAGO", receipt, "",
                                                                "");
    })};
}

// ---- Payables and receivables ---------------------------------------------------------------------------------------

void create_payable(Company& company) {
    const auto payables = company.suite()->new_accounts_payable();
    payables->CreatePayable(payable_of(*payables, 150));
}

void pay_payable(Company& company) {
    const auto payables = company.suite()->new_accounts_payable();
    payables->AddPaymentLine(check_payment("CXP-MTY-00000001", 400));
    payables->ApplyPayments();
}

void create_supplier_advance(Company& company) {
    std::string folio;
    company.suite()->new_accounts_payable()->CreateSupplierAdvance({.date = Company::today(),
                                                                    .reference = "1001",
                                                                    .check_folio = check,
                                                                    .currency = "MXN",
                                                                    .exchange_rate = 1,
                                                                    .branch = "MTY",
                                                                    .supplier = "PV01",
                                                                    .amount = 400,
                                                                    .concept_text = "Anticipo",
                                                                    .bank_account = "SRR-MXN"},
                                                                   folio);
}

std::vector<Case> payable_cases() {
    return {
        asking("CreatePayable", {}, create_payable),
        asking("AddPaymentLine and ApplyPayments", {}, pay_payable),
        asking("AddPaymentLine twice and ApplyPayments: the number of the second is taken when its turn comes", {},
               [](Company& company) {
                   const auto payables = company.suite()->new_accounts_payable();
                   payables->AddPaymentLine(check_payment("CXP-MTY-00000001", 100));
                   payables->AddPaymentLine(check_payment("CXP-MTY-00000001", 200));
                   payables->ApplyPayments();
               }),
        asking("CancelPayment", pay_payable,
               [](Company& company) {
                   company.suite()->new_accounts_payable()->CancelPayment("CXP-MTY-00000001", "0001");
               }),
        asking("CreateSupplierAdvance", {}, create_supplier_advance),
        asking("ValidateAdvanceCancellation", create_supplier_advance,
               [](Company& company) {
                   company.suite()->new_accounts_payable()->ValidateAdvanceCancellation(
                       company.scalar("SELECT Cxp_Documento FROM Cuenta_x_Pagar WHERE Cxp_Tabla = 'ANTICIPO_CXP'"));
               }),
        asking("CancelDocumentPayables", create_payable,
               [](Company& company) {
                   company.suite()->new_accounts_payable()->CancelDocumentPayables("RECIBO_PAGO", receipt);
               }),
    };
}

Preparation apply_receipt(double amount) {
    return [=](Company& company) { company.suite()->new_accounts_receivable()->ApplyReceipt(receipt_of(amount)); };
}

/// The same, of a receipt that names the document it pays.
void capture_for_invoice(Company& company) {
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Tabla = "FACTURA_VENTA";
    header.Rp_Documento = "FV-5002";
    company.capture_receipt({Company::receipt_line(100)}, header);
}

void create_receivable(Company& company) {
    company.suite()->new_accounts_receivable()->CreateReceivable(receivable_of(35));
}

void expense_check(Company& company) {
    company.on.parameters["TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR"] = std::string("0");
    company.treasury().Nuevo();
    company.treasury().Encabezado(Company::check_header("0002", "DE01"));
    company.treasury().Detalle(Company::check_line(1300, ""));
    company.treasury().Crear_Cheque_Gasto_x_Comprobar();
}

/// An advance set against the expense of a check: a payment on the receivable of each, under one reference.
void apply_advance(Company& company) {
    expense_check(company);
    reference::link_advance_to_check(*company.suite(), check, "AN-MTY-00000002", 250, 1);
    company.treasury().Aplicar_Cheque(check, Company::today());
}

Preparation cancels_receivable_payment(const std::string& receivable) {
    return [=](Company& company) { company.suite()->new_accounts_receivable()->CancelPayment(receivable, "0001"); };
}

std::vector<Case> receivable_cases() {
    return {
        asking("ApplyReceipt, to the oldest of what is owed", {}, apply_receipt(100)),
        asking("ApplyReceipt, beyond what is owed: an advance is left", {}, apply_receipt(9000)),
        asking("ApplyReceipt, to the document that the receipt names", capture_for_invoice, apply_receipt(100)),
        asking("CreateReceivable", {}, create_receivable),
        asking("ApplyCustomerDocument", expense_check,
               [](Company& company) {
                   company.suite()->new_accounts_receivable()->ApplyCustomerDocument("GC-MTY-00000001");
               }),
        asking("ValidateDocumentCancellation", create_receivable,
               [](Company& company) {
                   company.suite()->new_accounts_receivable()->ValidateDocumentCancellation("RECIBO_PAGO", receipt);
               }),
        asking("CancelDocumentAdvances", apply_receipt(9000),
               [](Company& company) {
                   company.suite()->new_accounts_receivable()->CancelDocumentAdvances("RECIBO_PAGO", receipt);
               }),
        asking("CancelDocumentReceivables", create_receivable,
               [](Company& company) {
                   company.suite()->new_accounts_receivable()->CancelDocumentReceivables("RECIBO_PAGO", receipt);
               }),
        asking("RegisterPayment", {},
               [](Company& company) {
                   company.suite()->new_accounts_receivable()->RegisterPayment(cash_payment("CXC-MTY-00000001", 100));
               }),
        asking("CancelPayment", apply_receipt(100), cancels_receivable_payment("CXC-MTY-00000001")),
        asking("CancelPayment, of an advance: the expense's payment goes too", apply_advance,
               cancels_receivable_payment("CXC-MTY-00000004")),
        asking("CancelPayment, of an expense: the advance's payment goes too", apply_advance,
               cancels_receivable_payment("CXC-MTY-00000005")),
        asking("DocumentCheck", {},
               [](Company& company) {
                   company.suite()->new_accounts_receivable()->DocumentCheck("ANTICIPO_CXC", "AN-MTY-00000002");
               }),
    };
}

std::vector<Case> document_payment_cases() {
    return {asking(
        "CancelDocumentPayments",
        [](Company& company) {
            Receivable_payment payment = cash_payment("CXC-MTY-00000001", 100);
            payment.source_table = "CHEQUE";
            payment.source_document = check;
            company.suite()->new_accounts_receivable()->RegisterPayment(payment);
        },
        [](Company& company) { company.suite()->document_payments()->CancelDocumentPayments("CHEQUE", check); })};
}

std::vector<Case> expense_cases() {
    return {asking("register_expense_advance", {},
                   [](Company& company) {
                       reference::register_expense_advance(*company.suite(), {.debtor = "DE01",
                                                                              .branch = "MTY",
                                                                              .expense = "GR-33",
                                                                              .date = Company::today(),
                                                                              .amount = 80,
                                                                              .currency = "MXN"});
                   }),
            asking("link_advance_to_check", {}, [](Company& company) {
                reference::link_advance_to_check(*company.suite(), check, "AN-MTY-00000002", 250, 1);
            })};
}

// ---- Accounting -----------------------------------------------------------------------------------------------------

Preparation posts(const std::string& code, const std::string& folio) {
    return [=](Company& company) { company.suite()->new_accounting()->PostDocument(code, folio, "EM01"); };
}

void receive(Company& company) {
    company.capture_receipt({Company::receipt_line(100)});
}

void deposit(Company& company) {
    receive(company);
    company.treasury().Genera_Deposito("SRR-MXN", receipt, Company::today(), false, Company::today());
}

void pay_supplier(Company& company) {
    company.treasury().Crear_Cheque_Pago_Proveedor(company.capture_check({Company::check_line(400)}));
}

void refund_customer(Company& company) {
    company.capture_check({Company::check_line(400, "")}, Company::check_header("0003", "CL01"));
    company.treasury().Crear_Cheque_Devolucion_Cliente();
}

std::vector<Case> accounting_cases() {
    return {
        asking("IsPostingEnabled", {},
               [](Company& company) { company.suite()->new_accounting()->IsPostingEnabled("CHEQUE"); }),
        asking("PostDocument, of a receipt", receive, posts("RECIBO_PAGO", receipt)),
        asking("PostDocument, of a bank movement", deposit, posts("BANCO_MOVIMIENTO", "BM-00000001")),
        asking("PostDocument, of a deposit", deposit, posts("DEPOSITO_PAGO", "DP-MTY-00000001")),
        asking("PostDocument, of a check to a supplier", pay_supplier, posts("CHEQUE", check)),
        asking("PostDocument, of a check to a customer", refund_customer, posts("CHEQUE", check)),
        asking(
            "PostDocument, of a check whose type and beneficiary have no account",
            [](Company& company) {
                pay_supplier(company);
                company.sql("UPDATE Proveedor SET Pv_Cuenta_Contable = ''");
            },
            posts("CHEQUE", check)),
        asking(
            "PostDocument, of a receipt that changed since",
            [](Company& company) {
                receive(company);
                posts("RECIBO_PAGO", receipt)(company);
                company.sql("UPDATE Recibo_Pago SET Rp_Importe = 90");
            },
            posts("RECIBO_PAGO", receipt)),
        asking(
            "ValidateVoucherCancellation",
            [](Company& company) {
                receive(company);
                posts("RECIBO_PAGO", receipt)(company);
            },
            [](Company& company) {
                company.suite()->new_accounting()->ValidateVoucherCancellation("RECIBO_PAGO", receipt);
            }),
    };
}

// ---- Administration and audit ---------------------------------------------------------------------------------------

template <class Administer>
Case administering(std::string title, Administer administer) {
    return asking(std::move(title), {}, [=](Company& company) { administer(company.wire()); });
}

std::vector<Case> administration_cases() {
    return {
        administering("the version of the schema", [](Connection& wire) { company::version_of(wire); }),
        administering("all parameters", [](Connection& wire) { parameters(wire); }),
        administering("a parameter is set, set anew and taken away",
                      [](Connection& wire) {
                          set_parameter(wire, "FTO_CLIENTE", "00");
                          set_parameter(wire, "FTO_CLIENTE", "000");
                          unset_parameter(wire, "FTO_CLIENTE");
                      }),
        administering("the server",
                      [](Connection& wire) {
                          set_server_identity(wire, {"NORTE", true});
                          server_identity(wire);
                      }),
        administering("what is posted by itself",
                      [](Connection& wire) {
                          postings(wire);
                          set_posting(wire, "CHEQUE", true);
                          set_posting(wire, "GASTO_REGISTRO", true);
                      }),
        administering("a period is closed, and one begins",
                      [](Connection& wire) {
                          periods(wire);
                          set_period(wire, {"FINANZAS", 2024, 3, false});
                          set_period(wire, {"FINANZAS", 2028, 1, true});
                      }),
        administering("the series of folios",
                      [](Connection& wire) {
                          folio_series(wire);
                          folio_series_of(wire, "CHEQUE", "MTY");
                          set_next_folio(wire, "CHEQUE", "MTY", 500);
                          set_folio_series_open(wire, "CHEQUE", "MTY", false);
                      }),
        administering("a document is posted by hand, and not any more",
                      [](Connection& wire) {
                          mark_posted(wire, "CHEQUE", check, "CONTA1");
                          unmark_posted(wire, "CHEQUE", check);
                      }),
        administering("a voucher is closed", [](Connection& wire) { set_voucher_closed(wire, "PZ-00000001", true); }),
    };
}

std::vector<Case> audit_cases() {
    return {administering("every check", [](Connection& wire) { audit(wire); })};
}

}  // namespace

std::vector<Member_cases> suite_cases() {
    return {
        {"DataServices", data_cases()},
        {"SessionServices", session_cases()},
        {"PaymentMethodService", payment_method_cases()},
        {"AccountsPayableService", payable_cases()},
        {"AccountsReceivableService", receivable_cases()},
        {"DocumentPaymentsService", document_payment_cases()},
        {"Expenses", expense_cases()},
        {"AccountingService", accounting_cases()},
        {"Administration", administration_cases()},
        {"Audit", audit_cases()},
    };
}

}  // namespace cuvexa::tests
