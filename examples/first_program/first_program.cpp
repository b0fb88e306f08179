// A cash receipt of two lines, captured, closed and deposited. The database: cuvexa init --db company.db --sample
#include <cuvexa/company.h>
#include <cuvexa/tesoreria.h>

#include <iostream>
#include <stdexcept>

namespace {

void require(bool succeeded, const cuvexa::Tesoreria& tesoreria) {
    if (!succeeded) throw std::runtime_error(tesoreria.Error());
}

void add_line(cuvexa::Tesoreria& tesoreria, const std::string& payment_method, double amount) {
    cuvexa::tRpDetalle line;
    line.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = payment_method;
    line.Rp_Importe = amount;
    tesoreria.RpDetalle(line);
    require(tesoreria.Add_Recibo_Caja_Detalle(), tesoreria);
}

std::string capture(cuvexa::Tesoreria& tesoreria, cuvexa::Date date) {
    tesoreria.NuevoReciboCaja();
    cuvexa::tRpEncabezado header = tesoreria.RpEncabezado();
    header.Rp_Fecha = date;
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "01";
    header.Sucursal.Sc_Cve_Sucursal = "MTY";
    header.Mn_Cve_Moneda = "MXN";
    header.Rp_Tipo_Cambio = 1;
    tesoreria.RpEncabezado(header);
    add_line(tesoreria, "01", 1500);   // cash
    add_line(tesoreria, "04", 250.5);  // card
    const std::string folio = tesoreria.RpEncabezado().Rp_Folio;
    require(tesoreria.FinReciboCaja(folio), tesoreria);
    return folio;
}

void run(const std::string& file) {
    const cuvexa::Date date = cuvexa::make_date(2024, 3, 15);
    const cuvexa::Company company({.database = file});
    cuvexa::Module module(company.suite());
    cuvexa::Tesoreria tesoreria(module);

    const std::string receipt = capture(tesoreria, date);
    require(tesoreria.Genera_Deposito("SRR-MXN", receipt, date, true, date), tesoreria);
    std::cout << "Recibo " << receipt << ", depósito " << tesoreria.Dp_Folio() << ", saldo "
              << tesoreria.GetSaldo("SRR-MXN") << '\n';
}

}  // namespace

int main(int count, char** words) {
    try {
        run(count > 1 ? words[1] : "company.db");
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
