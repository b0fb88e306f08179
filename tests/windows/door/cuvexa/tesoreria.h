// Stands before the component's own header while the operation tests are built for Windows: the same class for the tests'
// eyes, whose members are late-bound calls on Cuvexa.dll. The services of the test's module are what the library works with:
// they are published as automation objects, so that a call goes through the whole door and back.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "automation/variant.h"
#include "cuvexa/module.h"
#include "cuvexa/records.h"

namespace cuvexa {

class clsRpDetalle {
public:
    std::string Rp_Cve_Banco, Rp_Vendedor, Rp_Comisionista, Rp_Promotor, Rp_Chofer, Rp_Cobratario;
};

namespace door {

using namespace automation;

class Treasury {
public:
    explicit Treasury(Module& module);
    ~Treasury();
    Treasury(const Treasury&) = delete;
    Treasury& operator=(const Treasury&) = delete;

    std::string FolioMovimiento;

    bool Cancelar_Deposito(const std::string& a) { return is("Cancelar_Deposito", {a}); }
    std::string Error() const { return text("Error"); }
    bool Validar_Forma_Pago() const { return std::get<bool>(get("Validar_Forma_Pago")); }
    void Validar_Forma_Pago(bool value) { let("Validar_Forma_Pago", value); }
    std::string Dp_Folio() const { return text("Dp_Folio"); }
    void Ch_Banco_Destino(const std::string& value) { let("Ch_Banco_Destino", value); }
    std::string Ch_Banco_Destino() const { return text("Ch_Banco_Destino"); }
    void NuevoReciboCaja() { call("NuevoReciboCaja", {}); }
    bool FinReciboCaja(const std::string& a) { return is("FinReciboCaja", {a}); }
    tRpEncabezado RpEncabezado() const { return record<tRpEncabezado>("RpEncabezado"); }
    void RpEncabezado(const tRpEncabezado& value) { let("RpEncabezado", Record(value)); }
    tRpDetalle RpDetalle() const { return record<tRpDetalle>("RpDetalle"); }
    void RpDetalle(const tRpDetalle& value) { let("RpDetalle", Record(value)); }
    bool Add_Recibo_Caja_Detalle() { return is("Add_Recibo_Caja_Detalle", {}); }
    tTsEncabezado Encabezado() const { return record<tTsEncabezado>("Encabezado"); }
    void Encabezado(const tTsEncabezado& value) { let("Encabezado", Record(value)); }
    tTsDetalle Detalle() const { return record<tTsDetalle>("Detalle"); }
    void Detalle(const tTsDetalle& value) { let("Detalle", Record(value)); }
    void Nuevo() { call("Nuevo", {}); }
    bool Add_Cheque_Detalle() { return is("Add_Cheque_Detalle", {}); }
    bool Crear_Cheque_Pago_Proveedor(const std::string& a) { return is("Crear_Cheque_Pago_Proveedor", {a}); }
    bool Crear_Cheque_Devolucion_Anticipo(const std::string& a) { return is("Crear_Cheque_Devolucion_Anticipo", {a}); }
    bool Crear_Cheque_Anticipo_Cxp() { return is("Crear_Cheque_Anticipo_Cxp", {}); }
    bool Crear_Cheque_Devolucion_Cliente() { return is("Crear_Cheque_Devolucion_Cliente", {}); }
    bool Crear_Cheque_Gasto_x_Comprobar() { return is("Crear_Cheque_Gasto_x_Comprobar", {}); }
    bool Crear_Cheque_Deudor() { return is("Crear_Cheque_Deudor", {}); }
    bool Cancelar_Cheque(const std::string& a) { return is("Cancelar_Cheque", {a}); }
    bool Aplicar_Cheque(const std::string& a, Date date) { return is("Aplicar_Cheque", {a, date}); }
    bool Aplicar_Cheque(const std::string& a, Date date, bool firm) { return is("Aplicar_Cheque", {a, date, firm}); }
    bool Registra_Movimiento_Bancario_Cheque(const std::string& a) {
        return is("Registra_Movimiento_Bancario_Cheque", {a});
    }
    bool Registra_Movimiento_Banco(tBnMovimiento& movement);
    bool Cancelar_Documento_Bancos(const std::string& a, const std::string& b) {
        return is("Cancelar_Documento_Bancos", {a, b});
    }
    bool Cancelar_Aplicacion_Cheque(const std::string& a) { return is("Cancelar_Aplicacion_Cheque", {a}); }
    bool Crear_Cheque(const std::string& a) { return is("Crear_Cheque", {a}); }
    bool Registrar_Deposito_Recibo_Caja(const std::string& a, const std::string& b) {
        return is("Registrar_Deposito_Recibo_Caja", {a, b});
    }
    bool Genera_Deposito(const std::string& account, const std::string& receipts, Date date, bool firm,
                         Date firm_date) {
        return is("Genera_Deposito", {account, receipts, date, firm, firm_date});
    }
    bool Genera_Deposito(const std::string& account, const std::string& receipts, Date date, bool firm, Date firm_date,
                         const std::string& comment) {
        return is("Genera_Deposito", {account, receipts, date, firm, firm_date, comment});
    }
    double GetSaldo(const std::string& a) { return std::get<double>(call("GetSaldo", {a})); }
    double GetSaldo(const std::string& a, bool firm) { return std::get<double>(call("GetSaldo", {a, firm})); }
    bool Cancelar_Movimiento_Bancos(const std::string& a) { return is("Cancelar_Movimiento_Bancos", {a}); }
    bool Cancelar_Recibo_Caja(const std::string& a) { return is("Cancelar_Recibo_Caja", {a}); }
    bool Cancelar_Recibo_Caja(const std::string& a, bool deposit) { return is("Cancelar_Recibo_Caja", {a, deposit}); }
    bool Cancelar_Recibo_Caja(const std::string& a, bool deposit, bool payments) {
        return is("Cancelar_Recibo_Caja", {a, deposit, payments});
    }
    bool Crear_Traspaso_Cuenta_Propia() { return is("Crear_Traspaso_Cuenta_Propia", {}); }
    bool Finalizar_Cheque(const std::string& a) { return is("Finalizar_Cheque", {a}); }
    tSchEncabezado SchEncabezado() const { return record<tSchEncabezado>("SchEncabezado"); }
    void SchEncabezado(const tSchEncabezado& value) { let("SchEncabezado", Record(value)); }
    tSchDetalle SchDetalle() const { return record<tSchDetalle>("SchDetalle"); }
    void SchDetalle(const tSchDetalle& value) { let("SchDetalle", Record(value)); }
    bool Add_Solicitud_Cheque() { return is("Add_Solicitud_Cheque", {}); }
    bool Add_Solicitud_Cheque_Detalle() { return is("Add_Solicitud_Cheque_Detalle", {}); }
    bool Autorizar_Solicitud_Cheque(const std::string& a) { return is("Autorizar_Solicitud_Cheque", {a}); }
    bool Cancelar_Solicitud_Cheque(const std::string& a) { return is("Cancelar_Solicitud_Cheque", {a}); }
    bool Afectar_Cheque_Presupuesto(const std::string& a, int kind) {
        return is("Afectar_Cheque_Presupuesto", {a, std::int32_t{kind}});
    }
    std::shared_ptr<clsRpDetalle> RpDetalle2() const;
    void RpDetalle2(std::shared_ptr<clsRpDetalle> value);

private:
    Variant call(std::string_view member, std::vector<Variant> arguments) { return call_with(member, arguments); }
    bool is(std::string_view member, std::vector<Variant> arguments) {
        return std::get<bool>(call_with(member, arguments));
    }
    /// Leaves by-reference arguments as the member left them. The public data member and the extras of the lines, which are
    /// plain memory here, are handed over before and taken back afterwards.
    Variant call_with(std::string_view member, std::vector<Variant>& arguments);
    Variant get(std::string_view member) const;
    void let(std::string_view member, Variant value);
    std::string text(std::string_view member) const { return std::get<std::string>(get(member)); }
    template <class R>
    R record(std::string_view member) const {
        return std::get<R>(std::get<Record>(get(member)));
    }
    void hand_over();
    void connect();
    void disconnect();
    Automation_object& object() const;

    Module& module_;
    Object object_;
    std::shared_ptr<clsRpDetalle> extras_;
    Object extras_object_;
};

}  // namespace door

using Tesoreria = door::Treasury;

}  // namespace cuvexa
