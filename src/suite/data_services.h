// Catalog look-ups, dates, folios, periods and document registration.
#pragma once

#include "suite/context.h"

namespace cuvexa::reference {

class Data : public DataServices {
public:
    explicit Data(std::shared_ptr<Context> context) : context_(std::move(context)) {}

    std::string LookupValue(const std::string& column, const std::string& key_column, const std::string& key,
                            const std::string& table, const std::string& condition) override;

    Date GetServerDate() override { return context_->now(); }

    /// Folios read "RP-MTY-00000001": the document's prefix, the branch when there is one, and a number of at least
    /// eight digits. A series begins by itself and belongs to one branch and one document code, whatever the case of
    /// the code.
    std::string GetNextFolio(const std::string& branch, const std::string& document_code) override;

    bool IsOperatingPeriodOpen(Date date, const std::string& module) override;
    std::string SqlDate(Date date) override { return context_->day_text(date); }
    std::string SqlDateTime(Date date) override { return context_->time_text(date); }

    /// Keeps one row per document, with how often it was registered and when last.
    bool RegisterDocument(const std::string& document_code, const std::string& folio) override;

    /// A posted document leaves a text that begins with its code and folio and says what to do.
    bool IsDocumentPosted(const std::string& document_code, const std::string& folio) override;

    std::string LastErrorText() override { return last_error_; }

private:
    std::shared_ptr<Context> context_;
    std::string last_error_;
};

}  // namespace cuvexa::reference
