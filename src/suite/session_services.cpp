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
    return context_->of_this_server("Sv_Servidor_Id");
}

bool Session::IsReplicaServer() {
    return reads_true(context_->of_this_server("Sv_Replica"));
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
