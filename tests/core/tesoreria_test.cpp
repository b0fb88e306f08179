// The members that belong to no subsystem: the check's header and line, Nuevo, plain properties, what is not supported.
#include "cuvexa/tesoreria.h"

#include "support/company.h"

namespace cuvexa::tests {
namespace {

const std::string not_supported = "Esta operación no está soportada por la versión del sistema";

tTsEncabezado full_header() {
    tTsEncabezado header = Company::check_header();
    header.Ch_Folio = "DEL-CLIENTE";
    header.Ch_Transferencia = "SI";
    header.Ch_Tabla = "SOLICITUD_CHEQUE";
    header.Ch_Documento = "SC-1";
    header.Bc_Cve_Banco_Cuenta2 = "PTO-MXN";
    header.Ch_Tipo_Cambio = 19.5;
    header.Mn_Cve_Moneda_2 = "USD";
    header.Ch_Tipo_Cambio_2 = 20;
    header.Sucursal.Sc_Descripcion = "Monterrey";
    header.Sucursal.Em_Cve_Empresa = "EM01";
    return header;
}

/// What a let of `header` leaves in an empty instance.
tTsEncabezado as_copied(tTsEncabezado header) {
    header.Ch_Folio = "";
    header.Mn_Cve_Moneda_2 = "";
    header.Ch_Tipo_Cambio_2 = 0;
    const std::string branch = header.Sucursal.Sc_Cve_Sucursal;
    header.Sucursal = {};
    header.Sucursal.Sc_Cve_Sucursal = branch;
    return header;
}

class Treasury : public ::testing::Test {
protected:
    Tesoreria& treasury() { return company.treasury(); }
    Company company;
};

TEST_F(Treasury, starts_empty) {
    EXPECT_EQ(treasury().Encabezado(), tTsEncabezado{});
    EXPECT_EQ(treasury().Detalle(), tTsDetalle{});
    EXPECT_EQ(treasury().RpEncabezado(), tRpEncabezado{});
    EXPECT_EQ(treasury().RpDetalle(), tRpDetalle{});
    EXPECT_EQ(treasury().SchEncabezado(), tSchEncabezado{});
    EXPECT_EQ(treasury().SchDetalle(), tSchDetalle{});
    EXPECT_EQ(treasury().Error() + treasury().Dp_Folio() + treasury().Ch_Banco_Destino() + treasury().FolioMovimiento,
              "");
    EXPECT_FALSE(treasury().Validar_Forma_Pago());
}

TEST_F(Treasury, a_check_header_let_copies_all_but_the_folio_the_second_currency_and_the_rest_of_the_branch) {
    treasury().Encabezado(full_header());
    EXPECT_EQ(treasury().Encabezado(), as_copied(full_header()));
}

TEST_F(Treasury, a_check_header_let_replaces_what_it_copies) {
    treasury().Encabezado(full_header());
    treasury().Encabezado({});
    EXPECT_EQ(treasury().Encabezado(), tTsEncabezado{});
}

TEST_F(Treasury, once_the_check_has_a_folio_a_header_let_is_ignored_without_a_word) {
    treasury().Encabezado(Company::check_header());
    treasury().Detalle(Company::check_line(10));
    ASSERT_TRUE(treasury().Add_Cheque_Detalle()) << treasury().Error();
    const tTsEncabezado before = treasury().Encabezado();
    ASSERT_NE(before.Ch_Folio, "");
    company.mark();
    treasury().Encabezado(full_header());
    EXPECT_EQ(treasury().Encabezado(), before);
    EXPECT_EQ(treasury().Error(), "");
    EXPECT_THAT(company.on.reports_in_full, IsEmpty());
}

TEST_F(Treasury, a_check_line_let_copies_everything_and_what_is_got_is_a_copy) {
    const tTsDetalle line{"0007", "Factura", "CXP-1", "USD", 19.5, 100};
    treasury().Detalle(line);
    EXPECT_EQ(treasury().Detalle(), line);
    tTsDetalle got_line = treasury().Detalle();
    got_line.Ch_Importe = 5;
    treasury().Encabezado(full_header());
    tTsEncabezado got_header = treasury().Encabezado();
    got_header.Ch_Concepto = "otro";
    EXPECT_EQ(treasury().Detalle(), line);
    EXPECT_EQ(treasury().Encabezado().Ch_Concepto, "Pago de facturas");
}

TEST_F(Treasury, a_new_check_clears_the_header_but_for_what_stays_on_purpose) {
    treasury().Encabezado(full_header());
    treasury().Detalle(Company::check_line(10));
    treasury().Nuevo();
    tTsEncabezado expected;
    expected.Ch_Fecha = Company::now();
    expected.Bc_Cve_Banco_Cuenta2 = "PTO-MXN";
    expected.Sucursal.Sc_Cve_Sucursal = "MTY";
    EXPECT_EQ(treasury().Encabezado(), expected);
    EXPECT_EQ(treasury().Detalle(), Company::check_line(10));
}

TEST_F(Treasury, a_new_check_opens_the_header_for_letting_again) {
    company.capture_check({Company::check_line(10)});
    ASSERT_NE(treasury().Encabezado().Ch_Folio, "");
    treasury().Nuevo();
    treasury().Encabezado(full_header());
    EXPECT_EQ(treasury().Encabezado(), as_copied(full_header()));
}

TEST_F(Treasury, a_new_check_takes_the_server_s_date_and_lets_its_failure_through) {
    company.on.server_date = make_date(2025, 1, 2, 3, 4, 5);
    treasury().Nuevo();
    EXPECT_EQ(treasury().Encabezado().Ch_Fecha, make_date(2025, 1, 2, 3, 4, 5));
    company.on.fail("GetServerDate", "sin reloj");
    EXPECT_THROW(treasury().Nuevo(), std::runtime_error);
}

TEST_F(Treasury, a_new_check_restarts_the_line_counter_of_a_receipt_in_capture) {
    company.capture_receipt({Company::receipt_line(1), Company::receipt_line(2)});
    treasury().Nuevo();
    EXPECT_FALSE(treasury().Add_Recibo_Caja_Detalle()) << "line 0001 is there already";
    EXPECT_EQ(treasury().RpDetalle().Rp_ID, "0001");
}

TEST_F(Treasury, a_new_receipt_restarts_the_line_counter_of_a_check_in_capture) {
    company.capture_check({Company::check_line(1), Company::check_line(2)});
    treasury().NuevoReciboCaja();
    treasury().Detalle(Company::check_line(3));
    treasury().Add_Cheque_Detalle();
    EXPECT_EQ(treasury().Detalle().Ch_ID, "0001");
}

TEST_F(Treasury, plain_properties_give_back_what_they_were_given) {
    treasury().Validar_Forma_Pago(true);
    EXPECT_TRUE(treasury().Validar_Forma_Pago());
    treasury().Validar_Forma_Pago(false);
    EXPECT_FALSE(treasury().Validar_Forma_Pago());
    treasury().Ch_Banco_Destino("PTO-MXN");
    EXPECT_EQ(treasury().Ch_Banco_Destino(), "PTO-MXN");
    treasury().FolioMovimiento = "BM-1";
    EXPECT_EQ(treasury().FolioMovimiento, "BM-1");
}

TEST_F(Treasury, accessors_leave_the_last_error_alone) {
    treasury().Crear_Cheque("");
    treasury().Encabezado(full_header());
    treasury().Detalle({});
    treasury().Nuevo();
    treasury().NuevoReciboCaja();
    treasury().RpEncabezado(Company::receipt_header());
    EXPECT_EQ(treasury().Error(), not_supported);
}

TEST_F(Treasury, creating_a_check_by_folio_is_not_supported_whatever_the_folio) {
    for (const std::string folio : {"", "CH-1", "O'Brien"}) {
        company.mark();
        EXPECT_FALSE(treasury().Crear_Cheque(folio));
        EXPECT_EQ(treasury().Error(), not_supported);
        EXPECT_THAT(company.statements(), IsEmpty());
        EXPECT_THAT(company.on.asked, IsEmpty());
    }
}

TEST_F(Treasury, depositing_a_receipt_by_itself_is_not_supported_and_touches_nothing) {
    const std::string folio = company.capture_receipt({Company::receipt_line(10)});
    company.mark();
    EXPECT_FALSE(treasury().Registrar_Deposito_Recibo_Caja(folio, "SRR-MXN"));
    EXPECT_EQ(treasury().Error(), not_supported);
    EXPECT_THAT(company.changes(), IsEmpty());
    EXPECT_THAT(company.statements(), IsEmpty());
    EXPECT_EQ(treasury().Dp_Folio(), "");
}

TEST_F(Treasury, two_instances_of_a_module_share_nothing_but_the_services) {
    Tesoreria other(company.module());
    company.capture_receipt({Company::receipt_line(1)});
    treasury().Crear_Cheque("");
    EXPECT_EQ(other.RpEncabezado(), tRpEncabezado{});
    EXPECT_EQ(other.Error(), "");
    other.RpEncabezado(Company::receipt_header());
    other.RpDetalle(Company::receipt_line(2));
    ASSERT_TRUE(other.Add_Recibo_Caja_Detalle()) << other.Error();
    EXPECT_EQ(other.RpDetalle().Rp_ID, "0001");
    EXPECT_NE(other.RpEncabezado().Rp_Folio, treasury().RpEncabezado().Rp_Folio);
}

}  // namespace
}  // namespace cuvexa::tests
