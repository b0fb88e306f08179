#include "suite/data_services.h"

namespace cuvexa::reference {

std::string Data::LookupValue(const std::string& column, const std::string& key_column, const std::string& key,
                              const std::string& table, const std::string& condition) {
    last_error_.clear();
    return context_->look_up(column, key_column, key, table, condition);
}

std::string Data::GetNextFolio(const std::string& branch, const std::string& document_code) {
    last_error_.clear();
    return context_->next_folio(branch, document_code, last_error_);
}

bool Data::IsOperatingPeriodOpen(Date date, const std::string& module) {
    last_error_.clear();
    return context_->is_period_open(date, module);
}

bool Data::RegisterDocument(const std::string& document_code, const std::string& folio) {
    return serve(last_error_, [&] {
        refuse_if(document_code.empty() || folio.empty(), "No se puede registrar un documento sin código o sin folio");
        context_->register_document(document_code, folio);
    });
}

bool Data::IsDocumentPosted(const std::string& document_code, const std::string& folio) {
    last_error_.clear();
    if (!context_->is_posted(document_code, folio)) return false;
    last_error_ = filled("{}: {}, cancele antes su registro en contabilidad", document_code, folio);
    return true;
}

}  // namespace cuvexa::reference
