// The component and its model on one company, doing the same.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "simulator/remedy.h"
#include "simulator/rows.h"
#include "simulator/scene.h"
#include "simulator/session.h"
#include "simulator/step.h"
#include "simulator/wire.h"
#include "support/test_database.h"

namespace cuvexa::simulator {

class Stage : public Scene {
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
    const std::map<int, Made>& made() const override { return made_; }
    Date now() const override { return session_.now(); }

    /// The instance of the model behind an object; null when there is none.
    const model::Treasury* treasury(int object) const { return session_.treasury(object); }

    /// Whether the last call succeeded: a Boolean that is True, or no Boolean at all.
    bool succeeded() const { return succeeded_; }

    bool restarted() const override { return restarted_; }

    /// Calls with which something went wrong; those of them that left findings, whose advice was followed.
    struct Disturbed {
        long calls = 0, with_findings = 0;
    };
    const Disturbed& disturbed() const { return disturbed_; }

private:
    /// The statement at which the model fails, too, so that it writes what the component has written.
    struct Failing {
        std::size_t writes = 0;
        std::size_t at = 0;  ///< the write, from 1; 0: none
        bool from_there_on = false;
        std::string description;
    };

    void run_member(const Step& step);
    void run_disturbed(const Step& step);
    Session::Outcome run_model(const Step& step, Session::Call& call, bool went_wrong);
    void write_in_model();
    Failing failing_of(const Step& step) const;
    void compare(const Step& step, const Session::Call& call, const Session::Outcome& component,
                 const Session::Outcome& model);
    void compare_rows(const Step& step);
    void follow_advice(const std::set<Named>& before);
    std::set<Named> named_findings();

    tests::Test_database database_;
    Wire wire_{database_.connection(), database_.embedded()};
    model::Database model_rows_;
    Session session_{wire_, model_rows_};
    Rows rows_;
    std::map<int, Made> made_;
    std::vector<std::string> differences_;
    bool succeeded_ = false, restarted_ = false;
    Failing failing_;
    Disturbed disturbed_;
};

}  // namespace cuvexa::simulator
