// The table of members against what callers were built against, written here a second time on purpose.
#include "automation/members.h"

#include <gmock/gmock.h>
#include <map>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/type_text.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using namespace automation;

/// As in "60030020 method GetSaldo(ref Bc_Cve_Banco_Cuenta String, opt ref SoloFirme Boolean) Double".
std::string signature(const Member& member) {
    char identifier[16];
    std::snprintf(identifier, sizeof identifier, "%08X ", static_cast<unsigned>(member.identifier));
    std::string text = identifier;
    if (member.data_member) text += "data ";
    text += member.kind == Member_kind::method ? "method " : member.kind == Member_kind::property_get ? "get " : "let ";
    text += member.name;
    text += "(";
    for (const Parameter& parameter : member.parameters) {
        if (&parameter != &member.parameters.front()) text += ", ";
        if (parameter.optional) text += "opt ";
        if (parameter.by_reference) text += "ref ";
        text += std::string(parameter.name) + " " + type_text(parameter.type);
    }
    return text + ") " + type_text(member.result);
}

std::vector<std::string> signatures(std::string_view class_name) {
    std::vector<std::string> all;
    for (const Member& member : find_class(class_name)->members) all.push_back(signature(member));
    return all;
}

TEST(Member_table, tesoreria_has_its_55_members_in_the_published_order) {
    const std::vector<std::string> published = {
        "4003000A data get FolioMovimiento() String",
        "4003000A data let FolioMovimiento(value String) none",
        "60030007 method Cancelar_Deposito(ref Dp_Folio String) Boolean",
        "68030006 get Error() String",
        "68030005 get Validar_Forma_Pago() Boolean",
        "68030005 let Validar_Forma_Pago(ref value Boolean) none",
        "68030004 get Dp_Folio() String",
        "6803003C let Ch_Banco_Destino(ref value String) none",
        "6803003C get Ch_Banco_Destino() String",
        "6003000A method NuevoReciboCaja() none",
        "6003000B method FinReciboCaja(ref Rp_Folio String) Boolean",
        "68030003 get RpEncabezado() tRpEncabezado",
        "68030003 let RpEncabezado(ref value tRpEncabezado) none",
        "68030002 get RpDetalle() tRpDetalle",
        "68030002 let RpDetalle(ref value tRpDetalle) none",
        "6003000C method Add_Recibo_Caja_Detalle() Boolean",
        "68030001 get Encabezado() tTsEncabezado",
        "68030001 let Encabezado(ref value tTsEncabezado) none",
        "68030000 get Detalle() tTsDetalle",
        "68030000 let Detalle(ref value tTsDetalle) none",
        "6003000E method Nuevo() none",
        "6003000F method Add_Cheque_Detalle() Boolean",
        "60030010 method Crear_Cheque_Pago_Proveedor(ref Ch_Folio String) Boolean",
        "60030011 method Crear_Cheque_Devolucion_Anticipo(ref Ch_Folio String) Boolean",
        "60030012 method Crear_Cheque_Anticipo_Cxp() Boolean",
        "60030013 method Crear_Cheque_Devolucion_Cliente() Boolean",
        "60030014 method Crear_Cheque_Gasto_x_Comprobar() Boolean",
        "60030028 method Crear_Cheque_Deudor() Boolean",
        "60030017 method Cancelar_Cheque(ref Ch_Folio String) Boolean",
        "60030018 method Aplicar_Cheque(ref Ch_Folio String, ref Fecha Date, opt ref Firme Boolean) Boolean",
        "60030019 method Registra_Movimiento_Bancario_Cheque(ref Ch_Folio String) Boolean",
        "6003001A method Registra_Movimiento_Banco(ref Datos tBnMovimiento) Boolean",
        "6003001B method Cancelar_Documento_Bancos(ref Bm_Tabla String, ref Bm_Documento String) Boolean",
        "6003001C method Cancelar_Aplicacion_Cheque(ref Ch_Folio String) Boolean",
        "6003001D method Crear_Cheque(Ch_Folio String) Boolean",
        "6003001E method Registrar_Deposito_Recibo_Caja(ref Rp_Folio String, ref Bc_Cve_Banco_Cuenta String) Boolean",
        "6003001F method Genera_Deposito(ref Bc_Cve_Banco_Cuenta String, ref Rp_Folio String, ref Dp_Fecha Date, "
        "ref Bm_Firme Boolean, ref Bm_Fecha_Firme Date, opt sComentario String) Boolean",
        "60030020 method GetSaldo(ref Bc_Cve_Banco_Cuenta String, opt ref SoloFirme Boolean) Double",
        "60030021 method PedirDatosDeposito(ref FechaDeposito Date, ref Moneda String, opt ref EnFirme Integer, "
        "opt ref Empresa String) String",
        "60030022 method Cancelar_Movimiento_Bancos(ref Bm_Folio String) Boolean",
        "60030023 method Cancelar_Recibo_Caja(ref Rp_Folio String, opt ref bCancelaDeposito Boolean, "
        "opt ref bCancelaPagos Boolean) Boolean",
        "60030024 method Crear_Traspaso_Cuenta_Propia() Boolean",
        "60030042 method Finalizar_Cheque(ref Ch_Folio String) Boolean",
        "6803002A get SchEncabezado() tSchEncabezado",
        "6803002A let SchEncabezado(ref value tSchEncabezado) none",
        "68030029 get SchDetalle() tSchDetalle",
        "68030029 let SchDetalle(ref value tSchDetalle) none",
        "60030030 method Add_Solicitud_Cheque() Boolean",
        "60030032 method Add_Solicitud_Cheque_Detalle() Boolean",
        "6003003A method Autorizar_Solicitud_Cheque(ref Folio String) Boolean",
        "6003003B method Cancelar_Solicitud_Cheque(ref Folio String) Boolean",
        "6003004C method Afectar_Cheque_Presupuesto(ref Ch_Folio String, ref Tipo Integer) Boolean",
        "60030059 method PedirDatosFormaPago(ref FormaPago String, opt ref Dcb_Tabla String, opt ref Dcb_Documento "
        "String, "
        "opt ref Banco String, opt ref Referencia String, opt ref Cuenta String, opt ref nBanco String, "
        "opt ref bSugerirCuenta Boolean) String",
        "6803004D get RpDetalle2() clsRpDetalle",
        "6803004D let RpDetalle2(ref value clsRpDetalle) none",
    };
    ASSERT_EQ(published.size(), 55u);
    EXPECT_THAT(signatures("Tesoreria"), testing::ElementsAreArray(published));
}

TEST(Member_table, the_receipt_line_extras_have_a_let_and_a_get_per_property_in_interface_order) {
    EXPECT_THAT(signatures("clsRpDetalle"),
                testing::ElementsAre(
                    "68030000 let Rp_Cve_Banco(ref value String) none", "68030000 get Rp_Cve_Banco() String",
                    "68030005 let Rp_Vendedor(ref value String) none", "68030005 get Rp_Vendedor() String",
                    "68030004 let Rp_Comisionista(ref value String) none", "68030004 get Rp_Comisionista() String",
                    "68030003 let Rp_Promotor(ref value String) none", "68030003 get Rp_Promotor() String",
                    "68030002 let Rp_Chofer(ref value String) none", "68030002 get Rp_Chofer() String",
                    "68030001 let Rp_Cobratario(ref value String) none", "68030001 get Rp_Cobratario() String"));
}

TEST(Member_table, the_classes_name_their_interfaces) {
    ASSERT_EQ(automation_classes().size(), 2u);
    EXPECT_EQ(automation_classes()[0].name, "Tesoreria");
    EXPECT_EQ(automation_classes()[0].interface_name, "_Tesoreria");
    EXPECT_EQ(automation_classes()[1].name, "clsRpDetalle");
    EXPECT_EQ(automation_classes()[1].interface_name, "_clsRpDetalle");
}

TEST(Member_table, a_class_is_found_without_regard_to_case) {
    EXPECT_EQ(find_class("TESORERIA"), &automation_classes()[0]);
    EXPECT_EQ(find_class("CLSrpdetalle"), &automation_classes()[1]);
    EXPECT_EQ(find_class("Tesorería"), nullptr);
    EXPECT_EQ(find_class(""), nullptr);
}

TEST(Member_table, two_members_carry_a_help_text) {
    std::map<std::string_view, std::string_view> texts;
    for (const Member& member : find_class("Tesoreria")->members) {
        if (!member.help.empty()) texts[member.name] = member.help;
    }
    EXPECT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts["PedirDatosFormaPago"], "Zerlonda - Tesoreria");
    EXPECT_THAT(texts["Genera_Deposito"], testing::HasSubstr("afecta saldo de bancos y cuentas bancarias"));
    EXPECT_THAT(texts["Genera_Deposito"], testing::HasSubstr("cambia el estado del recibo de caja"));
}

TEST(Member_table, the_two_dialogs_say_that_they_are_dialogs) {
    std::vector<std::string_view> dialogs;
    for (const Automation_class& type : automation_classes()) {
        for (const Member& member : type.members) {
            if (member.shows_dialog) dialogs.push_back(member.name);
        }
    }
    EXPECT_THAT(dialogs, testing::ElementsAre("PedirDatosDeposito", "PedirDatosFormaPago"));
}

TEST(Member_table, optional_parameters_are_worth_false_zero_or_the_empty_text) {
    const auto default_of = [](std::string_view name, std::size_t parameter) {
        for (const Member& member : find_class("Tesoreria")->members) {
            if (member.name == name) return member.parameters.at(parameter).default_value;
        }
        throw std::out_of_range("no such member");
    };
    EXPECT_EQ(default_of("Aplicar_Cheque", 2), Variant(false));
    EXPECT_EQ(default_of("Genera_Deposito", 5), Variant(std::string()));
    EXPECT_EQ(default_of("PedirDatosDeposito", 2), Variant(std::int16_t{0}));
    EXPECT_EQ(default_of("Genera_Deposito", 4), Variant()) << "not optional";
}

TEST(Member_table, every_row_is_bound_to_the_cpp_member_of_its_name) {
    std::ifstream file(tests::in_source("src/automation/members.cpp"));
    const std::string source{std::istreambuf_iterator<char>(file), {}};
    const std::regex row(R"re((?:method|get|let)\("(\w+)", 0x[0-9A-F]{8}, &[TD]::(\w+))re");
    int rows = 0;
    for (std::sregex_iterator found(source.begin(), source.end(), row), end; found != end; ++found, ++rows) {
        EXPECT_EQ((*found)[1], (*found)[2]);
    }
    EXPECT_EQ(rows, 55 + 12);
}

}  // namespace
}  // namespace cuvexa::tests
