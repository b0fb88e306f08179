// Members that are not built yet: each refuses. The file shrinks as they are built.
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

bool refuse_for_now(std::string& error) {
    error = "Esta operación todavía no está disponible en esta versión";
    return false;
}

}  // namespace

bool Tesoreria::Add_Cheque_Detalle() { return refuse_for_now(error_); }
bool Tesoreria::Crear_Cheque_Pago_Proveedor(const std::string&) { return refuse_for_now(error_); }
bool Tesoreria::Crear_Cheque_Devolucion_Anticipo(const std::string&) { return refuse_for_now(error_); }
bool Tesoreria::Crear_Cheque_Anticipo_Cxp() { return refuse_for_now(error_); }
bool Tesoreria::Crear_Cheque_Devolucion_Cliente() { return refuse_for_now(error_); }
bool Tesoreria::Crear_Cheque_Gasto_x_Comprobar() { return refuse_for_now(error_); }
bool Tesoreria::Crear_Cheque_Deudor() { return refuse_for_now(error_); }
bool Tesoreria::Aplicar_Cheque(const std::string&, Date, bool) { return refuse_for_now(error_); }
bool Tesoreria::Crear_Traspaso_Cuenta_Propia() { return refuse_for_now(error_); }
bool Tesoreria::Finalizar_Cheque(const std::string&) { return refuse_for_now(error_); }
bool Tesoreria::Afectar_Cheque_Presupuesto(const std::string&, int) { return refuse_for_now(error_); }
bool Tesoreria::Cancelar_Aplicacion_Cheque_Anticipo(const std::string&) { return refuse_for_now(error_); }

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
