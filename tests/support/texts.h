// Texts that several operations leave in `Error` and in the tables.
#pragma once

#include <string>

namespace cuvexa::tests {

inline const std::string document_tag = "Cuvexa.dll - Cancelar_Documento_Bancos()\r\n";
inline const std::string guard_tag = "Cuvexa.dll - Valida_Poliza_Contable()\r\n";

/// What a cancelled row says, behind it its states.
inline const std::string cancelled = "Oper_Baja  -> CAJA1, Fecha_Baja NULL -> 2024-03-15 10:20:30, Es_Cve_Estado ";

/// A document of the 14th on the 15th.
inline const std::string not_today =
    "No es posible realizar esta operación, la fecha del documento no es del día actual\r\n"
    "Fecha del documento: 14/03/2024, fecha del día: 15/03/2024";

/// One of the 15th on the 16th.
inline const std::string not_today_but_yesterday =
    "No es posible realizar esta operación, la fecha del documento no es del día actual\r\n"
    "Fecha del documento: 15/03/2024, fecha del día: 16/03/2024";

/// The period of a document of the 15th.
inline const std::string period_closed =
    "El período operativo correspondiente a la fecha: 15-03-2024, está cerrado o no existe!";

/// A document posted by hand; its name follows.
inline const std::string posted = "Imposible cancelar el documento, ya está contabilizado! \r\n";

}  // namespace cuvexa::tests
