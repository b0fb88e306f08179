#include "reports/findings.h"

#include <string_view>

namespace cuvexa::reports {

namespace {

/// How a finding names what it is about, which view that is in, and what stands behind the folio.
struct Kind {
    std::string_view words;
    std::string_view view;
    char behind = '\0';
};

constexpr Kind kinds[] = {
    {"Cuenta bancaria ", "accounts"},
    {"Movimiento bancario ", "movements"},
    {"Renglón de recibo ", "receipts", '/'},
    {"Recibo de caja ", "receipts"},
    {"Renglón de depósito ", "deposits", '/'},
    {"Depósito ", "deposits"},
    {"Renglón de cheque ", "checks", '/'},
    {"Pago de cheque ", "checks", '/'},
    {"Cheque ", "checks"},
    {"Solicitud de cheque ", "requests"},
    {"Pago de cuenta por cobrar ", "receivables", ':'},
    {"Cuenta por cobrar ", "receivables"},
    {"Pago de cuenta por pagar ", "payables", ':'},
    {"Cuenta por pagar ", "payables"},
    {"Anticipo de cliente ", "advances"},
    {"Renglón de póliza ", "vouchers", '/'},
    {"Póliza ", "vouchers"},
};

}  // namespace

Address address_of(const Finding& finding) {
    const std::string_view text = finding.document;
    for (const Kind& kind : kinds) {
        if (!text.starts_with(kind.words)) continue;
        std::string_view folio = text.substr(kind.words.size());
        if (kind.behind != '\0') folio = folio.substr(0, folio.rfind(kind.behind));
        return {kind.view, std::string(folio)};
    }
    return {};
}

}  // namespace cuvexa::reports
