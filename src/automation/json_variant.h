// Values between JSON and variants, as the JSON-RPC door reads and writes them.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

#include "automation/json_value.h"
#include "automation/variant.h"

namespace cuvexa::automation {

/// A JSON value that is not what the member takes. The text names the place.
class Json_value_error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The object of a number, and the number of an object.
using Object_of_number = std::function<Object(const Json_value& number)>;
using Number_of_object = std::function<std::int64_t(const Object& object)>;

/// The value of a parameter; null is missing. `place` names it in the text of the `Json_value_error` that is thrown.
Variant from_json(const Json_value& json, const Value_type& type, const std::string& place,
                  const Object_of_number& object);

/// Appends a value; records in the published order.
void append_json(std::string& json, const Variant& value, const Number_of_object& number);

}  // namespace cuvexa::automation
