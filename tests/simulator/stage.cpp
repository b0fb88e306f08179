#include "simulator/stage.h"

#include <cmath>

#include "automation/invoke.h"
#include "automation/json_variant.h"
#include "cuvexa/suite/audit.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/tesoreria.h"
#include "cuvexa/unit_of_work.h"
#include "model/audit.h"
#include "simulator/model_members.h"

namespace cuvexa::simulator {
namespace {

Member_kind kind_of(Step::Kind kind) {
    switch (kind) {
        case Step::Kind::get:
            return Member_kind::property_get;
        case Step::Kind::let:
            return Member_kind::property_let;
        default:
            return Member_kind::method;
    }
}

std::string shown(const Variant& value) {
    if (is_missing(value)) return "nothing";
    std::string json;
    append_json(json, value, [](const Object&) { return std::int64_t(0); });
    return json;
}

std::optional<double> number(const Variant& value) {
    if (const auto* real = std::get_if<double>(&value)) return *real;
    if (const auto* whole = std::get_if<std::int16_t>(&value)) return *whole;
    return std::nullopt;
}

/// Numbers are equal to nine digits of the larger.
bool equal(const Variant& a, const Variant& b, double largest = 1) {
    const auto x = number(a), y = number(b);
    if (x && y) return *x == *y || std::abs(*x - *y) <= 1e-9 * std::max(largest, std::abs(*x));
    return a == b;
}

}  // namespace

Stage::Stage()
    : database_(sample_company_sql()), model_suite_{model_rows_, Date(), ""}, rows_(database_.embedded(), model_rows_) {
    model::each_table(model_rows_,
                      [&](std::string_view, auto& rows) { rows.before_write = [this] { write_in_model(); }; });
    begin_session("CAJA1", make_date(2024, 3, 15, 10, 20, 30));
}

void Stage::write_in_model() {
    ++failing_.writes;
    if (failing_.at == 0 || failing_.writes < failing_.at) return;
    if (failing_.writes == failing_.at || failing_.from_there_on) throw model::Failure{failing_.description};
}

void Stage::begin_session(const std::string& user, Date at) {
    objects_.clear();
    model_objects_.clear();
    const auto report = [this](const Reported_error& error) {
        reports_.push_back(error.code + " " + error.description);
    };
    suite_ = std::make_shared<Reference_suite>(wire_,
                                               Suite_options{.user = user, .server_date = at, .report_error = report});
    module_ = std::make_unique<Module>(suite_);
    create_ = object_factory(*module_);
    model_suite_.user = user;
    model_suite_.now = at;
    model_module_ = std::make_unique<model::Module>(model_suite_);
}

void Stage::create(const Step& step) {
    objects_[step.id] = create_(step.name);
    if (step.name == "Tesoreria") {
        model_objects_[step.id] = std::make_shared<model::Treasury>(*model_module_);
    } else {
        model_objects_[step.id] = std::make_shared<model::Extras>();
    }
}

const model::Treasury* Stage::treasury(int object) const {
    const auto found = model_objects_.find(object);
    const auto* treasury = found == model_objects_.end() ? nullptr : std::get_if<0>(&found->second);
    return treasury == nullptr ? nullptr : treasury->get();
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
            suite_->set_server_date(step.at);
            model_suite_.now = step.at;
            return {};
        case Step::Kind::session:
            begin_session(step.name, step.at);
            return {};
        case Step::Kind::create:
            create(step);
            return {};
        default:
            break;
    }
    if (objects_.contains(step.object)) run_member(step);  // else its creation was taken out of the script
    return differences_;
}

void Stage::run_member(const Step& step) {
    const std::set<Named> before = step.fault ? named_findings() : std::set<Named>();
    const Member& member = find_member(objects_.at(step.object)->type(), step.name, kind_of(step.kind));
    std::vector<Variant> for_component = arguments_of(step, member);
    std::vector<Variant> for_model = for_component;
    wire_.begin(step.fault);
    const Outcome component = run_component(step, member, for_component);
    const std::size_t writes = wire_.writes();
    wire_.end();
    const bool went_wrong = wire_.met() && failed(step, component);
    failing_ = went_wrong ? failing_of(step) : Failing{};
    const bool atomic = step.fault && step.fault->atomic;
    const auto saved = atomic ? std::optional(model_rows_) : std::nullopt;
    const Outcome model = run_model(step, for_model);
    const auto* done = std::get_if<bool>(&model.value);
    const bool undone = atomic && (model.thrown || (done != nullptr && !*done) || (went_wrong && !wire_.met()->kept));
    if (undone) model_rows_ = *saved;

    const bool comparable = !went_wrong || (wire_.met()->at_a_write && !step.fault->is_the_end());
    if (comparable) {
        compare_outcomes(component, model);
        compare_arguments(for_component, for_model);
        compare_state(step.object);
    } else {
        compare_failure(step, component);
    }
    compare_rows(step);
    if (!went_wrong && writes != failing_.writes) {
        differences_.push_back("the component changed rows " + std::to_string(writes) + " times, the model " +
                               std::to_string(failing_.writes) + " times");
    }
    for (const std::string& report : std::exchange(reports_, {})) {
        if (!went_wrong) differences_.push_back("reported: " + report);
    }
    const auto* answer = std::get_if<bool>(&component.value);
    succeeded_ = !component.thrown && (answer == nullptr || *answer);
    if (!step.fault) return;
    if (differences_.empty()) differences_ = compared_findings();
    if (differences_.empty()) follow_advice(before);
    if (wire_.met()) ++disturbed_.calls;
    if (comparable) return;
    begin_session(model_suite_.user, model_suite_.now);
    restarted_ = true;
}

// ---- What goes wrong ------------------------------------------------------------------------------------------------

/// Whether the call told of a failure.
bool Stage::failed(const Step& step, const Outcome& component) const {
    if (component.thrown) return true;
    if (const auto* done = std::get_if<bool>(&component.value)) return !*done;
    const auto* instance = dynamic_cast<const Automation_object_of<Tesoreria>*>(objects_.at(step.object).get());
    return instance != nullptr && !instance->instance()->Error().empty();
}

Stage::Failing Stage::failing_of(const Step& step) const {
    const Wire::Met& met = *wire_.met();
    if (met.kept) return {};  // the whole call had been done
    return {.at = met.writes + 1, .from_there_on = step.fault->is_the_end(), .description = met.description};
}

/// A statement that reads has failed, or nobody was there any more to take the answer: the failure is told.
void Stage::compare_failure(const Step& step, const Outcome& component) {
    const auto* instance = dynamic_cast<const Automation_object_of<Tesoreria>*>(objects_.at(step.object).get());
    const std::string told = component.thrown ? *component.thrown : instance->instance()->Error();
    if (told.find(wire_.met()->description) != std::string::npos) return;
    differences_.push_back("the failure \"" + wire_.met()->description + "\" of " + wire_.met()->statement +
                           " is told as \"" + told + "\"");
}

void Stage::compare_rows(const Step& step) {
    Made made;
    for (std::string& difference : rows_.compare(made)) differences_.push_back(std::move(difference));
    if (!made.empty()) made_[step.id] = std::move(made);
}

// ---- The audit ------------------------------------------------------------------------------------------------------

namespace {

/// The same rule, document and words; amounts that were added up may differ in their last digits.
bool alike(const cuvexa::Finding& found, const model::Finding& expected) {
    const auto without_digits = [](std::string text) {
        std::erase_if(text, [](char c) { return (c >= '0' && c <= '9') || c == '-'; });
        return text;
    };
    if (found.check != expected.check || !model::same(found.document, expected.document)) return false;
    return found.figures == expected.figures ||
           (found.figures.size() > 40 && without_digits(found.figures) == without_digits(expected.figures));
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
    for (std::string& left : follow_all_advice(database_.embedded(), model_suite_.now, before)) {
        differences_.push_back(std::move(left));
    }
}

std::vector<Variant> Stage::arguments_of(const Step& step, const Member& member) {
    std::vector<Variant> arguments;
    const Json values = resolved(step.arguments, made_);
    for (std::size_t at = 0; at < values.size(); ++at) {
        const Json_value value = parse_json(values[at].dump(), 16, 1000);
        arguments.push_back(from_json(value, member.parameters.at(at).type, step.name, [&](const Json_value& creation) {
            const auto found = objects_.find(static_cast<int>(creation.as<Json_number>()->whole().value()));
            return found == objects_.end() ? Object() : found->second;
        }));
    }
    return arguments;
}

// ---- Both sides -----------------------------------------------------------------------------------------------------

Stage::Outcome Stage::run_component(const Step& step, const Member& member, std::vector<Variant>& arguments) {
    try {
        if (step.fault && step.fault->atomic) return {run_as_unit(step, member, arguments), std::nullopt};
        return {Invoke(*objects_.at(step.object), member, arguments), std::nullopt};
    } catch (const Automation_error& failure) {
        return {{}, failure.what()};
    } catch (const Database_error& failure) {
        if (!wire_.met()) throw;
        return {{}, failure.what()};
    }
}

/// Kept when it gives True, or no Boolean at all.
Variant Stage::run_as_unit(const Step& step, const Member& member, std::vector<Variant>& arguments) {
    Unit_of_work work(wire_);
    Variant value = Invoke(*objects_.at(step.object), member, arguments);
    const auto* done = std::get_if<bool>(&value);
    if (done == nullptr || *done) work.commit();
    return value;
}

Stage::Outcome Stage::run_model(const Step& step, std::vector<Variant>& arguments) {
    Model_object& object = model_objects_.at(step.object);
    try {
        if (auto* extras = std::get_if<1>(&object)) {
            model::Text* const texts[] = {&(*extras)->Rp_Cve_Banco,    &(*extras)->Rp_Vendedor,
                                          &(*extras)->Rp_Comisionista, &(*extras)->Rp_Promotor,
                                          &(*extras)->Rp_Chofer,       &(*extras)->Rp_Cobratario};
            const char* const names[] = {"Rp_Cve_Banco", "Rp_Vendedor", "Rp_Comisionista",
                                         "Rp_Promotor",  "Rp_Chofer",   "Rp_Cobratario"};
            for (std::size_t at = 0; at < std::size(names); ++at) {
                if (step.name != names[at]) continue;
                if (step.kind == Step::Kind::get) return {*texts[at], std::nullopt};
                *texts[at] = std::get<std::string>(arguments.at(0));
            }
            return {};
        }
        model::Treasury& treasury = *std::get<0>(object);
        if (step.kind == Step::Kind::get) return {get(treasury, step.name), std::nullopt};
        if (step.kind == Step::Kind::call) return {call(treasury, step.name, arguments, local_today()), std::nullopt};
        if (step.name == "RpDetalle2") {
            const auto found = model_objects_.find(step.arguments.at(0).at("object").get<int>());
            treasury.RpDetalle2 = found == model_objects_.end() ? nullptr : std::get<1>(found->second);
        } else {
            let(treasury, step.name, arguments.at(0));
        }
        return {};
    } catch (const model::Failure& failure) {
        return {{}, failure.description};
    } catch (const Automation_error& failure) {
        return {{}, failure.what()};
    }
}

// ---- Comparison -----------------------------------------------------------------------------------------------------

/// What a balance is compared by: great amounts that take each other away leave something in their last digits, and the
/// database adds in an order of its own.
double Stage::largest_movement() const {
    double largest = 1;
    for (const auto& movement : model_rows_.Banco_Movimiento.rows()) {
        largest = std::max(largest, std::abs(movement.Bm_Importe) * 1e-5);
    }
    return largest;
}

void Stage::compare_outcomes(const Outcome& component, const Outcome& model) {
    if (component.thrown != model.thrown) {
        differences_.push_back("the component threw: " + component.thrown.value_or("nothing") +
                               ", the model: " + model.thrown.value_or("nothing"));
    } else if (!equal(component.value, model.value, largest_movement())) {
        differences_.push_back("the result is " + shown(component.value) + ", the model has " + shown(model.value));
    }
}

void Stage::compare_arguments(const std::vector<Variant>& component, const std::vector<Variant>& model) {
    for (std::size_t at = 0; at < component.size(); ++at) {
        if (std::holds_alternative<Object>(component[at]) || equal(component[at], model[at])) continue;
        differences_.push_back("argument " + std::to_string(at + 1) + " comes back as " + shown(component[at]) +
                               ", the model has " + shown(model[at]));
    }
}

void Stage::compare_state(int object) {
    const auto* instance = dynamic_cast<const Automation_object_of<Tesoreria>*>(objects_.at(object).get());
    if (instance == nullptr) return;
    const Tesoreria& component = *instance->instance();
    const model::Treasury& model = *treasury(object);
    const auto compare = [&](const char* property, const auto& value, const auto& expected) {
        if (value == expected) return;
        if constexpr (is_record<std::remove_cvref_t<decltype(value)>>) {
            differences_.push_back(std::string(property) + " is " + shown(Record(value)) + ", the model has " +
                                   shown(Record(expected)));
        } else {
            differences_.push_back(std::string(property) + " is " + shown(value) + ", the model has " +
                                   shown(expected));
        }
    };
    compare("Error", component.Error(), model.Error);
    compare("FolioMovimiento", component.FolioMovimiento, model.FolioMovimiento);
    compare("Dp_Folio", component.Dp_Folio(), model.Dp_Folio);
    compare("Ch_Banco_Destino", component.Ch_Banco_Destino(), model.Ch_Banco_Destino);
    compare("Validar_Forma_Pago", component.Validar_Forma_Pago(), model.Validar_Forma_Pago);
    compare("RpEncabezado", component.RpEncabezado(), model.RpEncabezado);
    compare("RpDetalle", component.RpDetalle(), model.RpDetalle);
    compare("Encabezado", component.Encabezado(), model.Encabezado);
    compare("Detalle", component.Detalle(), model.Detalle);
    compare("SchEncabezado", component.SchEncabezado(), model.SchEncabezado);
    compare("SchDetalle", component.SchDetalle(), model.SchDetalle);
}

std::vector<std::string> Stage::run_end() {
    differences_ = rows_.compare_all();
    return differences_.empty() ? compared_findings() : differences_;
}

}  // namespace cuvexa::simulator
