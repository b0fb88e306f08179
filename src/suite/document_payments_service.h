// The receivable payments that a document generated.
#pragma once

#include "suite/context.h"

namespace cuvexa::reference {

class Document_payments : public DocumentPaymentsService {
public:
    explicit Document_payments(std::shared_ptr<Context> context) : context_(std::move(context)) {}

    /// Cancels the live payments of the document. Those of a cash receipt are left alone: whoever cancels a receipt
    /// decides about its payments one by one, or keeps the receipt because it is applied.
    bool CancelDocumentPayments(const std::string& document_code, const std::string& folio) override;

    std::string LastError() override { return last_error_; }

private:
    std::shared_ptr<Context> context_;
    std::string last_error_;
};

}  // namespace cuvexa::reference
