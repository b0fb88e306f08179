#include "model/suite.h"

#include <cstdio>

#include "model/receivables.h"

namespace cuvexa::model {
namespace {

bool reads_true(const Text& text) {
    return text == "1" || text == "-1" || same(text, "SI") || same(text, "TRUE") || same(text, "VERDADERO");
}

Text capitals(Text text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

Text prefix_of(const Text& code) {
    static const std::pair<Text, Text> prefixes[] = {
        {"RECIBO_PAGO", "RP"},     {"CHEQUE", "CH"},           {"BANCO_MOVIMIENTO", "BM"},
        {"DEPOSITO_PAGO", "DP"},   {"SOLICITUD_CHEQUE", "SC"}, {"GASTO_X_COMPROBAR", "GC"},
        {"ANTICIPO_CXC", "AN"},    {"ANTICIPO_CXP", "AP"},     {"CUENTA_X_COBRAR", "CXC"},
        {"CUENTA_X_PAGAR", "CXP"}, {"GASTO_REGISTRO", "GR"},   {"POLIZA", "PZ"}};
    for (const auto& [known, prefix] : prefixes) {
        if (known == code) return prefix;
    }
    return code;
}

}  // namespace

void refuse_if(bool condition, std::initializer_list<std::string_view> pieces) {
    if (!condition) return;
    Text text;
    for (const std::string_view piece : pieces) text += piece;
    throw Refusal{text};
}

// ---- Session --------------------------------------------------------------------------------------------------------

Text Suite::parameter(const Text& name, const Text& fallback) const {
    const auto row = db.Parametro_Sistema.first([&](const auto& r) { return same(r.Ps_Nombre, name); });
    return row ? row->Ps_Valor : fallback;
}

bool Suite::flag(const Text& name) const {
    return reads_true(parameter(name, "0"));
}

Text Suite::server_id() const {
    const auto row = db.Servidor_Suite.first([](const auto& r) { return r.Sv_Llave == 1; });
    return row ? row->Sv_Servidor_Id : Text();
}

bool Suite::is_replica() const {
    const auto row = db.Servidor_Suite.first([](const auto& r) { return r.Sv_Llave == 1; });
    return row && reads_true(row->Sv_Replica);
}

// ---- Data -----------------------------------------------------------------------------------------------------------

Text Suite::next_folio(const Text& branch, const Text& document_code, Text& why) {
    const Text code = capitals(document_code);
    const auto series = [&](const auto& r) { return same(r.Fs_Codigo, code) && same(r.Fs_Sucursal, branch); };
    if (!db.Folio_Serie.any(series)) db.Folio_Serie.insert({.Fs_Codigo = code, .Fs_Sucursal = branch});
    const auto row = db.Folio_Serie.first(series);
    if (differs(row->Fs_Abierta, "SI")) {
        why = "La serie de folios de " + code + " de la sucursal: " + branch +
              ", está cerrada; ábrala antes de continuar";
        return {};
    }
    db.Folio_Serie.update(series, [](auto& r) { ++r.Fs_Ultimo; });
    char digits[24];
    std::snprintf(digits, sizeof digits, "-%08lld", static_cast<long long>(row->Fs_Ultimo + 1));
    return prefix_of(code) + (branch.empty() ? Text() : "-" + branch) + digits;
}

Text Suite::take_folio(const Text& branch, const Text& document_code) {
    Text why;
    const Text folio = next_folio(branch, document_code, why);
    if (folio.empty()) throw Refusal{why};
    return folio;
}

Text Suite::period_state(Date date, const Text& module) const {
    const Calendar day = calendar(date);
    const auto row = db.Periodo_Operativo.first([&](const auto& r) {
        return same(r.Po_Modulo, module) && r.Po_Ejercicio == day.year && r.Po_Mes == day.month;
    });
    return row ? row->Po_Estado : Text();
}

void Suite::register_document(const Text& document_code, const Text& folio) {
    const auto known = [&](const auto& r) { return same(r.Dr_Documento, folio) && same(r.Dr_Codigo, document_code); };
    if (db.Documento_Registrado.any(known)) {
        db.Documento_Registrado.update(known, [&](auto& r) {
            ++r.Dr_Veces;
            r.Fecha_Ult_Modif = stamp();
        });
    } else {
        db.Documento_Registrado.insert({folio, capitals(document_code), 1, user, stamp(), stamp()});
    }
}

bool Suite::is_posted(const Text& document_code, const Text& folio) const {
    return db.Documento_Contabilizado.any(
        [&](const auto& r) { return same(r.Dt_Documento, folio) && same(r.Dt_Tabla, document_code); });
}

Text Data_services::GetNextFolio(const Text& branch, const Text& document_code) {
    LastError.clear();
    return suite.next_folio(branch, document_code, LastError);
}

bool Data_services::RegisterDocument(const Text& document_code, const Text& folio) {
    return serve([&] {
        refuse_if(document_code.empty() || folio.empty(),
                  {"No se puede registrar un documento sin código o sin folio"});
        suite.register_document(document_code, folio);
    });
}

bool Data_services::IsDocumentPosted(const Text& document_code, const Text& folio) {
    LastError.clear();
    if (!suite.is_posted(document_code, folio)) return false;
    LastError = document_code + ": " + folio + ", cancele antes su registro en contabilidad";
    return true;
}

// ---- Payment methods, document payments -----------------------------------------------------------------------------

bool Payment_methods::ValidatePaymentLine(const Text& method, const Text& reference, const Text& bank) {
    return serve([&] {
        const auto row = db.Forma_Pago.first(
            [&](const auto& r) { return same(r.Fp_Cve_Forma_Pago, method) && differs(r.Es_Cve_Estado, "BA"); });
        refuse_if(!row, {"La forma de pago: ", method, ", no existe o está dada de baja; elija otra"});
        refuse_if(
            row->Fp_Requiere_Banco == "SI" && bank.empty(),
            {"La forma de pago: ", method, " ", row->Fp_Descripcion, ", requiere un banco; indique el banco emisor"});
        refuse_if(row->Fp_Requiere_Referencia == "SI" && reference.empty(),
                  {"La forma de pago: ", method, " ", row->Fp_Descripcion,
                   ", requiere una referencia; indique el número de cheque o de operación"});
    });
}

bool Document_payments::CancelDocumentPayments(const Text& document_code, const Text& folio) {
    return serve([&] {
        if (same(document_code, "RECIBO_PAGO")) return;
        Receivables receivables(suite);
        for (const auto& payment : db.Pago_Cxc.where([&](const auto& r) {
                 return same(r.Pc_Documento, folio) && same(r.Pc_Tabla, document_code) &&
                        differs(r.Es_Cve_Estado, "CA");
             })) {
            receivables.cancel_payment(payment.Cxc_Folio, payment.Pc_ID);
        }
    });
}

}  // namespace cuvexa::model
