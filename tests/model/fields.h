// Every column of a row in turn, by its place.
#pragma once

#include <cstddef>
#include <utility>

namespace cuvexa::model {
namespace fields_detail {

struct Anything {
    template <class T>
    operator T() const;
};

template <class Row, std::size_t... At>
constexpr bool takes(std::index_sequence<At...>) {
    return requires {
        Row{(static_cast<void>(At), Anything{})...};
    };
}

template <class Row, std::size_t Count = 40>
constexpr std::size_t count() {
    if constexpr (takes<Row>(std::make_index_sequence<Count>())) {
        return Count;
    } else {
        return count<Row, Count - 1>();
    }
}

}  // namespace fields_detail

#define CUVEXA_NAMES_2 a1, a2
#define CUVEXA_NAMES_3 CUVEXA_NAMES_2, a3
#define CUVEXA_NAMES_4 CUVEXA_NAMES_3, a4
#define CUVEXA_NAMES_6 CUVEXA_NAMES_4, a5, a6
#define CUVEXA_NAMES_9 CUVEXA_NAMES_6, a7, a8, a9
#define CUVEXA_NAMES_10 CUVEXA_NAMES_9, a10
#define CUVEXA_NAMES_11 CUVEXA_NAMES_10, a11
#define CUVEXA_NAMES_12 CUVEXA_NAMES_11, a12
#define CUVEXA_NAMES_13 CUVEXA_NAMES_12, a13
#define CUVEXA_NAMES_14 CUVEXA_NAMES_13, a14
#define CUVEXA_NAMES_15 CUVEXA_NAMES_14, a15
#define CUVEXA_NAMES_16 CUVEXA_NAMES_15, a16
#define CUVEXA_NAMES_17 CUVEXA_NAMES_16, a17
#define CUVEXA_NAMES_18 CUVEXA_NAMES_17, a18
#define CUVEXA_NAMES_19 CUVEXA_NAMES_18, a19
#define CUVEXA_NAMES_21 CUVEXA_NAMES_19, a20, a21
#define CUVEXA_NAMES_22 CUVEXA_NAMES_21, a22
#define CUVEXA_NAMES_23 CUVEXA_NAMES_22, a23
#define CUVEXA_NAMES_25 CUVEXA_NAMES_23, a24, a25
#define CUVEXA_NAMES_26 CUVEXA_NAMES_25, a26
#define CUVEXA_NAMES_33 CUVEXA_NAMES_26, a27, a28, a29, a30, a31, a32, a33
#define CUVEXA_ROW_OF(number)                \
    if constexpr (count == number) {         \
        auto& [CUVEXA_NAMES_##number] = row; \
        in_turn(CUVEXA_NAMES_##number);      \
    }

/// Hands each column of the row to `each`, in the order of the schema.
template <class Row, class Each>
void each_field(Row& row, Each&& each) {
    constexpr std::size_t count = fields_detail::count<std::remove_const_t<Row>>();
    const auto in_turn = [&](auto&... fields) { (each(fields), ...); };
    // clang-format off
    CUVEXA_ROW_OF(2) else CUVEXA_ROW_OF(3) else CUVEXA_ROW_OF(4) else CUVEXA_ROW_OF(6) else CUVEXA_ROW_OF(9)
    else CUVEXA_ROW_OF(10) else CUVEXA_ROW_OF(11) else CUVEXA_ROW_OF(12) else CUVEXA_ROW_OF(13)
    else CUVEXA_ROW_OF(14) else CUVEXA_ROW_OF(15) else CUVEXA_ROW_OF(16) else CUVEXA_ROW_OF(17)
    else CUVEXA_ROW_OF(18) else CUVEXA_ROW_OF(19) else CUVEXA_ROW_OF(21) else CUVEXA_ROW_OF(22)
    else CUVEXA_ROW_OF(23) else CUVEXA_ROW_OF(25) else CUVEXA_ROW_OF(26) else CUVEXA_ROW_OF(33)
    else static_assert(count == 0, "a row of that many columns needs its line above");
    // clang-format on
}

}  // namespace cuvexa::model
