// A script: what is done to a company, one step after the other.
//
// A step is a request as JSON-RPC makes it, or what a person does beside it: SQL on the database, another server date, a
// new session. Texts may refer to what an earlier step made: "«12:Cheque:0»" is the key of the first row that step 12 put
// into Cheque. So a script keeps its meaning when steps are taken out of it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "cuvexa/date.h"

namespace cuvexa::simulator {

using Json = nlohmann::json;

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
