// How many statements, and so round trips to a server, a piece of work takes: the operations' own, and those of the reference
// suite. docs/performance.md lists them.
#include <cstdlib>
#include <iostream>

#include "statements/cases.h"
#include "suite/context.h"
#include "support/statement_files.h"

namespace cuvexa::tests {
namespace {

const std::string supplier_check = "0001", customer_receipt = "02";

struct Work {
    std::string name;  ///< as the table has it
    Preparation given;
    Call call;
};

const std::vector<tRpDetalle> two_lines = {Company::receipt_line(6), Company::receipt_line(4, "02", "Sierra", "1")};

std::string close_receipt(Company& company, const tRpEncabezado& header = Company::receipt_header()) {
    std::string folio = company.capture_receipt(two_lines, header);
    EXPECT_TRUE(company.treasury().FinReciboCaja(folio));
    return folio;
}

Call closes_receipt(const tRpEncabezado& header = Company::receipt_header()) {
    return [=](Company& company) { return !close_receipt(company, header).empty(); };
}

bool deposit(Company& company, const std::string& receipts) {
    return company.treasury().Genera_Deposito("SRR-MXN", receipts, Company::today(), true, Company::today());
}

std::string create_check(Company& company, int lines) {
    std::string folio = company.capture_check(
        std::vector<tTsDetalle>(static_cast<std::size_t>(lines), Company::check_line(1)), Company::check_header());
    EXPECT_TRUE(company.treasury().Crear_Cheque_Pago_Proveedor(folio));
    return folio;
}

std::string apply_check(Company& company, int lines) {
    std::string folio = create_check(company, lines);
    EXPECT_TRUE(company.treasury().Aplicar_Cheque(folio, Company::today()));
    return folio;
}

/// Work on a document that another function makes, whose folio it takes.
template <class Make, class Member>
Work on_document(const std::string& name, Make make, Member member) {
    const auto folio = std::make_shared<std::string>();
    return {name, [=](Company& company) { *folio = make(company); },
            [=](Company& company) { return (company.treasury().*member)(*folio); }};
}

std::vector<Work> receipt_work() {
    const auto receipts = std::make_shared<std::string>();
    const auto closed = [=](int number) -> Preparation {
        return [=](Company& company) {
            receipts->clear();
            for (int i = 0; i < number; ++i) *receipts += (i == 0 ? "" : ",") + close_receipt(company);
        };
    };
    const Call deposited = [=](Company& company) { return deposit(company, *receipts); };
    const auto deposit_of_one = [](Company& company) {
        EXPECT_TRUE(deposit(company, close_receipt(company)));
        return company.treasury().Dp_Folio();
    };
    const auto posted = [](Company& company) { company.post_automatically("RECIBO_PAGO"); };
    const Call cancelled = [=](Company& company) {
        return company.treasury().Cancelar_Recibo_Caja(*receipts, true, true);
    };
    return {
        {"receipt of two lines, captured and closed", {}, closes_receipt()},
        {"the same, posted to accounting", posted, closes_receipt()},
        {"receipt of a customer, captured and closed",
         {},
         closes_receipt(Company::receipt_header(customer_receipt, "CL01"))},
        {"receipt cancelled", closed(1), cancelled},
        {"deposit of a receipt", closed(1), deposited},
        {"ten receipts deposited", closed(10), deposited},
        on_document("deposit cancelled", deposit_of_one, &Tesoreria::Cancelar_Deposito),
    };
}

std::vector<Work> check_work() {
    const auto applied = [](int lines) -> Call {
        return [=](Company& company) { return !apply_check(company, lines).empty(); };
    };
    const auto of_five = [](Company& company) { return apply_check(company, 5); };
    const auto created = [](Company& company) { return create_check(company, 1); };
    return {
        {"check of one line, created and applied", {}, applied(1)},
        {"check of five lines, created and applied", {}, applied(5)},
        on_document("check cancelled", created, &Tesoreria::Cancelar_Cheque),
        on_document("applied check of five lines cancelled", of_five, &Tesoreria::Cancelar_Cheque),
    };
}

/// Every series has begun, and the date is the server's, as it is in the field.
void begin(Company& company) {
    company.suite()->set_server_date(std::nullopt);
    close_receipt(company, Company::receipt_header(customer_receipt, "CL01"));
    EXPECT_TRUE(deposit(company, close_receipt(company)));
    EXPECT_TRUE(company.treasury().Cancelar_Cheque(apply_check(company, 1)));
    company.post_automatically("RECIBO_PAGO");
    close_receipt(company);
    company.sql("UPDATE Configuracion_Contable SET Ct_Automatica = 'NO'");
}

struct Round_trips {
    std::size_t own = 0, of_suite = 0;
};

Round_trips round_trips_of(const Work& work) {
    Company company;
    begin(company);
    if (work.given) work.given(company);
    // It has not been asked for the time, and the work takes none.
    auto& clock = company.suite()->context().clock() = {};
    clock.read_from([] { return 0.0; });
    company.suite()->context().memory().read_from([] { return 0.0; });
    company.mark();
    EXPECT_TRUE(work.call(company)) << work.name << ": " << company.treasury().Error();
    const std::size_t own = company.statements().size();
    return {own, company.wire().count() - own};
}

/// The row of the table that begins so; its cells.
std::vector<std::string> row_of(const std::string& name) {
    std::istringstream lines(text_of_file(in_source("docs/performance.md")));
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("| " + name + " |")) continue;
        std::vector<std::string> cells;
        std::istringstream parts(line.substr(2));
        for (std::string cell; std::getline(parts, cell, '|');) cells.push_back(cell.substr(0, cell.rfind(' ')));
        for (std::string& cell : cells) cell.erase(0, cell.find_first_not_of(' '));
        return cells;
    }
    return {};
}

TEST(Round_trips, are_as_many_as_the_table_in_the_documents_says) {
    std::vector<Work> all = receipt_work();
    for (const Work& work : check_work()) all.push_back(work);
    for (const Work& work : all) {
        const Round_trips now = round_trips_of(work);
        const std::vector<std::string> told = row_of(work.name);
        const std::vector<std::string> counted = {std::to_string(now.own), std::to_string(now.of_suite)};
        if (std::getenv("UPDATE_STATEMENTS") != nullptr) {
            std::cout << "| " << work.name << " | " << counted[0] << " | … | " << counted[1] << " |\n";
            continue;
        }
        ASSERT_EQ(told.size(), 4u) << work.name;
        EXPECT_EQ((std::vector{told[1], told[3]}), counted) << work.name;
    }
}

}  // namespace
}  // namespace cuvexa::tests
