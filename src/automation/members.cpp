#include "automation/members.h"

#include <array>
#include <cstddef>
#include <string>
#include <type_traits>

#include "core/case.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa::automation {
namespace {

// ---- Between variants of a parameter's exact type and C++ values ---------------------------------------------------

template <class T>
struct Native {
    static T& from(Variant& value) {
        if constexpr (is_record<T>) {
            return std::get<T>(std::get<Record>(value));
        } else {
            return std::get<T>(value);
        }
    }
    static Variant to(T&& value) {
        if constexpr (is_record<T>) {
            return Record(std::move(value));
        } else {
            return Variant(std::in_place_type<T>, std::move(value));
        }
    }
};

template <>
struct Native<int> {
    static int from(Variant& value) { return std::get<std::int16_t>(value); }
};

template <class C>
struct Native<std::shared_ptr<C>> {
    static std::shared_ptr<C> from(Variant& value) {
        const Object& object = std::get<Object>(value);
        return object ? static_cast<Automation_object_of<C>&>(*object).instance() : nullptr;
    }
    static Variant to(std::shared_ptr<C>&& value) {
        return value ? Object(std::make_shared<Automation_object_of<C>>(std::move(value))) : Object();
    }
};

template <class C>
C& instance_of(Automation_object& object) {
    return *static_cast<Automation_object_of<C>&>(object).instance();
}

Variant empty_value(const Value_type& type) {
    switch (type.type) {
        case Type::none:
            return {};
        case Type::boolean:
            return false;
        case Type::integer16:
            return std::int16_t{0};
        case Type::real:
            return 0.0;
        case Type::text:
            return std::string();
        case Type::date:
            return Date{};
        case Type::record:
            return type.record->create();
        case Type::object:
            return Object();
    }
    return {};
}

// ---- What a row of the table says beyond the C++ declaration -------------------------------------------------------

struct Named_parameter {
    std::string_view name;
    bool by_reference;
    bool optional;
};

constexpr Named_parameter ref(std::string_view name) {
    return {name, true, false};
}
constexpr Named_parameter val(std::string_view name) {
    return {name, false, false};
}
constexpr Named_parameter opt_ref(std::string_view name) {
    return {name, true, true};
}
constexpr Named_parameter opt_val(std::string_view name) {
    return {name, false, true};
}

template <class T>
Parameter parameter(const Named_parameter& named) {
    constexpr Value_type type = value_type<T>();
    return {named.name, type, named.by_reference, named.optional, named.optional ? empty_value(type) : Variant()};
}

// ---- The rows; types and binding come from the C++ member ----------------------------------------------------------

template <class C, class R, class... A, std::size_t... at>
Variant run(R (C::*function)(A...), Automation_object& object, std::span<Variant> arguments,
            std::index_sequence<at...>) {
    auto call = [&]() -> R {
        return (instance_of<C>(object).*function)(Native<std::decay_t<A>>::from(arguments[at])...);
    };
    if constexpr (std::is_void_v<R>) {
        call();
        return {};
    } else {
        return Native<R>::to(call());
    }
}

template <class C, class R, class... A>
Member method(std::string_view name, std::int32_t identifier, R (C::*function)(A...),
              const std::type_identity_t<Named_parameter> (&named)[sizeof...(A)]) {
    std::size_t at = 0;
    return {.name = name,
            .identifier = identifier,
            .parameters = {parameter<std::decay_t<A>>(named[at++])...},
            .result = value_type<R>(),
            .run = [function](Automation_object& object, std::span<Variant> arguments) {
                return run(function, object, arguments, std::index_sequence_for<A...>());
            }};
}

template <class C, class R>
Member method(std::string_view name, std::int32_t identifier, R (C::*function)()) {
    return {.name = name,
            .identifier = identifier,
            .parameters = {},
            .result = value_type<R>(),
            .run = [function](Automation_object& object, std::span<Variant> arguments) {
                return run(function, object, arguments, std::index_sequence<>());
            }};
}

template <class C, class V>
Member get(std::string_view name, std::int32_t identifier, V (C::*function)() const) {
    return {.name = name,
            .identifier = identifier,
            .kind = Member_kind::property_get,
            .parameters = {},
            .result = value_type<V>(),
            .run = [function](Automation_object& object, std::span<Variant>) {
                return Native<V>::to((instance_of<C>(object).*function)());
            }};
}

template <class C, class A>
Member let(std::string_view name, std::int32_t identifier, void (C::*function)(A)) {
    return {.name = name,
            .identifier = identifier,
            .kind = Member_kind::property_let,
            .parameters = {parameter<std::decay_t<A>>(ref("value"))},
            .result = {},
            .run = [function](Automation_object& object, std::span<Variant> arguments) {
                return run(function, object, arguments, std::index_sequence<0>());
            }};
}

template <class C, class V>
requires std::is_object_v<V> Member get(std::string_view name, std::int32_t identifier, V C::*field) {
    return {.name = name,
            .identifier = identifier,
            .kind = Member_kind::property_get,
            .parameters = {},
            .result = value_type<V>(),
            .run = [field](Automation_object& object, std::span<Variant>) {
                return Native<V>::to(V(instance_of<C>(object).*field));
            }};
}

template <class C, class V>
requires std::is_object_v<V> Member let(std::string_view name, std::int32_t identifier, V C::*field,
                                        Named_parameter value = ref("value")) {
    return {.name = name,
            .identifier = identifier,
            .kind = Member_kind::property_let,
            .parameters = {parameter<V>(value)},
            .result = {},
            .run = [field](Automation_object& object, std::span<Variant> arguments) {
                instance_of<C>(object).*field = Native<V>::from(arguments[0]);
                return Variant();
            }};
}

Member data(Member member) {
    member.data_member = true;
    return member;
}

Member dialog(Member member) {
    member.shows_dialog = true;
    return member;
}

template <class C>
Member trapped(Member member, void (C::*mismatched)()) {
    member.mismatched = [mismatched](Automation_object& object) { (instance_of<C>(object).*mismatched)(); };
    return member;
}

Member helped(Member member, std::string_view help) {
    member.help = help;
    return member;
}

// ---- The table -----------------------------------------------------------------------------------------------------

std::vector<Member> members_of_tesoreria() {
    using T = Tesoreria;
    return {
        data(get("FolioMovimiento", 0x4003000A, &T::FolioMovimiento)),
        data(let("FolioMovimiento", 0x4003000A, &T::FolioMovimiento, val("value"))),
        method("Cancelar_Deposito", 0x60030007, &T::Cancelar_Deposito, {ref("Dp_Folio")}),
        get("Error", 0x68030006, &T::Error),
        get("Validar_Forma_Pago", 0x68030005, &T::Validar_Forma_Pago),
        let("Validar_Forma_Pago", 0x68030005, &T::Validar_Forma_Pago),
        get("Dp_Folio", 0x68030004, &T::Dp_Folio),
        let("Ch_Banco_Destino", 0x6803003C, &T::Ch_Banco_Destino),
        get("Ch_Banco_Destino", 0x6803003C, &T::Ch_Banco_Destino),
        method("NuevoReciboCaja", 0x6003000A, &T::NuevoReciboCaja),
        method("FinReciboCaja", 0x6003000B, &T::FinReciboCaja, {ref("Rp_Folio")}),
        get("RpEncabezado", 0x68030003, &T::RpEncabezado),
        let("RpEncabezado", 0x68030003, &T::RpEncabezado),
        get("RpDetalle", 0x68030002, &T::RpDetalle),
        let("RpDetalle", 0x68030002, &T::RpDetalle),
        method("Add_Recibo_Caja_Detalle", 0x6003000C, &T::Add_Recibo_Caja_Detalle),
        get("Encabezado", 0x68030001, &T::Encabezado),
        let("Encabezado", 0x68030001, &T::Encabezado),
        get("Detalle", 0x68030000, &T::Detalle),
        let("Detalle", 0x68030000, &T::Detalle),
        method("Nuevo", 0x6003000E, &T::Nuevo),
        method("Add_Cheque_Detalle", 0x6003000F, &T::Add_Cheque_Detalle),
        method("Crear_Cheque_Pago_Proveedor", 0x60030010, &T::Crear_Cheque_Pago_Proveedor, {ref("Ch_Folio")}),
        method("Crear_Cheque_Devolucion_Anticipo", 0x60030011, &T::Crear_Cheque_Devolucion_Anticipo, {ref("Ch_Folio")}),
        method("Crear_Cheque_Anticipo_Cxp", 0x60030012, &T::Crear_Cheque_Anticipo_Cxp),
        method("Crear_Cheque_Devolucion_Cliente", 0x60030013, &T::Crear_Cheque_Devolucion_Cliente),
        method("Crear_Cheque_Gasto_x_Comprobar", 0x60030014, &T::Crear_Cheque_Gasto_x_Comprobar),
        method("Crear_Cheque_Deudor", 0x60030028, &T::Crear_Cheque_Deudor),
        method("Cancelar_Cheque", 0x60030017, &T::Cancelar_Cheque, {ref("Ch_Folio")}),
        method("Aplicar_Cheque", 0x60030018, &T::Aplicar_Cheque, {ref("Ch_Folio"), ref("Fecha"), opt_ref("Firme")}),
        method("Registra_Movimiento_Bancario_Cheque", 0x60030019, &T::Registra_Movimiento_Bancario_Cheque,
               {ref("Ch_Folio")}),
        method("Registra_Movimiento_Banco", 0x6003001A, &T::Registra_Movimiento_Banco, {ref("Datos")}),
        method("Cancelar_Documento_Bancos", 0x6003001B, &T::Cancelar_Documento_Bancos,
               {ref("Bm_Tabla"), ref("Bm_Documento")}),
        method("Cancelar_Aplicacion_Cheque", 0x6003001C, &T::Cancelar_Aplicacion_Cheque, {ref("Ch_Folio")}),
        method("Crear_Cheque", 0x6003001D, &T::Crear_Cheque, {val("Ch_Folio")}),
        method("Registrar_Deposito_Recibo_Caja", 0x6003001E, &T::Registrar_Deposito_Recibo_Caja,
               {ref("Rp_Folio"), ref("Bc_Cve_Banco_Cuenta")}),
        helped(
            method("Genera_Deposito", 0x6003001F, &T::Genera_Deposito,
                   {ref("Bc_Cve_Banco_Cuenta"), ref("Rp_Folio"), ref("Dp_Fecha"), ref("Bm_Firme"),
                    ref("Bm_Fecha_Firme"), opt_val("sComentario")}),
            "Genera el depósito de los recibos de caja: afecta saldo de bancos y cuentas bancarias, cambia el estado "
            "del recibo de caja"),
        method("GetSaldo", 0x60030020, &T::GetSaldo, {ref("Bc_Cve_Banco_Cuenta"), opt_ref("SoloFirme")}),
        dialog(method("PedirDatosDeposito", 0x60030021, &T::PedirDatosDeposito,
                      {ref("FechaDeposito"), ref("Moneda"), opt_ref("EnFirme"), opt_ref("Empresa")})),
        method("Cancelar_Movimiento_Bancos", 0x60030022, &T::Cancelar_Movimiento_Bancos, {ref("Bm_Folio")}),
        method("Cancelar_Recibo_Caja", 0x60030023, &T::Cancelar_Recibo_Caja,
               {ref("Rp_Folio"), opt_ref("bCancelaDeposito"), opt_ref("bCancelaPagos")}),
        method("Crear_Traspaso_Cuenta_Propia", 0x60030024, &T::Crear_Traspaso_Cuenta_Propia),
        method("Finalizar_Cheque", 0x60030042, &T::Finalizar_Cheque, {ref("Ch_Folio")}),
        get("SchEncabezado", 0x6803002A, &T::SchEncabezado),
        let("SchEncabezado", 0x6803002A, &T::SchEncabezado),
        get("SchDetalle", 0x68030029, &T::SchDetalle),
        let("SchDetalle", 0x68030029, &T::SchDetalle),
        method("Add_Solicitud_Cheque", 0x60030030, &T::Add_Solicitud_Cheque),
        method("Add_Solicitud_Cheque_Detalle", 0x60030032, &T::Add_Solicitud_Cheque_Detalle),
        method("Autorizar_Solicitud_Cheque", 0x6003003A, &T::Autorizar_Solicitud_Cheque, {ref("Folio")}),
        method("Cancelar_Solicitud_Cheque", 0x6003003B, &T::Cancelar_Solicitud_Cheque, {ref("Folio")}),
        method("Afectar_Cheque_Presupuesto", 0x6003004C, &T::Afectar_Cheque_Presupuesto,
               {ref("Ch_Folio"), ref("Tipo")}),
        helped(dialog(method("PedirDatosFormaPago", 0x60030059, &T::PedirDatosFormaPago,
                             {ref("FormaPago"), opt_ref("Dcb_Tabla"), opt_ref("Dcb_Documento"), opt_ref("Banco"),
                              opt_ref("Referencia"), opt_ref("Cuenta"), opt_ref("nBanco"), opt_ref("bSugerirCuenta")})),
               "Zerlonda - Tesoreria"),
        get("RpDetalle2", 0x6803004D, &T::RpDetalle2),
        trapped(let("RpDetalle2", 0x6803004D, &T::RpDetalle2), &T::RpDetalle2_mismatch),
    };
}

std::vector<Member> members_of_receipt_line_extras() {
    using D = clsRpDetalle;
    return {
        let("Rp_Cve_Banco", 0x68030000, &D::Rp_Cve_Banco),
        get("Rp_Cve_Banco", 0x68030000, &D::Rp_Cve_Banco),
        let("Rp_Vendedor", 0x68030005, &D::Rp_Vendedor),
        get("Rp_Vendedor", 0x68030005, &D::Rp_Vendedor),
        let("Rp_Comisionista", 0x68030004, &D::Rp_Comisionista),
        get("Rp_Comisionista", 0x68030004, &D::Rp_Comisionista),
        let("Rp_Promotor", 0x68030003, &D::Rp_Promotor),
        get("Rp_Promotor", 0x68030003, &D::Rp_Promotor),
        let("Rp_Chofer", 0x68030002, &D::Rp_Chofer),
        get("Rp_Chofer", 0x68030002, &D::Rp_Chofer),
        let("Rp_Cobratario", 0x68030001, &D::Rp_Cobratario),
        get("Rp_Cobratario", 0x68030001, &D::Rp_Cobratario),
    };
}

}  // namespace

std::span<const Automation_class> automation_classes() {
    static const std::array<Automation_class, 2> classes = {{
        {"Tesoreria", "_Tesoreria", members_of_tesoreria(),
         [](Module& module) -> Object {
             return std::make_shared<Automation_object_of<Tesoreria>>(std::make_shared<Tesoreria>(module));
         }},
        {"clsRpDetalle", "_clsRpDetalle", members_of_receipt_line_extras(),
         [](Module&) -> Object {
             return std::make_shared<Automation_object_of<clsRpDetalle>>(std::make_shared<clsRpDetalle>());
         }},
    }};
    return classes;
}

const Automation_class* find_class(std::string_view name) {
    for (const Automation_class& type : automation_classes()) {
        if (same_text(type.name, name)) return &type;
    }
    return nullptr;
}

template <>
const Automation_class& Automation_object_of<Tesoreria>::type() const {
    return automation_classes()[0];
}

template <>
const Automation_class& Automation_object_of<clsRpDetalle>::type() const {
    return automation_classes()[1];
}

}  // namespace cuvexa::automation
