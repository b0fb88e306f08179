// Chooses what is done next: whole errands of a treasury, begun by several instances in turn, with mistakes.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "automation/members.h"
#include "simulator/scene.h"
#include "simulator/step.h"

namespace cuvexa::simulator {

using namespace automation;

/// Random choices, the same for the same seed on every machine.
class Chance {
public:
    explicit Chance(std::uint64_t seed) : engine_(seed) {}

    int below(int bound) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(bound)); }
    bool in_percent(int percent) { return below(100) < percent; }

    template <class T>
    const T& of(const std::vector<T>& choices) {
        return choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
    }
    std::string of(std::initializer_list<const char*> choices) {
        return *(choices.begin() + below(static_cast<int>(choices.size())));
    }

private:
    std::mt19937_64 engine_;
};

struct Generator_options {
    std::uint64_t seed = 1;
    int users = 3;   ///< instances that work in turn
    int faults = 0;  ///< calls out of a hundred with which something goes wrong
};

class Generator {
public:
    explicit Generator(const Generator_options& options);

    /// The next step on that stage.
    Step next(const Scene& stage);

    /// Looks at what the step made, and what is left of the session.
    void observe(const Scene& stage, const Step& step);

    /// Is told of a document that somebody else has made.
    void hear_of(const std::string& table, const std::string& key) { known_[table].push_back(key); }

private:
    using Plan = std::function<Step(const Scene&)>;

    struct User {
        int object = 0;  ///< none yet in this session
        std::deque<Plan> plans;
    };

    // ---- Errands ----------------------------------------------------------------------------------------------------

    void begin_errand(std::size_t user);
    void receipt(std::size_t user);
    void deposit(std::size_t user, const std::string& receipts);
    void check(std::size_t user);
    void request(std::size_t user);
    void movement(std::size_t user);
    Step chosen(const Scene& stage);
    Fault fault();
    void forget_session();
    Step lone_call(const Scene& stage, int object);
    Step lone_let(int object);
    Step administration(const Scene& stage);
    Step another_session(const Scene& stage);

    void plan(std::size_t user, Plan plan) { users_[user].plans.push_back(std::move(plan)); }
    void plan_call(std::size_t user, const std::string& member, std::function<Json(const Scene&)> arguments);
    void plan_let(std::size_t user, const std::string& member, std::function<Json(const Scene&)> value);
    int object_of(std::size_t user) const { return users_[user].object; }

    // ---- Values -----------------------------------------------------------------------------------------------------

    Json receipt_header(const Scene& stage);
    Json receipt_line();
    Json check_header(const Scene& stage, const std::string& type, const std::string& beneficiary);
    Json check_line(const std::string& document);
    Json request_header(const Scene& stage);
    Json request_line(const std::string& folio);
    Json bank_movement(const Scene& stage);

    std::string date(const Scene& stage);
    double amount();
    double rate();
    std::string text();
    std::string branch();
    std::string account();
    std::string folio(const std::string& table);
    std::string folio_list();
    /// The key that the step put into the table, or any other.
    std::string made_by(const Scene& stage, int step, const std::string& table);
    void spoil(Json& arguments);
    void spoil_value(Json& value, const std::string& name);
    Json argument(const Scene& stage, const std::string& name, const Value_type& type);

    // ---- The company ------------------------------------------------------------------------------------------------

    std::string alteration(const Scene& stage);
    std::string parameter_alteration();
    std::string catalog_alteration();
    std::string budget_alteration(const Scene& stage);
    std::string document_alteration(const Scene& stage);

    Generator_options options_;
    Chance chance_;
    std::vector<User> users_;
    std::map<std::string, std::vector<std::string>> known_;  ///< references to keys, and keys, by table
    std::vector<int> extras_;                                ///< objects that hold extras
    int next_id_ = 1;
    int alterations_left_ = 0;
};

}  // namespace cuvexa::simulator
