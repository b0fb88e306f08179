// A class of the tests' own, published as the server publishes its classes: what arrives at a member and what becomes
// of what it gives, for every type and passing; and members that throw.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "automation/members.h"
#include "com_server/published_object.h"
#include "cuvexa/errors.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa::tests {

using namespace com;
using namespace com_server;

class Probe final : public Automation_object {
public:
    const Automation_class& type() const override;

    std::vector<Variant> seen;  ///< the arguments of the last call, as the member got them
    Variant kept;               ///< what the properties keep
};

/// Places of members in the virtual table, behind those of IDispatch.
enum Probe_member {
    take_integer,
    take_integer_by_value,
    take_real,
    take_boolean,
    take_date,
    take_text,
    take_text_by_value,
    take_movement,
    take_object,
    take_optional,
    throw_int,
    throw_exception,
    throw_automation_error,
    throw_bad_alloc,
    throw_odd_text,
    change_all,
};

/// Where a member's function stands in the table of a client.
inline void* function_of(IDispatch* client, Probe_member member) {
    void** const table = *reinterpret_cast<void***>(client);
    return table[7 + member];
}

}  // namespace cuvexa::tests
