// The records against what callers were built against, written here a second time on purpose.
#include "automation/record_table.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <string>
#include <vector>

#include "automation/type_text.h"

namespace cuvexa::tests {
namespace {

using namespace automation;

std::vector<std::string> fields_of(std::string_view name) {
    std::vector<std::string> fields;
    for (const Record_type& type : record_types) {
        if (type.name != name) continue;
        for (const Field& field : type.fields) fields.push_back(std::string(field.name) + " " + type_text(field.type));
    }
    return fields;
}

using testing::ElementsAre;

TEST(Record_table, lists_the_records_in_the_published_order) {
    std::vector<std::string> names;
    for (const Record_type& type : record_types) names.emplace_back(type.name);
    EXPECT_THAT(names, ElementsAre("tTsEncabezado", "tTsDetalle", "tRpEncabezado", "tTrpTipoReciboPago", "tRpDetalle",
                                   "tFormaPago", "tSchEncabezado", "tSchDetalle", "tBnMovimiento", "tCuenta",
                                   "tTsSucursal", "tTsProveedor", "tVnVendedor", "tSucursalGeneral", "tUserDef"));
}

TEST(Record_table, check_header_and_line) {
    EXPECT_THAT(fields_of("tTsEncabezado"),
                ElementsAre("Ch_Folio String", "Ch_Fecha Date", "Tc_Cve_Tipo_Cheque String", "Ch_Transferencia String",
                            "Ch_Tabla String", "Ch_Documento String", "Ch_Referencia String", "Ch_Concepto String",
                            "Ch_Beneficiario String", "Bc_Cve_Banco_Cuenta String", "Bc_Cve_Banco_Cuenta2 String",
                            "Mn_Cve_Moneda String", "Ch_Tipo_Cambio Double", "Mn_Cve_Moneda_2 String",
                            "Ch_Tipo_Cambio_2 Double", "Ch_Solicitar_Valor String", "Sucursal tSucursalGeneral"));
    EXPECT_THAT(fields_of("tTsDetalle"),
                ElementsAre("Ch_ID String", "Ch_Concepto String", "Cxp_Folio String", "Mn_Cve_Moneda String",
                            "Ch_Tipo_Cambio Double", "Ch_Importe Double"));
}

TEST(Record_table, receipt_header_type_line_and_payment_method) {
    EXPECT_THAT(
        fields_of("tRpEncabezado"),
        ElementsAre("Rp_Folio String", "Rp_Fecha Date", "TipoReciboPago tTrpTipoReciboPago",
                    "Sucursal tSucursalGeneral", "Rp_Solicitar_Valor String", "Rp_Tabla String", "Rp_Documento String",
                    "Rp_Referencia String", "Rp_Comentario String", "Mn_Cve_Moneda String", "Rp_Tipo_Cambio Double",
                    "Rp_Fecha_Deposito Date", "Rp_Folio_Deposito String", "Rp_Deposito_ID String"));
    EXPECT_THAT(fields_of("tTrpTipoReciboPago"),
                ElementsAre("Trp_Cve_Tipo_Recibo_Pago String", "Trp_Descripcion String", "Trp_Solicitar_Fecha Boolean",
                            "Trp_Solicitar_Vendedor Boolean"));
    EXPECT_THAT(fields_of("tRpDetalle"),
                ElementsAre("Rp_ID String", "Fp_Cve_Forma_Pago tFormaPago", "Rp_Banco String", "Rp_Cheque String",
                            "Rp_Cuenta_Bancaria String", "Rp_Importe Double"));
    EXPECT_THAT(fields_of("tFormaPago"),
                ElementsAre("Fp_Cve_Forma_Pago String", "Fp_Descripcion String", "Fp_Cuenta_Contable String"));
}

TEST(Record_table, check_request_header_and_line) {
    EXPECT_THAT(
        fields_of("tSchEncabezado"),
        ElementsAre("Sch_Folio String", "Sch_Fecha Date", "Tc_Cve_Tipo_Cheque String", "Bc_Cve_Banco_Cuenta String",
                    "Sucursal tSucursalGeneral", "Sch_Concepto String", "Sch_Beneficiario String", "Sch_Tabla String",
                    "Sch_Documento String", "Sch_Referencia String", "Sch_Importe Double", "Mn_Cve_Moneda String",
                    "Sch_Tipo_Cambio Double", "Sch_Transferencia String", "Sch_Aplicar String", "Sch_Firme String",
                    "Sch_Solicitar_Valor String"));
    EXPECT_THAT(fields_of("tSchDetalle"),
                ElementsAre("Sch_Folio String", "Scd_Id String", "Scd_Tabla String", "Scd_Documento String",
                            "Scd_Importe Double", "Mn_Cve_Moneda String", "Scd_Tipo_Cambio Double"));
}

TEST(Record_table, bank_movement_and_account) {
    EXPECT_THAT(fields_of("tBnMovimiento"),
                ElementsAre("Bm_Folio String", "Bt_Cve_Banco_Tipo_Movimiento String", "Bm_Fecha Date",
                            "Bm_Fecha_Firme Date", "Bm_Tabla String", "Bm_Documento String", "Bm_Referencia String",
                            "Bm_Comentario String", "Cuenta tCuenta", "Bm_Importe Double", "Bm_Tipo_Cambio Double",
                            "EnFirme Boolean", "Bm_Documento_ID String"));
    EXPECT_THAT(fields_of("tCuenta"), ElementsAre("Bc_Cve_Banco_Cuenta String", "Bc_Cuenta_Contable String",
                                                  "Bn_Cve_Banco String", "Mn_Cve_Moneda String"));
}

TEST(Record_table, records_that_are_published_and_taken_by_no_member) {
    EXPECT_THAT(fields_of("tTsSucursal"), ElementsAre("Sc_Cve_Sucursal String", "Sc_Centro_Costo String",
                                                      "Sc_Cuenta_Contable String", "UserDef tUserDef"));
    EXPECT_THAT(fields_of("tTsProveedor"),
                ElementsAre("Pv_Cve_Proveedor String", "Pv_Cuenta_Contable String", "UserDef tUserDef"));
    EXPECT_THAT(fields_of("tVnVendedor"),
                ElementsAre("Vn_Cve_Vendedor String", "Vn_Centro_Costo String", "Vn_Cuenta_Contable String"));
}

TEST(Record_table, the_branch_is_thirteen_members_of_which_the_first_is_the_key) {
    const auto fields = fields_of("tSucursalGeneral");
    ASSERT_EQ(fields.size(), 13u);
    EXPECT_EQ(fields.front(), "Sc_Cve_Sucursal String");
    EXPECT_THAT(fields, testing::Each(testing::EndsWith(" String")));
}

std::size_t size_of(const Value_type& type) {
    switch (type.type) {
        case Type::boolean:
            return sizeof(bool);
        case Type::real:
            return sizeof(double);
        case Type::text:
            return sizeof(std::string);
        case Type::date:
            return sizeof(Date);
        case Type::record: {
            Record empty = type.record->create();
            return std::visit([](auto& record) { return sizeof record; }, empty);
        }
        default:
            return 0;
    }
}

const std::byte* address(const Place& place) {
    return std::visit(
        [](auto at) -> const std::byte* {
            if constexpr (std::is_same_v<decltype(at), Record_place>) {
                return static_cast<const std::byte*>(at.record);
            } else {
                return reinterpret_cast<const std::byte*>(at);
            }
        },
        place);
}

// No member of a struct can be missing from the table or stand out of order: each field begins where the one before
// ends, but for alignment, and the last ends with the struct.
TEST(Record_table, the_fields_cover_every_struct_from_its_first_byte_to_its_last) {
    constexpr std::size_t alignment = alignof(double);
    for (const Record_type& type : record_types) {
        Record record = type.create();
        const Record_place whole = place_of(record);
        EXPECT_EQ(whole.type, &type) << type.name;
        const auto* start = static_cast<const std::byte*>(whole.record);
        std::size_t end = 0;
        for (const Field& field : type.fields) {
            const auto offset = static_cast<std::size_t>(address(field.place(whole.record)) - start);
            EXPECT_GE(offset, end) << type.name << "." << field.name;
            EXPECT_LT(offset - end, alignment) << type.name << "." << field.name;
            end = offset + size_of(field.type);
        }
        EXPECT_LT(size_of({Type::record, &type}) - end, alignment) << type.name;
    }
}

TEST(Record_table, a_field_is_reached_by_its_place) {
    Record record = tBnMovimiento{};
    auto& movement = std::get<tBnMovimiento>(record);
    const Record_place place = place_of(record);
    const auto at = [&](std::size_t field) { return place.type->fields[field].place(place.record); };
    *std::get<std::string*>(at(0)) = "F1";
    std::get<Date*>(at(2))->days = 45000;
    *std::get<double*>(at(9)) = 12.5;
    *std::get<bool*>(at(11)) = true;
    const auto account = std::get<Record_place>(at(8));
    ASSERT_EQ(account.type->name, "tCuenta");
    *std::get<std::string*>(account.type->fields[3].place(account.record)) = "MXN";

    EXPECT_EQ(movement.Bm_Folio, "F1");
    EXPECT_EQ(movement.Bm_Fecha.days, 45000);
    EXPECT_EQ(movement.Bm_Importe, 12.5);
    EXPECT_TRUE(movement.EnFirme);
    EXPECT_EQ(movement.Cuenta.Mn_Cve_Moneda, "MXN");
}

}  // namespace
}  // namespace cuvexa::tests
