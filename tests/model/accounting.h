// Journal vouchers of the documents that are posted automatically, as the suite writes them.
#pragma once

#include "model/suite.h"

namespace cuvexa::model {

/// Two lines of a voucher, in local currency; a negative amount changes sides.
struct Entry {
    Text debit_account, credit_account;
    double amount = 0;
    Text text;
};

struct Voucher {
    Text company;
    Date date;
    Text text;
    std::vector<Entry> entries;
};

struct Accounting : Service {
    using Service::Service;

    bool IsPostingEnabled(const Text& document_code);
    bool PostDocument(const Text& document_code, const Text& folio, const Text& company);
    bool ValidateVoucherCancellation(const Text& document_code, const Text& folio);

private:
    Voucher voucher_of(const Text& document_code, const Text& folio);
    Voucher of_receipt(const Text& folio);
    Voucher of_movement(const Text& folio);
    Voucher of_deposit(const Text& folio);
    Voucher of_check(const Text& folio);
    double local_amount(double amount, const Text& currency, double rate);
    Text account_or(const Text& account, Text rows::Configuracion_Contable::*configured, const Text& code);
    Text movement_account(const Text& type_parameter);
    bool keeps_voucher(const Text& document_code, const Text& folio, const Voucher& voucher);
    void cancel_voucher(const rows::Poliza& voucher, const Text& document);
    void write(const Text& document_code, const Text& folio, const Voucher& voucher);
};

}  // namespace cuvexa::model
