// The least that the component asks of the suite: catalogs and dates from the database, and services that agree.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "cuvexa/services.h"

namespace cuvexa::tests {

namespace plain {

class Session : public SessionServices {
public:
    explicit Session(Connection& connection) : connection_(connection) {}
    Connection& GetConnection() override { return connection_; }
    Value GetParameter(const std::string&, int, const std::string&, const std::string& fallback) override {
        return fallback;
    }
    std::string GetUserName() override { return "MLOPEZ"; }
    std::string GetServerId() override { return "S1"; }
    bool IsReplicaServer() override { return false; }
    void ReportError(const std::string&, int, const std::string&, const std::string&, const std::string&,
                     const std::string&) override {}

private:
    Connection& connection_;
};

class Data : public DataServices {
public:
    explicit Data(Connection& connection) : connection_(connection) {}
    std::string LookupValue(const std::string& column, const std::string& key_column, const std::string& key,
                            const std::string& table, const std::string& condition) override {
        const auto row =
            connection_.execute("SELECT " + column + " FROM " + table + " WHERE " + key_column + " = '" + key +
                                "' AND Es_Cve_Estado <> 'BA'" + (condition.empty() ? "" : " AND " + condition));
        return row->eof() ? "" : to_text(row->field(column));
    }
    Date GetServerDate() override { return make_date(2024, 3, 15, 10, 20, 30); }
    std::string GetNextFolio(const std::string&, const std::string& document_code) override {
        return document_code + "-" + std::to_string(++folios_[document_code]);
    }
    bool IsOperatingPeriodOpen(Date, const std::string&) override { return true; }
    std::string SqlDate(Date date) override { return iso_date(day_of(date)); }
    std::string SqlDateTime(Date date) override { return iso_date(date); }
    bool RegisterDocument(const std::string&, const std::string&) override { return true; }
    bool IsDocumentPosted(const std::string&, const std::string&) override { return false; }
    std::string LastErrorText() override { return ""; }

private:
    Connection& connection_;
    std::map<std::string, int> folios_;
};

class Payment_methods : public PaymentMethodService {
public:
    bool ValidatePaymentLine(const std::string&, const std::string&, const std::string&, double, const std::string&,
                             const std::string&, const std::string&, const std::string&) override {
        return true;
    }
    bool ReleasePaymentLine(const std::string&, const std::string&, const std::string&) override { return true; }
    std::string LastError() override { return ""; }
};

class Document_payments : public DocumentPaymentsService {
public:
    bool CancelDocumentPayments(const std::string&, const std::string&) override { return true; }
    std::string LastError() override { return ""; }
};

class Payables : public AccountsPayableService {
public:
    Payable NewDocument() override { return {}; }
    bool CreatePayable(const Payable&) override { return true; }
    bool CreateSupplierAdvance(const Supplier_advance&, std::string&) override { return true; }
    bool AddPaymentLine(const Payment_line&) override { return true; }
    bool ApplyPayments() override { return true; }
    bool CancelPayment(const std::string&, const std::string&) override { return true; }
    bool ValidateAdvanceCancellation(const std::string&) override { return true; }
    bool CancelDocumentPayables(const std::string&, const std::string&) override { return true; }
    std::string LastError() override { return ""; }
};

class Receivables : public AccountsReceivableService {
public:
    bool ApplyReceipt(const Receipt_application&) override { return true; }
    bool CreateReceivable(const Receivable&) override { return true; }
    bool ApplyCustomerDocument(const std::string&) override { return true; }
    bool ValidateDocumentCancellation(const std::string&, const std::string&) override { return true; }
    bool CancelDocumentAdvances(const std::string&, const std::string&) override { return true; }
    bool CancelDocumentReceivables(const std::string&, const std::string&) override { return true; }
    bool CancelPayment(const std::string&, const std::string&) override { return true; }
    bool RegisterPayment(const Receivable_payment&) override { return true; }
    bool DocumentCheck(const std::string&, const std::string&) override { return true; }
    std::string LastError() override { return ""; }
};

class Accounting : public AccountingService {
public:
    bool IsPostingEnabled(const std::string&) override { return false; }
    bool PostDocument(const std::string&, const std::string&, const std::string&) override { return true; }
    bool ValidateVoucherCancellation(const std::string&, const std::string&) override { return true; }
    std::string LastError() override { return ""; }
};

}  // namespace plain

class Plain_suite : public Suite {
public:
    explicit Plain_suite(Connection& connection) : connection_(connection) {}
    std::shared_ptr<SessionServices> session() override { return std::make_shared<plain::Session>(connection_); }
    std::shared_ptr<DataServices> data() override { return std::make_shared<plain::Data>(connection_); }
    std::shared_ptr<PaymentMethodService> payment_methods() override {
        return std::make_shared<plain::Payment_methods>();
    }
    std::shared_ptr<DocumentPaymentsService> document_payments() override {
        return std::make_shared<plain::Document_payments>();
    }
    std::unique_ptr<AccountsPayableService> new_accounts_payable() override {
        return std::make_unique<plain::Payables>();
    }
    std::unique_ptr<AccountsReceivableService> new_accounts_receivable() override {
        return std::make_unique<plain::Receivables>();
    }
    std::unique_ptr<AccountingService> new_accounting() override { return std::make_unique<plain::Accounting>(); }

private:
    Connection& connection_;
};

}  // namespace cuvexa::tests
