#include "documents.h"

#include <unistd.h>

#include <atomic>

namespace cuvexa::bench {
namespace {

const Date today = make_date(2024, 3, 15);

tRpEncabezado receipt_header(const Desk& desk) {
    tRpEncabezado header;
    header.Rp_Fecha = header.Rp_Fecha_Deposito = today;
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "01";
    header.Sucursal.Sc_Cve_Sucursal = desk.branch;
    header.Rp_Comentario = "Venta de mostrador";
    header.Mn_Cve_Moneda = "MXN";
    header.Rp_Tipo_Cambio = 1;
    return header;
}

tTsEncabezado check_header(const Desk& desk) {
    static std::atomic<int> number = 0;
    tTsEncabezado header;
    header.Ch_Fecha = today;
    header.Tc_Cve_Tipo_Cheque = "0006";
    header.Ch_Transferencia = "NO";
    // Another run on the same company has checks of its own.
    header.Ch_Referencia = std::to_string(getpid()) + '-' + std::to_string(++number);
    header.Ch_Concepto = "Servicios del mes";
    header.Ch_Beneficiario = "Limpieza Jacaranda";
    header.Bc_Cve_Banco_Cuenta = desk.account;
    header.Mn_Cve_Moneda = "MXN";
    header.Ch_Tipo_Cambio = 1;
    header.Ch_Solicitar_Valor = "PV03";
    header.Sucursal.Sc_Cve_Sucursal = desk.branch;
    return header;
}

}  // namespace

std::string receipt_of_two_lines(Tesoreria& treasury, const Desk& desk, const Have_done& done) {
    for (const double amount : {100.25, 50.75}) {
        done([&] {
            // A receipt whose first line was undone begins anew.
            if (amount > 100) {
                treasury.NuevoReciboCaja();
                treasury.RpEncabezado(receipt_header(desk));
            }
            tRpDetalle line;
            line.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = "01";
            line.Rp_Importe = amount;
            treasury.RpDetalle(line);
            return treasury.Add_Recibo_Caja_Detalle();
        });
    }
    std::string folio = treasury.RpEncabezado().Rp_Folio;
    done([&] { return treasury.FinReciboCaja(folio); });
    return folio;
}

void deposit(Tesoreria& treasury, const Desk& desk, const std::string& receipts, const Have_done& done) {
    done([&] { return treasury.Genera_Deposito(desk.account, receipts, today, true, today, "Corte del día"); });
}

std::string applied_check(Tesoreria& treasury, const Desk& desk, int lines, const Have_done& done) {
    for (int i = 1; i <= lines; ++i) {
        done([&] {
            if (i == 1) {
                treasury.Nuevo();
                treasury.Encabezado(check_header(desk));
            }
            tTsDetalle line;
            line.Mn_Cve_Moneda = "MXN";
            line.Ch_Tipo_Cambio = 1;
            line.Ch_Importe = 10.5 * i;
            treasury.Detalle(line);
            return treasury.Add_Cheque_Detalle();
        });
    }
    std::string folio = treasury.Encabezado().Ch_Folio;
    done([&] { return treasury.Crear_Cheque_Pago_Proveedor(folio); });
    done([&] { return treasury.Aplicar_Cheque(folio, today, true); });
    return folio;
}

}  // namespace cuvexa::bench
