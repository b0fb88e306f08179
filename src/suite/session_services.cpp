#include "suite/session_services.h"

#include <iostream>

#include "core/case.h"

namespace cuvexa::reference {
namespace {

bool reads_true(std::string_view text) {
    return text == "1" || text == "-1" || same_text(text, "SI") || same_text(text, "TRUE") ||
           same_text(text, "VERDADERO");
}

}  // namespace

Value Session::GetParameter(const std::string& name, int, const std::string& type, const std::string& fallback) {
    std::string text = context_->parameter(name, fallback);
    if (same_text(type, "B")) return reads_true(text);
    return text;
}

std::string Session::GetServerId() {
    const Rows rows = context_->query("SELECT Sv_Servidor_Id FROM Servidor_Suite WHERE Sv_Llave = 1");
    return rows.eof() ? std::string() : rows.text("Sv_Servidor_Id");
}

bool Session::IsReplicaServer() {
    const Rows rows = context_->query("SELECT Sv_Replica FROM Servidor_Suite WHERE Sv_Llave = 1");
    return !rows.eof() && reads_true(rows.text("Sv_Replica"));
}

void Session::ReportError(const std::string& description, int style, const std::string& routine,
                          const std::string& title, const std::string& project, const std::string& code) {
    if (context_->options().report_error) {
        context_->options().report_error({description, style, routine, title, project, code});
    } else {
        std::cerr << "Error " << code << " en " << project << ", " << routine << ": " << description << '\n';
    }
}

}  // namespace cuvexa::reference
