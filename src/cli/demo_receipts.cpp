// The typical flow: a receipt is captured, closed and deposited.
#include "cli/demo.h"
#include "core/text.h"

namespace cuvexa::cli {

namespace {

using enum Column_kind;

constexpr Column receipt_columns[] = {
    {"Rp_Folio", "Recibo"},
    {"Rp_Id", "Línea"},
    {"Fp_Descripcion", "Forma de pago"},
    {"Rp_Banco", "Banco"},
    {"Rp_Cheque", "Cheque"},
    {"Rp_Importe", "Importe", amount},
    {"Es_Cve_Estado", "Estado"},
    {"Rp_Folio_Deposito", "Depósito"},
};
constexpr Column receivable_columns[] = {
    {"Cxc_Folio", "Cuenta x cobrar"},
    {"Cl_Cve_Cliente", "Cliente"},
    {"Cxc_Documento", "Factura"},
    {"Cxc_Precio_Neto_Importe", "Importe", amount},
    {"Cxc_Precio_Neto_Pago", "Pagos", amount},
    {"Cxc_Precio_Neto_Saldo", "Saldo", amount},
};
constexpr Column deposit_columns[] = {
    {"Dp_Folio", "Depósito"},        {"Dp_Id", "Línea"},      {"Bc_Cve_Banco_Cuenta", "Cuenta"},
    {"Rp_Banco", "Banco"},           {"Rp_Cheque", "Cheque"}, {"Dp_Importe", "Importe", amount},
    {"Dp_Comentario", "Comentario"},
};
constexpr Column movement_columns[] = {
    {"Bm_Folio", "Movimiento"},   {"Bc_Cve_Banco_Cuenta", "Cuenta"}, {"Bm_Documento", "Documento"},
    {"Bm_Documento_ID", "Línea"}, {"Bm_Comentario", "Comentario"},   {"Bm_Importe", "Importe", amount},
    {"Es_Cve_Estado", "Estado"},
};

void show_receipt(Stage& stage) {
    stage.rows("Recibo_Pago",
               "SELECT Recibo_Pago.*, Fp_Descripcion FROM Recibo_Pago "
               "INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago "
               "WHERE Rp_Folio = " +
                   sql_quoted(stage.receipt) + " ORDER BY Rp_Id",
               receipt_columns);
}

void show_receivable(Stage& stage) {
    stage.rows("Cuenta_x_Cobrar", "SELECT * FROM Cuenta_x_Cobrar WHERE Cxc_Folio = 'CXC-MTY-00000001'",
               receivable_columns);
}

void capture_line(Stage& stage, const tRpDetalle& line) {
    stage.let("RpDetalle", line);
    stage.call("Add_Recibo_Caja_Detalle");
}

tRpEncabezado receipt_header(Date date) {
    tRpEncabezado header;
    header.Rp_Fecha = header.Rp_Fecha_Deposito = date;
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "02";
    header.Sucursal.Sc_Cve_Sucursal = "MTY";
    header.Rp_Solicitar_Valor = "CL01";
    header.Rp_Tabla = "FACTURA_VENTA";
    header.Rp_Documento = "FV-5001";
    header.Rp_Referencia = "Factura 5001";
    header.Mn_Cve_Moneda = "MXN";
    header.Rp_Tipo_Cambio = 1;
    return header;
}

}  // namespace

void receipt_chapter(Stage& stage) {
    stage.chapter("Recibo de caja: se captura línea por línea",
                  "El cliente CL01 paga su factura FV-5001 en Monterrey: una parte en efectivo y otra con cheque.\n"
                  "La primera línea valida el encabezado y toma el folio; cada línea es un renglón de Recibo_Pago.");
    stage.call("NuevoReciboCaja");
    stage.let("RpEncabezado", receipt_header(stage.today()));

    tRpDetalle cash;
    cash.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = "01";
    cash.Rp_Importe = 1500;
    capture_line(stage, cash);

    tRpDetalle check;
    check.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = "02";
    check.Rp_Banco = "Banco del Puerto";
    check.Rp_Cheque = "77001";
    check.Rp_Importe = 3500;
    capture_line(stage, check);

    stage.receipt = stage.get("RpEncabezado.Rp_Folio");
    show_receipt(stage);
}

void closing_chapter(Stage& stage) {
    stage.chapter(
        "Cierre: el recibo paga lo que cobra",
        "Al cerrarse, el recibo se aplica a la cuenta por cobrar de la factura y sus líneas pasan de AC a AP.");
    show_receivable(stage);
    stage.call("FinReciboCaja", {stage.receipt});
    show_receivable(stage);
    show_receipt(stage);
}

void deposit_chapter(Stage& stage) {
    stage.chapter("Depósito: el dinero llega al banco",
                  "El recibo se deposita en la cuenta SRR-MXN: una línea y un movimiento por forma de pago y cheque. "
                  "Se mueven los\n"
                  "saldos de la cuenta y de su banco, y las líneas del recibo pasan de AP a AD.");
    stage.call("Genera_Deposito", {"SRR-MXN", stage.receipt, stage.today(), true, stage.today(), "Corte del día"});
    const std::string deposit = stage.get("Dp_Folio");
    stage.get("FolioMovimiento");
    stage.rows("Deposito_Pago",
               "SELECT * FROM Deposito_Pago WHERE Dp_Folio = " + sql_quoted(deposit) + " ORDER BY Dp_Id",
               deposit_columns);
    stage.rows("Banco_Movimiento",
               "SELECT * FROM Banco_Movimiento WHERE Bm_Tabla = 'DEPOSITO_PAGO' AND Bm_Documento = " +
                   sql_quoted(deposit) + " ORDER BY Bm_Folio",
               movement_columns);
    show_receipt(stage);
    stage.balances();
    stage.call("GetSaldo", {"SRR-MXN"});
}

}  // namespace cuvexa::cli
