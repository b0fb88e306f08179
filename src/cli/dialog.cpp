// cuvexa dialog: shows one of the two dialogs and prints what it gives.
#include <iostream>
#include <memory>
#include <string>

#include "cli/command.h"
#include "cli/session.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa::cli {

namespace {

struct Deposit_options : Session_options {
    std::string date;
    std::string currency;
    bool firm = false;
    std::string of_company;
    std::string receipts;
};

struct Payment_options : Session_options {
    std::string method, table, document, bank, reference, account, bank_name;
    bool suggest = false;
};

/// Takes the answer of the dialog apart and deposits the receipts with it.
void deposit_receipts(Tesoreria& treasury, const std::string& answer, Date date, const std::string& receipts) {
    const auto first = answer.find('|');
    const auto second = answer.find('|', first + 1);
    const auto firm_date = parse_date(answer.substr(first + 1, second - first - 1));
    const bool firm = answer.substr(second + 1) == "1";
    if (!treasury.Genera_Deposito(answer.substr(0, first), receipts, date, firm, firm_date.value_or(date))) {
        throw Refused(treasury.Error());
    }
    std::cout << treasury.Dp_Folio() << '\n';
}

void ask_deposit(const Deposit_options& options) {
    Session session(options);
    Tesoreria treasury(session.module());
    const Date today = day_of(session.module().data().GetServerDate());
    const Date date = options.date.empty() ? today : parse_date(options.date).value_or(today);
    const std::string& local = session.module().parameters().FIN_MONEDA_LOCAL;
    const std::string answer = treasury.PedirDatosDeposito(date, options.currency.empty() ? local : options.currency,
                                                           options.firm ? 1 : 0, options.of_company);
    std::cout << answer << '\n';
    if (!answer.empty() && !options.receipts.empty()) deposit_receipts(treasury, answer, date, options.receipts);
}

void ask_payment(const Payment_options& options) {
    Session session(options);
    Tesoreria treasury(session.module());
    const std::string answer =
        treasury.PedirDatosFormaPago(options.method, options.table, options.document, options.bank, options.reference,
                                     options.account, options.bank_name, options.suggest);
    std::cout << answer << '\n';
}

void add_deposit(CLI::App& dialog) {
    auto options = std::make_shared<Deposit_options>();
    CLI::App* command = dialog.add_subcommand("deposit", "Ask for account and firm date: ACCOUNT|DATE|0 or 1");
    command->add_option("--date", options->date, "Date of the deposit; the server's day if not given")
        ->type_name("ISO")
        ->check(date_problem);
    command->add_option("--currency", options->currency, "Currency of the receipts; the local one if not given")
        ->type_name("KEY");
    command->add_option("--company", options->of_company, "Only accounts of this company or of all")->type_name("KEY");
    command->add_flag("--firm", options->firm, "Propose that the money is firm");
    command
        ->add_option("--receipts", options->receipts, "Then deposit these receipts, and print the folio of the deposit")
        ->type_name("FOLIO,…");
    options->add_to(*command);
    command->callback([options] { ask_deposit(*options); });
}

void add_payment_method(CLI::App& dialog) {
    auto options = std::make_shared<Payment_options>();
    CLI::App* command = dialog.add_subcommand("payment-method",
                                              "Ask for the data of a payment method: BANK NAME|REFERENCE|ACCOUNT|BANK");
    command->add_option("method", options->method, "Payment method")->required()->type_name("KEY");
    command->add_option("--table", options->table, "Document-table code of the owner of the accounts")
        ->type_name("CODE");
    command->add_option("--document", options->document, "Key of that owner")->type_name("KEY");
    command->add_option("--bank", options->bank, "Bank known so far")->type_name("KEY");
    command->add_option("--reference", options->reference, "Reference known so far")->type_name("TEXT");
    command->add_option("--account", options->account, "Account known so far")->type_name("TEXT");
    command->add_option("--bank-name", options->bank_name, "Name of the bank known so far")->type_name("TEXT");
    command->add_flag("--suggest", options->suggest, "Suggest the first account known for the bank");
    options->add_to(*command);
    command->callback([options] { ask_payment(*options); });
}

}  // namespace

void add_dialog(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("dialog", "Show a dialog and print what it gives; an empty line when cancelled");
    command->require_subcommand(1);
    add_deposit(*command);
    add_payment_method(*command);
}

}  // namespace cuvexa::cli
