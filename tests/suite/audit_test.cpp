// The audit: nothing to find after operations that ran to their end, and each planted inconsistency by its own rule.
#include "cuvexa/suite/audit.h"

#include <functional>
#include <set>

#include "cuvexa/unit_of_work.h"
#include "suite/expenses.h"
#include "support/company.h"

namespace cuvexa::tests {
namespace {

using ::testing::Contains;
using ::testing::SizeIs;

/// A day's work: a receipt deposited, a receipt that created a payable, a check applied, an expense paid, a request.
struct A_day_of_work : ::testing::Test {
    A_day_of_work() {
        for (const char* code : {"RECIBO_PAGO", "BANCO_MOVIMIENTO", "DEPOSITO_PAGO", "CHEQUE"}) {
            company.post_automatically(code);
        }
        Tesoreria& treasury = company.treasury();
        receipt =
            company.capture_receipt({Company::receipt_line(150), Company::receipt_line(80, "02", "SIERRA", "778")});
        succeed(treasury.FinReciboCaja(receipt));
        succeed(treasury.Genera_Deposito("SRR-MXN", receipt, Company::today(), true, Company::today()));
        deposit = treasury.Dp_Folio();

        tRpEncabezado loan = Company::receipt_header();
        loan.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "04";
        loan.Rp_Solicitar_Valor = "PV01";
        loan_receipt = company.capture_receipt({Company::receipt_line(500)}, loan);
        succeed(treasury.FinReciboCaja(loan_receipt));

        check = company.capture_check({Company::check_line(100), Company::check_line(20)});
        succeed(treasury.Crear_Cheque_Pago_Proveedor(check));
        succeed(treasury.Aplicar_Cheque(check, Company::today(), true));
        succeed(treasury.Finalizar_Cheque(check));

        treasury.Nuevo();
        tTsEncabezado expense = Company::check_header();
        expense.Tc_Cve_Tipo_Cheque = "0002";
        expense.Ch_Solicitar_Valor = "DE01";
        expense.Ch_Referencia = "1002";
        treasury.Encabezado(expense);
        treasury.Detalle(Company::check_line(60, ""));
        succeed(treasury.Crear_Cheque_Gasto_x_Comprobar());
        expense_check = treasury.Encabezado().Ch_Folio;

        tSchEncabezado request;
        request.Sch_Fecha = Company::today();
        request.Tc_Cve_Tipo_Cheque = "0000";
        request.Sucursal.Sc_Cve_Sucursal = "MTY";
        request.Sch_Importe = 10;
        request.Mn_Cve_Moneda = "MXN";
        request.Sch_Tipo_Cambio = 1;
        request.Sch_Transferencia = request.Sch_Aplicar = request.Sch_Firme = "NO";
        treasury.SchEncabezado(request);
        succeed(treasury.Add_Solicitud_Cheque());
        tSchDetalle line;
        line.Sch_Folio = request_folio = treasury.SchEncabezado().Sch_Folio;
        line.Scd_Tabla = "CUENTA_X_PAGAR";
        line.Scd_Documento = "CXP-MTY-00000001";
        line.Scd_Importe = 10;
        line.Mn_Cve_Moneda = "MXN";
        line.Scd_Tipo_Cambio = 1;
        treasury.SchDetalle(line);
        succeed(treasury.Add_Solicitud_Cheque_Detalle());
    }

    void succeed(bool done) {
        if (!done) throw std::runtime_error(company.treasury().Error());
    }

    std::vector<Finding> findings() { return audit(company.connection()); }

    /// After the change exactly one finding, of this rule, about this document and with these figures.
    void expect_finding(const std::string& change, const std::string& check_name, const std::string& document,
                        const std::string& figures) {
        company.sql(change);
        const std::vector<Finding> found = findings();
        for (const Finding& finding : found) {
            if (finding.check != check_name) continue;
            EXPECT_EQ(finding.document, document);
            EXPECT_EQ(finding.figures, figures);
            EXPECT_NE(finding.remedy, "");
            planted.insert(check_name);
            return;
        }
        ADD_FAILURE() << check_name << " finds nothing after: " << change;
    }

    using Plant = std::function<void(const std::string& change, const std::string& check_name,
                                     const std::string& document, const std::string& figures)>;

    void plant_what_operations_leave(const Plant& plant) {
        plant_of_banks(plant);
        plant_of_checks(plant);
        plant_of_expenses(plant);
        plant_of_receipts_and_requests(plant);
        plant_of_ledgers_and_vouchers(plant);
    }

    void plant_of_banks(const Plant& plant) {
        plant("UPDATE Banco_Cuenta SET Bc_Saldo = NULL WHERE Bc_Cve_Banco_Cuenta = 'PTO-MXN'",
              "importe-que-no-es-un-numero", "Cuenta bancaria PTO-MXN", "Bc_Saldo no es un número finito");
        plant("DELETE FROM Documento_Registrado WHERE Dr_Documento = '" + deposit + "'", "deposito-sin-registrar",
              "Depósito " + deposit, "importe del depósito 230.00");
        const std::string movement = movement_of(check);
        plant("DELETE FROM Documento_Registrado WHERE Dr_Documento = '" + movement + "'", "movimiento-sin-registrar",
              "Movimiento bancario " + movement, "importe del movimiento -120.00");
        plant(
            "UPDATE Banco_Movimiento SET Es_Cve_Estado = 'CA', Fecha_Baja = '2024-03-15 10:20:31' WHERE Bm_Folio = '" +
                movement + "'",
            "cancelacion-de-movimiento-sin-registrar", "Movimiento bancario " + movement,
            "importe del movimiento -120.00");
        plant(
            "UPDATE Banco_Movimiento SET Bm_Documento_ID = '0001', Bm_Importe = 150, Bm_Referencia = '' "
            "WHERE Bm_Documento = '" +
                deposit + "'",
            "movimiento-duplicado",
            "Movimiento bancario " +
                company.scalar("SELECT MAX(Bm_Folio) FROM Banco_Movimiento WHERE Bm_Documento = '" + deposit + "'"),
            "importe del movimiento 150.00");
    }

    void plant_of_checks(const Plant& plant) {
        const std::string of_check = " WHERE Ch_Folio = '" + check + "'";
        plant("UPDATE Cheque SET Es_Cve_Estado = 'PXA'" + of_check, "cheque-con-efectos-sin-aplicar", "Cheque " + check,
              "importe del cheque 120.00");
        plant("UPDATE Pago_Cxp SET Pc_Importe_Pago = 150 WHERE Pc_Importe_Pago = 100", "cheque-y-pagos-difieren",
              "Pago de cheque " + check + "/CXP-MTY-00000001", "importe de sus renglones 120.00, pagos vivos 170.00");
        plant(
            "UPDATE Banco_Movimiento SET Es_Cve_Estado = 'TR', Fecha_Ult_Modif = '2024-03-15 10:20:29' "
            "WHERE Bm_Documento = '" +
                check + "'",
            "movimiento-de-cheque-sin-marcar", "Cheque " + check,
            "importe del cheque 120.00, importe de su movimiento -120.00");
        plant("UPDATE Cheque SET Es_Cve_Estado = 'AC'" + of_check, "aplicacion-de-cheque-cancelada-a-medias",
              "Cheque " + check, "importe del cheque 120.00, importe de su movimiento -120.00");
        plant("UPDATE Cheque SET Ch_Referencia = '1001', Ch_Transferencia = 'NO' WHERE Ch_Folio = '" + expense_check +
                  "'",
              "cheque-duplicado", "Cheque " + expense_check, "importe del cheque 120.00");
        plant("DELETE FROM Documento_Registrado WHERE Dr_Documento = '" + check + "'", "cheque-sin-finalizar",
              "Cheque " + check, "importe del cheque 120.00");
        company.sql("UPDATE Cheque SET Ch_Tabla = 'SOLICITUD_CHEQUE', Ch_Documento = '" + request_folio + "'" +
                    of_check);
        plant("UPDATE Solicitud_Cheque SET Es_Cve_Estado = 'CA' WHERE Sch_Folio = '" + request_folio + "'",
              "cheque-de-solicitud-cancelada", "Cheque " + check, "importe del cheque 120.00");
        plant(
            "INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento, Cxp_Importe) "
            "VALUES ('CXP-9', 'ANTICIPO_CXP', 'CXP-9', -80)",
            "anticipo-a-proveedor-sin-cheque", "Cuenta por pagar CXP-9", "importe del anticipo -80.00");
        const std::string advance = check_of_kind("0005", "PV01", "1005", &Tesoreria::Crear_Cheque_Anticipo_Cxp);
        plant(
            "UPDATE Cuenta_x_Pagar SET Cxp_Tabla = 'ANTICIPO_CXP-CA:x' WHERE Cxp_Folio IN "
            "(SELECT Cxp_Folio FROM Cheque_x_Aplicar WHERE Ch_Folio = '" +
                advance + "')",
            "cheque-sin-su-anticipo-a-proveedor", "Renglón de cheque " + advance + "/0001",
            "importe del renglón 70.00");
        const std::string loan = check_of_kind("0004", "DE01", "1004", &Tesoreria::Crear_Cheque_Deudor);
        plant("UPDATE Cuenta_x_Cobrar SET Cxc_Tabla = 'CHEQUE-CA:x' WHERE Cxc_Documento = '" + loan + "'",
              "cheque-y-cuentas-por-cobrar-difieren", "Cheque " + loan,
              "importe del cheque por sus renglones 70.00, cuentas por cobrar vivas 0.00");
    }

    void plant_of_expenses(const Plant& plant) {
        const std::string expense =
            company.scalar("SELECT Gc_Folio FROM Gasto_x_Comprobar WHERE Gc_Documento = '" + expense_check + "'");
        plant("UPDATE Cheque_x_Aplicar SET Cxp_Folio = '' WHERE Ch_Folio = '" + expense_check + "'",
              "cheque-de-gasto-sin-gasto", "Cheque " + expense_check, "importe del cheque 60.00");
        reference::link_advance_to_check(*company.suite(), expense_check, "AN-MTY-00000001", 10, 1);
        succeed(company.treasury().Aplicar_Cheque(expense_check, Company::today()));
        plant("UPDATE Cuenta_x_Cobrar SET Cxc_Tabla = 'GASTO_X_COMPROBAR-CA:x' WHERE Cxc_Documento = '" + expense + "'",
              "cheque-y-gasto-difieren", "Cheque " + expense_check,
              "importe del gasto 60.00, cuentas por cobrar vivas del gasto 0.00");
        plant(
            "UPDATE Gasto_x_Comprobar_Documento SET Es_Cve_Estado = 'CA' WHERE Gc_Documento = '" + expense_check + "'",
            "cheque-sin-sus-anticipos", "Cheque " + expense_check, "importe del cheque 60.00");
        const std::string payment = company.scalar(
            "SELECT Cxc_Folio || ':' || Pc_ID FROM Pago_Cxc WHERE Pc_Documento = "
            "'AN-MTY-00000001' AND Pc_Tabla = 'ANTICIPO_CXC'");
        plant("UPDATE Pago_Cxc SET Es_Cve_Estado = 'CA' WHERE Pc_Documento = ''", "anticipo-aplicado-a-medias",
              "Pago de cuenta por cobrar " + payment, "importe del pago 10.00");
        plant("UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'AP' WHERE An_Folio = 'AN-MTY-00000001'",
              "anticipo-usado-con-saldo", "Anticipo de cliente AN-MTY-00000001",
              "importe del anticipo 1000.00, saldo de su cuenta por cobrar -990.00");
    }

    void plant_of_receipts_and_requests(const Plant& plant) {
        plant("DELETE FROM Documento_Registrado WHERE Dr_Documento = '" + loan_receipt + "'", "recibo-cerrado-a-medias",
              "Recibo de caja " + loan_receipt, "importe del recibo 500.00");
        plant("UPDATE Cuenta_x_Pagar SET Es_Cve_Estado = 'CA' WHERE Cxp_Documento = '" + loan_receipt + "'",
              "recibo-y-aplicacion-difieren", "Recibo de caja " + loan_receipt,
              "importe del recibo 500.00, pagos, anticipos y cuentas por pagar vivos 0.00");
        plant("UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA' WHERE Rp_Folio = '" + loan_receipt + "'",
              "aplicacion-de-recibo-cancelado", "Recibo de caja " + loan_receipt, "importe del recibo 500.00");
        const std::string on_card = company.capture_receipt({Company::receipt_line(30, "06", "", "V-1")});
        succeed(company.treasury().FinReciboCaja(on_card));
        plant("UPDATE Cuenta_x_Cobrar SET Es_Cve_Estado = 'CA' WHERE Cxc_Documento = '" + on_card + "'",
              "recibo-y-cuentas-por-cobrar-difieren", "Recibo de caja " + on_card,
              "sus cuentas por cobrar vivas no son las de sus formas de pago");
        plant("UPDATE Solicitud_Cheque_Detalle SET Es_Cve_Estado = 'PXA' WHERE Sch_Folio = '" + request_folio + "'",
              "solicitud-autorizada-a-medias", "Solicitud de cheque " + request_folio, "importe de la solicitud 10.00");
    }

    void plant_of_ledgers_and_vouchers(const Plant& plant) {
        const std::string own = company.scalar(
            "SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cxc_Tabla = 'ANTICIPO_CXC' AND Cxc_Documento = "
            "'AN-MTY-00000001'");
        plant("DELETE FROM Anticipo_Cxc WHERE An_Folio = 'AN-MTY-00000001'", "cuenta-de-anticipo-sin-anticipo",
              "Cuenta por cobrar " + own, "importe -1000.00");
        plant("UPDATE Cuenta_x_Cobrar SET Es_Cve_Estado = 'CA' WHERE Cxc_Folio = '" + own + "'",
              "anticipo-sin-su-cuenta", "Anticipo de cliente AN-MTY-00000001", "importe del anticipo 1000.00");
        const std::string voucher =
            company.scalar("SELECT Pz_Folio FROM Poliza WHERE Pz_Documento = '" + loan_receipt + "'");
        plant("DELETE FROM Poliza WHERE Pz_Folio = '" + voucher + "'", "renglones-sin-poliza", "Póliza " + voucher,
              "cargos 500.00, abonos 500.00");
        plant("UPDATE Poliza SET Es_Cve_Estado = 'CA' WHERE Pz_Folio = '" + voucher + "'",
              "documento-con-poliza-cancelada", "Documento " + loan_receipt, "su póliza está cancelada y él no");
        plant("INSERT INTO Poliza (Pz_Folio, Pz_Tabla, Pz_Documento) VALUES ('PZ-9', 'RECIBO_PAGO', '" + loan_receipt +
                  "')",
              "poliza-duplicada", "Póliza PZ-9", "hay más de una viva de su documento");
    }

    /// A check of 70 to whom its type asks for, applied; its folio.
    std::string check_of_kind(const std::string& type, const std::string& party, const std::string& number,
                              bool (Tesoreria::*create)()) {
        Tesoreria& treasury = company.treasury();
        treasury.Nuevo();
        tTsEncabezado header = Company::check_header(type, party);
        header.Ch_Referencia = number;
        treasury.Encabezado(header);
        treasury.Detalle(Company::check_line(70, ""));
        succeed((treasury.*create)());
        const std::string folio = treasury.Encabezado().Ch_Folio;
        succeed(treasury.Aplicar_Cheque(folio, Company::today()));
        return folio;
    }

    std::string movement_of(const std::string& document) {
        return company.scalar("SELECT MIN(Bm_Folio) FROM Banco_Movimiento WHERE Bm_Documento = '" + document + "'");
    }

    Company company;
    std::string receipt, deposit, loan_receipt, check, expense_check, request_folio;
    std::set<std::string> planted;
};

TEST_F(A_day_of_work, adds_up) {
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(A_day_of_work, adds_up_again_when_everything_was_taken_back) {
    Tesoreria& treasury = company.treasury();
    succeed(treasury.Cancelar_Recibo_Caja(receipt, true, true));
    succeed(treasury.Cancelar_Recibo_Caja(loan_receipt, false, true));
    succeed(treasury.Cancelar_Cheque(check));
    succeed(treasury.Cancelar_Cheque(expense_check));
    succeed(treasury.Cancelar_Solicitud_Cheque(request_folio));
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(A_day_of_work, calls_the_progress_once_per_rule) {
    std::vector<std::string> seen;
    audit(company.connection(), [&](const std::string& check_name) { seen.push_back(check_name); });
    EXPECT_EQ(seen, audit_checks());
}

/// A replica that gives a query up so many times, to go on following its primary.
class Replica_in_the_way : public Connection {
public:
    Replica_in_the_way(Connection& rows, int times) : rows_(rows), times_(times) {}

    std::unique_ptr<Recordset> execute(std::string_view text) override {
        if (times_-- > 0) throw Conflict_error("canceling statement due to conflict with recovery [40001]");
        return rows_.execute(text);
    }

private:
    Connection& rows_;
    int times_;
};

TEST_F(A_day_of_work, a_query_that_a_replica_gave_up_is_asked_again_and_is_no_finding) {
    Replica_in_the_way replica(company.connection(), 4);
    EXPECT_THAT(audit(replica), SizeIs(0));
    Replica_in_the_way busy(company.connection(), 1000);
    EXPECT_THROW(audit(busy), Conflict_error) << "nothing is said of what could not be read";
}

TEST_F(A_day_of_work, a_rule_that_cannot_be_computed_is_a_finding_and_the_others_go_on) {
    const Unit_of_work taken_back(company.connection());
    company.sql("DROP TABLE Anticipo_Cxc");
    company.sql("UPDATE Banco SET Bn_Saldo = 0 WHERE Bn_Cve_Banco = 'SIERRA'");
    std::set<std::string> checks;
    for (const Finding& finding : findings()) {
        checks.insert(finding.check);
        if (finding.check != "anticipo-usado-con-saldo") continue;
        EXPECT_EQ(finding.document, "Revisión anticipo-usado-con-saldo");
        EXPECT_NE(finding.figures.find("Anticipo_Cxc"), std::string::npos) << finding.figures;
    }
    EXPECT_THAT(checks, Contains("anticipo-usado-con-saldo"));
    EXPECT_THAT(checks, Contains("saldo-de-banco"));
}

TEST_F(A_day_of_work, a_sum_that_is_no_number_is_named_and_stops_no_rule) {
    const Unit_of_work taken_back(company.connection());
    company.sql("UPDATE Banco_Movimiento SET Bm_Importe = 1E308 WHERE Bm_Documento = '" + deposit + "'");
    std::vector<std::string> named;
    for (const Finding& finding : findings()) {
        if (finding.check == "importe-que-no-es-un-numero") named.push_back(finding.document + ": " + finding.figures);
    }
    EXPECT_THAT(named, ElementsAre("Cuenta bancaria SRR-MXN: la suma de sus movimientos no es un número finito"));
}

TEST_F(A_day_of_work, less_than_half_a_cent_adds_up) {
    company.sql("UPDATE Banco_Cuenta SET Bc_Saldo = Bc_Saldo + 0.004 WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    EXPECT_THAT(findings(), IsEmpty());
}

/// Each change runs in a transaction of its own that is taken back, so that the cases do not meet.
TEST_F(A_day_of_work, every_planted_inconsistency_is_found_by_its_rule) {
    const std::string bank_movement = movement_of(deposit);
    const auto plant = [&](const std::string& change, const std::string& check_name, const std::string& document,
                           const std::string& figures) {
        const Unit_of_work taken_back(company.connection());
        expect_finding(change, check_name, document, figures);
    };

    plant("UPDATE Banco_Cuenta SET Bc_Saldo = Bc_Saldo + 1 WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'", "saldo-de-cuenta",
          "Cuenta bancaria SRR-MXN", "saldo de la cuenta 51.00, suma de sus movimientos vivos 50.00");
    plant("UPDATE Banco SET Bn_Saldo = 0 WHERE Bn_Cve_Banco = 'SIERRA'", "saldo-de-banco", "Banco SIERRA",
          "saldo del banco 0.00, suma de los saldos de sus cuentas 50.00");
    plant("DELETE FROM Banco_Movimiento WHERE Bm_Documento = '" + deposit + "' AND Bm_Documento_ID = '0001'",
          "deposito-sin-movimiento", "Renglón de depósito " + deposit + "/0001", "importe del renglón 150.00");
    plant("UPDATE Banco_Movimiento SET Bm_Importe = 151 WHERE Bm_Folio = '" + bank_movement + "'",
          "deposito-y-movimiento-difieren", "Renglón de depósito " + deposit + "/0001",
          "importe del renglón 150.00, importe de su movimiento 151.00");
    plant("UPDATE Recibo_Pago SET Es_Cve_Estado = 'AC', Rp_Folio_Deposito = '' WHERE Rp_Folio = '" + receipt +
              "' AND Rp_Id = '0002'",
          "deposito-y-recibos-difieren", "Depósito " + deposit,
          "importe del depósito 230.00, importe de los recibos marcados con él 150.00");
    plant("UPDATE Recibo_Pago SET Rp_Folio_Deposito = 'NADA' WHERE Rp_Folio = '" + receipt + "' AND Rp_Id = '0001'",
          "recibo-sin-deposito", "Renglón de recibo " + receipt + "/0001", "importe del renglón 150.00");
    plant("UPDATE Deposito_Pago SET Es_Cve_Estado = 'CA' WHERE Dp_Folio = '" + deposit + "'",
          "movimiento-de-deposito-cancelado", "Movimiento bancario " + bank_movement, "importe del movimiento 150.00");
    plant("UPDATE Cheque_x_Aplicar SET Es_Cve_Estado = 'AC' WHERE Ch_Folio = '" + check + "' AND Cxa_ID = '0002'",
          "cheque-aplicado-con-renglones-abiertos", "Renglón de cheque " + check + "/0002",
          "importe del renglón 20.00");
    plant("UPDATE Cheque SET Es_Cve_Estado = 'AC' WHERE Ch_Folio = '" + check + "'", "cheque-aplicado-a-medias",
          "Renglón de cheque " + check + "/0001", "importe del renglón 100.00");
    plant("DELETE FROM Cheque WHERE Ch_Folio = '" + check + "'", "cheque-sin-encabezado", "Cheque " + check,
          "importe de sus renglones 120.00");
    plant("UPDATE Banco_Movimiento SET Es_Cve_Estado = 'CA' WHERE Bm_Documento = '" + check + "'",
          "cheque-sin-movimiento", "Cheque " + check, "importe del cheque 120.00");
    plant("UPDATE Cheque SET Es_Cve_Estado = 'CA' WHERE Ch_Folio = '" + check + "'", "cheque-cancelado-a-medias",
          "Cheque " + check, "importe del cheque 120.00");
    plant("UPDATE Cheque SET Es_Cve_Estado = 'CA' WHERE Ch_Folio = '" + check + "'", "movimiento-de-cheque-cancelado",
          "Movimiento bancario " + movement_of(check), "importe del movimiento -120.00");
    plant("UPDATE Gasto_x_Comprobar SET Es_Cve_Estado = 'PXA' WHERE Gc_Documento = '" + expense_check + "'",
          "gasto-por-comprobar-sin-pagar",
          "Gasto por comprobar " +
              company.scalar("SELECT Gc_Folio FROM Gasto_x_Comprobar WHERE Gc_Documento = '" + expense_check + "'"),
          "importe del gasto 60.00");
    plant("UPDATE Solicitud_Cheque_Detalle SET Es_Cve_Estado = 'CA' WHERE Sch_Folio = '" + request_folio + "'",
          "solicitud-cancelada-a-medias", "Solicitud de cheque " + request_folio, "importe de la solicitud 10.00");
    plant("UPDATE Cuenta_x_Cobrar SET Cxc_Precio_Neto_Saldo = 1 WHERE Cxc_Folio = 'CXC-MTY-00000001'",
          "saldo-de-cuenta-por-cobrar", "Cuenta por cobrar CXC-MTY-00000001",
          "saldo 1.00, importe menos pagos vivos 5000.00");
    plant("UPDATE Pago_Cxp SET Es_Cve_Estado = 'CA' WHERE Pc_Documento = '" + check + "'", "saldo-de-cuenta-por-pagar",
          "Cuenta por pagar CXP-MTY-00000001",
          "saldo " +
              company.scalar("SELECT printf('%.2f', Cxp_Precio_Neto_Saldo) FROM Cuenta_x_Pagar WHERE Cxp_Folio = "
                             "'CXP-MTY-00000001'") +
              ", importe menos pagos vivos " +
              company.scalar("SELECT printf('%.2f', Cxp_Precio_Neto_Importe) FROM Cuenta_x_Pagar WHERE Cxp_Folio = "
                             "'CXP-MTY-00000001'"));
    plant_what_operations_leave(plant);
    const std::string voucher = company.scalar(
        "SELECT Pz_Folio FROM Poliza WHERE Pz_Tabla = 'BANCO_MOVIMIENTO' AND Pz_Documento = '" + bank_movement + "'");
    plant("UPDATE Poliza_Detalle SET Pzd_Cargo = Pzd_Cargo * 2 WHERE Pz_Folio = '" + voucher + "'",
          "poliza-descuadrada", "Póliza " + voucher, "cargos 300.00, abonos 150.00");

    for (const std::string& name : audit_checks()) EXPECT_THAT(planted, Contains(name)) << "no case for this rule";
}

}  // namespace
}  // namespace cuvexa::tests
