#include "simulator/session.h"

#include <cmath>

#include "automation/invoke.h"
#include "automation/json_variant.h"
#include "cuvexa/tesoreria.h"
#include "cuvexa/unit_of_work.h"
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

/// A server says in words of its own what fails in it.
bool told_alike(const std::string& text, const std::string& expected) {
    if (text == expected) return true;
    const auto words = text.find("ERROR: ");
    return words != text.npos && expected.size() > words && text.compare(0, words, expected, 0, words) == 0;
}
bool told_alike(const std::optional<std::string>& text, const std::optional<std::string>& expected) {
    return text && expected ? told_alike(*text, *expected) : text == expected;
}

}  // namespace

void Session::begin(const std::string& user, Date at) {
    objects_.clear();
    model_objects_.clear();
    const auto report = [this](const Reported_error& error) {
        reports_.push_back(error.code + " " + error.description);
    };
    suite_ = std::make_shared<Reference_suite>(connection_,
                                               Suite_options{.user = user, .server_date = at, .report_error = report});
    module_ = std::make_unique<Module>(suite_);
    create_ = object_factory(*module_);
    model_suite_.user = user;
    model_suite_.now = at;
    model_module_ = std::make_unique<model::Module>(model_suite_);
}

void Session::set_clock(Date at) {
    suite_->set_server_date(at);
    model_suite_.now = at;
}

void Session::create(const Step& step) {
    objects_[step.id] = create_(step.name);
    if (step.name == "Tesoreria") {
        model_objects_[step.id] = std::make_shared<model::Treasury>(*model_module_);
    } else {
        model_objects_[step.id] = std::make_shared<model::Extras>();
    }
}

const model::Treasury* Session::treasury(int object) const {
    const auto found = model_objects_.find(object);
    const auto* treasury = found == model_objects_.end() ? nullptr : std::get_if<0>(&found->second);
    return treasury == nullptr ? nullptr : treasury->get();
}

Session::Call Session::prepared(const Step& step, const std::map<int, Made>& made) const {
    Call call;
    call.member = &find_member(objects_.at(step.object)->type(), step.name, kind_of(step.kind));
    call.for_component = call.for_model = arguments_of(step, *call.member, made);
    return call;
}

std::vector<Variant> Session::arguments_of(const Step& step, const Member& member,
                                           const std::map<int, Made>& made) const {
    std::vector<Variant> arguments;
    const Json values = resolved(step.arguments, made);
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

Session::Outcome Session::run_component(const Step& step, Call& call, bool as_unit) {
    try {
        if (as_unit) return {run_as_unit(step, call), std::nullopt};
        return {Invoke(*objects_.at(step.object), *call.member, call.for_component), std::nullopt};
    } catch (const Automation_error& failure) {
        return {{}, failure.what()};
    } catch (const Database_error& failure) {
        if (!as_unit) throw;
        return {{}, failure.what()};
    }
}

/// Kept when it gives True, or no Boolean at all.
Variant Session::run_as_unit(const Step& step, Call& call) {
    Unit_of_work work(connection_);
    Variant value = Invoke(*objects_.at(step.object), *call.member, call.for_component);
    const auto* done = std::get_if<bool>(&value);
    if (done == nullptr || *done) work.commit();
    return value;
}

Session::Outcome Session::run_until_unhindered(const Step& step, Call& call) {
    constexpr int too_often = 200;
    for (int attempt = 1; attempt <= too_often; ++attempt) {
        const Object before = copy_of(step.object);
        const Call as_called = call;
        if (auto outcome = run_unhindered(step, call)) return *std::move(outcome);
        objects_.at(step.object) = before;
        call = as_called;
        ++repetitions_;
    }
    throw std::runtime_error(step.name + ": another session is always in the way");
}

/// Nothing when the unit was undone for another session's sake.
std::optional<Session::Outcome> Session::run_unhindered(const Step& step, Call& call) {
    Outcome outcome;
    bool kept = false;
    Unit_of_work work(connection_);
    try {
        outcome.value = Invoke(*objects_.at(step.object), *call.member, call.for_component);
        if (!failure(step, outcome)) {
            work.commit();
            kept = true;
        }
    } catch (const std::exception& thrown) {
        outcome = {{}, thrown.what()};
    }
    if (!kept && work.met_conflict()) return std::nullopt;
    return outcome;
}

Object Session::copy_of(int object) const {
    const auto* instance = dynamic_cast<const Automation_object_of<Tesoreria>*>(objects_.at(object).get());
    if (instance == nullptr) return objects_.at(object);
    return std::make_shared<Automation_object_of<Tesoreria>>(std::make_shared<Tesoreria>(*instance->instance()));
}

Session::Outcome Session::run_model(const Step& step, Call& call) {
    std::vector<Variant>& arguments = call.for_model;
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
        if (step.kind == Step::Kind::call) {
            return {simulator::call(treasury, step.name, arguments, local_today()), std::nullopt};
        }
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

struct Session::Kept {
    model::Treasury instance;
};

std::shared_ptr<const Session::Kept> Session::kept_by_model(const Step& step) const {
    const model::Treasury* const instance = treasury(step.object);
    return instance == nullptr ? nullptr : std::make_shared<const Kept>(*instance);
}

void Session::put_back(const Step& step, const Kept& kept) {
    model_objects_.at(step.object) = std::make_shared<model::Treasury>(kept.instance);
}

bool Session::Outcome::done() const {
    const auto* answer = std::get_if<bool>(&value);
    return !thrown && (answer == nullptr || *answer);
}

std::optional<std::string> Session::failure(const Step& step, const Outcome& component) const {
    if (component.thrown) return component.thrown;
    const auto* instance = dynamic_cast<const Automation_object_of<Tesoreria>*>(objects_.at(step.object).get());
    const std::string error = instance != nullptr ? instance->instance()->Error() : std::string();
    if (std::holds_alternative<bool>(component.value) ? component.done() : error.empty()) return std::nullopt;
    return error;
}

// ---- Comparison -----------------------------------------------------------------------------------------------------

std::vector<std::string> Session::compare(const Step& step, const Call& call, const Outcome& component,
                                          const Outcome& model) {
    differences_.clear();
    compare_outcomes(component, model);
    compare_arguments(call.for_component, call.for_model);
    compare_state(step.object);
    return std::exchange(differences_, {});
}

/// What a balance is compared by: great amounts that take each other away leave something in their last digits, and the
/// database adds in an order of its own.
double Session::largest_movement() const {
    double largest = 1;
    for (const auto& movement : model_suite_.db.Banco_Movimiento.rows()) {
        largest = std::max(largest, std::abs(movement.Bm_Importe) * 1e-5);
    }
    return largest;
}

void Session::compare_outcomes(const Outcome& component, const Outcome& model) {
    if (!told_alike(component.thrown, model.thrown)) {
        differences_.push_back("the component threw: " + component.thrown.value_or("nothing") +
                               ", the model: " + model.thrown.value_or("nothing"));
    } else if (!equal(component.value, model.value, largest_movement())) {
        differences_.push_back("the result is " + shown(component.value) + ", the model has " + shown(model.value));
    }
}

void Session::compare_arguments(const std::vector<Variant>& component, const std::vector<Variant>& model) {
    for (std::size_t at = 0; at < component.size(); ++at) {
        if (std::holds_alternative<Object>(component[at]) || equal(component[at], model[at])) continue;
        differences_.push_back("argument " + std::to_string(at + 1) + " comes back as " + shown(component[at]) +
                               ", the model has " + shown(model[at]));
    }
}

void Session::compare_state(int object) {
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
    if (!told_alike(component.Error(), model.Error)) compare("Error", component.Error(), model.Error);
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

}  // namespace cuvexa::simulator
