#include "statements/cases.h"

namespace cuvexa::tests {
namespace {

const std::string folio = "SC-MTY-00000001";

void begin(Company& company) {
    company.treasury().SchEncabezado(Company::request_header());
}

bool capture(Company& company) {
    return company.treasury().Add_Solicitud_Cheque();
}

void captured(Company& company) {
    begin(company);
    capture(company);
}

bool add_line(Company& company) {
    company.treasury().SchDetalle(Company::request_line(folio));
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
