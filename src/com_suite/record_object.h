// Records of the suite's services as automation objects: a property per field.
#pragma once

#include <array>

#include "com/late.h"
#include "com/named_object.h"
#include "com_suite/contract.h"

namespace cuvexa::com_suite {

using namespace com;

/// Runs `body` with the element of that place.
template <class Tuple, class Body>
void with_element(const Tuple& tuple, std::size_t place, Body&& body) {
    std::apply(
        [&](const auto&... elements) {
            std::size_t at = 0;
            ((at++ == place ? body(elements) : void()), ...);
        },
        tuple);
}

/// The names of a list of properties or operations, in order.
template <class Tuple>
constexpr auto names_in(const Tuple& tuple) {
    return std::apply([](const auto&... elements) { return std::array{elements.name...}; }, tuple);
}

/// A record that lives in an object of its own.
template <Travelling_record Type>
class Record_object final : public Named_object {
public:
    explicit Record_object(Type record) : record_(std::move(record)) {}

    static Pointer<IDispatch> made(Type record) {
        return Pointer<IDispatch>::owning(new Record_object(std::move(record)));
    }

protected:
    std::span<const std::string_view> member_names() const override {
        static constexpr auto names = names_in(properties<Type>);
        return names;
    }

    Any perform(std::size_t member, WORD kind, const Call_arguments& given) override {
        Any result;
        with_element(properties<Type>, member, [&](const auto& property) {
            auto& place = record_.*property.place;
            if (gets(kind)) {
                given.expect(0);
                result = any(place);
            } else {
                given.expect(1);
                place = value_of<std::remove_cvref_t<decltype(place)>>(given[0]);
            }
        });
        return result;
    }

    const char* source() const override { return "Cuvexa"; }

private:
    Type record_;
};

/// The record that an object holds; it must have every property. Throws what its getters throw.
template <Travelling_record Type>
Type record_in(Late_object& object) {
    Type record;
    std::apply(
        [&](const auto&... property) {
            ((record.*property.place =
                  value_of<std::remove_cvref_t<decltype(record.*property.place)>>(*object.get(property.name).get())),
             ...);
        },
        properties<Type>);
    return record;
}

/// Fills the properties of an object.
template <Travelling_record Type>
void put_record(Late_object& object, const Type& record) {
    std::apply([&](const auto&... property) { (object.put(property.name, record.*property.place), ...); },
               properties<Type>);
}

}  // namespace cuvexa::com_suite
