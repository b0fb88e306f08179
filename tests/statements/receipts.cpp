#include "statements/cases.h"

namespace cuvexa::tests {
namespace {

const std::string folio = "RP-MTY-00000001";

const std::vector<tRpDetalle> cash_and_check = {Company::receipt_line(100),
                                                Company::receipt_line(40, "02", "Sierra", "1")};

Preparation captured(const std::string& type, const std::string& party) {
    return [=](Company& company) { company.capture_receipt(cash_and_check, Company::receipt_header(type, party)); };
}

bool close(Company& company) {
    return company.treasury().FinReciboCaja(folio);
}

void begin(Company& company) {
    company.treasury().NuevoReciboCaja();
    company.treasury().RpEncabezado(Company::receipt_header());
    company.treasury().RpDetalle(Company::receipt_line(100));
}

/// A header, a line and its extras in which every field has a text of its own.
void begin_with_everything(Company& company) {
    tRpEncabezado header = Company::receipt_header("05", "CL01");
    header.Rp_Fecha = make_date(2024, 3, 14, 9, 30);
    header.Rp_Fecha_Deposito = make_date(2024, 3, 16, 18, 0);
    header.Rp_Folio_Deposito = "D-1";
    header.Rp_Deposito_ID = "0007";
    header.Rp_Tabla = "FACTURA_VENTA";
    header.Rp_Documento = "FV-5001";
    header.Mn_Cve_Moneda = "USD";
    header.Rp_Tipo_Cambio = 19.5;
    tRpDetalle line = Company::receipt_line(1234.56, "02", "Banco de la Sierra", "CH-77");
    line.Rp_Cuenta_Bancaria = "0011223344";
    company.treasury().NuevoReciboCaja();
    company.treasury().RpEncabezado(header);
    company.treasury().RpDetalle(line);
    company.treasury().RpDetalle2(
        std::make_shared<clsRpDetalle>(clsRpDetalle{"SIERRA", "VN01", "COM1", "PRO1", "CHO1", "COB1"}));
}

bool add(Company& company) {
    return company.treasury().Add_Recibo_Caja_Detalle();
}

}  // namespace

std::vector<Member_cases> receipt_cases() {
    return {
        {"RpEncabezado",
         {{"the type of the receipt is read",
           {},
           [](Company& company) {
               company.treasury().RpEncabezado(Company::receipt_header());
               return true;
           }}}},
        {"Add_Recibo_Caja_Detalle",
         {{"the first line, with everything", begin_with_everything, add},
          {"a second line, in cash",
           [](Company& company) {
               begin(company);
               add(company);
           },
           add}}},
        {"FinReciboCaja",
         {{"of a supplier, paid in two methods: a payable each", captured("04", "PV01"), close},
          {"of a customer", captured("02", "CL01"), close},
          {"of nobody: only its registration is left", captured("01", ""), close}}},
    };
}

}  // namespace cuvexa::tests
