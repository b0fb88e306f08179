// Settings that operations ask for one after the other, and that are read together.
#pragma once

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "core/codes.h"

namespace cuvexa::reference {

struct Setting {
    static constexpr std::string_view parameter = "parametro", posting = "contabilidad", server = "servidor";

    std::string_view kind, name;

    friend bool operator==(const Setting&, const Setting&) = default;
};

/// When a module starts.
inline constexpr std::array start_settings{
    Setting{Setting::server, "Sv_Servidor_Id"},
    Setting{Setting::parameter, "TES_REDONDEA_IMPORTE_CHEQUE"},
    Setting{Setting::parameter, "TES_FORMA_PAGO_CHEQUE"},
    Setting{Setting::parameter, "TES_FORMA_PAGO_TRANSFERENCIA"},
    Setting{Setting::parameter, "FIN_MONEDA_LOCAL"},
    Setting{Setting::parameter, "GEN_FORZAR_TIEMPO_REAL"},
    Setting{Setting::parameter, "TES_AUTORIZAR_SOLICITUD_CHEQUE"},
};

/// When a document is captured.
inline constexpr std::array capture_settings{
    Setting{Setting::server, "Sv_Replica"},
    Setting{Setting::parameter, "GEN_VALIDAR_PERIODO_OPERATIVO"},
};

/// When receipts are deposited, or are not after all.
inline constexpr std::array deposit_settings{
    Setting{Setting::parameter, "TES_MOVIMIENTO_DEPOSITO"},
    Setting{Setting::posting, document::deposit},
    Setting{Setting::posting, document::bank_movement},
};

/// When a check is created or cancelled.
inline constexpr std::array check_settings{
    Setting{Setting::parameter, "TES_MOVIMIENTO_CHEQUE"},
    Setting{Setting::parameter, "TES_MOVIMIENTO_TRANSFERENCIA"},
    Setting{Setting::posting, document::check},
    Setting{Setting::posting, document::bank_movement},
};

/// Asked for by itself it says nothing of what comes, and is read alone.
inline constexpr Setting common_setting{Setting::posting, document::bank_movement};

inline bool lists(std::span<const Setting> settings, const Setting& one) {
    return one != common_setting && std::find(settings.begin(), settings.end(), one) != settings.end();
}

}  // namespace cuvexa::reference
