// Catalogs of which operations ask for the same row more than once.
#pragma once

#include <array>
#include <string_view>

#include "core/case.h"

namespace cuvexa::reference {

/// A catalog that no operation changes, and the columns that are read together. Accounts and banks are none: they have balances.
struct Kept_catalog {
    std::string_view table;
    std::string_view list;  ///< of the columns, as a query has it
    std::array<std::string_view, 2> columns;
};

inline constexpr std::array kept_catalogs{
    Kept_catalog{"Banco_Tipo_Movimiento", "Bt_Descripcion, Bt_Tipo", {"Bt_Descripcion", "Bt_Tipo"}},
    Kept_catalog{"Cliente", "Cl_Descripcion", {"Cl_Descripcion", {}}},
    Kept_catalog{"Proveedor", "Pv_Descripcion", {"Pv_Descripcion", {}}},
    Kept_catalog{"Sucursal", "Sc_Descripcion, Sc_Servidor_Id", {"Sc_Descripcion", "Sc_Servidor_Id"}},
    Kept_catalog{"Tipo_Cheque", "Tc_Descripcion, Tc_Solicitar", {"Tc_Descripcion", "Tc_Solicitar"}},
};

/// None when the column is not among those.
constexpr const Kept_catalog* kept_catalog(std::string_view table, std::string_view column) {
    for (const Kept_catalog& catalog : kept_catalogs) {
        if (!same_text(catalog.table, table)) continue;
        for (const std::string_view each : catalog.columns) {
            if (same_text(each, column)) return &catalog;
        }
    }
    return nullptr;
}

}  // namespace cuvexa::reference
