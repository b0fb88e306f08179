// The audit: nothing to find after operations that ran to their end, and each planted inconsistency by its own rule.
#include "cuvexa/suite/audit.h"

#include <set>

#include "cuvexa/unit_of_work.h"
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
    plant("UPDATE Recibo_Pago SET Es_Cve_Estado = 'AC' WHERE Rp_Folio = '" + loan_receipt + "'",
          "recibo-cerrado-a-medias", "Recibo de caja " + loan_receipt, "importe de la cuenta por pagar 500.00");
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
    const std::string voucher = company.scalar(
        "SELECT Pz_Folio FROM Poliza WHERE Pz_Tabla = 'BANCO_MOVIMIENTO' AND Pz_Documento = '" + bank_movement + "'");
    plant("UPDATE Poliza_Detalle SET Pzd_Cargo = Pzd_Cargo * 2 WHERE Pz_Folio = '" + voucher + "'",
          "poliza-descuadrada", "Póliza " + voucher, "cargos 300.00, abonos 150.00");

    for (const std::string& name : audit_checks()) EXPECT_THAT(planted, Contains(name)) << "no case for this rule";
}

}  // namespace
}  // namespace cuvexa::tests
