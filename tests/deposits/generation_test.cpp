// Deposit of cash receipts into a bank account.
#include <cmath>
#include <limits>

#include "support/in_turn.h"
#include "support/texts.h"

namespace cuvexa::tests {
namespace {

const std::string tag = "Cuvexa.dll - Genera_Deposito()\r\n";
const std::string movement_tag = "Cuvexa.dll - Registra_Movimiento_Banco()\r\n";
const std::string movement_tag_with_blank = "Cuvexa.dll - Registra_Movimiento_Banco() \r\n";

tRpDetalle cash(double amount) {
    return Company::receipt_line(amount, "01", "caja", "sin número");
}
tRpDetalle check(double amount, const std::string& bank, const std::string& number) {
    return Company::receipt_line(amount, "02", bank, number);
}
tRpDetalle transfer(double amount, const std::string& reference) {
    return Company::receipt_line(amount, "03", "Puerto", reference);
}
tRpDetalle card(double amount, const std::string& reference) {
    return Company::receipt_line(amount, "04", "", reference);
}
tRpDetalle voucher(double amount) {
    return Company::receipt_line(amount, "05", "", "V-1");
}

tRpEncabezado header_of(const std::string& branch, const std::string& currency = "MXN", double rate = 1) {
    tRpEncabezado header = Company::receipt_header();
    header.Sucursal.Sc_Cve_Sucursal = branch;
    header.Mn_Cve_Moneda = currency;
    header.Rp_Tipo_Cambio = rate;
    return header;
}

class Deposit_generation : public ::testing::Test {
protected:
    bool deposit(const std::string& receipts, const std::string& comment = {}) {
        return company.treasury().Genera_Deposito("SRR-MXN", receipts, Company::today(), false, Company::today(),
                                                  comment);
    }
    std::string error() { return company.treasury().Error(); }
    std::string capture(const std::vector<tRpDetalle>& lines, const tRpEncabezado& header = Company::receipt_header()) {
        return company.capture_receipt(lines, header);
    }

    /// Deposit lines as "id|branch|currency|rate|amount|bank|check".
    std::vector<std::string> deposit_lines() {
        return company.rows(
            "SELECT Dp_Id, Sc_Cve_Sucursal, Mn_Cve_Moneda, Dp_Tipo_Cambio, Dp_Importe, Rp_Banco, Rp_Cheque "
            "FROM Deposito_Pago ORDER BY Dp_Folio, Dp_Id");
    }
    /// Receipt lines as "id|state|deposit|deposit line".
    std::vector<std::string> receipt_lines() {
        return company.rows(
            "SELECT Rp_Folio, Rp_Id, Es_Cve_Estado, Rp_Folio_Deposito, Rp_Deposito_ID FROM Recibo_Pago "
            "ORDER BY Rp_Folio, Rp_Id");
    }

    Company company;
};

// ---- What a deposit writes ------------------------------------------------------------------------------------------

TEST_F(Deposit_generation, cash_of_two_receipts_folds_into_one_line_and_one_movement) {
    capture({cash(100)});
    capture({cash(50)});
    company.mark();
    ASSERT_TRUE(company.treasury().Genera_Deposito("SRR-MXN", "RP-MTY-00000001,RP-MTY-00000002",
                                                   make_date(2024, 3, 15, 12), false, make_date(2024, 3, 20),
                                                   "Corte del día"))
        << error();
    EXPECT_EQ(error(), "");
    EXPECT_THAT(
        company.changes_with_audit(),
        ElementsAre(
            "~ Banco SIERRA: Bn_Saldo 0.0 -> 150.0, Oper_Ult_Modif  -> CAJA1, Fecha_Ult_Modif NULL -> "
            "2024-03-15 10:20:30",
            "~ Banco_Cuenta SRR-MXN: Bc_Saldo 0.0 -> 150.0, Oper_Ult_Modif  -> CAJA1, Fecha_Ult_Modif NULL -> "
            "2024-03-15 10:20:30",
            "+ Banco_Movimiento BM-00000001: Bm_Folio=BM-00000001, Bc_Cve_Banco_Cuenta=SRR-MXN, "
            "Bm_Tabla=DEPOSITO_PAGO, Bm_Documento=DP-MTY-00000001, Bm_Documento_ID=0001, "
            "Bc_Cuenta_Contable=1102-01, Bm_Comentario=DEPOSITO EFECTIVO, Bm_Fecha=2024-03-15, "
            "Bm_Fecha_Firme=2024-03-15, Bt_Cve_Banco_Tipo_Movimiento=DEP, Bm_Importe=150.0, Mn_Cve_Moneda=MXN, "
            "Bm_Tipo_Cambio=1.0, Oper_Alta=CAJA1, Fecha_Alta=2024-03-15 10:20:30, Oper_Ult_Modif=CAJA1, "
            "Fecha_Ult_Modif=2024-03-15 10:20:30, Es_Cve_Estado=TR",
            "+ Deposito_Pago DP-MTY-00000001/0001: Dp_Folio=DP-MTY-00000001, Dp_Id=0001, Dp_Fecha=2024-03-15, "
            "Sc_Cve_Sucursal=MTY, Mn_Cve_Moneda=MXN, Dp_Tipo_Cambio=1.0, Bc_Cve_Banco_Cuenta=SRR-MXN, "
            "Dp_Importe=150.0, Dp_Comentario=Corte del día, Oper_Alta=CAJA1, Fecha_Alta=2024-03-15 10:20:30, "
            "Oper_Ult_Modif=CAJA1, Fecha_Ult_Modif=2024-03-15 10:20:30, Es_Cve_Estado=AC",
            "+ Documento_Registrado BM-00000001/BANCO_MOVIMIENTO: Dr_Documento=BM-00000001, "
            "Dr_Codigo=BANCO_MOVIMIENTO, Dr_Veces=1, Oper_Alta=CAJA1, Fecha_Alta=2024-03-15 10:20:30, "
            "Fecha_Ult_Modif=2024-03-15 10:20:30",
            "+ Documento_Registrado DP-MTY-00000001/DEPOSITO_PAGO: Dr_Documento=DP-MTY-00000001, "
            "Dr_Codigo=DEPOSITO_PAGO, Dr_Veces=1, Oper_Alta=CAJA1, Fecha_Alta=2024-03-15 10:20:30, "
            "Fecha_Ult_Modif=2024-03-15 10:20:30",
            "+ Folio_Serie BANCO_MOVIMIENTO/: Fs_Codigo=BANCO_MOVIMIENTO, Fs_Ultimo=1, Fs_Abierta=SI",
            "+ Folio_Serie DEPOSITO_PAGO/MTY: Fs_Codigo=DEPOSITO_PAGO, Fs_Sucursal=MTY, Fs_Ultimo=1, Fs_Abierta=SI",
            "~ Recibo_Pago RP-MTY-00000001/0001: Rp_Folio_Deposito  -> DP-MTY-00000001, Rp_Deposito_ID  -> 0001, "
            "Es_Cve_Estado AC -> DP",
            "~ Recibo_Pago RP-MTY-00000002/0001: Rp_Folio_Deposito  -> DP-MTY-00000001, Rp_Deposito_ID  -> 0001, "
            "Es_Cve_Estado AC -> DP"));
    EXPECT_EQ(company.treasury().Dp_Folio(), "DP-MTY-00000001");
    EXPECT_EQ(company.treasury().FolioMovimiento, "BM-00000001");
}

TEST_F(Deposit_generation, the_statements_are_the_same_however_the_list_is_spaced) {
    const auto statements = [](const std::string& list) {
        Company fresh;
        fresh.capture_receipt({check(12.25, "Sierra", "CH-7")});
        fresh.mark();
        EXPECT_TRUE(fresh.treasury().Genera_Deposito("SRR-MXN", list, Company::today(), true, Company::today()))
            << fresh.treasury().Error();
        return fresh.statements();
    };
    const std::vector<std::string> expected = statements("RP-MTY-00000001,R2");
    EXPECT_EQ(statements("RP-MTY-00000001, R2"), expected);
    EXPECT_EQ(statements(" RP-MTY - 00000001 ,  R2 "), expected);
}

TEST_F(Deposit_generation, only_blanks_are_taken_out_of_the_list) {
    EXPECT_FALSE(deposit(" A\tB , C "));
    EXPECT_EQ(error(), tag + "No se encontró el recibo de caja o el estado no permite realizar deposito:'A\tB','C'");
}

// ---- Grouping -------------------------------------------------------------------------------------------------------

TEST_F(Deposit_generation,
       each_check_is_a_line_cards_fold_by_reference_and_lines_come_in_the_order_of_method_bank_and_check) {
    capture({card(10, "T-2"), check(20, "Sierra", "2"), cash(1), check(30, "Puerto", "9")});
    capture({card(5, "T-2"), card(7, "T-1"), check(40, "Sierra", "1"), cash(2)});
    ASSERT_TRUE(deposit("RP-MTY-00000001,RP-MTY-00000002")) << error();
    EXPECT_THAT(deposit_lines(), ElementsAre("0001|MTY|MXN|1.0|3.0||", "0002|MTY|MXN|1.0|30.0|Puerto|9",
                                             "0003|MTY|MXN|1.0|40.0|Sierra|1", "0004|MTY|MXN|1.0|20.0|Sierra|2",
                                             "0005|MTY|MXN|1.0|7.0||T-1", "0006|MTY|MXN|1.0|15.0||T-2"));
    EXPECT_THAT(
        company.rows(
            "SELECT Bm_Documento_ID, Bm_Comentario, Bm_Referencia, Bm_Importe FROM Banco_Movimiento ORDER BY Bm_Folio"),
        ElementsAre("0001|DEPOSITO EFECTIVO||3.0", "0002|DEPOSITO CON CHEQUE|9|30.0", "0003|DEPOSITO CON CHEQUE|1|40.0",
                    "0004|DEPOSITO CON CHEQUE|2|20.0", "0005|DEPOSITO CON TARJETA DE CREDITO|T-1|7.0",
                    "0006|DEPOSITO CON TARJETA DE CREDITO|T-2|15.0"));
    EXPECT_EQ(company.treasury().FolioMovimiento, "BM-00000006");
    EXPECT_EQ(company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'"), "115.0");
    EXPECT_THAT(
        receipt_lines(),
        ElementsAre("RP-MTY-00000001|0001|DP|DP-MTY-00000001|0006", "RP-MTY-00000001|0002|DP|DP-MTY-00000001|0004",
                    "RP-MTY-00000001|0003|DP|DP-MTY-00000001|0001", "RP-MTY-00000001|0004|DP|DP-MTY-00000001|0002",
                    "RP-MTY-00000002|0001|DP|DP-MTY-00000001|0006", "RP-MTY-00000002|0002|DP|DP-MTY-00000001|0005",
                    "RP-MTY-00000002|0003|DP|DP-MTY-00000001|0003", "RP-MTY-00000002|0004|DP|DP-MTY-00000001|0001"));
}

TEST_F(Deposit_generation, another_method_carries_the_receipt_s_own_comment_to_the_movement) {
    capture({transfer(10, "SPEI-1")});
    ASSERT_TRUE(deposit("RP-MTY-00000001", "Corte"));
    EXPECT_EQ(company.scalar("SELECT Bm_Comentario FROM Banco_Movimiento"), "Cobranza");
    EXPECT_EQ(company.scalar("SELECT Dp_Comentario FROM Deposito_Pago"), "Corte");
}

TEST_F(Deposit_generation, without_a_comment_the_deposit_lines_have_none) {
    capture({cash(10)});
    ASSERT_TRUE(
        company.treasury().Genera_Deposito("SRR-MXN", "RP-MTY-00000001", Company::today(), false, Company::today()));
    EXPECT_EQ(company.scalar("SELECT Dp_Comentario FROM Deposito_Pago"), "");
}

TEST_F(Deposit_generation, groups_that_differ_in_currency_alone_are_two_lines_but_the_receipts_carry_the_first) {
    capture({check(10, "Sierra", "1")});
    capture({check(20, "Sierra", "1")}, header_of("MTY", "USD", 19.5));
    ASSERT_TRUE(deposit("RP-MTY-00000001,RP-MTY-00000002")) << error();
    EXPECT_THAT(deposit_lines(), ElementsAre("0001|MTY|MXN|1.0|10.0|Sierra|1", "0002|MTY|USD|19.5|20.0|Sierra|1"));
    EXPECT_THAT(receipt_lines(), ElementsAre("RP-MTY-00000001|0001|DP|DP-MTY-00000001|0001",
                                             "RP-MTY-00000002|0001|DP|DP-MTY-00000001|0001"));
    EXPECT_EQ(company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'"), "30.0")
        << "summed as they are, without conversion";
}

TEST_F(Deposit_generation, groups_that_differ_in_rate_branch_or_comment_are_lines_of_their_own) {
    capture({transfer(1, "S")});
    capture({transfer(2, "S")}, header_of("MTY", "MXN", 2));
    capture({transfer(4, "S")}, header_of("GDL"));
    tRpEncabezado other_comment = Company::receipt_header();
    other_comment.Rp_Comentario = "Otra";
    capture({transfer(8, "S")}, other_comment);
    ASSERT_TRUE(deposit("RP-MTY-00000001,RP-MTY-00000002,RP-GDL-00000001,RP-MTY-00000003")) << error();
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Deposito_Pago"), "4");
    EXPECT_EQ(company.scalar("SELECT sum(Dp_Importe) FROM Deposito_Pago"), "15.0");
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Recibo_Pago WHERE Rp_Deposito_ID = '0001'"), "4");
}

TEST_F(Deposit_generation, the_folio_is_of_the_branch_of_the_first_group) {
    capture({check(10, "Sierra", "1")});
    capture({cash(10)}, header_of("GDL"));
    ASSERT_TRUE(deposit("RP-MTY-00000001,RP-GDL-00000001")) << error();
    EXPECT_EQ(company.treasury().Dp_Folio(), "DP-GDL-00000001") << "cash comes first";
}

TEST_F(Deposit_generation, lines_of_methods_that_never_go_to_the_bank_stay_as_they_are) {
    capture({voucher(5), cash(10)});
    ASSERT_TRUE(deposit("RP-MTY-00000001")) << error();
    EXPECT_THAT(receipt_lines(),
                ElementsAre("RP-MTY-00000001|0001|AC||", "RP-MTY-00000001|0002|DP|DP-MTY-00000001|0001"));
}

TEST_F(Deposit_generation, receipts_of_such_methods_only_are_a_success_that_writes_nothing) {
    capture({cash(10)});
    ASSERT_TRUE(deposit("RP-MTY-00000001"));
    capture({voucher(5)});
    company.mark();
    EXPECT_TRUE(deposit("RP-MTY-00000002"));
    EXPECT_EQ(error(), "");
    EXPECT_THAT(company.changes_with_audit(), IsEmpty());
    EXPECT_EQ(company.treasury().Dp_Folio(), "DP-MTY-00000001") << "the folio of the deposit before";
    EXPECT_THAT(company.on.calls, IsEmpty());
    EXPECT_EQ(company.statements().size(), 2u);
}

TEST_F(Deposit_generation, line_numbers_start_again_with_each_deposit) {
    capture({cash(1)});
    capture({cash(2)});
    ASSERT_TRUE(deposit("RP-MTY-00000001"));
    ASSERT_TRUE(deposit("RP-MTY-00000002"));
    EXPECT_THAT(company.rows("SELECT Dp_Folio, Dp_Id FROM Deposito_Pago ORDER BY Dp_Folio"),
                ElementsAre("DP-MTY-00000001|0001", "DP-MTY-00000002|0001"));
}

TEST_F(Deposit_generation, a_receipt_in_capture_is_not_renumbered) {
    capture({cash(1)});
    company.treasury().RpEncabezado(Company::receipt_header());
    company.treasury().RpDetalle(cash(2));
    ASSERT_TRUE(company.treasury().Add_Recibo_Caja_Detalle());
    ASSERT_TRUE(deposit("RP-MTY-00000001"));
    ASSERT_TRUE(company.treasury().Add_Recibo_Caja_Detalle()) << error();
    EXPECT_EQ(company.treasury().RpDetalle().Rp_ID, "0002");
}

// ---- States and dates -----------------------------------------------------------------------------------------------

TEST_F(Deposit_generation, an_active_line_becomes_deposited_and_an_applied_one_applied_and_deposited) {
    capture({cash(1)});
    capture({cash(2)});
    company.sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'AP' WHERE Rp_Folio = 'RP-MTY-00000002'");
    ASSERT_TRUE(deposit("RP-MTY-00000001,RP-MTY-00000002")) << error();
    EXPECT_THAT(receipt_lines(), ElementsAre("RP-MTY-00000001|0001|DP|DP-MTY-00000001|0001",
                                             "RP-MTY-00000002|0001|AD|DP-MTY-00000001|0001"));
    EXPECT_THAT(deposit_lines(), ElementsAre("0001|MTY|MXN|1.0|3.0||"));
}

TEST_F(Deposit_generation, lines_in_other_states_are_left_out) {
    capture({cash(1), cash(2), cash(4), cash(8)});
    company.sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA' WHERE Rp_Id = '0002'");
    company.sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'DP' WHERE Rp_Id = '0003'");
    company.sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'AD' WHERE Rp_Id = '0004'");
    ASSERT_TRUE(deposit("RP-MTY-00000001"));
    EXPECT_THAT(deposit_lines(), ElementsAre("0001|MTY|MXN|1.0|1.0||"));
}

TEST_F(Deposit_generation, money_that_is_not_firm_is_in_transit_and_its_firm_date_is_that_of_the_deposit) {
    capture({cash(1)});
    ASSERT_TRUE(company.treasury().Genera_Deposito("SRR-MXN", "RP-MTY-00000001", make_date(2024, 3, 14), false,
                                                   make_date(2024, 3, 20)));
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado, Bm_Fecha, Bm_Fecha_Firme FROM Banco_Movimiento"),
                ElementsAre("TR|2024-03-14|2024-03-14"));
    EXPECT_EQ(company.scalar("SELECT Rp_Fecha_Deposito FROM Recibo_Pago"), "2024-03-14");
    EXPECT_EQ(company.scalar("SELECT Dp_Fecha FROM Deposito_Pago"), "2024-03-14");
}

TEST_F(Deposit_generation, firm_money_is_firm_on_the_date_given) {
    capture({cash(1)});
    ASSERT_TRUE(company.treasury().Genera_Deposito("SRR-MXN", "RP-MTY-00000001", make_date(2024, 3, 14), true,
                                                   make_date(2024, 3, 20)));
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado, Bm_Fecha, Bm_Fecha_Firme FROM Banco_Movimiento"),
                ElementsAre("FI|2024-03-14|2024-03-20"));
}

TEST_F(Deposit_generation, the_movement_type_is_read_at_the_moment_of_use) {
    capture({cash(1)});
    company.sql("UPDATE Parametro_Sistema SET Ps_Valor = 'INT' WHERE Ps_Nombre = 'TES_MOVIMIENTO_DEPOSITO'");
    ASSERT_TRUE(deposit("RP-MTY-00000001"));
    EXPECT_EQ(company.scalar("SELECT Bt_Cve_Banco_Tipo_Movimiento FROM Banco_Movimiento"), "INT");
}

// ---- The refusals, in their order -----------------------------------------------------------------------------------

const Preparation prepare = [](Company& company) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    company.post_automatically("DEPOSITO_PAGO");
    company.capture_receipt({cash(100), check(50, "Sierra", "1")});
};

const Call call = [](Company& company) {
    return company.treasury().Genera_Deposito("SRR-MXN", "RP-MTY-00000001", Company::today(), false, Company::today());
};

const std::string one_line = "+Deposito_Pago +Folio_Serie";
const std::string everything_but_the_end =
    "~Banco ~Banco_Cuenta +Banco_Movimiento +Deposito_Pago +Documento_Registrado +Folio_Serie ~Recibo_Pago";

TEST(Deposit_generation_order, the_refusals_come_in_the_order_of_the_steps) {
    const std::string no_type = "El tipo de movimiento de banco no existe o está dado de baja";
    const std::string no_receipt =
        "No se encontró el recibo de caja o el estado no permite realizar deposito:'RP-MTY-00000001'";
    const std::string all = everything_but_the_end;
    const std::string and_voucher =
        "~Banco ~Banco_Cuenta +Banco_Movimiento +Deposito_Pago +Documento_Registrado +Folio_Serie +Poliza "
        "+Poliza_Detalle ~Recibo_Pago";
    expect_refusals_in_order(
        {{"account", sql("DELETE FROM Banco_Cuenta"), tag + "No se encontró la información de la cuenta bancaria!"},
         {"same day", a_day_later, tag + not_today_but_yesterday},
         {"receipts", sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'DP'"), tag + no_receipt},
         {"folio", without_folio, tag + "Imposible obtener el folio del depósito"},
         {"movement", sql("DELETE FROM Banco_Tipo_Movimiento"), movement_tag_with_blank + no_type, one_line},
         {"voucher", refusing("PostDocument", "Cuenta inválida"), tag + "Cuenta inválida", all},
         {"registration", refusing_call("RegisterDocument(DEPOSITO_PAGO, DP-MTY-00000001)", "Sin réplica"),
          tag + "Sin réplica", and_voucher}},
        prepare, call);
}

TEST_F(Deposit_generation, a_cancelled_account_is_refused_before_a_folio_is_taken) {
    capture({cash(1)});
    company.mark();
    EXPECT_FALSE(
        company.treasury().Genera_Deposito("SRR-OLD", "RP-MTY-00000001", Company::today(), false, Company::today()));
    EXPECT_EQ(error(), tag + "No se encontró la información de la cuenta bancaria!");
    EXPECT_THAT(company.changes(), IsEmpty());
    EXPECT_THAT(company.statements(), IsEmpty());
}

TEST_F(Deposit_generation, an_account_without_description_counts_as_missing) {
    capture({cash(1)});
    company.sql("UPDATE Banco_Cuenta SET Bc_Descripcion = '' WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    EXPECT_FALSE(deposit("RP-MTY-00000001"));
    EXPECT_EQ(error(), tag + "No se encontró la información de la cuenta bancaria!");
}

TEST_F(Deposit_generation, a_receipt_that_is_deposited_already_is_refused_with_the_list) {
    capture({cash(1)});
    ASSERT_TRUE(deposit("RP-MTY-00000001"));
    company.mark();
    EXPECT_FALSE(deposit("RP-MTY-00000001, RP-MTY-00000009"));
    EXPECT_EQ(error(), tag +
                           "No se encontró el recibo de caja o el estado no permite realizar deposito:"
                           "'RP-MTY-00000001','RP-MTY-00000009'");
    EXPECT_THAT(company.changes(), IsEmpty());
    EXPECT_EQ(company.treasury().Dp_Folio(), "DP-MTY-00000001");
}

TEST_F(Deposit_generation, one_receipt_that_can_be_deposited_is_enough) {
    capture({cash(1)});
    ASSERT_TRUE(deposit("RP-MTY-00000001"));
    capture({cash(2)});
    ASSERT_TRUE(deposit("RP-MTY-00000001,RP-MTY-00000002,NADIE")) << error();
    EXPECT_THAT(receipt_lines(), ElementsAre("RP-MTY-00000001|0001|DP|DP-MTY-00000001|0001",
                                             "RP-MTY-00000002|0001|DP|DP-MTY-00000002|0001"));
}

TEST_F(Deposit_generation, an_empty_list_finds_no_receipt) {
    EXPECT_FALSE(deposit(""));
    EXPECT_EQ(error(), tag + "No se encontró el recibo de caja o el estado no permite realizar deposito:''");
}

TEST_F(Deposit_generation, without_a_folio_the_property_is_empty) {
    capture({cash(1)});
    capture({cash(2)});
    ASSERT_TRUE(deposit("RP-MTY-00000001"));
    company.on.next_folio = "";
    EXPECT_FALSE(deposit("RP-MTY-00000002"));
    EXPECT_EQ(company.treasury().Dp_Folio(), "");
}

TEST_F(Deposit_generation, the_folio_is_kept_after_a_later_failure) {
    capture({cash(1)});
    company.on.refuse("RegisterDocument", "Sin réplica");
    EXPECT_FALSE(deposit("RP-MTY-00000001"));
    EXPECT_EQ(error(), movement_tag + "Sin réplica") << "the movement is registered first";
    EXPECT_EQ(company.treasury().Dp_Folio(), "DP-MTY-00000001");
    EXPECT_EQ(company.treasury().FolioMovimiento, "BM-00000001");
}

// ---- Accounting -----------------------------------------------------------------------------------------------------

TEST_F(Deposit_generation, the_deposit_is_handed_to_accounting_and_registered_once_after_its_movements) {
    capture({cash(100), check(50, "Sierra", "1")});
    company.post_automatically("DEPOSITO_PAGO");
    company.mark();
    ASSERT_TRUE(deposit("RP-MTY-00000001")) << error();
    EXPECT_THAT(company.on.calls,
                ElementsAre("IsPostingEnabled(BANCO_MOVIMIENTO)", "RegisterDocument(BANCO_MOVIMIENTO, BM-00000001)",
                            "IsPostingEnabled(BANCO_MOVIMIENTO)", "RegisterDocument(BANCO_MOVIMIENTO, BM-00000002)",
                            "IsPostingEnabled(DEPOSITO_PAGO)", "PostDocument(DEPOSITO_PAGO, DP-MTY-00000001, EM01)",
                            "RegisterDocument(DEPOSITO_PAGO, DP-MTY-00000001)"));
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Poliza WHERE Pz_Documento = 'DP-MTY-00000001'"), "1");
}

TEST_F(Deposit_generation, without_automatic_posting_no_voucher_is_made) {
    capture({cash(100)});
    company.mark();
    ASSERT_TRUE(deposit("RP-MTY-00000001"));
    EXPECT_THAT(company.on.calls,
                ElementsAre("IsPostingEnabled(BANCO_MOVIMIENTO)", "RegisterDocument(BANCO_MOVIMIENTO, BM-00000001)",
                            "IsPostingEnabled(DEPOSITO_PAGO)", "RegisterDocument(DEPOSITO_PAGO, DP-MTY-00000001)"));
}

TEST_F(Deposit_generation, a_voucher_that_succeeds_with_a_text_is_a_failure_all_the_same) {
    capture({cash(100)});
    company.post_automatically("DEPOSITO_PAGO");
    company.on.accept("PostDocument", "Póliza sin cuadrar");
    EXPECT_FALSE(deposit("RP-MTY-00000001"));
    EXPECT_EQ(error(), tag + "Póliza sin cuadrar");
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Documento_Registrado WHERE Dr_Codigo = 'DEPOSITO_PAGO'"), "0");
}

// ---- Failures in turn -----------------------------------------------------------------------------------------------

TEST(Deposit_generation_failures, each_statement_that_fails_leaves_what_came_before_it) {
    const std::string own = " => " + tag + obstructed::statement_failure;
    const std::string movement = " => " + movement_tag_with_blank + obstructed::statement_failure;
    const std::string first_group = " [" + everything_but_the_end + "]";
    EXPECT_THAT(
        listed(statements_fail_in_turn(prepare, call)),
        ElementsAre("SELECT Recibo_Pago" + own + " []", "SELECT Recibo_Pago" + own + " []",
                    "INSERT Deposito_Pago" + own + " [+Folio_Serie]",
                    "SELECT Banco_Cuenta" + movement + " [+Deposito_Pago +Folio_Serie]",
                    "INSERT Banco_Movimiento" + movement + " [+Deposito_Pago +Folio_Serie]",
                    "UPDATE Banco_Cuenta" + movement + " [+Banco_Movimiento +Deposito_Pago +Folio_Serie]",
                    "UPDATE Banco" + movement + " [~Banco_Cuenta +Banco_Movimiento +Deposito_Pago +Folio_Serie]",
                    "UPDATE Recibo_Pago" + own +
                        " [~Banco ~Banco_Cuenta +Banco_Movimiento +Deposito_Pago +Documento_Registrado +Folio_Serie]",
                    "INSERT Deposito_Pago" + own + first_group, "SELECT Banco_Cuenta" + movement + first_group,
                    "INSERT Banco_Movimiento" + movement + first_group, "UPDATE Banco_Cuenta" + movement + first_group,
                    "UPDATE Banco" + movement + first_group, "UPDATE Recibo_Pago" + own + first_group));
}

TEST(Deposit_generation_failures, a_failure_in_the_second_group_leaves_the_first_one_whole) {
    Company company;
    prepare(company);
    company.mark();
    company.on.failing_statement = 9;  // the second line of the deposit
    EXPECT_FALSE(call(company));
    EXPECT_THAT(company.rows("SELECT Rp_Id, Es_Cve_Estado, Rp_Deposito_ID FROM Recibo_Pago ORDER BY Rp_Id"),
                ElementsAre("0001|DP|0001", "0002|AC|"));
    EXPECT_THAT(company.rows("SELECT Dp_Id, Dp_Importe FROM Deposito_Pago"), ElementsAre("0001|100.0"));
    EXPECT_EQ(company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'"), "100.0");
}

TEST(Deposit_generation_failures, each_service_call_that_fails_is_reported_under_the_tag_of_the_member_it_served) {
    const std::vector<Outcome> outcomes = calls_fail_in_turn(prepare, call);
    std::vector<std::string> lines;
    for (const Outcome& outcome : outcomes) {
        const std::string where = outcome.error.substr(0, outcome.error.find("\r\n"));
        EXPECT_EQ(outcome.error.substr(outcome.error.size() - std::string(obstructed::call_failure).size()),
                  obstructed::call_failure);
        lines.push_back(outcome.failed + (where == tag.substr(0, tag.size() - 2) ? "" : " in the movement"));
    }
    const std::vector<std::string> line = {"GetUserName", "SqlDate"};
    const std::vector<std::string> movement = {
        "GetServerDate in the movement",    "SqlDateTime in the movement",     "GetServerDate in the movement",
        "LookupValue in the movement",      "GetNextFolio in the movement",    "LookupValue in the movement",
        "GetUserName in the movement",      "SqlDate in the movement",         "SqlDate in the movement",
        "IsPostingEnabled in the movement", "RegisterDocument in the movement"};
    std::vector<std::string> expected = {"LookupValue",   "GetServerDate", "GetParameter",
                                         "GetServerDate", "SqlDateTime",   "GetNextFolio"};
    for (int group = 0; group < 2; ++group) {
        expected.insert(expected.end(), line.begin(), line.end());
        expected.insert(expected.end(), movement.begin(), movement.end());
        expected.push_back("SqlDate");  // the mark on the receipts
    }
    expected.insert(expected.end(), {"IsPostingEnabled", "PostDocument", "RegisterDocument"});
    EXPECT_EQ(lines, expected);
}

// ---- Hostile values -------------------------------------------------------------------------------------------------

TEST_F(Deposit_generation, a_date_that_is_none_writes_no_line) {
    capture({cash(1)});
    company.mark();
    for (const double days : {std::nan(""), std::numeric_limits<double>::infinity(), 1e300}) {
        EXPECT_FALSE(
            company.treasury().Genera_Deposito("SRR-MXN", "RP-MTY-00000001", Date{days}, false, Company::today()));
        EXPECT_EQ(error(), tag + "Desbordamiento");
    }
    EXPECT_EQ(touched(company.changes()), "+Folio_Serie");
}

TEST_F(Deposit_generation, a_quote_in_account_list_or_comment_fails_and_smuggles_nothing_in) {
    capture({cash(1)});
    company.mark();
    for (const std::string value : {"O'Brien", "x'); DELETE FROM Recibo_Pago; --", "'"}) {
        EXPECT_FALSE(
            company.treasury().Genera_Deposito(value, "RP-MTY-00000001", Company::today(), false, Company::today()));
        EXPECT_FALSE(deposit(value));
        EXPECT_FALSE(deposit("RP-MTY-00000001", value));
        EXPECT_EQ(error().substr(0, tag.size()), tag);
    }
    EXPECT_EQ(touched(company.changes()), "+Folio_Serie");
}

TEST_F(Deposit_generation, a_quote_in_a_stored_check_number_stops_the_deposit_where_it_first_stands) {
    capture({check(1, "Sierra", "x")});
    company.sql("UPDATE Recibo_Pago SET Rp_Cheque = 'O''Brien'");
    company.mark();
    EXPECT_FALSE(deposit("RP-MTY-00000001"));
    EXPECT_EQ(error().substr(0, tag.size()), tag);
    EXPECT_EQ(touched(company.changes()), "+Folio_Serie");
}

TEST_F(Deposit_generation, malformed_text_fails_and_a_long_one_is_kept_whole_or_refused) {
    capture({cash(1)});
    company.mark();
    EXPECT_FALSE(deposit("\xff"));
    EXPECT_FALSE(deposit("RP-MTY-00000001", "\xc3"));
    EXPECT_EQ(touched(company.changes()), "+Folio_Serie");
    EXPECT_FALSE(deposit("RP-MTY-00000001", std::string(10'000'000, 'x')));
    EXPECT_THAT(error(),
                testing::HasSubstr("El valor no cabe en la columna Dp_Comentario: admite hasta 8000 caracteres"));
    ASSERT_TRUE(deposit("RP-MTY-00000001", std::string(8000, 'x'))) << error();
    EXPECT_EQ(company.scalar("SELECT length(Dp_Comentario) FROM Deposito_Pago"), "8000");
}

TEST_F(Deposit_generation, folios_compare_without_regard_to_case) {
    capture({cash(1)});
    EXPECT_TRUE(deposit("rp-mty-00000001")) << error();
    EXPECT_THAT(receipt_lines(), ElementsAre("RP-MTY-00000001|0001|DP|DP-MTY-00000001|0001"));
}

}  // namespace
}  // namespace cuvexa::tests
