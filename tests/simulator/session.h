// A session of a user: the component with its objects on one side, the model with the same ones on the other.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "automation/json_rpc.h"
#include "automation/members.h"
#include "automation/variant.h"
#include "cuvexa/suite/reference_suite.h"
#include "model/treasury.h"
#include "simulator/step.h"

namespace cuvexa::simulator {

using namespace automation;

class Session {
public:
    /// Both must outlive the object. `begin` comes before all else.
    Session(Connection& connection, model::Database& rows) : connection_(connection), model_suite_{rows, Date(), ""} {}

    /// Begins anew; the objects are gone.
    void begin(const std::string& user, Date at);
    void set_clock(Date at);
    const std::string& user() const { return model_suite_.user; }
    Date now() const { return model_suite_.now; }

    void create(const Step& step);
    bool has(int object) const { return objects_.contains(object); }
    /// The instance of the model behind an object; null when there is none.
    const model::Treasury* treasury(int object) const;

    // ---- Members ----------------------------------------------------------------------------------------------------

    /// A call, get or let with its arguments.
    struct Call {
        const Member* member = nullptr;
        std::vector<Variant> for_component, for_model;
    };

    /// How a member ended: its value, or the description that it threw.
    struct Outcome {
        Variant value;
        std::optional<std::string> thrown;

        /// True, or no Boolean at all.
        bool done() const;
    };

    Call prepared(const Step& step, const std::map<int, Made>& made) const;

    Outcome run_component(const Step& step, Call& call, bool as_unit);
    /// As a unit of work, and anew, from an object as it was, for as long as another session is in its way.
    Outcome run_until_unhindered(const Step& step, Call& call);
    /// How often a unit was begun anew.
    long repetitions() const { return repetitions_; }
    Outcome run_model(const Step& step, Call& call);

    /// What the model keeps outside the rows of the instance that the step is for.
    struct Kept;
    std::shared_ptr<const Kept> kept_by_model(const Step& step) const;
    void put_back(const Step& step, const Kept& kept);

    /// What result, arguments and properties differ in.
    std::vector<std::string> compare(const Step& step, const Call& call, const Outcome& component,
                                     const Outcome& model);

    /// The failure that a call told of; nothing when it did not.
    std::optional<std::string> failure(const Step& step, const Outcome& component) const;

    /// What the suite's error dialog was given since the last time.
    std::vector<std::string> take_reports() { return std::exchange(reports_, {}); }

private:
    using Model_object = std::variant<std::shared_ptr<model::Treasury>, std::shared_ptr<model::Extras>>;

    std::vector<Variant> arguments_of(const Step& step, const Member& member, const std::map<int, Made>& made) const;
    Variant run_as_unit(const Step& step, Call& call);
    std::optional<Outcome> run_unhindered(const Step& step, Call& call);
    Object copy_of(int object) const;
    double largest_movement() const;
    void compare_outcomes(const Outcome& component, const Outcome& model);
    void compare_arguments(const std::vector<Variant>& component, const std::vector<Variant>& model);
    void compare_state(int object);

    Connection& connection_;
    std::vector<std::string> reports_;
    std::shared_ptr<Reference_suite> suite_;
    std::unique_ptr<Module> module_;
    Object_factory create_;
    std::map<int, Object> objects_;  ///< by the step that created them

    model::Suite model_suite_;
    std::unique_ptr<model::Module> model_module_;
    std::map<int, Model_object> model_objects_;
    std::vector<std::string> differences_;
    long repetitions_ = 0;
};

}  // namespace cuvexa::simulator
