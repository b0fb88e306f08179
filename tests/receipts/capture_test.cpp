// Capture of a cash receipt, line by line.
#include <cmath>
#include <limits>

#include "support/in_turn.h"
#include "support/texts.h"

namespace cuvexa::tests {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
const std::string tag = "Cuvexa.dll - Add_Recibo_Caja_Detalle()\r\n";

class Receipt_capture : public ::testing::Test {
protected:
    Tesoreria& treasury() { return company.treasury(); }

    void start(const tRpEncabezado& header = Company::receipt_header()) {
        treasury().NuevoReciboCaja();
        treasury().RpEncabezado(header);
    }
    bool add(const tRpDetalle& line = Company::receipt_line(100)) {
        treasury().RpDetalle(line);
        return treasury().Add_Recibo_Caja_Detalle();
    }
    std::string line_ids() {
        std::string ids;
        for (const std::string& id : company.rows("SELECT Rp_Id FROM Recibo_Pago ORDER BY Rp_Folio, Rp_Id")) {
            ids += id + " ";
        }
        return ids;
    }

    Company company;
};

// ---- Starting a receipt ---------------------------------------------------------------------------------------------

tRpEncabezado full_header() {
    tRpEncabezado header = Company::receipt_header();
    header.TipoReciboPago = {"99", "una descripción", true, true};
    header.Sucursal.Sc_Descripcion = "Monterrey";
    header.Sucursal.Es_Cve_Estado = "AC";
    header.Rp_Solicitar_Valor = "CL01";
    header.Rp_Tabla = "FACTURA_VENTA";
    header.Rp_Documento = "FV-5001";
    header.Rp_Folio_Deposito = "D-1";
    header.Rp_Deposito_ID = "0007";
    return header;
}

TEST_F(Receipt_capture, a_new_receipt_clears_the_header_but_for_what_stays_on_purpose) {
    treasury().Validar_Forma_Pago(true);
    start(full_header());
    ASSERT_TRUE(add());
    treasury().Validar_Forma_Pago(true);
    const tRpEncabezado before = treasury().RpEncabezado();
    const tRpDetalle line = treasury().RpDetalle();

    const Date earlier = local_today();
    treasury().NuevoReciboCaja();
    const Date later = local_today();

    tRpEncabezado expected;
    expected.TipoReciboPago = before.TipoReciboPago;
    expected.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "";
    expected.Sucursal = before.Sucursal;
    expected.Sucursal.Sc_Cve_Sucursal = "";
    expected.Rp_Deposito_ID = "0007";
    expected.Rp_Fecha = expected.Rp_Fecha_Deposito = treasury().RpEncabezado().Rp_Fecha;
    EXPECT_EQ(treasury().RpEncabezado(), expected);
    EXPECT_TRUE(expected.Rp_Fecha == earlier || expected.Rp_Fecha == later) << "the local clock, not the server's";
    EXPECT_EQ(treasury().RpDetalle(), line);
    EXPECT_FALSE(treasury().Validar_Forma_Pago());
}

TEST_F(Receipt_capture, a_new_receipt_starts_again_at_line_one) {
    start();
    ASSERT_TRUE(add() && add());
    start();
    ASSERT_TRUE(add());
    EXPECT_EQ(treasury().RpDetalle().Rp_ID, "0001");
}

TEST_F(Receipt_capture, a_new_receipt_restarts_the_counter_also_for_a_header_that_brings_its_folio) {
    start();
    ASSERT_TRUE(add() && add());
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Folio = "DEL-CLIENTE";
    start(header);
    ASSERT_TRUE(add());
    EXPECT_EQ(treasury().RpDetalle().Rp_ID, "0001");
}

TEST_F(Receipt_capture, a_new_receipt_runs_no_statement_and_asks_no_service) {
    company.mark();
    treasury().NuevoReciboCaja();
    EXPECT_THAT(company.statements(), IsEmpty());
    EXPECT_THAT(company.on.asked, IsEmpty());
}

// ---- The header -----------------------------------------------------------------------------------------------------

TEST_F(Receipt_capture, a_header_let_reads_the_receipt_type) {
    company.mark();
    tRpEncabezado header = full_header();
    header.TipoReciboPago = {"05", "of the caller", true, false};
    treasury().RpEncabezado(header);
    header.TipoReciboPago = {"05", "Venta de mostrador", false, true};
    EXPECT_EQ(treasury().RpEncabezado(), header);
}

TEST_F(Receipt_capture, the_flags_of_the_receipt_type_are_true_exactly_for_SI) {
    for (const auto& [stored, flag] : {std::pair{"SI", true}, {"NO", false}, {"", false}, {"S", false}, {"1", false}}) {
        company.sql(std::string("UPDATE Tipo_Recibo_Pago SET Trp_Solicitar_Fecha = '") + stored +
                    "', Trp_Solicitar_Vendedor = '" + stored + "' WHERE Trp_Cve_Tipo_Recibo_Pago = '01'");
        treasury().RpEncabezado(Company::receipt_header());
        EXPECT_EQ(treasury().RpEncabezado().TipoReciboPago.Trp_Solicitar_Fecha, flag) << stored;
        EXPECT_EQ(treasury().RpEncabezado().TipoReciboPago.Trp_Solicitar_Vendedor, flag) << stored;
    }
}

TEST_F(Receipt_capture, an_unknown_receipt_type_leaves_what_the_caller_sent) {
    tRpEncabezado header = Company::receipt_header();
    header.TipoReciboPago = {"77", "of the caller", true, true};
    treasury().RpEncabezado(header);
    EXPECT_EQ(treasury().RpEncabezado(), header);
}

TEST_F(Receipt_capture, an_inactive_receipt_type_is_read_like_any_other) {
    tRpEncabezado header = Company::receipt_header();
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "99";
    treasury().RpEncabezado(header);
    EXPECT_EQ(treasury().RpEncabezado().TipoReciboPago.Trp_Descripcion, "Ingreso anterior");
}

TEST_F(Receipt_capture, a_failure_of_the_header_let_reaches_the_caller_after_the_header_was_copied) {
    tRpEncabezado header = Company::receipt_header();
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "0'1";
    EXPECT_THROW(treasury().RpEncabezado(header), Database_error);
    EXPECT_EQ(treasury().RpEncabezado(), header);
    EXPECT_EQ(treasury().Error(), "");
}

TEST_F(Receipt_capture, a_failing_look_up_of_the_branch_leaves_the_header_alone) {
    start();
    company.on.fail("LookupValue", "sin catálogo");
    EXPECT_THROW(treasury().RpEncabezado(full_header()), std::runtime_error);
    EXPECT_EQ(treasury().RpEncabezado().Rp_Documento, "");
}

TEST_F(Receipt_capture, what_is_got_is_a_copy) {
    start();
    tRpEncabezado header = treasury().RpEncabezado();
    header.Rp_Comentario = "cambiado";
    EXPECT_EQ(treasury().RpEncabezado().Rp_Comentario, "Cobranza");
    treasury().RpDetalle(Company::receipt_line(5));
    tRpDetalle line = treasury().RpDetalle();
    line.Rp_Importe = 6;
    EXPECT_EQ(treasury().RpDetalle().Rp_Importe, 5);
}

TEST_F(Receipt_capture, letting_back_the_header_that_was_got_continues_the_receipt) {
    start();
    ASSERT_TRUE(add());
    tRpEncabezado header = treasury().RpEncabezado();
    header.Rp_Comentario = "segunda línea";
    treasury().RpEncabezado(header);
    ASSERT_TRUE(add());
    EXPECT_EQ(treasury().RpDetalle().Rp_ID, "0002");
    EXPECT_EQ(treasury().RpEncabezado().Rp_Folio, header.Rp_Folio);
    EXPECT_EQ(company.scalar("SELECT Rp_Comentario FROM Recibo_Pago WHERE Rp_Id = '0002'"), "segunda línea");
}

TEST_F(Receipt_capture, letting_a_header_without_folio_starts_another_receipt) {
    start();
    ASSERT_TRUE(add() && add());
    const std::string first = treasury().RpEncabezado().Rp_Folio;
    treasury().RpEncabezado(Company::receipt_header());
    ASSERT_TRUE(add());
    EXPECT_NE(treasury().RpEncabezado().Rp_Folio, first);
    EXPECT_EQ(treasury().RpDetalle().Rp_ID, "0001");
}

TEST_F(Receipt_capture, the_caller_s_own_folio_skips_the_checks_of_the_first_line) {
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Folio = "DEL-CLIENTE";
    header.Mn_Cve_Moneda = "XXX";
    start(header);
    ASSERT_TRUE(add());
    EXPECT_EQ(company.scalar("SELECT Rp_Folio FROM Recibo_Pago"), "DEL-CLIENTE");
}

// ---- A line ---------------------------------------------------------------------------------------------------------

tRpEncabezado header_with_everything() {
    tRpEncabezado header = full_header();
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "05";
    header.Rp_Fecha = make_date(2024, 3, 14, 9, 30);
    header.Rp_Fecha_Deposito = make_date(2024, 3, 16, 18, 0);
    header.Mn_Cve_Moneda = "USD";
    header.Rp_Tipo_Cambio = 19.5;
    return header;
}

tRpDetalle line_with_everything() {
    tRpDetalle line = Company::receipt_line(1234.56, "02", "Banco de la Sierra", "CH-77");
    line.Rp_ID = "9999";
    line.Rp_Cuenta_Bancaria = "0011223344";
    return line;
}

std::shared_ptr<clsRpDetalle> extras_with_everything() {
    return std::make_shared<clsRpDetalle>(clsRpDetalle{"SIERRA", "VN01", "COM1", "PRO1", "CHO1", "COB1"});
}

TEST_F(Receipt_capture, a_line_writes_one_row_that_carries_header_line_extras_and_audit) {
    start(header_with_everything());
    treasury().RpDetalle2(extras_with_everything());
    company.mark();
    ASSERT_TRUE(add(line_with_everything())) << treasury().Error();
    EXPECT_THAT(
        company.changes_with_audit(),
        ElementsAre("+ Folio_Serie RECIBO_PAGO/MTY: Fs_Codigo=RECIBO_PAGO, Fs_Sucursal=MTY, Fs_Ultimo=1, Fs_Abierta=SI",
                    "+ Recibo_Pago RP-MTY-00000001/0001: Rp_Folio=RP-MTY-00000001, Rp_Id=0001, Rp_Fecha=2024-03-14, "
                    "Sc_Cve_Sucursal=MTY, Trp_Cve_Tipo_Recibo_Pago=05, Rp_Solicitar_Valor=CL01, "
                    "Rp_Tabla=FACTURA_VENTA, Rp_Documento=FV-5001, Rp_Referencia=REF-1, Rp_Comentario=Cobranza, "
                    "Mn_Cve_Moneda=USD, Rp_Tipo_Cambio=19.5, Rp_Fecha_Deposito=2024-03-16, Rp_Folio_Deposito=D-1, "
                    "Rp_Deposito_ID=0007, Fp_Cve_Forma_Pago=02, Rp_Banco=Banco de la Sierra, Rp_Cheque=CH-77, "
                    "Rp_Cuenta_Bancaria=0011223344, Rp_Importe=1234.56, Rp_Cve_Banco=SIERRA, Rp_Vendedor=VN01, "
                    "Rp_Comisionista=COM1, Rp_Promotor=PRO1, Rp_Chofer=CHO1, Rp_Cobratario=COB1, Oper_Alta=CAJA1, "
                    "Fecha_Alta=2024-03-15 10:20:30, Oper_Ult_Modif=CAJA1, Fecha_Ult_Modif=2024-03-15 10:20:30, "
                    "Es_Cve_Estado=AC"));
    EXPECT_EQ(treasury().RpEncabezado().Rp_Folio, "RP-MTY-00000001");
    EXPECT_EQ(treasury().RpDetalle().Rp_ID, "0001") << "the component's number, not the caller's";
}

TEST_F(Receipt_capture, a_record_whose_texts_were_never_set_writes_empty_texts) {
    tRpEncabezado header;
    header.Rp_Folio = "R-1";
    treasury().RpEncabezado(header);
    ASSERT_TRUE(add());
    EXPECT_EQ(company.scalar(
                  "SELECT count(*) FROM Recibo_Pago WHERE Rp_Referencia = '' AND Rp_Comentario = '' AND Rp_Banco = '' "
                  "AND Rp_Tabla = '' AND Sc_Cve_Sucursal = '' AND Rp_Cve_Banco = ''"),
              "1");
}

TEST_F(Receipt_capture, two_lines_share_folio_header_and_creation_stamp_though_the_clock_goes_on) {
    start();
    ASSERT_TRUE(add(Company::receipt_line(100)));
    company.on.server_date = add_days(Company::now(), 1);
    ASSERT_TRUE(add(Company::receipt_line(50, "02", "Sierra", "12")));
    EXPECT_THAT(
        company.rows("SELECT Rp_Folio, Rp_Id, Rp_Importe, Rp_Comentario, Fecha_Alta, Fecha_Ult_Modif FROM Recibo_Pago"),
        ElementsAre("RP-MTY-00000001|0001|100.0|Cobranza|2024-03-15 10:20:30|2024-03-15 10:20:30",
                    "RP-MTY-00000001|0002|50.0|Cobranza|2024-03-15 10:20:30|2024-03-15 10:20:30"));
}

TEST_F(Receipt_capture, the_second_line_takes_no_folio) {
    start();
    ASSERT_TRUE(add());
    company.mark();
    ASSERT_TRUE(add());
    EXPECT_EQ(touched(company.changes()), "+Recibo_Pago");
}

TEST_F(Receipt_capture, each_branch_has_its_own_folios) {
    EXPECT_EQ(company.capture_receipt({Company::receipt_line(1)}), "RP-MTY-00000001");
    tRpEncabezado header = Company::receipt_header();
    header.Sucursal.Sc_Cve_Sucursal = "GDL";
    EXPECT_EQ(company.capture_receipt({Company::receipt_line(1)}, header), "RP-GDL-00000001");
    EXPECT_EQ(company.capture_receipt({Company::receipt_line(1)}), "RP-MTY-00000002");
}

TEST_F(Receipt_capture, a_negative_amount_is_accepted) {
    start();
    EXPECT_TRUE(add(Company::receipt_line(-100)));
    EXPECT_EQ(company.scalar("SELECT Rp_Importe FROM Recibo_Pago"), "-100.0");
}

TEST_F(Receipt_capture, minus_zero_is_zero_and_refused) {
    start();
    EXPECT_FALSE(add(Company::receipt_line(-0.0)));
    EXPECT_EQ(treasury().Error(), "Importe del recibo erróneo, no puede ser cero!");
}

TEST_F(Receipt_capture, a_success_after_a_refusal_leaves_no_error) {
    start();
    ASSERT_FALSE(add(Company::receipt_line(0)));
    ASSERT_NE(treasury().Error(), "");
    ASSERT_TRUE(add());
    EXPECT_EQ(treasury().Error(), "");
}

// ---- The refusals, in their order -----------------------------------------------------------------------------------

Preparation header(const std::function<void(tRpEncabezado&)>& change) {
    return letting<tRpEncabezado>(&Tesoreria::RpEncabezado, &Tesoreria::RpEncabezado, change);
}
Preparation line(const std::function<void(tRpDetalle&)>& change) {
    return letting<tRpDetalle>(&Tesoreria::RpDetalle, &Tesoreria::RpDetalle, change);
}

void inactive_bank(Company& company) {
    company.treasury().RpDetalle2(std::make_shared<clsRpDetalle>(clsRpDetalle{"VIEJO", "VN01", "", "", "", ""}));
}

void failing_insert(Company& company) {
    company.on.failing_statement = 1;
}

void first_line(Company& company) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    tRpEncabezado header = Company::receipt_header();
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "05";
    company.treasury().NuevoReciboCaja();
    company.treasury().RpEncabezado(header);
    company.treasury().RpDetalle(Company::receipt_line(100));
    company.treasury().RpDetalle2(std::make_shared<clsRpDetalle>(clsRpDetalle{"", "VN01", "", "", "", ""}));
    company.treasury().Validar_Forma_Pago(true);
}

TEST(Receipt_capture_order, the_refusals_of_a_line_come_in_the_order_of_its_steps) {
    using Header = tRpEncabezado;
    using Line = tRpDetalle;
    const std::string took_folio = "+Folio_Serie";
    expect_refusals_in_order(
        {{"central server", [](Company& company) { company.on.replica = true; },
          "Esta operación solo puede realizarse en el servidor central"},
         {"same day", header([](Header& h) { h.Rp_Fecha = Company::yesterday(); }), tag + not_today},
         {"period", sql("UPDATE Periodo_Operativo SET Po_Estado = 'CE'"), tag + period_closed},
         {"currency", header([](Header& h) { h.Mn_Cve_Moneda = "XXX"; }),
          "La moneda: XXX, no existe o está dada de baja"},
         {"rate", header([](Header& h) { h.Rp_Tipo_Cambio = 0; }), "El tipo de cambio: 0, no es válido"},
         {"folio", without_folio, "Error al intentar obtener el folio del recibo de caja!"},
         {"payment method", line([](Line& l) { l.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = "88"; }),
          "La forma de pago no existe o está dada de baja", took_folio},
         {"amount", line([](Line& l) { l.Rp_Importe = 0; }), "Importe del recibo erróneo, no puede ser cero!",
          took_folio},
         {"bank", inactive_bank, "El banco no existe o está de baja", took_folio},
         {"seller", sql("UPDATE Vendedor SET Es_Cve_Estado = 'BA'"), "El vendedor no existe o está de baja",
          took_folio},
         {"payment line", refusing("ValidatePaymentLine", "Falta el banco"), tag + "Falta el banco", took_folio},
         {"insert", failing_insert, obstructed::statement_failure, took_folio}},
        first_line, [](Company& company) { return company.treasury().Add_Recibo_Caja_Detalle(); });
}

TEST_F(Receipt_capture, a_branch_without_server_belongs_to_the_central_one) {
    company.on.replica = false;
    start();
    EXPECT_TRUE(add()) << treasury().Error();
}

TEST_F(Receipt_capture, a_branch_of_another_server_is_refused_with_both_server_ids) {
    tRpEncabezado header = Company::receipt_header();
    header.Sucursal.Sc_Cve_Sucursal = "TIJ";
    start(header);
    EXPECT_FALSE(add());
    EXPECT_EQ(
        treasury().Error(),
        "Esta operación solo puede realizarse en el servidor con id: NORTE\r\nel id del servidor actual es: CENTRAL");
}

TEST_F(Receipt_capture, a_branch_of_this_server_is_captured_here_also_when_it_is_a_replica) {
    company.on.server_id = "NORTE";
    company.on.replica = true;
    company.restart();
    tRpEncabezado header = Company::receipt_header();
    header.Sucursal.Sc_Cve_Sucursal = "TIJ";
    start(header);
    EXPECT_TRUE(add()) << treasury().Error();
}

TEST_F(Receipt_capture, the_server_of_the_branch_is_the_one_of_when_the_header_was_let) {
    start();
    company.sql("UPDATE Sucursal SET Sc_Servidor_Id = 'NORTE' WHERE Sc_Cve_Sucursal = 'MTY'");
    EXPECT_TRUE(add()) << treasury().Error();
}

TEST_F(Receipt_capture, in_real_time_a_receipt_of_today_passes_at_any_time_of_day) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    for (const double time : {0.0, 0.5, 0.99999}) {
        tRpEncabezado header = Company::receipt_header();
        header.Rp_Fecha = Date{Company::today().days + time};
        start(header);
        EXPECT_TRUE(add()) << treasury().Error();
        header.Rp_Fecha = Date{Company::yesterday().days + time};
        start(header);
        EXPECT_FALSE(add());
        EXPECT_EQ(treasury().Error(), tag + not_today);
    }
}

TEST_F(Receipt_capture, out_of_real_time_a_back_dated_receipt_passes_but_meets_the_operating_period) {
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Fecha = make_date(2024, 1, 5);
    start(header);
    EXPECT_TRUE(add()) << treasury().Error();
    header.Rp_Fecha = make_date(2023, 12, 31);
    start(header);
    EXPECT_FALSE(add());
    EXPECT_EQ(treasury().Error(),
              tag + "El período operativo correspondiente a la fecha: 31-12-2023, está cerrado o no existe!");
    header.Rp_Fecha = make_date(2030, 7, 1);
    start(header);
    EXPECT_FALSE(add());
    EXPECT_EQ(treasury().Error(),
              tag + "El período operativo correspondiente a la fecha: 01-07-2030, está cerrado o no existe!");
}

TEST_F(Receipt_capture, the_operating_period_is_asked_only_while_its_parameter_says_so_now) {
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Fecha = make_date(2023, 12, 31);
    start(header);
    company.sql("UPDATE Parametro_Sistema SET Ps_Valor = '0' WHERE Ps_Nombre = 'GEN_VALIDAR_PERIODO_OPERATIVO'");
    EXPECT_TRUE(add()) << treasury().Error();
    company.sql("UPDATE Parametro_Sistema SET Ps_Valor = '1' WHERE Ps_Nombre = 'GEN_VALIDAR_PERIODO_OPERATIVO'");
    start(header);
    EXPECT_FALSE(add());
    company.sql("DELETE FROM Parametro_Sistema WHERE Ps_Nombre = 'GEN_VALIDAR_PERIODO_OPERATIVO'");
    EXPECT_TRUE(add()) << treasury().Error();
}

TEST_F(Receipt_capture, an_inactive_currency_is_refused) {
    tRpEncabezado header = Company::receipt_header();
    header.Mn_Cve_Moneda = "EUR";
    start(header);
    EXPECT_FALSE(add());
    EXPECT_EQ(treasury().Error(), "La moneda: EUR, no existe o está dada de baja");
}

TEST_F(Receipt_capture, a_rate_that_is_not_above_zero_or_no_number_is_refused) {
    for (const auto& [rate, shown] : {std::pair{0.0, "0"},
                                      {-19.5, "-19.5"},
                                      {std::nan(""), "NaN"},
                                      {infinity, "Infinito"},
                                      {-infinity, "-Infinito"}}) {
        tRpEncabezado header = Company::receipt_header();
        header.Rp_Tipo_Cambio = rate;
        start(header);
        company.mark();
        EXPECT_FALSE(add());
        EXPECT_EQ(treasury().Error(), std::string("El tipo de cambio: ") + shown + ", no es válido");
        EXPECT_THAT(company.changes(), IsEmpty());
    }
}

TEST_F(Receipt_capture, the_bank_of_the_extras_is_checked_only_when_there_is_one) {
    auto extras = std::make_shared<clsRpDetalle>();
    treasury().RpDetalle2(extras);
    start();
    EXPECT_TRUE(add());
    extras->Rp_Cve_Banco = "SIERRA";
    EXPECT_TRUE(add());
    extras->Rp_Cve_Banco = "NADIE";
    EXPECT_FALSE(add());
    EXPECT_EQ(treasury().Error(), "El banco no existe o está de baja");
}

TEST_F(Receipt_capture, a_receipt_type_that_asks_for_a_seller_refuses_a_line_without_one) {
    tRpEncabezado header = Company::receipt_header();
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "05";
    start(header);
    EXPECT_FALSE(add());
    EXPECT_EQ(treasury().Error(), "El vendedor no existe o está de baja");
    treasury().RpDetalle2(std::make_shared<clsRpDetalle>(clsRpDetalle{"", "VN99", "", "", "", ""}));
    EXPECT_FALSE(add());
    treasury().RpDetalle2(std::make_shared<clsRpDetalle>(clsRpDetalle{"", "VN01", "", "", "", ""}));
    EXPECT_TRUE(add()) << treasury().Error();
}

TEST_F(Receipt_capture, another_receipt_type_takes_any_seller) {
    treasury().RpDetalle2(std::make_shared<clsRpDetalle>(clsRpDetalle{"", "NADIE", "", "", "", ""}));
    start();
    EXPECT_TRUE(add()) << treasury().Error();
}

// ---- The payment-method service -------------------------------------------------------------------------------------

TEST_F(Receipt_capture, the_payment_method_service_is_asked_only_when_told_and_gets_the_whole_line) {
    start();
    ASSERT_TRUE(add());
    EXPECT_THAT(company.on.validated_lines, IsEmpty());
    treasury().Validar_Forma_Pago(true);
    ASSERT_TRUE(add(Company::receipt_line(50.5, "02", "Sierra", "CH-1"))) << treasury().Error();
    EXPECT_THAT(company.on.validated_lines,
                ElementsAre("02|CH-1|Sierra|50.5|RECIBO_PAGO|RP-MTY-00000001|REF-1|Cobranza"));
}

TEST_F(Receipt_capture, a_line_that_the_payment_method_service_refuses_uses_up_its_number) {
    start();
    treasury().Validar_Forma_Pago(true);
    ASSERT_TRUE(add());
    company.on.refuse("ValidatePaymentLine", "Falta la referencia");
    ASSERT_FALSE(add());
    company.on.clear();
    ASSERT_TRUE(add());
    EXPECT_EQ(line_ids(), "0001 0003 ");
}

TEST_F(Receipt_capture, a_line_whose_insert_fails_uses_up_its_number) {
    start();
    ASSERT_TRUE(add());
    tRpDetalle quoted = Company::receipt_line(10);
    quoted.Rp_Banco = "D'Oro";
    ASSERT_FALSE(add(quoted));
    ASSERT_TRUE(add());
    EXPECT_EQ(line_ids(), "0001 0003 ");
}

TEST_F(Receipt_capture, a_line_refused_by_a_check_uses_up_no_number) {
    start();
    ASSERT_TRUE(add());
    ASSERT_FALSE(add(Company::receipt_line(0)));
    ASSERT_FALSE(add(Company::receipt_line(10, "88")));
    ASSERT_TRUE(add());
    EXPECT_EQ(line_ids(), "0001 0002 ");
}

TEST_F(Receipt_capture, after_line_32767_the_counter_overflows_and_nothing_is_written) {
    start();
    ASSERT_TRUE(add());
    treasury().Validar_Forma_Pago(true);
    company.on.refuse("ValidatePaymentLine", "no");
    for (int line = 2; line < 32767; ++line) treasury().Add_Recibo_Caja_Detalle();
    company.on.clear();
    ASSERT_TRUE(add());
    EXPECT_EQ(treasury().RpDetalle().Rp_ID, "32767");
    for (int again = 0; again < 2; ++again) {
        EXPECT_FALSE(add());
        EXPECT_EQ(treasury().Error(), tag + "Desbordamiento");
    }
    EXPECT_EQ(line_ids(), "0001 32767 ");
    start();
    EXPECT_TRUE(add()) << "a new receipt starts again";
}

// ---- Folio and first line -------------------------------------------------------------------------------------------

TEST_F(Receipt_capture, a_first_line_that_is_refused_after_the_folio_keeps_it) {
    start();
    ASSERT_FALSE(add(Company::receipt_line(0)));
    EXPECT_EQ(treasury().RpEncabezado().Rp_Folio, "RP-MTY-00000001");
    company.sql("UPDATE Moneda SET Es_Cve_Estado = 'BA'");  // the checks of the first line are over
    ASSERT_TRUE(add()) << treasury().Error();
    EXPECT_THAT(company.rows("SELECT Rp_Folio, Rp_Id FROM Recibo_Pago"), ElementsAre("RP-MTY-00000001|0001"));
}

TEST_F(Receipt_capture, a_receipt_begun_before_midnight_takes_lines_after_it) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    start();
    ASSERT_TRUE(add());
    company.on.server_date = add_days(Company::now(), 1);
    EXPECT_TRUE(add()) << treasury().Error();
}

TEST_F(Receipt_capture, a_closed_series_gives_no_folio_and_the_next_line_asks_again) {
    company.sql(
        "INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo, Fs_Abierta) VALUES ('RECIBO_PAGO', 'MTY', 7, "
        "'NO')");
    start();
    EXPECT_FALSE(add());
    EXPECT_EQ(treasury().Error(), "Error al intentar obtener el folio del recibo de caja!");
    EXPECT_EQ(treasury().RpEncabezado().Rp_Folio, "");
    company.sql("UPDATE Folio_Serie SET Fs_Abierta = 'SI' WHERE Fs_Codigo = 'RECIBO_PAGO'");
    EXPECT_TRUE(add());
    EXPECT_EQ(treasury().RpEncabezado().Rp_Folio, "RP-MTY-00000008");
}

// ---- The extras -----------------------------------------------------------------------------------------------------

TEST_F(Receipt_capture, a_line_without_extras_writes_six_empty_texts) {
    start();
    ASSERT_TRUE(add());
    EXPECT_EQ(
        company.scalar(
            "SELECT count(*) FROM Recibo_Pago WHERE Rp_Cve_Banco = '' AND Rp_Vendedor = '' AND Rp_Comisionista = '' "
            "AND Rp_Promotor = '' AND Rp_Chofer = '' AND Rp_Cobratario = ''"),
        "1");
}

TEST_F(Receipt_capture, extras_start_empty) {
    const clsRpDetalle extras;
    EXPECT_EQ(extras.Rp_Cve_Banco + extras.Rp_Vendedor + extras.Rp_Comisionista + extras.Rp_Promotor +
                  extras.Rp_Chofer + extras.Rp_Cobratario,
              "");
}

TEST_F(Receipt_capture, extras_are_held_by_reference_and_carry_over_to_the_next_receipt) {
    const auto extras = std::make_shared<clsRpDetalle>();
    treasury().RpDetalle2(extras);
    extras->Rp_Vendedor = "VN01";
    start();
    ASSERT_TRUE(add());
    extras->Rp_Vendedor = "VN02";
    ASSERT_TRUE(add());
    start();
    ASSERT_TRUE(add());
    EXPECT_THAT(company.rows("SELECT Rp_Folio, Rp_Vendedor FROM Recibo_Pago ORDER BY Rp_Folio, Rp_Id"),
                ElementsAre("RP-MTY-00000001|VN01", "RP-MTY-00000001|VN02", "RP-MTY-00000002|VN02"));
}

TEST_F(Receipt_capture, another_let_of_the_extras_replaces_the_object) {
    const auto first = std::make_shared<clsRpDetalle>();
    treasury().RpDetalle2(first);
    treasury().RpDetalle2(std::make_shared<clsRpDetalle>());
    first->Rp_Promotor = "PRO1";
    EXPECT_EQ(first.use_count(), 1) << "the instance let go of it";
    start();
    ASSERT_TRUE(add());
    EXPECT_EQ(company.scalar("SELECT Rp_Promotor FROM Recibo_Pago"), "");
}

TEST_F(Receipt_capture, extras_let_as_nothing_are_made_by_the_next_line) {
    treasury().RpDetalle2(extras_with_everything());
    treasury().RpDetalle2(nullptr);
    start();
    ASSERT_TRUE(add()) << treasury().Error();
    EXPECT_EQ(company.scalar("SELECT Rp_Vendedor FROM Recibo_Pago"), "");
}

TEST_F(Receipt_capture, the_extras_are_never_handed_back) {
    treasury().RpDetalle2(extras_with_everything());
    try {
        treasury().RpDetalle2();
        FAIL() << "the object came back";
    } catch (const Automation_error& error) {
        EXPECT_EQ(error.number(), error_object_not_set);
    }
    EXPECT_EQ(treasury().Error(), "");
}

// ---- Failures and hostile values ------------------------------------------------------------------------------------

void prepare_line(Company& company) {
    tRpEncabezado header = Company::receipt_header();
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = "05";
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    company.treasury().NuevoReciboCaja();
    company.treasury().RpEncabezado(header);
    company.treasury().RpDetalle2(extras_with_everything());
    company.treasury().RpDetalle(Company::receipt_line(100));
    company.treasury().Validar_Forma_Pago(true);
}

TEST_F(Receipt_capture, every_service_call_that_fails_is_reported_behind_the_tag_but_those_of_the_insert) {
    const std::string failure = tag + obstructed::call_failure;
    EXPECT_THAT(listed(calls_fail_in_turn(
                    prepare_line, [](Company& company) { return company.treasury().Add_Recibo_Caja_Detalle(); })),
                ElementsAre("IsReplicaServer => " + failure + " []",                  //
                            "GetServerDate => " + failure + " []",                    //
                            "GetParameter => " + failure + " []",                     //
                            "IsOperatingPeriodOpen => " + failure + " []",            //
                            "LookupValue => " + failure + " []",                      //
                            "GetNextFolio => " + failure + " []",                     //
                            "GetServerDate => " + failure + " [+Folio_Serie]",        //
                            "SqlDateTime => " + failure + " [+Folio_Serie]",          //
                            "LookupValue => " + failure + " [+Folio_Serie]",          //
                            "LookupValue => " + failure + " [+Folio_Serie]",          //
                            "LookupValue => " + failure + " [+Folio_Serie]",          //
                            "ValidatePaymentLine => " + failure + " [+Folio_Serie]",  //
                            std::string("GetUserName => ") + obstructed::call_failure + " [+Folio_Serie]",
                            std::string("SqlDate => ") + obstructed::call_failure + " [+Folio_Serie]",
                            std::string("SqlDate => ") + obstructed::call_failure + " [+Folio_Serie]"));
}

TEST_F(Receipt_capture, a_statement_that_fails_is_reported_without_tag) {
    EXPECT_THAT(listed(statements_fail_in_turn(
                    prepare_line, [](Company& company) { return company.treasury().Add_Recibo_Caja_Detalle(); })),
                ElementsAre("INSERT Recibo_Pago => se perdió la conexión [+Folio_Serie]"));
}

TEST_F(Receipt_capture, an_amount_that_is_no_number_reaches_no_statement) {
    for (const double amount : {std::nan(""), infinity, -infinity}) {
        start();
        company.mark();
        EXPECT_FALSE(add(Company::receipt_line(amount)));
        EXPECT_EQ(treasury().Error(), "Desbordamiento");
        EXPECT_THAT(company.statements(), IsEmpty());
    }
    EXPECT_EQ(line_ids(), "");
}

TEST_F(Receipt_capture, a_date_that_is_none_reaches_no_statement) {
    for (const double days : {std::nan(""), infinity, 1e300}) {
        tRpEncabezado header = Company::receipt_header();
        header.Rp_Fecha_Deposito = Date{days};
        start(header);
        company.mark();
        EXPECT_FALSE(add());
        EXPECT_NE(treasury().Error(), "");
        EXPECT_THAT(company.statements(), IsEmpty());
    }
}

/// Each text of a line that goes into the statement as it stands.
std::vector<std::function<void(tRpEncabezado&, tRpDetalle&, clsRpDetalle&, const std::string&)>> free_texts() {
    return {
        [](auto& header, auto&, auto&, const auto& text) { header.Rp_Solicitar_Valor = text; },
        [](auto& header, auto&, auto&, const auto& text) { header.Rp_Tabla = text; },
        [](auto& header, auto&, auto&, const auto& text) { header.Rp_Documento = text; },
        [](auto& header, auto&, auto&, const auto& text) { header.Rp_Referencia = text; },
        [](auto& header, auto&, auto&, const auto& text) { header.Rp_Comentario = text; },
        [](auto& header, auto&, auto&, const auto& text) { header.Rp_Folio_Deposito = text; },
        [](auto& header, auto&, auto&, const auto& text) { header.Rp_Deposito_ID = text; },
        [](auto&, auto& line, auto&, const auto& text) { line.Rp_Banco = text; },
        [](auto&, auto& line, auto&, const auto& text) { line.Rp_Cheque = text; },
        [](auto&, auto& line, auto&, const auto& text) { line.Rp_Cuenta_Bancaria = text; },
        [](auto&, auto&, auto& extras, const auto& text) { extras.Rp_Comisionista = text; },
        [](auto&, auto&, auto& extras, const auto& text) { extras.Rp_Promotor = text; },
        [](auto&, auto&, auto& extras, const auto& text) { extras.Rp_Chofer = text; },
        [](auto&, auto&, auto& extras, const auto& text) { extras.Rp_Cobratario = text; },
    };
}

TEST_F(Receipt_capture, a_quote_in_any_value_fails_the_line_and_smuggles_nothing_in) {
    for (const std::string text : {"D'Oro", "x'); DELETE FROM Moneda; --", "x', 'y", "'", "/*"}) {
        for (const auto& set : free_texts()) {
            tRpEncabezado header = Company::receipt_header();
            tRpDetalle line = Company::receipt_line(10);
            const auto extras = std::make_shared<clsRpDetalle>();
            set(header, line, *extras, text);
            treasury().RpDetalle2(extras);
            start(header);
            company.mark();
            const bool accepted = add(line);
            EXPECT_EQ(accepted, text == "/*") << text;  // without a quote it is a text like any other
            EXPECT_EQ(treasury().Error().empty(), accepted) << text;
            EXPECT_EQ(treasury().Error().find("Cuvexa.dll"), std::string::npos) << treasury().Error();
            EXPECT_EQ(company.scalar("SELECT count(*) FROM Moneda"), "3");
            if (!accepted) {
                EXPECT_NE(touched(company.changes()).find("Folio_Serie"), std::string::npos);
                EXPECT_EQ(touched(company.changes()).find("Recibo_Pago"), std::string::npos);
            }
        }
    }
}

TEST_F(Receipt_capture, malformed_text_fails_the_line) {
    for (const std::string text : {"\xff\xfe", "\xc3", "\xed\xa0\x80"}) {
        tRpEncabezado header = Company::receipt_header();
        header.Rp_Comentario = text;
        start(header);
        EXPECT_FALSE(add());
        EXPECT_NE(treasury().Error(), "");
    }
    EXPECT_EQ(line_ids(), "");
}

TEST_F(Receipt_capture, a_comment_is_kept_whole_or_refused_with_the_column_that_is_too_short) {
    tRpEncabezado header = Company::receipt_header();
    for (const std::size_t too_long : {8001, 10'000'000}) {
        header.Rp_Comentario = std::string(too_long, 'x');
        start(header);
        EXPECT_FALSE(add());
        EXPECT_THAT(treasury().Error(),
                    testing::HasSubstr("El valor no cabe en la columna Rp_Comentario: admite hasta 8000 caracteres"));
        EXPECT_EQ(line_ids(), "");
    }
    header.Rp_Comentario = std::string(8000, 'x');
    start(header);
    ASSERT_TRUE(add()) << treasury().Error();
    EXPECT_EQ(company.scalar("SELECT length(Rp_Comentario) FROM Recibo_Pago"), "8000");
}

TEST_F(Receipt_capture, a_date_before_1753_is_refused_with_its_column) {
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Fecha_Deposito = make_date(1752, 12, 31);
    start(header);
    EXPECT_FALSE(add());
    EXPECT_THAT(
        treasury().Error(),
        testing::HasSubstr("El valor no cabe en la columna Rp_Fecha_Deposito: admite de 1753-01-01 a 9999-12-31"));
    EXPECT_EQ(line_ids(), "");
}

TEST_F(Receipt_capture, keys_with_quotes_are_unknown_keys_or_failures_and_write_nothing) {
    tRpEncabezado header = Company::receipt_header();
    header.Mn_Cve_Moneda = "M'N";
    start(header);
    company.mark();
    EXPECT_FALSE(add());
    EXPECT_NE(treasury().Error(), "");
    EXPECT_THAT(company.changes(), IsEmpty());
    start();
    EXPECT_FALSE(add(Company::receipt_line(10, "0'1")));
    EXPECT_NE(treasury().Error(), "");
    EXPECT_EQ(line_ids(), "");
}

TEST_F(Receipt_capture, accents_go_in_and_come_back) {
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Comentario = "Año nuevo: ¡pagó el señor Núñez!";
    start(header);
    ASSERT_TRUE(add());
    EXPECT_EQ(company.scalar("SELECT Rp_Comentario FROM Recibo_Pago"), "Año nuevo: ¡pagó el señor Núñez!");
}

// Not every database keeps every character; none may lose one without a word.
TEST_F(Receipt_capture, other_scripts_come_back_or_are_refused_by_name) {
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Comentario = "日本 y 日本";
    start(header);
    if (add()) {
        EXPECT_EQ(company.scalar("SELECT Rp_Comentario FROM Recibo_Pago"), "日本 y 日本");
    } else {
        EXPECT_THAT(treasury().Error(), testing::HasSubstr("La base de datos no guarda estos caracteres: 日本 ("));
    }
}

}  // namespace
}  // namespace cuvexa::tests
