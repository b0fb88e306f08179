#include "automation/json_value.h"

#include <charconv>
#include <nlohmann/json.hpp>
#include <utility>

namespace cuvexa::automation {

namespace {

using Library = nlohmann::json;

/// Builds the value while the library reads the text. Answering false ends the reading.
class Builder final : public nlohmann::json_sax<Library> {
public:
    Builder(std::size_t most_depth, std::size_t most_values) : most_depth_(most_depth), values_left_(most_values) {
        open_.reserve(most_depth);
    }

    Json_value take() { return std::move(whole_); }

    bool null() override { return add(nullptr) != nullptr; }
    bool boolean(bool flag) override { return add(flag) != nullptr; }
    bool number_integer(number_integer_t number) override {
        return add(Json_number{static_cast<double>(number), std::to_string(number)}) != nullptr;
    }
    bool number_unsigned(number_unsigned_t number) override {
        return add(Json_number{static_cast<double>(number), std::to_string(number)}) != nullptr;
    }
    bool number_float(number_float_t number, const string_t& text) override {
        return add(Json_number{number, text}) != nullptr;
    }
    bool string(string_t& text) override { return add(std::move(text)) != nullptr; }
    bool binary(binary_t&) override { return false; }

    bool start_object(std::size_t) override { return open(Json_object()); }
    bool start_array(std::size_t) override { return open(Json_array()); }
    bool key(string_t& name) override {
        key_ = std::move(name);
        return true;
    }
    bool end_object() override { return close(); }
    bool end_array() override { return close(); }

    bool parse_error(std::size_t position, const std::string&, const Library::exception& error) override {
        constexpr int out_of_range = 406;
        if (error.id == out_of_range) throw Json_text_error("a number is out of range");
        throw Json_text_error("not JSON at byte " + std::to_string(position));
    }

private:
    Json_value* add(Json_value value) {
        if (values_left_-- == 0) throw Too_many_values("too many values");
        return open_.empty() ? &(whole_ = std::move(value)) : add_to(*open_.back(), std::move(value));
    }

    Json_value* add_to(Json_value& into, Json_value value) {
        if (auto* array = std::get_if<Json_array>(&into)) return &array->emplace_back(std::move(value));
        return &std::get<Json_object>(into).insert_or_assign(std::move(key_), std::move(value)).first->second;
    }

    bool open(Json_value value) {
        if (open_.size() == most_depth_) {
            throw Json_text_error("nested deeper than " + std::to_string(most_depth_) + " levels");
        }
        open_.push_back(add(std::move(value)));
        return true;
    }

    bool close() {
        open_.pop_back();
        return true;
    }

    std::size_t most_depth_;
    std::size_t values_left_;
    Json_value whole_;
    std::string key_;
    std::vector<Json_value*> open_;  ///< what is being filled; nothing moves while something inside it is
};

}  // namespace

std::optional<std::int64_t> Json_number::whole() const {
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

const Json_value* Json_value::find(std::string_view name) const {
    const auto* object = as<Json_object>();
    if (!object) return nullptr;
    const auto found = object->find(name);
    return found == object->end() ? nullptr : &found->second;
}

Json_value parse_json(std::string_view text, std::size_t most_depth, std::size_t most_values) {
    Builder builder(most_depth, most_values);
    Library::sax_parse(text.begin(), text.end(), &builder);
    return builder.take();
}

void append_json(std::string& json, std::string_view text) {
    json += Library(text).dump(-1, ' ', false, Library::error_handler_t::replace);
}

void append_json(std::string& json, double number) {
    json += Library(number).dump();
}

void append_json(std::string& json, std::int64_t number) {
    json += std::to_string(number);
}

void append_json(std::string& json, bool flag) {
    json += flag ? "true" : "false";
}

}  // namespace cuvexa::automation
