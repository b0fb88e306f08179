#include "simulator/model_members.h"

#include <functional>
#include <map>
#include <type_traits>

#include "cuvexa/errors.h"

namespace cuvexa::simulator {
namespace {

using model::Treasury;
using Method = std::function<Variant(Treasury&, std::vector<Variant>&)>;

/// The argument as the method takes it.
template <class T>
T argument(std::vector<Variant>& arguments, std::size_t at) {
    using Plain = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<T, tBnMovimiento&>) {
        return std::get<tBnMovimiento>(std::get<Record>(arguments.at(at)));
    } else {
        static const Plain missing{};
        if (at >= arguments.size() || is_missing(arguments[at])) return missing;
        if constexpr (std::is_same_v<Plain, int>) {
            return static_cast<int>(std::get<double>(arguments[at]));
        } else {
            return std::get<Plain>(arguments[at]);
        }
    }
}

template <class Result, class... Arguments, std::size_t... At>
Method method(Result (Treasury::*member)(Arguments...), std::index_sequence<At...>) {
    return [member](Treasury& treasury, [[maybe_unused]] std::vector<Variant>& arguments) -> Variant {
        return (treasury.*member)(argument<Arguments>(arguments, At)...);
    };
}

template <class Result, class... Arguments>
Method method(Result (Treasury::*member)(Arguments...)) {
    return method(member, std::index_sequence_for<Arguments...>());
}

const std::map<std::string, Method>& methods() {
#define CUVEXA_METHOD(name) \
    { #name, method(&Treasury::name) }
    static const std::map<std::string, Method> all = {CUVEXA_METHOD(FinReciboCaja),
                                                      CUVEXA_METHOD(Add_Recibo_Caja_Detalle),
                                                      CUVEXA_METHOD(Cancelar_Recibo_Caja),
                                                      CUVEXA_METHOD(Add_Cheque_Detalle),
                                                      CUVEXA_METHOD(Crear_Cheque_Pago_Proveedor),
                                                      CUVEXA_METHOD(Crear_Cheque_Devolucion_Anticipo),
                                                      CUVEXA_METHOD(Crear_Cheque_Anticipo_Cxp),
                                                      CUVEXA_METHOD(Crear_Cheque_Devolucion_Cliente),
                                                      CUVEXA_METHOD(Crear_Cheque_Gasto_x_Comprobar),
                                                      CUVEXA_METHOD(Crear_Cheque_Deudor),
                                                      CUVEXA_METHOD(Crear_Traspaso_Cuenta_Propia),
                                                      CUVEXA_METHOD(Crear_Cheque),
                                                      CUVEXA_METHOD(Aplicar_Cheque),
                                                      CUVEXA_METHOD(Finalizar_Cheque),
                                                      CUVEXA_METHOD(Cancelar_Aplicacion_Cheque),
                                                      CUVEXA_METHOD(Cancelar_Cheque),
                                                      CUVEXA_METHOD(Registra_Movimiento_Banco),
                                                      CUVEXA_METHOD(Registra_Movimiento_Bancario_Cheque),
                                                      CUVEXA_METHOD(Cancelar_Movimiento_Bancos),
                                                      CUVEXA_METHOD(Cancelar_Documento_Bancos),
                                                      CUVEXA_METHOD(GetSaldo),
                                                      CUVEXA_METHOD(Genera_Deposito),
                                                      CUVEXA_METHOD(Cancelar_Deposito),
                                                      CUVEXA_METHOD(Registrar_Deposito_Recibo_Caja),
                                                      CUVEXA_METHOD(Add_Solicitud_Cheque),
                                                      CUVEXA_METHOD(Add_Solicitud_Cheque_Detalle),
                                                      CUVEXA_METHOD(Autorizar_Solicitud_Cheque),
                                                      CUVEXA_METHOD(Cancelar_Solicitud_Cheque),
                                                      CUVEXA_METHOD(Afectar_Cheque_Presupuesto)};
#undef CUVEXA_METHOD
    return all;
}

}  // namespace

Variant call(Treasury& treasury, const std::string& member, std::vector<Variant>& arguments, Date local_today) {
    if (member == "NuevoReciboCaja") return treasury.NuevoReciboCaja(local_today), Variant();
    if (member == "Nuevo") return treasury.Nuevo(), Variant();
    return methods().at(member)(treasury, arguments);
}

Variant get(const Treasury& treasury, const std::string& member) {
    static const std::map<std::string, std::function<Variant(const Treasury&)>> properties = {
        {"FolioMovimiento", [](const Treasury& t) { return t.FolioMovimiento; }},
        {"Error", [](const Treasury& t) { return t.Error; }},
        {"Validar_Forma_Pago", [](const Treasury& t) { return t.Validar_Forma_Pago; }},
        {"Dp_Folio", [](const Treasury& t) { return t.Dp_Folio; }},
        {"Ch_Banco_Destino", [](const Treasury& t) { return t.Ch_Banco_Destino; }},
        {"RpEncabezado", [](const Treasury& t) { return Record(t.RpEncabezado); }},
        {"RpDetalle", [](const Treasury& t) { return Record(t.RpDetalle); }},
        {"Encabezado", [](const Treasury& t) { return Record(t.Encabezado); }},
        {"Detalle", [](const Treasury& t) { return Record(t.Detalle); }},
        {"SchEncabezado", [](const Treasury& t) { return Record(t.SchEncabezado); }},
        {"SchDetalle", [](const Treasury& t) { return Record(t.SchDetalle); }},
        {"RpDetalle2", [](const Treasury&) -> Variant {
             throw Automation_error(error_object_not_set, "Variable de objeto o bloque With no establecido");
         }}};
    return properties.at(member)(treasury);
}

void let(Treasury& treasury, const std::string& member, const Variant& value) {
    const auto record = [&]<class R>(std::type_identity<R>) -> const R& {
        return std::get<R>(std::get<Record>(value));
    };
    if (member == "FolioMovimiento") treasury.FolioMovimiento = std::get<std::string>(value);
    if (member == "Validar_Forma_Pago") treasury.Validar_Forma_Pago = std::get<bool>(value);
    if (member == "Ch_Banco_Destino") treasury.Ch_Banco_Destino = std::get<std::string>(value);
    if (member == "RpEncabezado") treasury.let_RpEncabezado(record(std::type_identity<tRpEncabezado>()));
    if (member == "RpDetalle") treasury.RpDetalle = record(std::type_identity<tRpDetalle>());
    if (member == "Encabezado") treasury.let_Encabezado(record(std::type_identity<tTsEncabezado>()));
    if (member == "Detalle") treasury.Detalle = record(std::type_identity<tTsDetalle>());
    if (member == "SchEncabezado") treasury.let_SchEncabezado(record(std::type_identity<tSchEncabezado>()));
    if (member == "SchDetalle") treasury.SchDetalle = record(std::type_identity<tSchDetalle>());
}

}  // namespace cuvexa::simulator
