#include "simulator/stage.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "cuvexa/suite/audit.h"
#include "cuvexa/suite/schema.h"
#include "model/audit.h"

namespace cuvexa::simulator {

Stage::Stage() : database_(sample_company_sql()), rows_(database_.embedded(), model_rows_) {
    model::each_table(model_rows_,
                      [&](std::string_view, auto& rows) { rows.before_write = [this] { write_in_model(); }; });
    session_.begin("CAJA1", make_date(2024, 3, 15, 10, 20, 30));
}

void Stage::write_in_model() {
    ++failing_.writes;
    if (failing_.at == 0 || failing_.writes < failing_.at) return;
    if (failing_.writes == failing_.at || failing_.from_there_on) throw model::Failure{failing_.description};
}

std::vector<std::string> Stage::run(const Step& step) {
    differences_.clear();
    succeeded_ = true;
    restarted_ = false;
    switch (step.kind) {
        case Step::Kind::sql:
            if (sqlite3_exec(database_.embedded(), resolved(step.name, made_).c_str(), nullptr, nullptr, nullptr) !=
                SQLITE_OK) {
                differences_.push_back(std::string("the script is wrong: ") + sqlite3_errmsg(database_.embedded()));
            }
            rows_.load_changed();
            return differences_;
        case Step::Kind::clock:
            session_.set_clock(step.at);
            return {};
        case Step::Kind::session:
            session_.begin(step.name, step.at);
            return {};
        case Step::Kind::create:
            session_.create(step);
            return {};
        default:
            break;
    }
    if (session_.has(step.object)) run_member(step);  // else its creation was taken out of the script
    return differences_;
}

void Stage::run_member(const Step& step) {
    if (step.fault) {
        run_disturbed(step);
        return;
    }
    Session::Call call = session_.prepared(step, made_);
    wire_.begin(std::nullopt);
    failing_ = {};
    const Session::Outcome component = session_.run_component(step, call, false);
    const Session::Outcome model = session_.run_model(step, call);
    compare(step, call, component, model);
    succeeded_ = component.done();
}

/// Result, arguments, properties, rows, and how often rows were changed.
void Stage::compare(const Step& step, const Session::Call& call, const Session::Outcome& component,
                    const Session::Outcome& model) {
    differences_ = session_.compare(step, call, component, model);
    compare_rows(step);
    const std::vector<std::string> reports = session_.take_reports();
    if (wire_.met()) return;
    for (const std::string& report : reports) differences_.push_back("reported: " + report);
    if (wire_.writes() == failing_.writes) return;
    differences_.push_back("the component changed rows " + std::to_string(wire_.writes()) + " times, the model " +
                           std::to_string(failing_.writes) + " times");
}

// ---- What goes wrong ------------------------------------------------------------------------------------------------

void Stage::run_disturbed(const Step& step) {
    const std::set<Named> before = named_findings();
    Session::Call call = session_.prepared(step, made_);
    wire_.begin(step.fault);
    const Session::Outcome component = session_.run_component(step, call, step.fault->atomic);
    const std::optional<Wire::Met> met = wire_.met();
    wire_.end();
    const std::optional<std::string> told = session_.failure(step, component);
    const bool went_wrong = met && told;
    failing_ = went_wrong ? failing_of(step) : Failing{};
    const Session::Outcome model = run_model(step, call, went_wrong);
    // A model that fails at a step that only reads is told so elsewhere, and nobody takes the answer of who is gone.
    const bool comparable = !went_wrong || (met->at_a_write && !step.fault->is_the_end());
    if (comparable) {
        compare(step, call, component, model);
    } else {
        if (told->find(met->description) == std::string::npos) {
            differences_.push_back("the failure \"" + met->description + "\" of " + met->statement + " is told as \"" +
                                   *told + "\"");
        }
        compare_rows(step);
    }
    succeeded_ = component.done();
    if (met) ++disturbed_.calls;
    if (differences_.empty()) differences_ = compared_findings();
    if (differences_.empty()) follow_advice(before);
    if (comparable) return;
    session_.begin(session_.user(), session_.now());
    restarted_ = true;
}

/// Of a unit of work that was not kept nothing stays.
Session::Outcome Stage::run_model(const Step& step, Session::Call& call, bool went_wrong) {
    if (!step.fault->atomic) return session_.run_model(step, call);
    const model::Database saved = model_rows_;
    Session::Outcome model = session_.run_model(step, call);
    if (!model.done() || (went_wrong && !wire_.met()->kept)) model_rows_ = saved;
    return model;
}

Stage::Failing Stage::failing_of(const Step& step) const {
    const Wire::Met& met = *wire_.met();
    if (met.kept) return {};  // the whole call had been done
    return {.at = met.writes + 1, .from_there_on = step.fault->is_the_end(), .description = met.description};
}

void Stage::compare_rows(const Step& step) {
    Made made;
    for (std::string& difference : rows_.compare(made)) differences_.push_back(std::move(difference));
    if (!made.empty()) made_[step.id] = std::move(made);
}

// ---- The audit ------------------------------------------------------------------------------------------------------

namespace {

/// The same words; amounts that were added up may differ in their last digits.
bool alike(const std::string& figures, const std::string& expected) {
    if (figures == expected) return true;
    std::istringstream words(figures), others(expected);
    for (std::string word, other; words >> word;) {
        if (!(others >> other)) return false;
        const double amount = std::strtod(word.c_str(), nullptr), another = std::strtod(other.c_str(), nullptr);
        const bool near = std::abs(amount - another) <= 0.011 + 1e-12 * std::abs(amount);
        if (word != other && (amount == 0 || !near)) return false;
    }
    return true;
}

/// The same rule, document and figures.
bool alike(const cuvexa::Finding& found, const model::Finding& expected) {
    return found.check == expected.check && model::same(found.document, expected.document) &&
           (!expected.certain || alike(found.figures, expected.figures));
}

std::string told(const auto& finding) {
    return finding.check + ", " + finding.document + ", " + finding.figures;
}

}  // namespace

std::set<Named> Stage::named_findings() {
    std::set<Named> named;
    for (const auto& finding : audit(database_.connection())) named.emplace(finding.check, finding.document);
    return named;
}

std::vector<std::string> Stage::compared_findings() {
    std::vector<std::string> differences;
    std::vector<model::Finding> expected = model::Audit(model_rows_).findings();
    for (const auto& finding : audit(database_.connection())) {
        if (finding.document.starts_with("Revisión ")) {  // sums that are no finite number
            std::erase_if(expected, [&](const auto& other) { return other.check == finding.check; });
            continue;
        }
        const auto same =
            std::find_if(expected.begin(), expected.end(), [&](const auto& other) { return alike(finding, other); });
        if (same != expected.end()) {
            expected.erase(same);
        } else {
            differences.push_back("the audit finds, and the model does not: " + told(finding));
        }
    }
    for (const auto& finding : expected) {
        if (finding.certain) differences.push_back("the model finds, and the audit does not: " + told(finding));
    }
    return differences;
}

void Stage::follow_advice(const std::set<Named>& before) {
    std::set<Named> after = named_findings();
    std::erase_if(after, [&](const Named& finding) { return before.contains(finding); });
    if (after.empty()) return;
    ++disturbed_.with_findings;
    for (std::string& left : follow_all_advice(database_.embedded(), session_.now(), before)) {
        differences_.push_back(std::move(left));
    }
}

std::vector<std::string> Stage::run_end() {
    differences_ = rows_.compare_all();
    return differences_.empty() ? compared_findings() : differences_;
}

}  // namespace cuvexa::simulator
