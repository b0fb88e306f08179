#include "statements/cases.h"

namespace cuvexa::tests {
namespace {

const std::string folio = "SC-MTY-00000001";

void begin(Company& company) {
    tSchEncabezado header;
    header.Sch_Fecha = Company::today();
    header.Tc_Cve_Tipo_Cheque = "0001";
    header.Bc_Cve_Banco_Cuenta = "SRR-MXN";
    header.Sucursal.Sc_Cve_Sucursal = "MTY";
    header.Sch_Concepto = "Facturas de marzo";
    header.Sch_Tabla = "ORDEN_COMPRA";
    header.Sch_Documento = "OC-7";
    header.Sch_Referencia = "REF-7";
    header.Sch_Beneficiario = "Aceros del Bajío";
    header.Sch_Importe = 120.5;
    header.Mn_Cve_Moneda = "USD";
    header.Sch_Tipo_Cambio = 19.25;
    header.Sch_Transferencia = "NO";
    header.Sch_Aplicar = "SI";
    header.Sch_Firme = "NO";
    header.Sch_Solicitar_Valor = "PV01";
    company.treasury().SchEncabezado(header);
}

bool capture(Company& company) {
    return company.treasury().Add_Solicitud_Cheque();
}

void captured(Company& company) {
    begin(company);
    capture(company);
}

bool add_line(Company& company) {
    tSchDetalle line;
    line.Sch_Folio = folio;
    line.Scd_Tabla = "CXP";
    line.Scd_Documento = "CXP-MTY-00000001";
    line.Scd_Importe = 120.5;
    line.Mn_Cve_Moneda = "USD";
    line.Scd_Tipo_Cambio = 19.25;
    company.treasury().SchDetalle(line);
    return company.treasury().Add_Solicitud_Cheque_Detalle();
}

void with_line(Company& company) {
    captured(company);
    add_line(company);
}

Preparation awaiting_authorization(const Preparation& given) {
    return [=](Company& company) {
        company.set_parameter("TES_AUTORIZAR_SOLICITUD_CHEQUE", "1");
        given(company);
    };
}

bool authorize(Company& company) {
    return company.treasury().Autorizar_Solicitud_Cheque(folio);
}

}  // namespace

std::vector<Member_cases> request_cases() {
    return {
        {"Add_Solicitud_Cheque",
         {{"requests need no authorization", begin, capture}, {"they do", awaiting_authorization(begin), capture}}},
        {"Add_Solicitud_Cheque_Detalle",
         {{"requests need no authorization", captured, add_line},
          {"they do", awaiting_authorization(captured), add_line}}},
        {"Autorizar_Solicitud_Cheque",
         {{"with its lines", with_line, authorize}, {"without lines", captured, authorize}}},
        {"Cancelar_Solicitud_Cheque",
         {{"a request that no check paid", with_line,
           [](Company& company) { return company.treasury().Cancelar_Solicitud_Cheque(folio); }}}},
    };
}

}  // namespace cuvexa::tests
