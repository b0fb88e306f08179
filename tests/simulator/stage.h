// The component and its model on one company, doing the same.
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
#include "simulator/remedy.h"
#include "simulator/rows.h"
#include "simulator/step.h"
#include "simulator/wire.h"
#include "support/test_database.h"

namespace cuvexa::simulator {

using namespace automation;

class Stage {
public:
    /// The sample company, its session begun.
    Stage();

    /// Does one step on both sides. What they differ in; empty when in nothing.
    std::vector<std::string> run(const Step& step);

    /// Compares every row and what always holds; for the end of a script.
    std::vector<std::string> run_end();

    /// What the audit and the model find, and the other one does not.
    std::vector<std::string> compared_findings();

    // ---- For whoever chooses the next step --------------------------------------------------------------------------

    model::Database& rows() { return model_rows_; }
    const std::map<int, Made>& made() const { return made_; }
    Date now() const { return model_suite_.now; }

    /// The instance of the model behind an object; null when there is none.
    const model::Treasury* treasury(int object) const;

    /// Whether the last call succeeded: a Boolean that is True, or no Boolean at all.
    bool succeeded() const { return succeeded_; }

    /// Whether the last step ended its session: the objects are gone.
    bool restarted() const { return restarted_; }

    /// Calls with which something went wrong; those of them that left findings, whose advice was followed.
    struct Disturbed {
        long calls = 0, with_findings = 0;
    };
    const Disturbed& disturbed() const { return disturbed_; }

private:
    using Model_object = std::variant<std::shared_ptr<model::Treasury>, std::shared_ptr<model::Extras>>;

    /// How a member ended: its value, or the description that it threw.
    struct Outcome {
        Variant value;
        std::optional<std::string> thrown;
    };

    /// The statement at which the model fails, too, so that it writes what the component has written.
    struct Failing {
        std::size_t writes = 0;
        std::size_t at = 0;  ///< the write, from 1; 0: none
        bool from_there_on = false;
        std::string description;
    };

    void begin_session(const std::string& user, Date at);
    void run_member(const Step& step);
    void write_in_model();
    bool failed(const Step& step, const Outcome& component) const;
    Failing failing_of(const Step& step) const;
    void compare_failure(const Step& step, const Outcome& component);
    void compare_rows(const Step& step);
    void follow_advice(const std::set<Named>& before);
    std::set<Named> named_findings();
    Variant run_as_unit(const Step& step, const Member& member, std::vector<Variant>& arguments);
    void create(const Step& step);
    std::vector<Variant> arguments_of(const Step& step, const Member& member);
    Outcome run_component(const Step& step, const Member& member, std::vector<Variant>& arguments);
    Outcome run_model(const Step& step, std::vector<Variant>& arguments);
    double largest_movement() const;
    void compare_outcomes(const Outcome& component, const Outcome& model);
    void compare_arguments(const std::vector<Variant>& component, const std::vector<Variant>& model);
    void compare_state(int object);

    tests::Test_database database_;
    Wire wire_{database_.connection(), database_.embedded()};
    std::vector<std::string> reports_;
    std::shared_ptr<Reference_suite> suite_;
    std::unique_ptr<Module> module_;
    Object_factory create_;
    std::map<int, Object> objects_;  ///< by the step that created them

    model::Database model_rows_;
    model::Suite model_suite_;
    std::unique_ptr<model::Module> model_module_;
    std::map<int, Model_object> model_objects_;

    Rows rows_;
    std::map<int, Made> made_;
    std::vector<std::string> differences_;
    bool succeeded_ = false, restarted_ = false;
    Failing failing_;
    Disturbed disturbed_;
};

}  // namespace cuvexa::simulator
