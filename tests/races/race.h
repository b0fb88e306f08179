// Two users of one company who do something to one document in the same moment, each in a unit of work.
#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cuvexa/company.h"
#include "cuvexa/tesoreria.h"
#include "support/company.h"

namespace cuvexa::tests {

/// A program of its own: its own session with the database.
class User {
public:
    User(const Company_options& options, const std::string& name)
        : company_(options), suite_(company_.suite({.user = name, .server_date = Company::now()})), module_(suite_) {
        renew();
    }

    Tesoreria& treasury() { return *treasury_; }
    /// A new instance: one that has made a check request makes no other.
    void renew() { treasury_.emplace(module_); }
    Connection& connection() { return company_.connection(); }
    Reference_suite& suite() { return *suite_; }

private:
    cuvexa::Company company_;
    std::shared_ptr<Reference_suite> suite_;
    Module module_;
    std::optional<Tesoreria> treasury_;
};

/// What stands behind a call that is not to fail. Throws `std::runtime_error` with the text of `Error`.
void require(bool done, User& user);

/// What both users may be told. Whatever it is, everything is as if they had come one after the other.
enum class Told {
    true_once,   ///< one of them True, and the other one not
    true_again,  ///< both of them True: the second finds nothing left to do, or does something else
    doubles,  ///< both of them True: the member does not ask whether it was done before, and the audit names what was doubled
};

struct Race {
    std::string name;  ///< of a test, too

    /// Makes a document of which the number is only this one's, and gives its folio.
    std::function<std::string(User& user, int number)> given;

    std::function<bool(User& user, const std::string& document, int number)> call;

    Told told = Told::true_once;

    /// What the second user does instead.
    std::function<bool(User& user, const std::string& document, int number)> other = {};
};

inline void PrintTo(const Race& race, std::ostream* out) {
    *out << race.name;
}

const std::vector<Race>& races();

}  // namespace cuvexa::tests
