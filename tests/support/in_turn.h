// Failures met one after the other: the n-th statement, or the n-th service call, fails, for every n there is.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "support/company.h"
#include "support/statement_files.h"

namespace cuvexa::tests {

/// The tables of `Company::changes`, each once, in order: "+Deposito_Pago ~Recibo_Pago".
inline std::string touched(const std::vector<std::string>& changes) {
    std::vector<std::string> marks;
    for (const std::string& line : changes) {
        const auto table_end = line.find(' ', 2);
        const std::string mark = line.substr(0, 1) + line.substr(2, table_end - 2);
        if (std::find(marks.begin(), marks.end(), mark) == marks.end()) marks.push_back(mark);
    }
    std::string text;
    for (const std::string& mark : marks) text += (text.empty() ? "" : " ") + mark;
    return text;
}

/// How one call ended: what failed, the text in `Error`, and the tables it had changed by then.
struct Outcome {
    std::string failed;
    std::string error;
    std::string changed;
};

/// What a test does before the call, and the call.
using Preparation = std::function<void(Company&)>;
using Call = std::function<bool(Company&)>;

namespace detail {

template <class Fail, class Failed>
std::vector<Outcome> in_turn(const Preparation& prepare, const Call& call, Fail&& fail, Failed&& failed) {
    std::vector<Outcome> outcomes;
    for (std::size_t n = 1; n < 1000; ++n) {
        Company company;
        prepare(company);
        company.mark();
        fail(company.on, n);
        const bool succeeded = call(company);
        const std::string name = failed(company.on, n);
        if (name.empty()) {  // there is no n-th one
            EXPECT_TRUE(succeeded) << company.treasury().Error();
            EXPECT_EQ(company.treasury().Error(), "");
            return outcomes;
        }
        EXPECT_FALSE(succeeded) << "although this failed: " << name;
        outcomes.push_back({name, company.treasury().Error(), touched(company.changes())});
    }
    ADD_FAILURE() << "the call never came to its end";
    return outcomes;
}

}  // namespace detail

/// The n-th statement of the component fails, for every n. `failed` is the statement in short.
inline std::vector<Outcome> statements_fail_in_turn(const Preparation& prepare, const Call& call) {
    return detail::in_turn(
        prepare, call, [](Obstacles& on, std::size_t n) { on.failing_statement = n; },
        [](const Obstacles& on, std::size_t n) {
            return n <= on.statements.size() ? in_short(on.statements[n - 1]) : "";
        });
}

/// The n-th call of a service fails, for every n. `failed` is the operation's name.
inline std::vector<Outcome> calls_fail_in_turn(const Preparation& prepare, const Call& call) {
    return detail::in_turn(
        prepare, call, [](Obstacles& on, std::size_t n) { on.failing_call = n; },
        [](const Obstacles& on, std::size_t n) { return n <= on.asked.size() ? on.asked[n - 1] : ""; });
}

/// "failed => error [changed]" per outcome, to compare at once.
inline std::vector<std::string> listed(const std::vector<Outcome>& outcomes) {
    std::vector<std::string> lines;
    for (const Outcome& outcome : outcomes) {
        lines.push_back(outcome.failed + " => " + outcome.error + " [" + outcome.changed + "]");
    }
    return lines;
}

/// One step of an operation that can refuse. The refusals of an operation are told as a table, one line each, in the order
/// of its steps.
struct Step {
    std::string name;
    Preparation provoke;
    std::string error;
    std::string changed = {};  ///< tables changed when only this step stops the call
};

/// The same steps, their texts behind a tag.
inline std::vector<Step> behind(const std::string& tag, std::vector<Step> steps) {
    for (Step& step : steps) step.error = tag + step.error;
    return steps;
}

// Ways to provoke a refusal.

inline Preparation sql(const std::string& statement) {
    return [=](Company& company) { company.sql(statement); };
}
inline Preparation refusing(const std::string& operation, const std::string& text) {
    return [=](Company& company) { company.on.refuse(operation, text); };
}
inline Preparation refusing_call(const std::string& call, const std::string& text) {
    return [=](Company& company) { company.on.refuse_call(call, text); };
}
inline void without_folio(Company& company) {
    company.on.next_folio = "";
}
/// The server's date is the 16th.
inline void a_day_later(Company& company) {
    company.on.server_date = add_days(Company::now(), 1);
}
inline Preparation accepting(const std::string& operation, const std::string& text = {}) {
    return [=](Company& company) { company.on.accept(operation, text); };
}

/// The record in capture says something else.
template <class Record>
Preparation letting(Record (Tesoreria::*get)() const, void (Tesoreria::*let)(const Record&),
                    const std::function<void(Record&)>& change) {
    return [=](Company& company) {
        Record record = (company.treasury().*get)();
        change(record);
        (company.treasury().*let)(record);
    };
}

/// Provokes step i alone, and step i with everything after it, for every i: the text must be that of step i. Each time
/// starts from `given`.
inline void expect_refusals_in_order(const std::vector<Step>& steps, const Preparation& given, const Call& call) {
    for (std::size_t i = 0; i < steps.size(); ++i) {
        for (const bool with_later_steps : {false, true}) {
            SCOPED_TRACE(steps[i].name + (with_later_steps ? " and everything after it" : " alone"));
            Company company;
            given(company);
            // The later ones first, so that none of them undoes what step i brings about.
            for (std::size_t j = with_later_steps ? steps.size() : i + 1; j-- > i;) steps[j].provoke(company);
            company.mark();
            EXPECT_FALSE(call(company));
            EXPECT_EQ(company.treasury().Error(), steps[i].error);
            EXPECT_EQ(touched(company.changes()), steps[i].changed);
        }
    }
}

}  // namespace cuvexa::tests
