// The life of a company day by day, made up: what its branches collect, deposit, pay and cancel, through the component alone.
#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "cuvexa/company.h"
#include "cuvexa/module.h"
#include "cuvexa/suite/reference_suite.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa::cli {

struct Life_plan {
    int receipts = 1000;
    int months = 12;
    std::uint32_t seed = 1;
    Date last_day;
};

/// The first of the month in which a life begins.
Date first_day_of(const Life_plan& plan);

class Sample_life {
public:
    /// On a company that has nothing but the sample's catalogues. Throws `Refused` with the text of what the component refused.
    Sample_life(Company& company, const Life_plan& plan);

    /// Lives it, each day kept as a whole; `progress` is told how many receipts there are.
    void live(const std::function<void(int receipts)>& progress);

private:
    struct Branch;
    /// A check that is to be applied when its day has come.
    struct Open_check {
        std::string folio;
        Date due;
    };

    void live_day(Date day, int receipts);
    std::string capture_receipt(const Branch& branch, Date day);
    void capture_line();
    void deposit(const Branch& branch, Date day, const std::vector<std::string>& receipts);
    void pay(Date day);
    void write_check(const std::string& type, const std::string& party, const std::string& beneficiary,
                     const std::string& reason, Date day, bool (Tesoreria::*create)(), double most);
    void request_check(Date day);
    void apply_due_checks(Date day);
    void book_interest_and_fees(Date day);
    void transfer(Date day);
    void move(const std::string& account, const std::string& type, double amount, Date day, const std::string& comment);

    void require(bool done) const;
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(random_() % count); }
    bool once_in(std::size_t times) { return below(times) == 0; }
    double amount(double least, double most);

    Company& company_;
    Life_plan plan_;
    std::shared_ptr<Reference_suite> suite_;
    Module module_;
    Tesoreria treasury_;
    std::mt19937 random_;
    std::vector<Open_check> checks_;
    int references_ = 0;
};

}  // namespace cuvexa::cli
