// Checks of the payment methods.
#pragma once

#include "suite/context.h"

namespace cuvexa::reference {

class Payment_methods : public PaymentMethodService {
public:
    explicit Payment_methods(std::shared_ptr<Context> context) : context_(std::move(context)) {}

    /// Refuses an unknown or retired method, and a line without the bank or the reference that its method requires.
    bool ValidatePaymentLine(const std::string& payment_method, const std::string& reference_number,
                             const std::string& bank, double amount, const std::string& document_code,
                             const std::string& folio, const std::string& reference,
                             const std::string& comment) override;

    /// Nothing is held for a payment line here, so that releasing one always succeeds.
    bool ReleasePaymentLine(const std::string& payment_method, const std::string& reference_number,
                            const std::string& bank) override;

    std::string LastError() override { return last_error_; }

private:
    std::shared_ptr<Context> context_;
    std::string last_error_;
};

}  // namespace cuvexa::reference
