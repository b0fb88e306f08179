// Capture of a check or transfer: its lines one by one, then its single row with their total.
#include "core/codes.h"
#include "core/number_text.h"
#include "core/operation.h"
#include "core/validations.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

constexpr auto transfer = "SI";

void check_catalogs(Operation& op, const tTsEncabezado& header) {
    const std::string& branch = header.Sucursal.Sc_Cve_Sucursal;
    op.refuse_plain_if(op.data().LookupValue("Sc_Descripcion", "Sc_Cve_Sucursal", branch, "Sucursal").empty(),
                       "La sucursal: {}, no existe o está dada de baja", branch);
    check_currency(op, header.Mn_Cve_Moneda, Wording::plain);
    check_check_type(op, header.Tc_Cve_Tipo_Cheque, Wording::plain);
}

/// A number is issued once per account and kind: a check and a transfer may share it. A cancelled check frees it.
void check_not_issued(Operation& op, const tTsEncabezado& header) {
    const Rows issued = op.query(
        "SELECT Ch_Folio "
        "FROM Cheque "
        "WHERE "
        "   Ch_Referencia = '{}' AND "
        "   Bc_Cve_Banco_Cuenta = '{}' AND "
        "   Ch_Transferencia = '{}' AND "
        "   Es_Cve_Estado <> 'CA' ",
        header.Ch_Referencia, header.Bc_Cve_Banco_Cuenta, header.Ch_Transferencia);
    if (issued.eof()) return;
    const std::string folio = issued.text("Ch_Folio");
    op.refuse_plain_if(header.Ch_Transferencia == transfer,
                       "La transferencia electrónica {} ya fue impresa con el folio: {}", header.Ch_Referencia, folio);
    op.refuse_plain_if(header.Ch_Transferencia != transfer, "El cheque {} ya fue impreso con el folio: {}",
                       header.Ch_Referencia, folio);
}

void check_header(Operation& op, const tTsEncabezado& header) {
    check_central_server(op, branch_server_id(op.data(), header.Sucursal.Sc_Cve_Sucursal), Wording::plain);
    check_same_day(op, header.Ch_Fecha, Wording::plain);
    check_operating_period(op, header.Ch_Fecha, Wording::plain);
    check_catalogs(op, header);
    op.refuse_plain_if(header.Ch_Transferencia.empty(), "No se indicó el tipo de operación (cheque o transferencia)");
    check_rate(op, header.Ch_Tipo_Cambio, Wording::plain);
    check_beneficiary(op, header.Tc_Cve_Tipo_Cheque, header.Ch_Solicitar_Valor, Advance::names_supplier,
                      Wording::plain);
    check_not_issued(op, header);
}

}  // namespace

bool Tesoreria::Add_Cheque_Detalle() {
    return operation(module_, error_, "Cuvexa.dll - Add_Cheque_Detalle()", [&](Operation& op) {
        if (check_.Ch_Folio.empty()) {
            check_header(op, check_);
            const std::string folio = op.data().GetNextFolio(check_.Sucursal.Sc_Cve_Sucursal, document::check);
            op.refuse_plain_if(folio.empty(), "Error al intentar obtener el folio del cheque!");
            line_counter_ = 0;
            check_stamp_ = op.server_stamp();
            // Last, so that whatever fails above leaves a header that is validated again.
            check_.Ch_Folio = folio;
        }

        // A negative amount is taken on purpose: it lowers the total.
        op.refuse_plain_if(check_line_.Ch_Importe == 0, "Importe del cheque erróneo!");
        op.refuse_plain_if(!is_valid_rate(check_line_.Ch_Tipo_Cambio), "El tipo de cambio del pago es incorrecto!");
        check_line_.Ch_ID = next_line_id();
        op.pass_on_unless(Inserta_Detalle_Cheque());
    });
}

bool Tesoreria::Inserta_Detalle_Cheque() {
    return operation(module_, error_, "Cuvexa.dll - Inserta_Detalle_Cheque()", [&](Operation& op) {
        const std::string user = op.session().GetUserName();
        op.execute(
            "INSERT INTO Cheque_x_Aplicar("
            "   Ch_Folio, "
            "   Cxa_ID, "
            "   Ch_Cheque, "
            "   Cxp_Folio, "
            "   Mn_Cve_Moneda, "
            "   Cxa_Tipo_Cambio, "
            "   Cxa_Importe, "
            "   Oper_Alta, "
            "   Fecha_Alta, "
            "   Oper_Ult_Modif, "
            "   Fecha_Ult_Modif) "
            "VALUES('{}', '{}', '{}', '{}', '{}', {}, {}, '{}', '{}', '{}', '{}')",
            check_.Ch_Folio, check_line_.Ch_ID, check_.Ch_Referencia, check_line_.Cxp_Folio, check_line_.Mn_Cve_Moneda,
            check_line_.Ch_Tipo_Cambio, check_line_.Ch_Importe, user, check_stamp_, user, check_stamp_);
    });
}

bool Tesoreria::Inserta_Cheque(const std::string& Ch_Folio) {
    return operation(module_, error_, "Cuvexa.dll - Inserta_Cheque()", [&](Operation& op) {
        // Every line at its own rate, brought back into the check's currency; lines of every state count.
        const Rows lines = op.query(
            "SELECT ISNULL(SUM(Cxa_Importe * Cxa_Tipo_Cambio),0) / {} as Cxa_Importe "
            "FROM Cheque_x_Aplicar "
            "WHERE Ch_Folio = '{}' ",
            check_.Ch_Tipo_Cambio, Ch_Folio);
        op.refuse_plain_if(lines.eof(), "No se ha encontrado el detalle del cheque");
        const double total = lines.number("Cxa_Importe");
        op.refuse_plain_if(adds_up_to_zero(total), "El importe del cheque es incorrecto");

        const std::string user = op.session().GetUserName();
        const std::string stamp = op.server_stamp();
        op.execute(
            "INSERT INTO Cheque("
            "   Ch_Folio, "
            "   Tc_Cve_Tipo_Cheque, "
            "   Ch_Transferencia, "
            "   Ch_Fecha, "
            "   Bc_Cve_Banco_Cuenta, "
            "   Sc_Cve_Sucursal, "
            "   Ch_Solicitar_Valor, "
            "   Ch_Beneficiario, "
            "   Ch_Importe, "
            "   Ch_Tipo_Cambio, "
            "   Ch_Concepto, "
            "   Ch_Tabla, "
            "   Ch_Documento, "
            "   Ch_Referencia, "
            "   Ch_Fecha_Firme, "
            "   Ch_Cuenta_Destino, "
            "   Ch_Banco_Destino, "
            "   Oper_Alta, "
            "   Fecha_Alta, "
            "   Oper_Ult_Modif, "
            "   Fecha_Ult_Modif) "
            "SELECT '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', {}, {}, '{}', '{}', '{}', '{}', '{}', '{}', '{}', "
            "'{}', '{}', '{}', '{}'",
            check_.Ch_Folio, check_.Tc_Cve_Tipo_Cheque, check_.Ch_Transferencia, op.data().SqlDateTime(check_.Ch_Fecha),
            check_.Bc_Cve_Banco_Cuenta, check_.Sucursal.Sc_Cve_Sucursal, check_.Ch_Solicitar_Valor,
            check_.Ch_Beneficiario, total, check_.Ch_Tipo_Cambio, check_.Ch_Concepto, check_.Ch_Tabla,
            check_.Ch_Documento, check_.Ch_Referencia, op.data().SqlDate(check_.Ch_Fecha), check_.Bc_Cve_Banco_Cuenta2,
            destination_bank_, user, stamp, user, stamp);
    });
}

}  // namespace cuvexa
