// The whole database in memory.
#pragma once

#include <string_view>

#include "model/rows.h"
#include "model/table.h"

// clang-format off
#define CUVEXA_TABLES(of) \
    of(Empresa) of(Sucursal) of(Moneda) of(Forma_Pago) of(Tipo_Recibo_Pago) of(Tipo_Cheque) of(Banco)            \
    of(Banco_Cuenta) of(Banco_Tipo_Movimiento) of(Grupo_Proveedor) of(Proveedor) of(Cliente) of(Vendedor)        \
    of(Recibo_Pago) of(Deposito_Pago) of(Banco_Movimiento) of(Cheque) of(Cheque_x_Aplicar) of(Solicitud_Cheque)  \
    of(Solicitud_Cheque_Detalle) of(Gasto_x_Comprobar) of(Gasto_x_Comprobar_Documento)                           \
    of(Anticipo_Proveedor_Presupuesto) of(Gasto_x_Comprobar_Presupuesto) of(Prestamo_Deudor_Presupuesto)         \
    of(Devolucion_Cliente_Presupuesto) of(Cuenta_x_Cobrar) of(Pago_Cxc) of(Cuenta_x_Pagar) of(Pago_Cxp)          \
    of(Anticipo_Cxc) of(Documento_Cuenta_Bancaria) of(Poliza) of(Poliza_Detalle) of(Configuracion_Contable)      \
    of(Documento_Contabilizado) of(Parametro_Sistema) of(Folio_Serie) of(Periodo_Operativo)                      \
    of(Documento_Registrado) of(Servidor_Suite) of(Esquema_Suite)
// clang-format on

namespace cuvexa::model {

struct Database {
#define CUVEXA_TABLE(name) Table<rows::name> name;
    CUVEXA_TABLES(CUVEXA_TABLE)
#undef CUVEXA_TABLE
};

/// Hands each table with its name to `each`.
template <class Each>
void each_table(Database& db, Each&& each) {
#define CUVEXA_TABLE(name) each(std::string_view(#name), db.name);
    CUVEXA_TABLES(CUVEXA_TABLE)
#undef CUVEXA_TABLE
}

}  // namespace cuvexa::model
