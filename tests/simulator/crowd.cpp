#include "simulator/crowd.h"

#include <algorithm>
#include <sstream>
#include <thread>

#include "model/audit.h"
#include "simulator/script_file.h"

namespace cuvexa::simulator {

struct Crowd::Participant : Scene {
    Participant(Shared_database& database, std::size_t number, const Crowd_options& options, Turns& turns,
                model::Database& rows)
        : own(database.open()),
          connection(*own, turns, number),
          session(connection, rows),
          generator({.seed = options.seed * 16 + number, .users = 1}),
          number(number) {
        connection.without_units = options.without_units;
        session.begin("CAJA" + std::to_string(number + 1), make_date(2024, 3, 15, 10, 20, 30));
    }

    Date now() const override { return session.now(); }
    const std::map<int, Made>& made() const override { return made_here; }
    bool restarted() const override { return false; }

    const std::unique_ptr<Connection> own;
    Turn_connection connection;
    Session session;
    Generator generator;
    std::size_t number;
    std::map<int, Made> made_here;
    bool acts = false;  ///< in this round
    Step step;
    Session::Call call;
    Session::Outcome outcome;
    std::exception_ptr failure;  ///< of the simulator itself

    /// On a thread of its own, in turn with the others.
    void run(bool atomic) {
        connection.in_turn = true;
        try {
            outcome = atomic && step.kind == Step::Kind::call ? session.run_until_unhindered(step, call)
                                                              : session.run_component(step, call, false);
        } catch (...) {
            failure = std::current_exception();
        }
        connection.in_turn = false;
    }

    // ---- The model's side of it, before and again -------------------------------------------------------------------

    void remember() {
        kept = session.kept_by_model(step);
        called = call;
    }
    void put_back() {
        if (kept) session.put_back(step, *kept);
        call = called;
    }

private:
    std::shared_ptr<const Session::Kept> kept;
    Session::Call called;
};

Crowd::Crowd(const Crowd_options& options)
    : options_(options),
      database_(new_shared_database()),
      rows_(database_->look(), model_rows_),
      turns_(options.seed, database_->units_exclude()) {
    if (database_->has_types()) rows_.midnight_need_not_be_said();
    for (std::size_t number = 0; number < options.sessions; ++number) {
        participants_.push_back(std::make_unique<Participant>(*database_, number, options, turns_, model_rows_));
    }
}

Crowd::~Crowd() = default;

Crowd::Figures Crowd::figures() const {
    Figures figures = figures_;
    figures.changes = turns_.changes();
    for (const auto& participant : participants_) figures.repetitions += participant->session.repetitions();
    return figures;
}

void Crowd::run_sql(const std::string& text) {
    database_->run(text);
    database_->look();
    rows_.load_all();
    wrong_before_ = wrong_balances();
}

namespace {

/// Sums of such amounts are exact to the cent in whatever order they are added, and no engine calls them too large.
void keep_to_amounts_of_people(Json& value) {
    constexpr double largest = 1e7;
    if (value.is_structured()) {
        for (Json& part : value) keep_to_amounts_of_people(part);
    } else if (value.is_number_float()) {
        value = std::clamp(value.get<double>(), -largest, largest);
    }
}

/// Blanks at the end of a key, which the embedded engine does not count and a server's keys do.
void take_off_blanks_at_the_end(Json& value) {
    if (value.is_structured()) {
        for (Json& part : value) take_off_blanks_at_the_end(part);
    } else if (value.is_string()) {
        const std::string text = value;
        value = text.substr(0, text.find_last_not_of(' ') + 1);
    }
}

}  // namespace

/// The steps until one takes a member.
void Crowd::choose(Participant& participant) {
    while (!participant.acts) {
        Step step = participant.generator.next(participant);
        if (database_->has_types()) take_off_blanks_at_the_end(step.arguments);
        if (!options_.atomic || database_->has_types()) keep_to_amounts_of_people(step.arguments);
        do_or_prepare(participant, step);
        script_.push_back({round_, participant.number, std::move(step)});
    }
}

/// What takes no member is done at once.
void Crowd::do_or_prepare(Participant& participant, const Step& step) {
    switch (step.kind) {
        case Step::Kind::sql:
            // A series put back gives folios that are taken.
            if (step.name.find("Fs_Ultimo = Fs_Ultimo") == std::string::npos) {
                run_sql(resolved(step.name, participant.made_here));
            }
            break;
        case Step::Kind::clock:
            participant.session.set_clock(step.at);
            break;
        case Step::Kind::session:
            participant.session.begin(participant.session.user(), step.at);
            break;
        case Step::Kind::create:
            participant.session.create(step);
            break;
        default:
            if (!participant.session.has(step.object)) break;
            participant.acts = true;
            participant.step = step;
            participant.call = participant.session.prepared(step, participant.made_here);
            participant.connection.inserted.clear();
            participant.connection.not_taken.clear();
    }
}

std::vector<std::string> Crowd::round() {
    begin_round(round_ + 1);
    for (const auto& participant : participants_) choose(*participant);
    run_round();
    for (const auto& participant : participants_) participant->generator.observe(*participant, participant->step);
    return differences_;
}

std::vector<std::string> Crowd::round_of(std::span<const Crowd_step>& script) {
    begin_round(script.front().round);
    for (; !script.empty() && script.front().round == round_; script = script.subspan(1)) {
        script_.push_back(script.front());
        do_or_prepare(*participants_.at(script.front().session), script.front().step);
    }
    run_round();
    return differences_;
}

void Crowd::begin_round(std::uint64_t number) {
    round_ = number;
    differences_.clear();
    for (const auto& participant : participants_) participant->acts = false;
}

void Crowd::run_round() {
    run_all();
    database_->look();
    if (options_.atomic) {
        compare_with_an_order();
    } else {
        check_what_always_holds();
        check_folios();
    }
    for (const Participant* const participant : those_who_act()) {
        if (participant->step.kind == Step::Kind::call) ++figures_.calls;
        tell_of_documents(*participant);
    }
}

Crowd::Order Crowd::those_who_act() const {
    Order order;
    for (const auto& participant : participants_) {
        if (participant->acts) order.push_back(participant.get());
    }
    return order;
}

void Crowd::run_all() {
    turns_.begin(participants_.size(), round_);
    std::vector<std::thread> threads;
    for (const auto& each : participants_) {
        threads.emplace_back([this, &participant = *each] {
            if (participant.acts) participant.run(options_.atomic);
            turns_.leave(participant.number);
        });
    }
    turns_.give(database_->units_exclude() ? Turns::Locked_out() : [this] { return database_->locked_out(); });
    for (std::thread& thread : threads) thread.join();
    for (const auto& participant : participants_) {
        if (participant->failure) std::rethrow_exception(participant->failure);
    }
}

/// A document is known to whoever made it; to the others, too, where they may take it in hand at the same time.
void Crowd::tell_of_documents(const Participant& participant) {
    if (!participant.outcome.done()) return;
    for (const auto& [table, key] : participant.connection.inserted) {
        for (const auto& other : participants_) {
            if (other.get() == &participant) {
                other->made_here[participant.step.id][table].push_back(key);
            } else if (options_.atomic) {
                other->generator.hear_of(table, key);
            }
        }
    }
}

// ---- Units of work --------------------------------------------------------------------------------------------------

void Crowd::compare_with_an_order() {
    const Order order = order_of_ends();
    const model::Database before = model_rows_;
    if (is_as_if_in(order)) return;
    if (database_->units_exclude()) return;
    const std::vector<std::string> first_differences = differences_;
    model_rows_ = before;
    for (Participant* const participant : order) participant->put_back();
    if (!is_as_if_in_some_order(order)) {
        differences_ = first_differences;
        return;
    }
    differences_.clear();
    ++figures_.other_orders;
}

/// First what was no unit of work: it touches no row.
Crowd::Order Crowd::order_of_ends() {
    const std::vector<std::size_t> ended = turns_.ended_units();
    Order order;
    for (Participant* const participant : those_who_act()) {
        if (std::find(ended.begin(), ended.end(), participant->number) == ended.end()) order.push_back(participant);
    }
    for (const std::size_t number : ended) order.push_back(participants_[number].get());
    for (Participant* const participant : order) participant->remember();
    return order;
}

bool Crowd::is_as_if_in(const Order& order) {
    for (Participant* const participant : order) fits_next(*participant);
    for (std::string& difference : rows_.compare_all()) differences_.push_back(std::move(difference));
    return differences_.empty();
}

bool Crowd::is_as_if_in_some_order(const Order& left) {
    if (left.empty()) return rows_.compare_all().empty();
    for (Participant* const next : left) {
        const model::Database before = model_rows_;
        Order others = left;
        std::erase(others, next);
        if (fits_next(*next) && is_as_if_in_some_order(others)) return true;
        model_rows_ = before;
        next->put_back();
    }
    return false;
}

/// The model does what the session did; whether it comes to the same.
bool Crowd::fits_next(Participant& participant) {
    const model::Database saved = model_rows_;
    const Session::Outcome model = participant.session.run_model(participant.step, participant.call);
    if (!model.done()) model_rows_ = saved;
    const std::vector<std::string> found =
        participant.session.compare(participant.step, participant.call, participant.outcome, model);
    for (const std::string& difference : found) {
        differences_.push_back("session " + std::to_string(participant.number + 1) + ": " + difference);
    }
    return found.empty();
}

// ---- What always holds ----------------------------------------------------------------------------------------------

/// By rule and document: the figures.
std::map<std::pair<std::string, std::string>, std::string> Crowd::wrong_balances() {
    static const std::set<std::string> rules = {
        "saldo-de-cuenta",           "saldo-de-banco",       "saldo-de-cuenta-por-cobrar",
        "saldo-de-cuenta-por-pagar", "renglones-sin-poliza", "poliza-descuadrada"};
    std::map<std::pair<std::string, std::string>, std::string> wrong;
    for (const auto& finding : model::Audit(model_rows_).findings()) {
        if (finding.certain && rules.contains(finding.check)) {
            wrong[{finding.check, finding.document}] = finding.figures;
        }
    }
    return wrong;
}

void Crowd::check_what_always_holds() {
    rows_.load_all();
    auto wrong = wrong_balances();
    for (const auto& [name, figures] : wrong) {
        if (wrong_before_.contains(name)) continue;
        differences_.push_back(name.first + ": " + name.second + ", " + figures);
    }
    wrong_before_ = std::move(wrong);
}

void Crowd::check_folios() {
    // Tables whose first column is a folio of its own.
    static const std::set<std::string, std::less<>> documents = {
        "Recibo_Pago",       "Deposito_Pago",   "Banco_Movimiento", "Cheque_x_Aplicar", "Solicitud_Cheque",
        "Gasto_X_Comprobar", "Cuenta_x_Cobrar", "Cuenta_x_Pagar",   "Anticipo_Cxc",     "Poliza"};
    for (const Participant* const participant : those_who_act()) {
        for (const auto& taken : participant->connection.inserted) {
            if (!documents.contains(taken.first)) continue;
            const auto [holder, first] = folios_.emplace(taken, participant);
            if (!first && holder->second != participant) {
                differences_.push_back(taken.first + " " + taken.second + ": given to two sessions");
            }
        }
    }
    for (const Participant* const participant : those_who_act()) {
        for (const auto& refused : participant->connection.not_taken) {
            const auto holder = folios_.find(refused);
            if (holder == folios_.end() || holder->second == participant) continue;
            differences_.push_back(refused.first + " " + refused.second + ": session " +
                                   std::to_string(participant->number + 1) + " was given what session " +
                                   std::to_string(holder->second->number + 1) + " has");
        }
    }
}

std::string Crowd::last_round() const {
    std::ostringstream out;
    for (const Participant* const participant : those_who_act()) {
        out << "session " << participant->number + 1 << ": ";
        write_script({participant->step}, out);
        if (const auto failure = participant->session.failure(participant->step, participant->outcome)) {
            out << "    " << *failure << "\n";
        }
    }
    return out.str();
}

}  // namespace cuvexa::simulator
