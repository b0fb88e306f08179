// The Qt windows off screen: simulated keys and mouse, real database.
#include <QCalendarWidget>
#include <QCheckBox>
#include <QDateEdit>
#include <QFontDatabase>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "desktop/offscreen.h"
#include "desktop/qt/display.h"
#include "desktop/qt/form_window.h"

namespace cuvexa::tests {
namespace {

constexpr auto account = "txt_Bc_Cve_Banco_Cuenta";

Step sees(const std::function<void(QWidget&)>& look) {
    return look;
}

// ---- The deposit ---------------------------------------------------------------------------------------------------

TEST(Qt_windows, the_deposit_is_answered_with_the_keyboard_alone) {
    Offscreen screen;
    const auto answer = screen.deposit({
        focus_is(account),
        type("srr-mxn"),
        text_is(account, "SRR-MXN"),
        key(Qt::Key_Return),
        text_is("txt_Bc_Descripcion", "Sierra, operación en pesos"),
        focus_is("chkFirme"),
        key(Qt::Key_Space),
        key(Qt::Key_Return),
        focus_is("dpFecha"),
        type("18"),
        key(Qt::Key_Tab),
        focus_is("Controles.b1"),
        key(Qt::Key_Return),
        focus_is("Controles.b2"),
        key(Qt::Key_Backtab),
        focus_is("Controles.b1"),
        key(Qt::Key_Space),
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-18|1");
    EXPECT_THAT(screen.company.on.reports, IsEmpty());
}

TEST(Qt_windows, the_account_is_written_in_the_font_of_its_name_where_the_system_has_it) {
    Offscreen screen;
    const auto is_fixed = sees([](QWidget& top) {
        const bool here = QFontDatabase::families().contains(QStringLiteral("Fixedsys"), Qt::CaseInsensitive);
        const QString fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
        EXPECT_EQ(find<QLineEdit>(top, account).font().family(), here ? QStringLiteral("Fixedsys") : fixed);
    });
    screen.deposit({is_fixed, key(Qt::Key_Escape)});
}

TEST(Qt_windows, and_with_the_mouse_alone) {
    Offscreen screen;
    const auto answer = screen.deposit({
        key(Qt::Key_F2),
        [](QWidget& top) {
            auto& table = find<QTableWidget>(top, "renglones");
            const QPoint at = table.visualItemRect(table.item(2, 0)).center();
            QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, at);
            QTest::mouseDClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, at);
        },
        text_is(account, "SRR-MXN"),
        click("chkFirme"),
        click("chkFirme"),
        click("Controles.b1"),
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|0");
}

TEST(Qt_windows, tab_and_shift_tab_walk_forth_and_back) {
    Offscreen screen;
    screen.deposit({key(Qt::Key_Tab), focus_is("chkFirme"), key(Qt::Key_Tab), focus_is("Controles.b1"),
                    key(Qt::Key_Backtab, Qt::ShiftModifier), focus_is("chkFirme"),
                    key(Qt::Key_Backtab, Qt::ShiftModifier), focus_is(account), key(Qt::Key_Escape)});
}

TEST(Qt_windows, esc_the_button_and_the_windows_own_close_cancel) {
    Offscreen screen;
    const Step close = [](QWidget& top) { top.close(); };
    for (const auto& end : {key(Qt::Key_Escape), click("Controles.b2"), close}) {
        EXPECT_EQ(screen.deposit({type("SRR-MXN"), end}), "");
    }
}

TEST(Qt_windows, the_date_is_written_the_mexican_way_and_follows_the_box) {
    Offscreen screen;
    screen.deposit({sees([](QWidget& top) {
                        auto& date = find<QDateEdit>(top, "dpFecha");
                        EXPECT_EQ(date.text(), "15/03/2024");
                        EXPECT_FALSE(date.isEnabled());
                        EXPECT_EQ(date.locale().standaloneMonthName(3), "marzo");
                    }),
                    click("chkFirme"),
                    sees([](QWidget& top) { EXPECT_TRUE(find<QDateEdit>(top, "dpFecha").isEnabled()); }),
                    key(Qt::Key_Escape)});
}

TEST(Qt_windows, a_click_on_the_date_moves_the_focus_there_and_f4_and_esc_do_nothing_in_it) {
    Offscreen screen;
    const auto answer = screen.deposit({type("SRR-MXN"), key(Qt::Key_Return), click("dpFecha"), focus_is("dpFecha"),
                                        key(Qt::Key_F4), focus_is("dpFecha"), key(Qt::Key_Escape), focus_is("dpFecha"),
                                        sees([](QWidget& top) { EXPECT_EQ(top.objectName(), "frmDeposito"); }),
                                        key(Qt::Key_Return), focus_is("Controles.b1"), key(Qt::Key_F4)},
                                       1);
    EXPECT_THAT(screen.company.on.reports, IsEmpty());
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|1");
}

TEST(Qt_windows, f4_does_nothing_while_the_calendar_is_open) {
    Offscreen screen;
    const auto press_in_calendar = [](Qt::Key code, bool stays_open) {
        return sees([=](QWidget&) {
            auto* calendar = QApplication::activePopupWidget();
            ASSERT_NE(calendar, nullptr);
            QTest::keyClick(calendar->focusWidget() ? calendar->focusWidget() : calendar, code);
            EXPECT_EQ(QApplication::activePopupWidget() == calendar, stays_open);
        });
    };
    const auto open_calendar = sees([](QWidget& top) {
        auto& date = find<QDateEdit>(top, "dpFecha");
        QTest::mouseClick(&date, Qt::LeftButton, Qt::NoModifier, QPoint(date.width() - 8, date.height() / 2));
    });
    const auto answer =
        screen.deposit({type("SRR-MXN"), key(Qt::Key_Return), open_calendar, press_in_calendar(Qt::Key_F4, true),
                        press_in_calendar(Qt::Key_F4, true), press_in_calendar(Qt::Key_Escape, false),
                        sees([](QWidget& top) { EXPECT_EQ(top.objectName(), "frmDeposito"); }), focus_is("dpFecha"),
                        key(Qt::Key_Return), focus_is("Controles.b1"), key(Qt::Key_F4)},
                       1);
    EXPECT_THAT(screen.company.on.reports, IsEmpty());
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|1");
}

TEST(Qt_windows, a_firm_date_before_the_deposit_is_refused_and_the_keyboard_stays_where_it_was) {
    Offscreen screen;
    screen.deposit({type("SRR-MXN"), key(Qt::Key_Return), key(Qt::Key_Return), type("14"), key(Qt::Key_Return),
                    key(Qt::Key_F4), focus_is("Controles.b1"), click("Controles.b2")},
                   1);
    EXPECT_THAT(
        screen.company.on.reports,
        ElementsAre(
            "Controles_B1Click() ERR-ID:7500010 La fecha de firme no puede ser menor a la fecha de depósito!!!"));
}

TEST(Qt_windows, a_refused_key_is_marked_and_keeps_the_keyboard) {
    Offscreen screen;
    screen.deposit({type("srr-usd"), key(Qt::Key_Return), focus_is(account), sees([](QWidget& top) {
                        auto& field = find<QLineEdit>(top, account);
                        EXPECT_TRUE(field.property("refused").toBool());
                        EXPECT_EQ(field.accessibleDescription(), "No existe o no puede usarse aquí");
                        auto* note = find<QLineEdit>(top, "txt_Bc_Descripcion").findChild<QLabel*>();
                        ASSERT_NE(note, nullptr);
                        EXPECT_TRUE(note->isVisible());
                        EXPECT_EQ(note->text(), "No existe o no puede usarse aquí");
                    }),
                    [](QWidget& top) {
                        auto& field = find<QLineEdit>(top, account);
                        field.selectAll();
                        QTest::keyClicks(&field, "srr-mxn");
                    },
                    key(Qt::Key_Return), sees([](QWidget& top) {
                        EXPECT_FALSE(find<QLineEdit>(top, account).property("refused").toBool());
                        EXPECT_FALSE(find<QLineEdit>(top, "txt_Bc_Descripcion").findChild<QLabel*>()->isVisible());
                    }),
                    key(Qt::Key_Escape)});
}

TEST(Qt_windows, a_click_into_a_locked_field_leaves_the_focus_where_it_was) {
    Offscreen screen;
    screen.deposit({click("txt_Bc_Descripcion"), focus_is(account), type("X"), text_is("txt_Bc_Descripcion", ""),
                    key(Qt::Key_Escape)});
}

TEST(Qt_windows, typing_in_the_middle_keeps_the_cursor_there) {
    Offscreen screen;
    screen.deposit({type("srmxn"),
                    [](QWidget& top) {
                        auto& field = find<QLineEdit>(top, account);
                        field.setCursorPosition(2);
                        QTest::keyClicks(&field, "r-");
                    },
                    text_is(account, "SRR-MXN"), key(Qt::Key_Escape)});
}

// ---- The list ------------------------------------------------------------------------------------------------------

TEST(Qt_windows, the_list_is_narrowed_by_typing_and_walked_with_the_arrows) {
    Offscreen screen;
    const auto rows_are = [](int count) {
        return sees([=](QWidget& top) { EXPECT_EQ(find<QTableWidget>(top, "renglones").rowCount(), count); });
    };
    const auto answer = screen.deposit({key(Qt::Key_F2), sees([](QWidget& top) {
                                            EXPECT_EQ(top.windowTitle(), "Cuentas de banco");
                                            const auto& table = find<QTableWidget>(top, "renglones");
                                            EXPECT_EQ(table.horizontalHeaderItem(1)->text(), "Descripción");
                                            EXPECT_EQ(table.item(0, 0)->text(), "PTO-GRAL");
                                        }),
                                        rows_are(3), type("pto"), rows_are(2), key(Qt::Key_Down), key(Qt::Key_Return),
                                        text_is(account, "PTO-MXN"), focus_is(account), key(Qt::Key_F4)});
    EXPECT_EQ(answer, "PTO-MXN|2024-03-15|0");
}

TEST(Qt_windows, a_list_without_rows_says_so_and_enter_takes_nothing) {
    Offscreen screen;
    screen.deposit({key(Qt::Key_F2), type("zzz"), key(Qt::Key_Return), sees([](QWidget& top) {
                        EXPECT_EQ(top.objectName(), "lista");
                        bool said = false;
                        for (const auto* label : top.findChildren<QLabel*>()) {
                            said |= label->text().contains("Sin coincidencias");
                        }
                        EXPECT_TRUE(said);
                    }),
                    key(Qt::Key_Escape), focus_is(account), text_is(account, ""), key(Qt::Key_Escape)});
}

// ---- The payment method --------------------------------------------------------------------------------------------

TEST(Qt_windows, the_data_of_a_transfer_is_asked_and_remembered) {
    Offscreen screen;
    const auto answer = screen.payment({
        focus_is("txtBanco"),
        text_is("txtDocumento", "CL01"),
        text_is("txtnFormaPago", "Transferencia electrónica"),
        type("SIERRA"),
        key(Qt::Key_Return),
        text_is("txtNBanco", "Banco de la Sierra"),
        focus_is("txtSucursal"),
        type("12"),
        key(Qt::Key_Return),
        type("0901"),
        key(Qt::Key_Return),
        type("TR-5"),
        key(Qt::Key_Return),
        key(Qt::Key_Space),
    });
    EXPECT_EQ(answer, "Banco de la Sierra|TR-5|0901|SIERRA");
    EXPECT_EQ(screen.company.scalar("SELECT Dcb_Cuenta FROM Documento_Cuenta_Bancaria"), "0901");
}

TEST(Qt_windows, shift_f2_opens_the_full_list_of_banks) {
    Offscreen screen;
    screen.company.sql(
        "INSERT INTO Documento_Cuenta_Bancaria (Dcb_Tabla, Dcb_Documento, Dcb_ID, Dcb_Banco, Dcb_Cuenta) "
        "VALUES ('CLIENTE', 'CL01', '0001', 'SIERRA', '1')");
    const auto banks_are = [](int count) {
        return sees([=](QWidget& top) { EXPECT_EQ(find<QTableWidget>(top, "renglones").rowCount(), count); });
    };
    screen.payment({key(Qt::Key_F2), banks_are(1), key(Qt::Key_Escape), key(Qt::Key_F2, Qt::ShiftModifier),
                    banks_are(2), key(Qt::Key_Escape), key(Qt::Key_Escape)});
}

TEST(Qt_windows, what_a_method_does_not_require_is_greyed_out) {
    Offscreen screen;
    screen.payment({sees([](QWidget& top) {
                        EXPECT_FALSE(find<QLineEdit>(top, "txtBanco").isEnabled());
                        EXPECT_FALSE(find<QLineEdit>(top, "txtCuenta").isEnabled());
                        EXPECT_TRUE(find<QLineEdit>(top, "txtReferencia").isEnabled());
                    }),
                    focus_is("txtSucursal"), key(Qt::Key_Escape)},
                   "04");
}

TEST(Qt_windows, a_refusal_sends_the_focus_to_its_field) {
    Offscreen screen;
    screen.payment({type("SIERRA"), click("txtReferencia"), focus_is("txtReferencia"), click("Controles.b1"),
                    focus_is("txtCuenta"), key(Qt::Key_Escape)});
    EXPECT_THAT(screen.company.on.reports,
                ElementsAre("Controles_B1Click() ERR-ID:7500003 Esta forma de pago requiere una cuenta!"));
}

// ---- For everybody -------------------------------------------------------------------------------------------------

void expect_accessible(QWidget& top) {
    int fields = 0;
    for (auto* widget : top.findChildren<QWidget*>()) {
        const bool field = qobject_cast<QDateEdit*>(widget) || qobject_cast<QCheckBox*>(widget) ||
                           qobject_cast<QPushButton*>(widget) ||
                           (qobject_cast<QLineEdit*>(widget) && !qobject_cast<QDateEdit*>(widget->parentWidget()));
        if (!field || widget->objectName().startsWith("qt_")) continue;
        ++fields;
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
    EXPECT_GE(fields, 5);
    for (auto* label : top.findChildren<QLabel*>()) {
        if (label->objectName().isEmpty() || label->text().isEmpty()) continue;
        if (label->objectName() == "Etiqueta5" || label->objectName() == "lbInfo") continue;  // they name no field
        EXPECT_NE(label->buddy(), nullptr) << label->objectName().toStdString();
    }
}

void expect_readable(QWidget& top) {
    for (auto* widget : top.findChildren<QWidget*>()) {
        if (!widget->isVisible() || !(qobject_cast<QLabel*>(widget) || qobject_cast<QPushButton*>(widget))) continue;
        EXPECT_GE(widget->width(), widget->sizeHint().width()) << widget->objectName().toStdString();
        EXPECT_GE(widget->fontInfo().pointSizeF(), 11.5) << widget->objectName().toStdString();
    }
}

TEST(Qt_windows, every_field_has_a_name_and_a_label_tied_to_it_and_nothing_is_cut_off) {
    Offscreen screen;
    const Step look = [](QWidget& top) {
        expect_accessible(top);
        expect_readable(top);
    };
    screen.deposit({look, type("NADA"), key(Qt::Key_Return), look, key(Qt::Key_Escape)});
    screen.payment({look, type("NADA"), key(Qt::Key_Return), look, key(Qt::Key_Escape)});
}

TEST(Qt_windows, they_are_modal_and_carry_the_forms_caption) {
    Offscreen screen;
    screen.deposit({sees([](QWidget& top) {
                        EXPECT_TRUE(top.isModal());
                        EXPECT_EQ(top.windowTitle(), "Depósito a banco");
                    }),
                    key(Qt::Key_Escape)});
    screen.payment(
        {sees([](QWidget& top) { EXPECT_EQ(top.windowTitle(), "Datos de la forma de pago"); }), key(Qt::Key_Escape)});
}

TEST(Qt_windows, the_error_dialog_shows_text_code_and_critical_icon_and_closes_with_enter_or_esc) {
    Offscreen screen;
    for (const auto end : {Qt::Key_Return, Qt::Key_Escape}) {
        screen.run({sees([](QWidget& top) {
                        const auto* box = qobject_cast<QMessageBox*>(&top);
                        ASSERT_NE(box, nullptr);
                        EXPECT_EQ(box->icon(), QMessageBox::Critical);
                        EXPECT_EQ(box->text(), "<b>No</b> & nunca");
                        EXPECT_EQ(box->textFormat(), Qt::PlainText);
                        EXPECT_TRUE(box->informativeText().contains("ERR-ID:7500009"));
                        EXPECT_TRUE(box->informativeText().contains("Controles_B1Click()"));
                        EXPECT_EQ(box->windowTitle(), "Cuvexa");
                    }),
                    key(end)},
                   [&] {
                       screen.toolkit->show_error(
                           {"<b>No</b> & nunca", 16, "Controles_B1Click()", "", "Cuvexa", "ERR-ID:7500009"});
                   });
    }
}

TEST(Qt_windows, the_error_dialog_shows_the_icon_of_its_style_and_the_title_that_is_given) {
    Offscreen screen;
    const std::map<int, QMessageBox::Icon> icons = {{16, QMessageBox::Critical},
                                                    {32, QMessageBox::Question},
                                                    {48, QMessageBox::Warning},
                                                    {64, QMessageBox::Information},
                                                    {0, QMessageBox::NoIcon}};
    for (const auto& style : icons) {
        screen.run({sees([&](QWidget& top) {
                        const auto* box = qobject_cast<QMessageBox*>(&top);
                        ASSERT_NE(box, nullptr);
                        EXPECT_EQ(box->icon(), style.second) << style.first;
                        EXPECT_EQ(box->windowTitle(), "Bancos");
                        EXPECT_EQ(box->informativeText(), "Load()") << "no code";
                    }),
                    key(Qt::Key_Escape)},
                   [&] {
                       screen.toolkit->show_error({"No", style.first, "Load()", "Bancos", "Cuvexa", ""});
                   });
    }
}

class Failing_form : public Form {
public:
    explicit Failing_form(Module& module) : Form(module, "frmFalla", "Falla") {
        tab_order_ = {&buttons_.b1, &buttons_.b2};
        buttons_.B1Click = [] { throw std::runtime_error("sin memoria"); };
    }
};

TEST(Qt_windows, what_a_handler_throws_ends_the_window_and_reaches_the_caller) {
    Offscreen screen;
    Failing_form form(screen.company.module());
    screen.run({key(Qt::Key_F4)}, [&] { EXPECT_THROW(screen.toolkit->show_modal(form), std::runtime_error); });
    EXPECT_FALSE(form.visible());
    EXPECT_FALSE(form.accepted());
}

TEST(Qt_windows, the_end_of_the_modal_loop_from_outside_cancels) {
    Offscreen screen;
    EXPECT_EQ(
        screen.deposit({type("SRR-MXN"), [](QWidget& top) { static_cast<QDialog&>(top).done(QDialog::Accepted); }}),
        "");
}

// ---- The display ---------------------------------------------------------------------------------------------------

class Display : public ::testing::Test {
protected:
    void SetUp() override {
        for (const auto* name : names) {
            if (const char* value = std::getenv(name)) kept_[name] = value;
            ::unsetenv(name);
        }
    }
    void TearDown() override {
        for (const auto* name : names) ::unsetenv(name);
        for (const auto& [name, value] : kept_) ::setenv(name.c_str(), value.c_str(), 1);
    }
    static constexpr std::array names{"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR"};
    std::map<std::string, std::string> kept_;
};

TEST_F(Display, without_any_there_is_an_obstacle) {
    EXPECT_EQ(qt::missing_display(), "no hay pantalla (DISPLAY y WAYLAND_DISPLAY están vacías).");
}

TEST_F(Display, one_that_nobody_serves_is_an_obstacle) {
    ::setenv("DISPLAY", ":9876.0", 1);
    EXPECT_EQ(qt::missing_display(), "la pantalla :9876.0 no responde.");
    ::setenv("DISPLAY", "disparate", 1);
    EXPECT_EQ(qt::missing_display(), "la pantalla disparate no responde.");
}

TEST_F(Display, of_another_machine_is_believed_and_of_this_one_tried) {
    ::setenv("DISPLAY", "otra:0", 1);
    EXPECT_EQ(qt::missing_display(), "");
    ::setenv("DISPLAY", "unix:9876", 1);
    EXPECT_EQ(qt::missing_display(), "la pantalla unix:9876 no responde.");
}

TEST_F(Display, of_wayland_answers_at_its_socket) {
    std::string folder = (std::filesystem::temp_directory_path() / "cuvexa-wayland-XXXXXX").string();
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s/wayland-7", folder.c_str());
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(socket, 5), 0);
    ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    const auto missing = [](const std::string& display) {
        ::setenv("WAYLAND_DISPLAY", display.c_str(), 1);
        return qt::missing_display();
    };
    EXPECT_EQ(missing("wayland-7"), "");
    EXPECT_EQ(missing(folder + "/wayland-7"), "");
    EXPECT_EQ(missing("wayland-8"), "la pantalla wayland-8 no responde.");
    EXPECT_EQ(missing(folder + "/wayland-8"), "la pantalla " + folder + "/wayland-8 no responde.");
    const std::string too_long(200, 'w');
    EXPECT_EQ(missing(too_long), "la pantalla " + too_long + " no responde.");
    ::setenv("QT_QPA_PLATFORM", "wayland", 1);
    EXPECT_EQ(missing("wayland-7"), "");
    ::close(socket);
    std::filesystem::remove_all(folder);
}

TEST_F(Display, the_platform_without_screen_needs_none) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    EXPECT_EQ(qt::missing_display(), "");
    ::setenv("QT_QPA_PLATFORM", "xcb", 1);
    EXPECT_NE(qt::missing_display(), "");
}

}  // namespace
}  // namespace cuvexa::tests
