// A script: what is done to a company, one step after the other.
//
// A step is a request as JSON-RPC makes it, or what a person does beside it: SQL on the database, another server date, a
// new session. Texts may refer to what an earlier step made: "«12:Cheque:0»" is the key of the first row that step 12 put
// into Cheque. So a script keeps its meaning when steps are taken out of it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "cuvexa/date.h"

namespace cuvexa::simulator {

using Json = nlohmann::json;

/// What goes wrong with a call, and where.
struct Fault {
    enum class Kind {
        refused,        ///< the statement is not taken; those after it are
        conflict,       ///< the same, another session being in its way
        lost,           ///< the connection is gone when the statement is sent
        unanswered,     ///< the statement is done, and the connection gone before its answer
        killed,         ///< the program ends before the statement
        killed_behind,  ///< the program ends behind it
        disk_full,      ///< no room for more than `at` further pages
    };

    Kind kind = Kind::refused;
    std::size_t at = 1;   ///< the statement of the call, from 1
    bool atomic = false;  ///< the call is a unit of work

    bool operator==(const Fault&) const = default;

    /// Nothing else is asked of the program that made the call.
    bool is_the_end() const { return kind != Kind::refused && kind != Kind::conflict && kind != Kind::disk_full; }
};

/// "killed_behind"; the kind of that name, nothing for another one.
const char* name_of(Fault::Kind kind);
std::optional<Fault::Kind> fault_named(const std::string& name);

struct Step {
    enum class Kind {
        create,   ///< an object of the class `name`
        call,     ///< the method `name` of `object` with `arguments`
        get,      ///< the property `name` of `object`
        let,      ///< the same with its only argument
        sql,      ///< the statement `name`, past the component
        clock,    ///< the server's date and time are `at` from here on
        session,  ///< a new session of the user `name`, at `at`; the objects of the one before are gone
    };

    int id = 0;  ///< under which references know it
    Kind kind = Kind::call;
    int object = 0;  ///< the step that created it
    std::string name;
    Json arguments = Json::array();
    Date at{};
    std::optional<Fault> fault = std::nullopt;  ///< of a call

    static Step sql(std::string statement) { return {.kind = Kind::sql, .name = std::move(statement)}; }
};

using Script = std::vector<Step>;

/// Keys of the rows that a step put into each table.
using Made = std::map<std::string, std::vector<std::string>, std::less<>>;

/// The reference to such a key.
std::string reference(int step, const std::string& table, std::size_t at);

/// A text, a value, with its references replaced; what a step did not make is empty.
std::string resolved(const std::string& text, const std::map<int, Made>& made);
Json resolved(const Json& value, const std::map<int, Made>& made);

}  // namespace cuvexa::simulator
