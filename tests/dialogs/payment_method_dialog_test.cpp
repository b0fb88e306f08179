// The dialog that asks for the data of a payment method, over scripted controls.
#include "dialogs/scripted.h"

namespace cuvexa::tests {
namespace {

using ::testing::Contains;

Report refusal(const std::string& message, const std::string& code) {
    return {message, 16, "Controles_B1Click()", "", "Cuvexa", code};
}

std::vector<std::string> remembered(Company& company) {
    return company.rows("SELECT Dcb_ID, Dcb_Banco, Dcb_Cuenta FROM Documento_Cuenta_Bancaria ORDER BY Dcb_ID");
}

// ---- What the form is made of --------------------------------------------------------------------------------------

TEST(Payment_method_dialog, its_controls_carry_the_names_and_texts_of_the_suite) {
    Scripted dialog;
    dialog.payment([](frmFormaPago& form, Scripted_window&) {
        EXPECT_EQ(form.Name(), "frmFormaPago");
        EXPECT_EQ(form.buttons().caption, "Datos de la forma de pago");
        EXPECT_EQ(form.buttons().b1.caption, "Aceptar");
        EXPECT_EQ(form.buttons().b2.caption, "Cancelar");
        EXPECT_EQ(form.Etiqueta1.idetiqueta + form.Etiqueta1.caption(), "SUCURSALSucursal:");
        EXPECT_EQ(form.Label7.idetiqueta + form.Label7.caption(), "CUENTACuenta:");
        EXPECT_EQ(form.Etiqueta2.idetiqueta + form.Etiqueta2.caption(), "REFERENCIAReferencia:");
        EXPECT_EQ(form.Etiqueta4.idetiqueta + form.Etiqueta4.caption(), "BANCOBanco");
        EXPECT_EQ(form.Etiqueta3.idetiqueta + form.Etiqueta3.caption(), "Forma de pagoForma de pago:");
        EXPECT_EQ(form.lbTabla.idetiqueta, "TABLA");
        EXPECT_EQ(form.Etiqueta5.idetiqueta, "METODO PAGO SAT");
        EXPECT_EQ(form.lbInfo.caption(), "Banco: {SHIFT} + {F2} para ver la lista completa de bancos");
        for (const auto* name :
             {"Frame1", "txtSucursal", "txtCuenta", "txtReferencia", "Controles", "txtBanco", "txtNBanco", "lbTabla",
              "txtDocumento", "txtFormaPago", "txtnFormaPago", "Etiqueta5", "lbInfo", "ColorScheme"}) {
            EXPECT_NE(form.find(name), nullptr) << name;
        }
    });
}

TEST(Payment_method_dialog, bank_and_method_know_their_catalogues) {
    Scripted dialog;
    dialog.payment([](frmFormaPago& form, Scripted_window&) {
        EXPECT_EQ(form.txtBanco.idconsulta, "BANCO");
        EXPECT_EQ(form.txtBanco.sql(),
                  "SELECT Bn_Descripcion FROM Banco WHERE Bn_Cve_Banco = '?' AND Es_Cve_Estado <> 'BA'");
        EXPECT_EQ(form.txtBanco.sql_control_resultado, "txtNBanco");
        EXPECT_EQ(form.txtFormaPago.idconsulta, "FORMA_PAGO");
        EXPECT_EQ(form.txtFormaPago.sql(),
                  "SELECT Fp_Descripcion FROM Forma_Pago WHERE Fp_Cve_Forma_Pago = '?' AND Es_Cve_Estado <> 'BA'");
        EXPECT_EQ(form.txtFormaPago.sql_control_resultado, "txtNFormaPago");
    });
}

TEST(Payment_method_dialog, document_method_and_its_description_are_locked) {
    Scripted dialog;
    dialog.payment([](frmFormaPago& form, Scripted_window&) {
        EXPECT_TRUE(form.txtDocumento.Locked());
        EXPECT_TRUE(form.txtFormaPago.Locked());
        EXPECT_TRUE(form.txtnFormaPago.Locked());
        EXPECT_FALSE(form.txtNBanco.Locked());
        EXPECT_FALSE(form.txtBanco.Locked());
    });
}

TEST(Payment_method_dialog, the_input_formats_come_from_the_system_parameters) {
    Scripted dialog;
    dialog.set_parameter("FTO_BANCO", "000");
    dialog.set_parameter("FTO_FORMA_PAGO", "00");
    dialog.payment([](frmFormaPago& form, Scripted_window&) {
        EXPECT_EQ(form.txtBanco.formato, "000");
        EXPECT_EQ(form.txtFormaPago.formato, "00");
    });
}

// ---- Mostrar -------------------------------------------------------------------------------------------------------

TEST(Payment_method_dialog, it_reads_the_method_before_it_opens) {
    Scripted dialog;
    dialog.payment([&](frmFormaPago& form, Scripted_window&) {
        EXPECT_EQ(form.lbTabla.caption(), "CLIENTE");
        EXPECT_EQ(form.txtDocumento.Text(), "CL01");
        EXPECT_EQ(form.txtFormaPago.Text(), "03");
        EXPECT_EQ(form.txtnFormaPago.Text(), "Transferencia electrónica");
        EXPECT_EQ(form.Etiqueta5.caption(), "Método pago SAT: 03");
    });
}

TEST(Payment_method_dialog, only_what_the_method_requires_can_be_filled) {
    Scripted dialog;
    const auto enabled = [&](const std::string& method) {
        dialog.method = method;
        std::string fields;
        dialog.payment([&](frmFormaPago& form, Scripted_window&) {
            for (const Control* control : form.tab_order()) {
                if (control->takes_focus()) fields += control->Name() + " ";
            }
        });
        return fields;
    };
    const std::string buttons = "Controles.b1 Controles.b2 ";  // and the branch, for which no method has a flag
    EXPECT_EQ(enabled("01"), "txtSucursal " + buttons);
    EXPECT_EQ(enabled("02"), "txtBanco txtNBanco txtSucursal txtReferencia " + buttons);
    EXPECT_EQ(enabled("03"), "txtBanco txtNBanco txtSucursal txtCuenta txtReferencia " + buttons);
    EXPECT_EQ(enabled("04"), "txtSucursal txtReferencia " + buttons);
}

TEST(Payment_method_dialog, a_cancelled_method_is_refused_before_the_form_opens) {
    Scripted dialog;
    dialog.method = "99";
    EXPECT_EQ(dialog.payment([](frmFormaPago&, Scripted_window&) {}), "");
    EXPECT_EQ(dialog.toolkit->shown, 0);
    EXPECT_THAT(dialog.company.on.reports_in_full, ElementsAre(Report{"La forma de pago está dada de baja!", 16,
                                                                      "Mostrar()", "", "Cuvexa", "ERR-ID:7500007"}));
    EXPECT_EQ(dialog.company.treasury().Error(), "");
}

TEST(Payment_method_dialog, a_failure_while_it_prepares_is_reported_and_it_does_not_open) {
    Scripted dialog;
    for (const std::string method : {"NADA", "0'3"}) {
        dialog.company.mark();
        dialog.method = method;
        EXPECT_EQ(dialog.payment([](frmFormaPago&, Scripted_window&) {}), "");
        ASSERT_EQ(dialog.company.on.reports_in_full.size(), 1u) << method;
        EXPECT_EQ(dialog.company.on.reports_in_full[0].routine, "Mostrar()");
        EXPECT_EQ(dialog.company.on.reports_in_full[0].code, "ERR-ID:7500008");
    }
    EXPECT_EQ(dialog.toolkit->shown, 0);
}

// ---- The answer ----------------------------------------------------------------------------------------------------

TEST(Payment_method_dialog, the_answer_is_bank_name_reference_account_and_bank) {
    Scripted dialog;
    const auto answer = dialog.payment([](frmFormaPago& form, Scripted_window& user) {
        user.type("SIERRA").press(key_enter);
        EXPECT_EQ(form.txtNBanco.Text(), "Banco de la Sierra");
        user.type("12").press(key_enter);
        user.type("0901").press(key_enter);
        user.type("TR-5").press(key_f4);
        EXPECT_TRUE(user.hidden);
    });
    EXPECT_EQ(answer, "Banco de la Sierra|TR-5|0901|SIERRA");
}

TEST(Payment_method_dialog, what_the_caller_knows_fills_the_fields) {
    Scripted dialog;
    dialog.bank = "SIERRA";
    dialog.reference = "R-1";
    dialog.account = "777";
    dialog.bank_name = "Sierra (sucursal centro)";
    EXPECT_EQ(dialog.payment([](frmFormaPago&, Scripted_window& user) { user.press(key_f4); }),
              "Sierra (sucursal centro)|R-1|777|SIERRA");
}

TEST(Payment_method_dialog, a_bank_without_name_is_looked_up) {
    Scripted dialog;
    dialog.bank = "PUERTO";
    dialog.payment([](frmFormaPago& form, Scripted_window&) { EXPECT_EQ(form.txtNBanco.Text(), "Banco del Puerto"); });
}

TEST(Payment_method_dialog, cancelling_gives_the_empty_text_and_remembers_nothing) {
    Scripted dialog;
    dialog.bank = "SIERRA";
    dialog.reference = "R-1";
    dialog.account = "777";
    EXPECT_EQ(dialog.payment([](frmFormaPago&, Scripted_window& user) { user.press(key_escape); }), "");
    EXPECT_EQ(dialog.payment([](frmFormaPago& form, Scripted_window&) { form.press(form.buttons().b2); }), "");
    EXPECT_THAT(dialog.company.changes(), IsEmpty());
}

TEST(Payment_method_dialog, a_method_that_requires_nothing_accepts_empty_fields) {
    Scripted dialog;
    dialog.method = "01";
    EXPECT_EQ(dialog.payment([](frmFormaPago&, Scripted_window& user) { user.press(key_f4); }), "|||");
    EXPECT_THAT(dialog.company.changes(), IsEmpty());
}

// ---- Rules ---------------------------------------------------------------------------------------------------------

TEST(Payment_method_dialog, the_first_rule_that_fails_is_shown_and_its_field_gets_the_focus) {
    Scripted dialog;
    const auto answer = dialog.payment([&](frmFormaPago& form, Scripted_window& user) {
        const auto refused = [&](const std::string& message, const std::string& code, const std::string& field) {
            dialog.company.mark();
            user.press(key_f4);
            EXPECT_FALSE(user.hidden);
            EXPECT_THAT(dialog.company.on.reports_in_full, ElementsAre(refusal(message, code)));
            EXPECT_EQ(user.focus(), field);
        };
        refused("Esta forma de pago! requiere un banco", "ERR-ID:7500001", "txtBanco");
        user.type("NADA");
        refused("Esta forma de pago requiere un banco válido!", "ERR-ID:7500002", "txtBanco");
        user.type("SIERRA");
        refused("Esta forma de pago requiere una cuenta!", "ERR-ID:7500003", "txtCuenta");
        user.type("   ");
        refused("Esta forma de pago requiere una cuenta!", "ERR-ID:7500003", "txtCuenta");
        user.type("0901");
        refused("Esta forma de pago requiere una referencia!", "ERR-ID:7500004", "txtReferencia");
        user.type("  ");
        refused("Esta forma de pago requiere una referencia!", "ERR-ID:7500004", "txtReferencia");
        user.type("TR-5");
        form.press(form.buttons().b1);
        EXPECT_TRUE(user.hidden);
    });
    EXPECT_EQ(answer, "Banco de la Sierra|TR-5|0901|SIERRA");
}

TEST(Payment_method_dialog, a_closed_bank_and_a_quote_are_no_valid_banks) {
    Scripted dialog;
    for (const std::string bank : {"VIEJO", "SIE'RRA", "' OR '1'='1"}) {
        dialog.company.mark();
        dialog.payment([&](frmFormaPago&, Scripted_window& user) {
            user.type(bank).press(key_f4);
            ASSERT_FALSE(dialog.company.on.reports_in_full.empty());
            EXPECT_EQ(dialog.company.on.reports_in_full.back(),
                      refusal("Esta forma de pago requiere un banco válido!", "ERR-ID:7500002"));
        });
    }
}

// ---- The accounts of a document ------------------------------------------------------------------------------------

TEST(Payment_method_dialog, a_new_account_is_remembered_for_the_document) {
    Scripted dialog;
    dialog.payment([&](frmFormaPago&, Scripted_window& user) {
        user.type("SIERRA").press(key_enter).type("12").press(key_enter).type("0901").press(key_enter).type("TR-5");
        dialog.company.mark();
        user.press(key_f4);
        EXPECT_TRUE(user.hidden);
    });
    EXPECT_THAT(remembered(dialog.company), ElementsAre("0001|SIERRA|0901"));
}

TEST(Payment_method_dialog, the_same_account_is_remembered_once) {
    Scripted dialog;
    dialog.bank = "SIERRA";
    dialog.account = "777";
    dialog.reference = "R";
    for (int i = 0; i < 2; ++i) dialog.payment([](frmFormaPago&, Scripted_window& user) { user.press(key_f4); });
    EXPECT_THAT(remembered(dialog.company), ElementsAre("0001|SIERRA|777"));
}

TEST(Payment_method_dialog, the_next_account_takes_the_highest_number_and_one) {
    Scripted dialog;
    dialog.known_account("0009", "PUERTO", "1");
    dialog.known_account("9999", "PUERTO", "2");
    dialog.known_account("10000", "PUERTO", "3", "BA");
    dialog.bank = "SIERRA";
    dialog.account = "777";
    dialog.reference = "R";
    dialog.payment([](frmFormaPago&, Scripted_window& user) { user.press(key_f4); });
    EXPECT_THAT(remembered(dialog.company), Contains("10001|SIERRA|777"));
}

TEST(Payment_method_dialog, without_table_or_document_nothing_is_remembered_or_suggested) {
    Scripted dialog;
    dialog.suggest = true;
    dialog.known_account("0001", "SIERRA", "0901-1");
    const auto asking = [&](const std::string& table, const std::string& document) {
        dialog.table = table;
        dialog.document = document;
        dialog.payment([&](frmFormaPago& form, Scripted_window& user) {
            user.type("SIERRA").press(key_enter);
            EXPECT_EQ(form.txtCuenta.Text(), "");
            EXPECT_FALSE(form.txtCuenta.search.has_value());
            form.go_to(form.txtCuenta);
            user.type("555").press(key_enter).type("R").press(key_f4);
            EXPECT_TRUE(user.hidden);
        });
    };
    asking("", "CL01");
    asking("CLIENTE", "");
    EXPECT_THAT(dialog.company.changes(), IsEmpty());
}

TEST(Payment_method_dialog, a_failure_while_remembering_is_reported_and_the_form_stays_open) {
    Scripted dialog;
    dialog.reference = "R";
    dialog.bank = "SIERRA";
    dialog.account = "O'1";  // the statement takes it as it stands
    EXPECT_EQ(dialog.payment([&](frmFormaPago&, Scripted_window& user) {
        dialog.company.mark();
        user.press(key_f4);
        EXPECT_FALSE(user.hidden);
        ASSERT_EQ(dialog.company.on.reports_in_full.size(), 1u);
        EXPECT_EQ(dialog.company.on.reports_in_full[0].routine, "Controles_B1Click()");
        EXPECT_EQ(dialog.company.on.reports_in_full[0].code, "ERR-ID:7500005");
    }),
              "");
    EXPECT_THAT(dialog.company.changes(), IsEmpty());
}

TEST(Payment_method_dialog, every_statement_that_remembers_may_fail) {
    Scripted dialog;
    dialog.reference = "R";
    dialog.bank = "SIERRA";
    dialog.account = "777";
    for (std::size_t n = 1; n <= 3; ++n) {
        dialog.payment([&](frmFormaPago&, Scripted_window& user) {
            user.press(key_tab);  // out of the bank, so that only Aceptar runs statements
            dialog.company.mark();
            dialog.company.on.failing_statement = n;
            user.press(key_f4);
            EXPECT_FALSE(user.hidden) << n;
            EXPECT_THAT(dialog.company.on.reports_in_full,
                        ElementsAre(refusal(obstructed::statement_failure, "ERR-ID:7500005")));
            dialog.company.on.clear();
        });
        EXPECT_THAT(remembered(dialog.company), IsEmpty());
    }
}

TEST(Payment_method_dialog, leaving_the_bank_suggests_the_first_account_known_there) {
    Scripted dialog;
    dialog.suggest = true;
    dialog.known_account("0001", "SIERRA", "cerrada", "BA");
    dialog.known_account("0002", "SIERRA", "0901-2");
    dialog.known_account("0003", "SIERRA", "0901-3");
    dialog.known_account("0004", "PUERTO", "0902-4");
    dialog.payment([&](frmFormaPago& form, Scripted_window& user) {
        dialog.company.mark();
        user.type("SIERRA").press(key_enter);
        EXPECT_EQ(form.txtCuenta.Text(), "0901-2");
        form.go_to(form.txtBanco);
        user.type("PUERTO").press(key_enter);
        EXPECT_EQ(form.txtCuenta.Text(), "0902-4");
    });
}

TEST(Payment_method_dialog, without_the_suggest_flag_no_account_is_suggested) {
    Scripted dialog;
    dialog.known_account("0002", "SIERRA", "0901-2");
    dialog.payment([](frmFormaPago& form, Scripted_window& user) {
        user.type("SIERRA").press(key_enter);
        EXPECT_EQ(form.txtCuenta.Text(), "");
    });
}

TEST(Payment_method_dialog, each_leaving_of_the_bank_suggests) {
    Scripted dialog;
    dialog.suggest = true;
    dialog.known_account("0002", "SIERRA", "0901-2");
    dialog.payment([](frmFormaPago& form, Scripted_window& user) {
        user.type("SIERRA").press(key_enter);
        form.go_to(form.txtCuenta);
        user.type("999");
        form.go_to(form.txtBanco);
        user.press(key_enter);
        EXPECT_EQ(form.txtCuenta.Text(), "0901-2");
    });
}

TEST(Payment_method_dialog, accepting_from_the_bank_suggests_nothing_over_the_account_that_is_seen) {
    for (const bool by_button : {false, true}) {
        Scripted dialog;
        dialog.suggest = true;
        dialog.bank = "SIERRA";
        dialog.account = "999";
        dialog.reference = "R";
        dialog.known_account("0002", "SIERRA", "0901-2");
        const auto answer = dialog.payment([&](frmFormaPago& form, Scripted_window& user) {
            EXPECT_EQ(user.focus(), "txtBanco");
            if (by_button) {
                form.go_to(form.buttons().b1);
                form.press(form.buttons().b1);
            } else {
                user.press(key_f4);
            }
        });
        EXPECT_EQ(answer, "Banco de la Sierra|R|999|SIERRA");
        EXPECT_THAT(remembered(dialog.company), Contains("0003|SIERRA|999"));
    }
}

TEST(Payment_method_dialog, accepting_commits_the_bank_that_was_typed_last) {
    Scripted dialog;
    dialog.account = "999";
    dialog.reference = "R";
    EXPECT_EQ(dialog.payment([](frmFormaPago&, Scripted_window& user) { user.type("SIERRA").press(key_f4); }),
              "Banco de la Sierra|R|999|SIERRA");
}

TEST(Payment_method_dialog, an_empty_bank_asks_nothing_at_any_leaving) {
    Scripted dialog;
    dialog.suggest = true;
    dialog.known_account("0001", "", "sin banco");
    dialog.payment([&](frmFormaPago& form, Scripted_window& user) {
        for (int i = 0; i < 2; ++i) {
            dialog.company.mark();
            user.press(key_enter);
            EXPECT_THAT(dialog.company.statements(), IsEmpty());
            EXPECT_EQ(form.txtCuenta.Text(), "");
            form.go_to(form.txtBanco);
        }
    });
}

TEST(Payment_method_dialog, a_suggestion_that_failed_is_asked_for_again) {
    Scripted dialog;
    dialog.suggest = true;
    dialog.known_account("0002", "SIERRA", "0901-2");
    dialog.payment([&](frmFormaPago& form, Scripted_window& user) {
        user.type("SIERRA");
        dialog.company.mark();
        dialog.company.on.failing_statement = 2;  // after the validation of the key
        user.press(key_enter);
        EXPECT_EQ(form.txtCuenta.Text(), "");
        dialog.company.on.clear();
        form.go_to(form.txtBanco);
        user.press(key_enter);
        EXPECT_EQ(form.txtCuenta.Text(), "0901-2");
    });
}

TEST(Payment_method_dialog, a_bank_where_nothing_is_known_leaves_the_account) {
    Scripted dialog;
    dialog.suggest = true;
    dialog.account = "777";
    dialog.payment([](frmFormaPago& form, Scripted_window& user) {
        user.type("PUERTO").press(key_enter);
        EXPECT_EQ(form.txtCuenta.Text(), "777");
    });
}

TEST(Payment_method_dialog, a_failure_on_leaving_the_bank_is_reported_with_its_code) {
    Scripted dialog;
    dialog.suggest = true;
    dialog.payment([&](frmFormaPago&, Scripted_window& user) {
        user.type("SIERRA");
        dialog.company.mark();
        dialog.company.on.failing_statement = 2;  // after the validation of the key
        user.press(key_enter);
        EXPECT_THAT(
            dialog.company.on.reports_in_full,
            ElementsAre(Report{obstructed::statement_failure, 16, "txtBanco_Enter()", "", "Cuvexa", "ERR-ID:7500006"}));
        EXPECT_EQ(user.focus(), "txtSucursal");
    });
}

// ---- Lists ---------------------------------------------------------------------------------------------------------

TEST(Payment_method_dialog, f2_lists_all_banks_for_a_document_without_accounts) {
    Scripted dialog;
    dialog.payment([&](frmFormaPago& form, Scripted_window& user) {
        user.choice = "PUERTO";
        user.press(key_f2);
        EXPECT_EQ(user.lists.at(0).title, "Bancos");
        EXPECT_THAT(user.lists.at(0).keys(), ElementsAre("PUERTO", "SIERRA"));
        EXPECT_EQ(form.txtBanco.Text(), "PUERTO");
        EXPECT_EQ(form.txtNBanco.Text(), "Banco del Puerto");
    });
}

TEST(Payment_method_dialog, f2_lists_only_the_banks_that_the_document_has_used) {
    Scripted dialog;
    dialog.known_account("0001", "SIERRA", "1");
    dialog.known_account("0002", "SIERRA", "2");
    dialog.payment([&](frmFormaPago&, Scripted_window& user) {
        user.sought = "901";
        dialog.company.mark();
        user.press(key_f2);
        EXPECT_THAT(user.lists.at(0).rows, ElementsAre(ElementsAre("SIERRA", "Banco de la Sierra")));
    });
}

TEST(Payment_method_dialog, shift_f2_brings_the_full_catalogue_back) {
    Scripted dialog;
    dialog.known_account("0001", "SIERRA", "1");
    dialog.payment([](frmFormaPago&, Scripted_window& user) {
        user.press(key_f2, true);
        EXPECT_THAT(user.lists.at(0).keys(), ElementsAre("PUERTO", "SIERRA"));
        user.press(key_f2);
        EXPECT_THAT(user.lists.at(1).keys(), ElementsAre("PUERTO", "SIERRA"));
    });
}

TEST(Payment_method_dialog, the_account_field_lists_the_accounts_of_the_bank) {
    Scripted dialog;
    dialog.known_account("0001", "SIERRA", "0901-1");
    dialog.known_account("0002", "PUERTO", "0902-1");
    dialog.known_account("0003", "SIERRA", "0901-3", "BA");
    dialog.known_account("0004", "SIERRA", "0901-4");
    dialog.payment([&](frmFormaPago& form, Scripted_window& user) {
        user.type("SIERRA").press(key_enter);
        form.go_to(form.txtCuenta);
        user.choice = "0901-4";
        dialog.company.mark();
        user.press(key_f2);
        EXPECT_THAT(user.lists.at(0).columns, ElementsAre("CUENTA", "ID", "CLABE", "BANCO"));
        EXPECT_THAT(user.lists.at(0).rows, ElementsAre(ElementsAre("0901-1", "0001", "", "901 - Banco de la Sierra"),
                                                       ElementsAre("0901-4", "0004", "", "901 - Banco de la Sierra")));
        EXPECT_EQ(form.txtCuenta.Text(), "0901-4");
    });
}

TEST(Payment_method_dialog, f2_in_a_field_without_catalogue_opens_nothing) {
    Scripted dialog;
    dialog.payment([](frmFormaPago& form, Scripted_window& user) {
        form.go_to(form.txtReferencia);
        user.press(key_f2);
        EXPECT_THAT(user.lists, IsEmpty());
    });
}

// ---- Keys ----------------------------------------------------------------------------------------------------------

TEST(Payment_method_dialog, tab_and_enter_walk_through_what_is_asked) {
    Scripted dialog;
    for (const int key : {key_tab, key_enter}) {
        dialog.payment([=](frmFormaPago&, Scripted_window& user) {
            std::vector<std::string> walk = {user.focus()};
            for (int i = 0; i < 4; ++i) walk.push_back(user.press(key).focus());
            EXPECT_THAT(walk, ElementsAre("txtBanco", "txtSucursal", "txtCuenta", "txtReferencia", "Controles.b1"));
        });
    }
}

TEST(Payment_method_dialog, an_unknown_bank_does_not_hold_the_keyboard) {
    Scripted dialog;
    dialog.payment([](frmFormaPago& form, Scripted_window& user) {
        user.type("NADA").press(key_enter);
        EXPECT_EQ(user.focus(), "txtSucursal");
        EXPECT_TRUE(form.txtBanco.refused());
        EXPECT_EQ(form.txtBanco.Text(), "NADA");
    });
}

// ---- When it cannot be shown ---------------------------------------------------------------------------------------

TEST(Payment_method_dialog, without_a_toolkit_the_caller_gets_a_run_time_error_and_the_error_text_stays) {
    Company company;
    ASSERT_FALSE(company.treasury().Cancelar_Deposito("NADA"));
    const std::string left = company.treasury().Error();
    EXPECT_THROW(company.treasury().PedirDatosFormaPago("03"), Automation_error);
    EXPECT_EQ(company.treasury().Error(), left);
    EXPECT_THAT(company.on.reports, IsEmpty());
}

}  // namespace
}  // namespace cuvexa::tests
