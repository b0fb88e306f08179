// The dialog that asks for the deposit data, over scripted controls.
#include "dialogs/scripted.h"

namespace cuvexa::tests {
namespace {

Report refusal(const std::string& message, const std::string& code) {
    return {message, 16, "Controles_B1Click()", "", "Cuvexa", code};
}

const std::string account_query =
    "SELECT Bc_Descripcion FROM Banco_Cuenta  WHERE Mn_Cve_Moneda = 'MXN' AND   Bc_Cve_Banco_Cuenta = '?' AND "
    "Es_Cve_Estado <> 'BA' ";

// ---- What the form is made of --------------------------------------------------------------------------------------

TEST(Deposit_dialog, its_controls_carry_the_names_and_texts_of_the_suite) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window&) {
        EXPECT_EQ(form.Name(), "frmDeposito");
        EXPECT_EQ(form.Caption(), "Depósito a banco");
        EXPECT_EQ(form.buttons().Name(), "Controles");
        EXPECT_EQ(form.buttons().b1.caption, "Aceptar");
        EXPECT_EQ(form.buttons().b2.caption, "Cancelar");
        EXPECT_EQ(form.Label1.idetiqueta, "CUENTA DE BANCO");
        EXPECT_EQ(form.Label1.caption(), "Cuenta de banco:");
        EXPECT_EQ(form.Etiqueta1.idetiqueta, "CUENTA DE BANCO");
        EXPECT_EQ(form.Etiqueta1.caption(), "Fecha firme:");
        EXPECT_EQ(form.chkFirme.caption, "Depósito en firme");
        for (const auto* name : {"Controles", "Label1", "txt_Bc_Cve_Banco_Cuenta", "txt_Bc_Descripcion", "chkFirme",
                                 "Etiqueta1", "dpFecha", "ColorScheme"}) {
            EXPECT_NE(form.find(name), nullptr) << name;
        }
    });
}

TEST(Deposit_dialog, the_account_field_takes_keys_in_capitals_and_shows_the_description_beside_it) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window&) {
        const auto& field = form.txt_Bc_Cve_Banco_Cuenta;
        EXPECT_EQ(field.idconsulta, "BANCO_CUENTA");
        EXPECT_TRUE(field.esclave);
        EXPECT_TRUE(field.mayusculas);
        EXPECT_TRUE(field.tabonenter);
        EXPECT_TRUE(field.tabonentercancel);
        EXPECT_EQ(field.sql_control_resultado, "txt_Bc_Descripcion");
        EXPECT_EQ(field.font, "Fixedsys");
        EXPECT_FALSE(field.Locked());
        EXPECT_TRUE(form.txt_Bc_Descripcion.Locked());
    });
}

TEST(Deposit_dialog, the_account_field_takes_its_format_from_the_system_parameter) {
    Scripted dialog;
    dialog.set_parameter("FTO_BANCO_CUENTA", "000000");
    dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        EXPECT_EQ(form.txt_Bc_Cve_Banco_Cuenta.formato, "000000");
        user.type("42").press(key_enter);
        EXPECT_EQ(form.txt_Bc_Cve_Banco_Cuenta.shown(), "000042");
    });
}

TEST(Deposit_dialog, the_server_date_is_asked_and_the_deposit_date_proposed) {
    Scripted dialog;
    dialog.deposit_date = make_date(2024, 3, 11);
    dialog.deposit([&](frmDeposito& form, Scripted_window&) {
        EXPECT_EQ(form.dpFecha.Value(), make_date(2024, 3, 11));
        EXPECT_THAT(dialog.company.on.asked, ::testing::Contains("GetServerDate"));
    });
}

// ---- The answer ----------------------------------------------------------------------------------------------------

TEST(Deposit_dialog, the_answer_is_account_date_and_box) {
    Scripted dialog;
    const auto answer = dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("srr-mxn").press(key_enter);
        EXPECT_EQ(form.txt_Bc_Descripcion.Text(), "Sierra, operación en pesos");
        form.click(form.chkFirme);
        user.press(key_enter);
        form.pick(form.dpFecha, make_date(2024, 3, 18));
        user.press(key_enter);
        form.press(form.buttons().b1);
        EXPECT_TRUE(user.hidden);
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-18|1");
    EXPECT_EQ(dialog.company.treasury().Error(), "");
    EXPECT_THAT(dialog.company.on.reports, IsEmpty());
}

TEST(Deposit_dialog, the_date_of_the_answer_is_the_data_services_text) {
    Scripted dialog;
    const auto answer = dialog.deposit([&](frmDeposito&, Scripted_window& user) {
        dialog.company.mark();
        user.type("SRR-MXN").press(key_f4);
        EXPECT_THAT(dialog.company.on.asked, ElementsAre());
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|0");
    EXPECT_THAT(dialog.company.on.asked, ElementsAre("SqlDate"));
}

TEST(Deposit_dialog, cancelling_a_filled_form_gives_the_empty_text) {
    Scripted dialog;
    const auto fill_and = [&](int key) {
        return dialog.deposit([=](frmDeposito&, Scripted_window& user) {
            user.type("SRR-MXN").press(key_enter);
            user.press(key);
            EXPECT_TRUE(user.hidden);
        });
    };
    EXPECT_EQ(fill_and(key_escape), "");
    EXPECT_EQ(fill_and(key_f4), "SRR-MXN|2024-03-15|0");
}

TEST(Deposit_dialog, closing_the_window_or_pressing_cancelar_cancels) {
    Scripted dialog;
    EXPECT_EQ(dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("SRR-MXN").press(key_enter);
        form.close();
        EXPECT_TRUE(user.hidden);
    }),
              "");
    EXPECT_EQ(dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("SRR-MXN").press(key_enter);
        form.press(form.buttons().b2);
        EXPECT_TRUE(user.hidden);
    }),
              "");
}

TEST(Deposit_dialog, it_changes_nothing_in_the_database) {
    Scripted dialog;
    dialog.deposit([](frmDeposito&, Scripted_window& user) { user.type("SRR-MXN").press(key_f4); });
    EXPECT_THAT(dialog.company.changes(), IsEmpty());
}

// ---- Firm or not ---------------------------------------------------------------------------------------------------

TEST(Deposit_dialog, the_date_can_be_changed_only_while_the_box_is_checked) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window&) {
        EXPECT_EQ(form.chkFirme.Value(), 0);
        EXPECT_FALSE(form.dpFecha.Enabled());
        form.pick(form.dpFecha, make_date(2024, 3, 20));
        EXPECT_EQ(form.dpFecha.Value(), make_date(2024, 3, 15));
        form.click(form.chkFirme);
        EXPECT_TRUE(form.dpFecha.Enabled());
        form.click(form.chkFirme);
        EXPECT_FALSE(form.dpFecha.Enabled());
    });
}

TEST(Deposit_dialog, the_caller_says_how_the_box_starts) {
    Scripted dialog;
    dialog.firm = 1;
    const auto answer = dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        EXPECT_EQ(form.chkFirme.Value(), 1);
        EXPECT_TRUE(form.dpFecha.Enabled());
        user.type("SRR-MXN").press(key_f4);
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|1");
}

TEST(Deposit_dialog, any_number_but_0_checks_the_box) {
    Scripted dialog;
    dialog.firm = -1;
    EXPECT_EQ(dialog.deposit([](frmDeposito&, Scripted_window& user) { user.type("SRR-MXN").press(key_f4); }),
              "SRR-MXN|2024-03-15|1");
}

TEST(Deposit_dialog, unchecked_it_returns_the_deposit_date_whatever_was_picked_before) {
    Scripted dialog;
    const auto answer = dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("SRR-MXN").press(key_enter);
        form.click(form.chkFirme);
        form.pick(form.dpFecha, make_date(2024, 4, 1));
        form.click(form.chkFirme);
        user.press(key_f4);
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|0");
}

// ---- Aceptar -------------------------------------------------------------------------------------------------------

TEST(Deposit_dialog, without_account_it_refuses_and_stays_open) {
    Scripted dialog;
    dialog.firm = 1;
    dialog.deposit([&](frmDeposito& form, Scripted_window& user) {
        form.pick(form.dpFecha, make_date(2024, 3, 1));  // the missing account comes before the date
        form.go_to(form.chkFirme);
        user.press(key_f4);
        EXPECT_FALSE(user.hidden);
        EXPECT_EQ(user.focus(), "chkFirme") << "a refusal leaves the focus where it was";
        EXPECT_THAT(dialog.company.on.reports_in_full,
                    ElementsAre(refusal("La cuenta de banco es indispensable para continuar!", "ERR-ID:7500009")));
    });
}

TEST(Deposit_dialog, a_firm_date_before_the_deposit_is_refused_and_the_form_stays_open) {
    Scripted dialog;
    dialog.firm = 1;
    const auto answer = dialog.deposit([&](frmDeposito& form, Scripted_window& user) {
        user.type("SRR-MXN").press(key_enter);
        form.pick(form.dpFecha, make_date(2024, 3, 14));
        user.press(key_f4);
        EXPECT_FALSE(user.hidden);
        EXPECT_EQ(user.focus(), "chkFirme");
        EXPECT_THAT(
            dialog.company.on.reports_in_full,
            ElementsAre(refusal("La fecha de firme no puede ser menor a la fecha de depósito!!!", "ERR-ID:7500010")));
        form.pick(form.dpFecha, make_date(2024, 3, 15));
        form.press(form.buttons().b1);
        EXPECT_TRUE(user.hidden);
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|1");
}

TEST(Deposit_dialog, the_time_of_day_of_the_deposit_does_not_make_the_same_day_earlier) {
    Scripted dialog;
    dialog.firm = 1;
    dialog.deposit_date = make_date(2024, 3, 15, 18, 30, 0);
    const auto answer = dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("SRR-MXN").press(key_enter);
        form.pick(form.dpFecha, make_date(2024, 3, 15));
        user.press(key_f4);
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|1");
}

// ---- The account ---------------------------------------------------------------------------------------------------

TEST(Deposit_dialog, the_account_is_asked_for_with_its_currency) {
    Scripted dialog;
    dialog.deposit([&](frmDeposito& form, Scripted_window& user) {
        EXPECT_EQ(form.txt_Bc_Cve_Banco_Cuenta.sql(), account_query);
        dialog.company.mark();
        user.type("srr-mxn").press(key_tab);
    });
}

TEST(Deposit_dialog, and_with_its_company_when_one_is_given) {
    Scripted dialog;
    dialog.firm_of_company = "EM01";
    dialog.deposit([](frmDeposito& form, Scripted_window&) {
        EXPECT_EQ(form.txt_Bc_Cve_Banco_Cuenta.sql(),
                  account_query + " AND (Em_Cve_Empresa = 'EM01' OR Bc_MultiEmpresa = 'SI')");
        EXPECT_THAT(form.txt_Bc_Cve_Banco_Cuenta.conditions,
                    ::testing::Contains("(Empresa.Em_Cve_Empresa = 'EM01' OR Bc_MultiEmpresa = 'SI')"));
    });
}

TEST(Deposit_dialog, an_account_that_does_not_serve_is_not_accepted_and_keeps_the_keyboard) {
    Scripted dialog;
    for (const std::string key : {"SRR-USD", "SRR-OLD", "NADA", "SRR'MXN", "' OR '1'='1"}) {
        dialog.company.mark();
        const auto answer = dialog.deposit([&](frmDeposito& form, Scripted_window& user) {
            user.type(key).press(key_enter);
            EXPECT_EQ(user.focus(), "txt_Bc_Cve_Banco_Cuenta") << key;
            user.press(key_tab);
            EXPECT_EQ(user.focus(), "txt_Bc_Cve_Banco_Cuenta") << key;
            EXPECT_TRUE(form.txt_Bc_Cve_Banco_Cuenta.refused());
            EXPECT_EQ(form.txt_Bc_Cve_Banco_Cuenta.shown(), key);
            EXPECT_EQ(form.txt_Bc_Cve_Banco_Cuenta.Text(), "");
            EXPECT_EQ(form.txt_Bc_Descripcion.Text(), "");
            user.press(key_f4);
            EXPECT_FALSE(user.hidden);
        });
        EXPECT_EQ(answer, "");
        EXPECT_THAT(
            dialog.company.on.reports,
            ElementsAre("Controles_B1Click() ERR-ID:7500009 La cuenta de banco es indispensable para continuar!"));
    }
}

TEST(Deposit_dialog, a_refused_key_does_not_hold_the_mouse) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("NADA");
        form.go_to(form.chkFirme);
        EXPECT_EQ(user.focus(), "chkFirme");
        EXPECT_TRUE(form.txt_Bc_Cve_Banco_Cuenta.refused());
    });
}

TEST(Deposit_dialog, a_shared_account_is_offered_to_every_company_and_another_companys_is_not) {
    Scripted dialog;
    dialog.company.sql("INSERT INTO Empresa (Em_Cve_Empresa, Em_Descripcion) VALUES ('EM02', 'Otra')");
    dialog.firm_of_company = "EM02";
    const auto asking_for = [&](const std::string& key) {
        return dialog.deposit([&](frmDeposito&, Scripted_window& user) { user.type(key).press(key_f4); });
    };
    EXPECT_EQ(asking_for("PTO-GRAL"), "PTO-GRAL|2024-03-15|0");
    EXPECT_EQ(asking_for("PTO-MXN"), "");
}

TEST(Deposit_dialog, typing_another_key_takes_the_old_description_away) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("SRR-MXN").press(key_enter).press(key_tab, true);
        EXPECT_EQ(user.focus(), "txt_Bc_Cve_Banco_Cuenta");
        user.type("SRR-MX");
        EXPECT_EQ(form.txt_Bc_Descripcion.Text(), "");
    });
}

TEST(Deposit_dialog, a_failure_of_the_database_is_shown_and_the_key_not_accepted) {
    Scripted dialog;
    dialog.deposit([&](frmDeposito& form, Scripted_window& user) {
        dialog.company.mark();
        dialog.company.on.failing_statement = 1;
        user.type("SRR-MXN").press(key_enter);
        EXPECT_THAT(dialog.company.on.reports,
                    ElementsAre(std::string("txt_Bc_Cve_Banco_Cuenta_Validate()  ") + obstructed::statement_failure));
        EXPECT_EQ(form.txt_Bc_Cve_Banco_Cuenta.Text(), "");
    });
}

TEST(Deposit_dialog, a_failure_on_entering_the_account_is_reported_with_its_code) {
    Scripted dialog;
    dialog.deposit([&](frmDeposito& form, Scripted_window& user) {
        form.go_to(form.chkFirme);
        user.on_refresh = [](Control&) { throw std::runtime_error("sin memoria"); };
        form.go_to(form.txt_Bc_Cve_Banco_Cuenta);
        EXPECT_THAT(dialog.company.on.reports_in_full,
                    ElementsAre(Report{"sin memoria", 16, "txt_Bc_Cve_Banco_Cuenta_GotFocus()", "", "Cuvexa",
                                       "ERR-ID:7500011"}));
    });
}

// ---- The list ------------------------------------------------------------------------------------------------------

TEST(Deposit_dialog, f2_lists_the_accounts_of_the_currency_and_takes_the_chosen_one) {
    Scripted dialog;
    const auto answer = dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.choice = "PTO-MXN";
        user.press(key_f2);
        ASSERT_EQ(user.lists.size(), 1u);
        EXPECT_EQ(user.lists[0].title, "Cuentas de banco");
        EXPECT_THAT(user.lists[0].columns, ElementsAre("CUENTA", "DESCRIPCION", "MONEDA", "EMPRESA"));
        EXPECT_THAT(user.lists[0].keys(), ElementsAre("PTO-GRAL", "PTO-MXN", "SRR-MXN"));
        EXPECT_EQ(form.txt_Bc_Cve_Banco_Cuenta.Text(), "PTO-MXN");
        EXPECT_EQ(form.txt_Bc_Descripcion.Text(), "Puerto, nómina y gastos");
        EXPECT_EQ(user.focus(), "txt_Bc_Cve_Banco_Cuenta");
        user.press(key_f4);
    });
    EXPECT_EQ(answer, "PTO-MXN|2024-03-15|0");
}

TEST(Deposit_dialog, typing_in_the_list_narrows_it) {
    Scripted dialog;
    dialog.deposit([](frmDeposito&, Scripted_window& user) {
        user.sought = "nómina";
        user.press(key_f2);
        EXPECT_THAT(user.lists.at(0).keys(), ElementsAre("PTO-MXN"));
    });
}

TEST(Deposit_dialog, leaving_the_list_without_choice_leaves_the_field_as_it_was) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("SRR").press(key_f2);
        EXPECT_EQ(form.txt_Bc_Cve_Banco_Cuenta.shown(), "SRR");
    });
}

TEST(Deposit_dialog, the_list_of_a_company_holds_its_accounts_and_the_shared_ones) {
    Scripted dialog;
    dialog.company.sql("INSERT INTO Empresa (Em_Cve_Empresa, Em_Descripcion) VALUES ('EM02', 'Otra')");
    dialog.company.sql("UPDATE Banco_Cuenta SET Em_Cve_Empresa = 'EM02' WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    dialog.firm_of_company = "EM02";
    dialog.deposit([](frmDeposito&, Scripted_window& user) {
        user.press(key_f2);
        EXPECT_THAT(user.lists.at(0).keys(), ElementsAre("PTO-GRAL", "SRR-MXN"));
    });
}

TEST(Deposit_dialog, a_failing_list_is_reported_and_empty) {
    Scripted dialog;
    dialog.deposit([&](frmDeposito&, Scripted_window& user) {
        dialog.company.mark();
        dialog.company.on.failing_statement = 1;
        user.press(key_f2);
        EXPECT_THAT(user.lists.at(0).rows, IsEmpty());
        EXPECT_EQ(dialog.company.on.reports.size(), 1u);
    });
}

// ---- Keys ----------------------------------------------------------------------------------------------------------

TEST(Deposit_dialog, tab_walks_through_what_can_be_filled_and_round) {
    Scripted dialog;
    dialog.firm = 1;
    dialog.deposit([](frmDeposito&, Scripted_window& user) {
        std::vector<std::string> walk = {user.focus()};
        for (int i = 0; i < 5; ++i) walk.push_back(user.press(key_tab).focus());
        EXPECT_THAT(walk, ElementsAre("txt_Bc_Cve_Banco_Cuenta", "chkFirme", "dpFecha", "Controles.b1", "Controles.b2",
                                      "txt_Bc_Cve_Banco_Cuenta"));
        EXPECT_EQ(user.press(key_tab, true).focus(), "Controles.b2");
        EXPECT_EQ(user.focus_in_window(), "Controles.b2");
    });
}

TEST(Deposit_dialog, tab_passes_over_the_date_while_it_is_disabled) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        form.go_to(form.chkFirme);
        EXPECT_EQ(user.press(key_tab).focus(), "Controles.b1");
    });
}

TEST(Deposit_dialog, enter_goes_to_the_next_control) {
    Scripted dialog;
    dialog.firm = 1;
    dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        EXPECT_EQ(user.press(key_enter).focus(), "chkFirme");
        EXPECT_EQ(user.press(key_enter).focus(), "dpFecha");
        EXPECT_EQ(user.press(key_enter).focus(), "Controles.b1");
        EXPECT_EQ(user.press(key_enter).focus(), "Controles.b2") << "from a button too";
        EXPECT_EQ(user.press(key_enter).focus(), "txt_Bc_Cve_Banco_Cuenta");
        EXPECT_EQ(form.chkFirme.Value(), 1);
        EXPECT_FALSE(user.hidden);
    });
}

TEST(Deposit_dialog, with_ctrl_f4_is_swallowed_and_other_keys_are_the_windows) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("SRR-MXN");
        EXPECT_TRUE(form.key_down(key_f4, false, true));
        EXPECT_FALSE(form.key_down(key_escape, false, true));
        EXPECT_FALSE(form.key_down(key_enter, false, true));
        EXPECT_FALSE(user.hidden);
        EXPECT_EQ(user.focus(), "txt_Bc_Cve_Banco_Cuenta");
        user.press(key_f4);
        EXPECT_TRUE(user.hidden);
    });
}

TEST(Deposit_dialog, inside_the_date_f4_is_swallowed_and_esc_does_nothing) {
    Scripted dialog;
    dialog.firm = 1;
    dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        user.type("SRR-MXN").press(key_enter);
        form.go_to(form.dpFecha);
        EXPECT_TRUE(form.key_down(key_f4));
        EXPECT_TRUE(form.key_down(key_escape));
        EXPECT_FALSE(user.hidden);
        form.go_to(form.chkFirme);
        user.press(key_f4);
        EXPECT_TRUE(user.hidden);
    });
}

TEST(Deposit_dialog, other_keys_are_left_to_the_window) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window&) {
        EXPECT_FALSE(form.key_down('A'));
        form.go_to(form.chkFirme);
        EXPECT_FALSE(form.key_down(key_f2));
    });
}

TEST(Deposit_dialog, the_mouse_does_not_enter_what_is_locked_or_disabled) {
    Scripted dialog;
    dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        form.go_to(form.txt_Bc_Descripcion);
        EXPECT_EQ(user.focus(), "txt_Bc_Cve_Banco_Cuenta");
        form.go_to(form.dpFecha);
        EXPECT_EQ(user.focus(), "txt_Bc_Cve_Banco_Cuenta");
        form.type(form.txt_Bc_Descripcion, "x");
        EXPECT_EQ(form.txt_Bc_Descripcion.Text(), "");
    });
}

// ---- When it cannot be shown ---------------------------------------------------------------------------------------

/// The run-time error that reaches the caller.
template <class Call>
std::string failure_of(const Call& call) {
    try {
        call();
    } catch (const std::exception& failure) {
        return failure.what();
    }
    return "none";
}

TEST(Deposit_dialog, without_a_toolkit_the_caller_gets_a_run_time_error) {
    Company company;
    try {
        company.treasury().PedirDatosDeposito(Company::today(), "MXN");
        FAIL() << "it gave an answer";
    } catch (const Automation_error& error) {
        EXPECT_EQ(error.number(), 440);
        EXPECT_STREQ(error.what(), "No es posible mostrar el diálogo: el programa no tiene ventanas.");
    }
    EXPECT_THAT(company.on.reports, IsEmpty());
}

TEST(Deposit_dialog, without_a_display_the_caller_gets_a_run_time_error) {
    Scripted dialog;
    dialog.toolkit->why_not = "no hay pantalla.";
    EXPECT_EQ(failure_of([&] { dialog.deposit([](frmDeposito&, Scripted_window&) {}); }),
              "No es posible mostrar el diálogo: no hay pantalla.");
    EXPECT_EQ(dialog.toolkit->shown, 0);
}

TEST(Deposit_dialog, a_failure_while_it_loads_reaches_the_caller) {
    Scripted dialog;
    dialog.company.on.fail("GetServerDate", "sin servidor");
    EXPECT_EQ(failure_of([&] { dialog.deposit([](frmDeposito&, Scripted_window&) {}); }), "sin servidor");
    EXPECT_THAT(dialog.company.on.reports, IsEmpty());
    EXPECT_EQ(dialog.toolkit->shown, 0);
}

TEST(Deposit_dialog, a_date_outside_the_calendar_fails_before_the_form_opens) {
    Scripted dialog;
    dialog.deposit_date = Date{1e12};
    EXPECT_NE(failure_of([&] { dialog.deposit([](frmDeposito&, Scripted_window&) {}); }), "none");
    EXPECT_EQ(dialog.toolkit->shown, 0);
}

TEST(Deposit_dialog, it_neither_empties_nor_writes_the_error_of_an_operation) {
    Scripted dialog;
    Tesoreria& treasury = dialog.company.treasury();
    ASSERT_FALSE(treasury.Cancelar_Deposito("NADA"));
    const std::string left = treasury.Error();
    ASSERT_NE(left, "");
    dialog.deposit([](frmDeposito&, Scripted_window& user) { user.type("SRR-MXN").press(key_f4); });
    EXPECT_EQ(treasury.Error(), left);
    dialog.deposit([](frmDeposito&, Scripted_window& user) { user.press(key_f4).press(key_escape); });
    EXPECT_EQ(treasury.Error(), left);
    dialog.toolkit->why_not = "no hay pantalla.";
    EXPECT_THROW(dialog.deposit([](frmDeposito&, Scripted_window&) {}), Automation_error);
    EXPECT_EQ(treasury.Error(), left);
}

TEST(Deposit_dialog, its_answer_is_what_a_deposit_needs) {
    Scripted dialog;
    auto& company = dialog.company;
    const std::string receipt = company.capture_receipt({Company::receipt_line(100)});
    const auto answer = dialog.deposit([](frmDeposito& form, Scripted_window& user) {
        form.click(form.chkFirme);
        user.type("SRR-MXN").press(key_f4);
    });
    ASSERT_EQ(answer, "SRR-MXN|2024-03-15|1");
    EXPECT_TRUE(
        company.treasury().Genera_Deposito("SRR-MXN", receipt, Company::today(), true, *parse_date("2024-03-15")))
        << company.treasury().Error();
}

}  // namespace
}  // namespace cuvexa::tests
