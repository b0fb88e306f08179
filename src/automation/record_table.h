// The records and their fields in the published order: what every front door reads instead of naming fields by hand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "cuvexa/records.h"

namespace cuvexa {
class clsRpDetalle;
}

namespace cuvexa::automation {

/// A record of any of the published types, by value; the alternatives stand in the published order.
using Record = std::variant<tTsEncabezado, tTsDetalle, tRpEncabezado, tTrpTipoReciboPago, tRpDetalle, tFormaPago,
                            tSchEncabezado, tSchDetalle, tBnMovimiento, tCuenta, tTsSucursal, tTsProveedor, tVnVendedor,
                            tSucursalGeneral, tUserDef>;

struct Record_type;

/// What a parameter, a result or a field can be.
enum class Type { none, boolean, integer16, real, text, date, record, object };

/// A type, with the record or the class that it names.
struct Value_type {
    Type type = Type::none;
    const Record_type* record = nullptr;  ///< of a record
    std::string_view class_name = {};     ///< of an object
    bool operator==(const Value_type&) const = default;
};

/// A record inside another, or the whole of one.
struct Record_place {
    const Record_type* type = nullptr;
    void* record = nullptr;
};

/// Where the value of one field stands.
using Place = std::variant<bool*, double*, std::string*, Date*, Record_place>;

struct Field {
    std::string_view name;
    Value_type type;
    Place (*place)(void* record);  ///< the field in a record of the type that lists it
};

struct Record_type {
    std::string_view name;
    std::span<const Field> fields;
    Record (*create)();  ///< an empty record of this type
};

/// All records, in the order of `Record`.
extern const Record_type record_types[std::variant_size_v<Record>];

/// The published type of a record, and where it stands.
inline const Record_type& type_of(const Record& record) {
    return record_types[record.index()];
}
Record_place place_of(Record& record);

/// The published type of a C++ struct.
template <class R>
constexpr const Record_type& record_type();

template <class R>
constexpr bool is_record = false;

namespace record_table_detail {

template <class R, class Alternatives>
struct Index;
template <class R, class... Rs>
struct Index<R, std::variant<Rs...>> {
    static constexpr std::size_t value = [] {
        std::size_t at = 0;
        for (const bool same : {std::is_same_v<R, Rs>...}) {
            if (same) break;
            ++at;
        }
        return at;
    }();
};

}  // namespace record_table_detail

template <class R>
requires(record_table_detail::Index<R, Record>::value < std::variant_size_v<Record>) constexpr bool is_record<R> = true;

template <class R>
constexpr const Record_type& record_type() {
    static_assert(is_record<R>);
    return record_types[record_table_detail::Index<R, Record>::value];
}

/// The published type of a C++ type.
template <class T>
constexpr Value_type value_type() {
    if constexpr (std::is_void_v<T>) {
        return {};
    } else if constexpr (std::is_same_v<T, bool>) {
        return {Type::boolean};
    } else if constexpr (std::is_same_v<T, int>) {
        return {Type::integer16};  // the only width that the published interfaces know
    } else if constexpr (std::is_same_v<T, double>) {
        return {Type::real};
    } else if constexpr (std::is_same_v<T, std::string>) {
        return {Type::text};
    } else if constexpr (std::is_same_v<T, Date>) {
        return {Type::date};
    } else if constexpr (std::is_same_v<T, std::shared_ptr<clsRpDetalle>>) {
        return {Type::object, nullptr, "clsRpDetalle"};
    } else {
        return {Type::record, &record_type<T>()};
    }
}

}  // namespace cuvexa::automation
