// A suite without a database: it notes what is asked of it and answers nothing, so that a call through a front door can
// be compared with the same call in C++.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cuvexa/module.h"
#include "cuvexa/services.h"

namespace cuvexa::tests {

/// What was asked, and whether anything answers at all.
struct Notes {
    std::vector<std::string> asked;
    bool offline = false;   ///< every service fails
    bool obliging = false;  ///< catalogs, folios and periods have what is asked; the tables stay empty

    void add(std::string text) {
        asked.push_back(std::move(text));
        if (offline) throw Database_error("Sin conexión");
    }
};

class No_rows final : public Recordset {
public:
    bool eof() const override { return true; }
    Value field(std::string_view) const override { throw Database_error("no row"); }
    void move_next() override { throw Database_error("no row"); }
    void close() override {}
};

class Fake_connection final : public Connection {
public:
    explicit Fake_connection(Notes& notes) : notes_(notes) {}
    std::unique_ptr<Recordset> execute(std::string_view text) override {
        notes_.add(std::string(text));
        return std::make_unique<No_rows>();
    }

private:
    Notes& notes_;
};

class Fake_session final : public SessionServices {
public:
    explicit Fake_session(Notes& notes) : notes_(notes), connection_(notes) {}
    Connection& GetConnection() override { return connection_; }
    Value GetParameter(const std::string& name, int, const std::string& type, const std::string&) override {
        notes_.add("GetParameter " + name);
        return type == "B" ? Value(false) : Value(std::string());
    }
    std::string GetUserName() override { return "ANA"; }
    std::string GetServerId() override { return "01"; }
    bool IsReplicaServer() override { return false; }
    void ReportError(const std::string& description, int, const std::string&, const std::string&, const std::string&,
                     const std::string& code) override {
        notes_.add("ReportError " + description + code);
    }

private:
    Notes& notes_;
    Fake_connection connection_;
};

class Fake_data final : public DataServices {
public:
    explicit Fake_data(Notes& notes) : notes_(notes) {}
    std::string LookupValue(const std::string& column, const std::string&, const std::string& key,
                            const std::string& table, const std::string&) override {
        notes_.add("LookupValue " + table + "." + column + " " + key);
        return notes_.obliging ? "1" : "";
    }
    Date GetServerDate() override {
        notes_.add("GetServerDate");
        return make_date(2024, 3, 15, 10, 20, 30);
    }
    std::string GetNextFolio(const std::string& branch, const std::string& code) override {
        notes_.add("GetNextFolio " + branch + " " + code);
        return notes_.obliging ? "F1" : "";
    }
    bool IsOperatingPeriodOpen(Date date, const std::string& module) override {
        notes_.add("IsOperatingPeriodOpen " + iso_date(date) + " " + module);
        return notes_.obliging;
    }
    std::string SqlDate(Date date) override { return iso_date(day_of(date)); }
    std::string SqlDateTime(Date date) override { return iso_date(date); }
    bool RegisterDocument(const std::string&, const std::string&) override { return false; }
    bool IsDocumentPosted(const std::string&, const std::string&) override { return false; }
    std::string LastErrorText() override { return "data"; }

private:
    Notes& notes_;
};

class Fake_payment_methods final : public PaymentMethodService {
public:
    bool ValidatePaymentLine(const std::string&, const std::string&, const std::string&, double, const std::string&,
                             const std::string&, const std::string&, const std::string&) override {
        return false;
    }
    bool ReleasePaymentLine(const std::string&, const std::string&, const std::string&) override { return false; }
    std::string LastError() override { return "payment methods"; }
};

class Fake_document_payments final : public DocumentPaymentsService {
public:
    bool CancelDocumentPayments(const std::string&, const std::string&) override { return false; }
    std::string LastError() override { return "document payments"; }
};

class Fake_suite final : public Suite {
public:
    Notes notes;
    std::shared_ptr<Fake_session> fake_session = std::make_shared<Fake_session>(notes);
    std::shared_ptr<Fake_data> fake_data = std::make_shared<Fake_data>(notes);

    std::shared_ptr<SessionServices> session() override { return fake_session; }
    std::shared_ptr<DataServices> data() override { return fake_data; }
    std::shared_ptr<PaymentMethodService> payment_methods() override {
        return std::make_shared<Fake_payment_methods>();
    }
    std::shared_ptr<DocumentPaymentsService> document_payments() override {
        return std::make_shared<Fake_document_payments>();
    }
    std::unique_ptr<AccountsPayableService> new_accounts_payable() override { return refuse("accounts payable"); }
    std::unique_ptr<AccountsReceivableService> new_accounts_receivable() override {
        return refuse("accounts receivable");
    }
    std::unique_ptr<AccountingService> new_accounting() override { return refuse("accounting"); }

private:
    static std::nullptr_t refuse(const std::string& name) { throw Database_error("no " + name); }
};

/// A module over a fake suite that notes what its instances ask.
struct Fake_module {
    std::shared_ptr<Fake_suite> suite = std::make_shared<Fake_suite>();
    Module module{suite};
    Notes& notes = suite->notes;
};

}  // namespace cuvexa::tests
