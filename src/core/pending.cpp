// Members that are not built yet: each refuses. The file shrinks as they are built.
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

bool refuse_for_now(std::string& error) {
    error = "Esta operación todavía no está disponible en esta versión";
    return false;
}

}  // namespace

std::string Tesoreria::PedirDatosDeposito(Date, const std::string&, int, const std::string&) {
    refuse_for_now(error_);
    return {};
}

std::string Tesoreria::PedirDatosFormaPago(const std::string&, const std::string&, const std::string&, const std::string&,
                                           const std::string&, const std::string&, const std::string&, bool) {
    refuse_for_now(error_);
    return {};
}

}  // namespace cuvexa
