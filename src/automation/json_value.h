// What a client sent, as JSON, bounded in depth and size; and the parts that an answer is written of.
//
// The values of a general library were not fit: to give an array back they ask for memory, and a program without any
// ended there.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace cuvexa::automation {

struct Json_number {
    double value = 0;
    std::string text;  ///< as it was sent, for there are numbers that no type here holds

    /// Nothing when it has a fraction or an exponent, or is beyond 64 bits.
    std::optional<std::int64_t> whole() const;
};

struct Json_value;
using Json_array = std::vector<Json_value>;
using Json_object = std::map<std::string, Json_value, std::less<>>;

struct Json_value : std::variant<std::nullptr_t, bool, Json_number, std::string, Json_array, Json_object> {
    using variant::variant;

    bool is_null() const noexcept { return std::holds_alternative<std::nullptr_t>(*this); }

    /// What it holds, when it is of that kind; else null.
    template <class Kind>
    const Kind* as() const noexcept {
        return std::get_if<Kind>(static_cast<const variant*>(this));
    }

    /// The member of an object; null when it is none or has none of that name.
    const Json_value* find(std::string_view name) const;
};

/// A text that is no JSON, or is beyond a limit.
class Json_text_error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// More values in one text than may be.
class Too_many_values : public Json_text_error {
public:
    using Json_text_error::Json_text_error;
};

/// Throws `Json_text_error`, and `std::bad_alloc` when memory does not suffice.
Json_value parse_json(std::string_view text, std::size_t most_depth, std::size_t most_values);

/// The text of a value, appended: a text that is not UTF-8 with replacement characters, no number (infinite, say) null.
void append_json(std::string& json, std::string_view text);
void append_json(std::string& json, double number);
void append_json(std::string& json, std::int64_t number);
void append_json(std::string& json, bool flag);
inline void append_json(std::string& json, const char* text) {
    append_json(json, std::string_view(text));
}

}  // namespace cuvexa::automation
