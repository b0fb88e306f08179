// The windows of the system: keys and clicks as messages, real database.
#include <stdexcept>

#include "windows/dialogs/desk.h"

namespace cuvexa::tests {
namespace {

using win32::text_of;
using win32::utf8;

constexpr auto account = "txt_Bc_Cve_Banco_Cuenta";

std::string date_text(Desk& desk) {
    SYSTEMTIME day{};
    SendMessageW(desk.control("dpFecha"), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&day));
    return iso_date(make_date(day.wYear, day.wMonth, day.wDay));
}

bool calendar_shown(Desk& desk) {
    const LRESULT month = SendMessageW(desk.control("dpFecha"), DTM_GETMONTHCAL, 0, 0);
    return month != 0 && IsWindowVisible(reinterpret_cast<HWND>(month));
}

/// Wine chooses no part of a date until the first arrow; Windows chooses the day by itself.
Step to_the_day() {
    const auto wine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version");
    return wine ? key(VK_RIGHT) : key(0);
}

// ---- The deposit ---------------------------------------------------------------------------------------------------

TEST(Win32_windows, the_deposit_is_answered_with_the_keyboard_alone) {
    Desk desk;
    const auto answer = desk.deposit({
        focus_is(account),
        type(L"srr-mxn"),
        text_is(account, "SRR-MXN"),
        key(VK_RETURN),
        text_is("txt_Bc_Descripcion", "Sierra, operación en pesos"),
        focus_is("chkFirme"),
        key(VK_SPACE),
        key(VK_RETURN),
        focus_is("dpFecha"),
        to_the_day(),
        key(VK_UP),
        key(VK_UP),
        key(VK_UP),
        key(VK_TAB),
        focus_is("Controles.b1"),
        key(VK_RETURN),
        focus_is("Controles.b2"),
        key(VK_TAB, true),
        focus_is("Controles.b1"),
        key(VK_SPACE),
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-18|1");
    EXPECT_THAT(desk.reports, IsEmpty());
    EXPECT_EQ(desk.treasury->Error(), "");
}

TEST(Win32_windows, and_with_the_mouse_alone) {
    Desk desk;
    const auto answer = desk.deposit({
        key(VK_F2),
        [](Desk&) {
            RECT row{};
            ListView_GetItemRect(Desk::child(id_table), 2, &row, LVIR_BOUNDS);
            const LPARAM at = MAKELPARAM(row.left + 5, (row.top + row.bottom) / 2);
            for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
                PostMessageW(Desk::child(id_table), message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, at);
            }
        },
        text_is(account, "SRR-MXN"),
        click("chkFirme"),
        click("chkFirme"),
        click("Controles.b1"),
    });
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|0");
}

TEST(Win32_windows, tab_and_shift_tab_walk_forth_and_back) {
    Desk desk;
    desk.deposit({key(VK_TAB), focus_is("chkFirme"), key(VK_TAB), focus_is("Controles.b1"), key(VK_TAB, true),
                  focus_is("chkFirme"), key(VK_TAB, true), focus_is(account), key(VK_ESCAPE)});
}

TEST(Win32_windows, esc_the_button_and_the_windows_own_close_cancel) {
    Desk desk;
    const Step close = [](Desk&) { PostMessageW(Desk::top(), WM_SYSCOMMAND, SC_CLOSE, 0); };
    const Step press = [](Desk& desk) { PostMessageW(desk.control("Controles.b2"), BM_CLICK, 0, 0); };
    for (const auto& end : {key(VK_ESCAPE), press, close}) EXPECT_EQ(desk.deposit({type(L"SRR-MXN"), end}), "");
}

TEST(Win32_windows, the_date_is_that_of_the_deposit_and_follows_the_box) {
    Desk desk;
    desk.deposit({look([](Desk& desk) {
                      EXPECT_EQ(date_text(desk), "2024-03-15");
                      EXPECT_EQ(utf8(text_of(desk.control("dpFecha"))), "15/03/2024");
                      EXPECT_FALSE(IsWindowEnabled(desk.control("dpFecha")));
                  }),
                  click("chkFirme"), focus_is("chkFirme"), look([](Desk& desk) {
                      EXPECT_TRUE(IsWindowEnabled(desk.control("dpFecha")));
                      EXPECT_EQ(SendMessageW(desk.control("chkFirme"), BM_GETCHECK, 0, 0), BST_CHECKED);
                  }),
                  key(VK_ESCAPE)});
}

TEST(Win32_windows, a_click_on_the_date_moves_the_focus_there_and_f4_and_esc_do_nothing_in_it) {
    Desk desk;
    const auto answer =
        desk.deposit({type(L"SRR-MXN"), key(VK_RETURN), click("dpFecha"), focus_is("dpFecha"), key(VK_F4),
                      look([](Desk& desk) { EXPECT_FALSE(calendar_shown(desk)); }), focus_is("dpFecha"), key(VK_ESCAPE),
                      focus_is("dpFecha"), key(VK_RETURN), focus_is("Controles.b1"), key(VK_F4)},
                     1);
    EXPECT_THAT(desk.reports, IsEmpty());
    EXPECT_EQ(answer, "SRR-MXN|2024-03-15|1");
}

TEST(Win32_windows, the_calendar_keeps_its_keys_while_it_is_open) {
    Desk desk;
    desk.deposit({type(L"SRR-MXN"), key(VK_RETURN), key(VK_RETURN), focus_is("dpFecha"),
                  [](Desk& desk) {
                      RECT area{};
                      GetClientRect(desk.control("dpFecha"), &area);
                      const LPARAM at = MAKELPARAM(area.right - 5, area.bottom / 2);
                      PostMessageW(desk.control("dpFecha"), WM_LBUTTONDOWN, MK_LBUTTON, at);
                      PostMessageW(desk.control("dpFecha"), WM_LBUTTONUP, 0, at);
                  },
                  look([](Desk& desk) {
                      EXPECT_TRUE(calendar_shown(desk));
                      PostMessageW(desk.control("dpFecha"), WM_KEYDOWN, VK_RETURN, 1);
                  }),
                  look([](Desk& desk) {
                      EXPECT_EQ(desk.toolkit->shown->active()->Name(), "dpFecha");
                      ShowWindow(reinterpret_cast<HWND>(SendMessageW(desk.control("dpFecha"), DTM_GETMONTHCAL, 0, 0)),
                                 SW_HIDE);
                      PostMessageW(desk.control("dpFecha"), WM_KEYDOWN, VK_RETURN, 1);
                  }),
                  focus_is("Controles.b1"), key(VK_ESCAPE)},
                 1);
}

TEST(Win32_windows, a_firm_date_before_the_deposit_is_refused_and_the_keyboard_stays_where_it_was) {
    Desk desk;
    desk.deposit({type(L"SRR-MXN"), key(VK_RETURN), key(VK_RETURN), focus_is("dpFecha"), to_the_day(), key(VK_DOWN),
                  key(VK_RETURN), key(VK_F4), key(VK_RETURN), focus_is("Controles.b1"), click("Controles.b2")},
                 1);
    EXPECT_THAT(
        desk.reports,
        ElementsAre(
            "Controles_B1Click() ERR-ID:7500010 La fecha de firme no puede ser menor a la fecha de depósito!!!"));
}

TEST(Win32_windows, a_day_before_the_calendars_first_is_kept) {
    Desk desk;
    std::string answer;
    desk.run({text_is("dpFecha", "02/01/1500"), type(L"SRR-MXN"), key(VK_F4)},
             [&] { answer = desk.treasury->PedirDatosDeposito(make_date(1500, 1, 2), "MXN"); });
    EXPECT_EQ(answer, "SRR-MXN|1500-01-02|0");
}

// ---- Keys of the catalogue -----------------------------------------------------------------------------------------

HWND note(Desk& desk) {
    return GetWindow(desk.control("txt_Bc_Descripcion"), GW_HWNDNEXT);
}

TEST(Win32_windows, a_refused_key_is_marked_and_keeps_the_keyboard) {
    Desk desk;
    desk.deposit({type(L"srr-usd"), key(VK_RETURN), focus_is(account), look([](Desk& desk) {
                      EXPECT_TRUE(IsWindowVisible(note(desk)));
                      EXPECT_EQ(utf8(text_of(note(desk))), "No existe o no puede usarse aquí");
                  }),
                  [](Desk& desk) { SendMessageW(desk.control(account), EM_SETSEL, 0, -1); }, type(L"srr-mxn"),
                  key(VK_RETURN), focus_is("chkFirme"),
                  look([](Desk& desk) { EXPECT_FALSE(IsWindowVisible(note(desk))); }),
                  text_is("txt_Bc_Descripcion", "Sierra, operación en pesos"), key(VK_ESCAPE)});
}

TEST(Win32_windows, a_refused_key_counts_as_none_and_the_keyboard_returns_to_it_after_the_message) {
    Desk desk;
    desk.deposit({type(L"NADA"), key(VK_F4), look([](Desk& desk) {
                      EXPECT_FALSE(IsWindowEnabled(GetParent(desk.control(account))));
                      EXPECT_EQ(utf8(text_of(Desk::child(id_description))),
                                "La cuenta de banco es indispensable para continuar!");
                  }),
                  key(VK_RETURN), focus_is(account), key(VK_ESCAPE)});
    EXPECT_EQ(desk.reports.size(), 1u);
}

TEST(Win32_windows, a_click_into_a_locked_field_leaves_the_focus_where_it_was) {
    Desk desk;
    const auto read_only = [](Desk& desk, const char* name) {
        return (GetWindowLongPtrW(desk.control(name), GWL_STYLE) & ES_READONLY) != 0;
    };
    desk.deposit({look([&](Desk& desk) {
                      EXPECT_TRUE(read_only(desk, "txt_Bc_Descripcion"));
                      EXPECT_FALSE(read_only(desk, account));
                  }),
                  click("txt_Bc_Descripcion"), focus_is(account), type(L"X"), text_is(account, "X"),
                  text_is("txt_Bc_Descripcion", ""), key(VK_ESCAPE)});
}

TEST(Win32_windows, a_click_beside_the_text_but_inside_the_frame_goes_into_the_field) {
    Desk desk;
    desk.payment({focus_is("txtBanco"),
                  [](Desk& desk) {
                      RECT area{};
                      GetWindowRect(desk.control("txtCuenta"), &area);
                      POINT at{area.left - 3, area.top - 3};
                      ScreenToClient(Desk::top(), &at);
                      PostMessageW(Desk::top(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
                  },
                  focus_is("txtCuenta"), key(VK_ESCAPE)});
}

TEST(Win32_windows, typing_in_the_middle_keeps_the_cursor_there) {
    Desk desk;
    desk.deposit({type(L"srmxn"), [](Desk& desk) { SendMessageW(desk.control(account), EM_SETSEL, 2, 2); }, type(L"r-"),
                  text_is(account, "SRR-MXN"), key(VK_ESCAPE)});
}

TEST(Win32_windows, letters_beyond_ascii_reach_the_form_and_come_back_as_capitals) {
    Desk desk;
    desk.deposit({type(L"ñandú€"), text_is(account, "ÑANDÚ€"), key(VK_ESCAPE)});
}

TEST(Win32_windows, a_text_that_no_window_can_show_is_not_changed_by_showing_it) {
    Desk desk;
    desk.payment({look([](Desk& desk) {
                      auto& field = dynamic_cast<LookupTextBox&>(*desk.toolkit->shown->find("txtCuenta"));
                      field.Text("09\xFF");
                      EXPECT_EQ(field.Text(), "09\xFF");
                  }),
                  key(VK_ESCAPE)});
}

// ---- The list ------------------------------------------------------------------------------------------------------

TEST(Win32_windows, the_list_is_narrowed_by_typing_and_walked_with_the_arrows) {
    Desk desk;
    const auto answer = desk.deposit({key(VK_F2), look([](Desk& desk) {
                                          EXPECT_EQ(utf8(text_of(Desk::top())), "Cuentas de banco");
                                          EXPECT_EQ(row_count(), 3);
                                          EXPECT_EQ(cell(0, 0), "PTO-GRAL");
                                          EXPECT_EQ(cell(2, 1), "Sierra, operación en pesos");
                                          EXPECT_EQ(GetFocus(), Desk::child(id_sought));
                                          EXPECT_FALSE(IsWindowEnabled(GetParent(desk.control(account))));
                                      }),
                                      type(L"pto"), look([](Desk&) { EXPECT_EQ(row_count(), 2); }), key(VK_DOWN),
                                      key(VK_RETURN), text_is(account, "PTO-MXN"), focus_is(account), key(VK_F4)});
    EXPECT_EQ(answer, "PTO-MXN|2024-03-15|0");
}

TEST(Win32_windows, a_list_without_rows_says_so_and_enter_takes_nothing) {
    Desk desk;
    desk.deposit({key(VK_F2), type(L"zzz"), key(VK_RETURN), look([](Desk&) {
                      EXPECT_EQ(utf8(text_of(Desk::top())), "Cuentas de banco");
                      EXPECT_EQ(utf8(text_of(Desk::child(id_count))).substr(0, 17), "Sin coincidencias");
                  }),
                  key(VK_ESCAPE), focus_is(account), text_is(account, ""), key(VK_ESCAPE)});
}

TEST(Win32_windows, shift_f2_opens_the_full_list_of_banks) {
    Desk desk;
    desk.sql(
        "INSERT INTO Documento_Cuenta_Bancaria (Dcb_Tabla, Dcb_Documento, Dcb_ID, Dcb_Banco, Dcb_Cuenta) "
        "VALUES ('CLIENTE', 'CL01', '0001', 'SIERRA', '1')");
    desk.payment({key(VK_F2), look([](Desk&) { EXPECT_EQ(row_count(), 1); }), key(VK_ESCAPE), key(VK_F2, true),
                  look([](Desk&) { EXPECT_EQ(row_count(), 2); }), key(VK_ESCAPE), key(VK_ESCAPE)});
}

TEST(Win32_windows, a_failing_search_is_shown_over_the_list) {
    Desk desk;
    desk.deposit({key(VK_F2), [](Desk& desk) { desk.sql("DROP TABLE Empresa"); }, type(L"x"), look([](Desk& desk) {
                      EXPECT_EQ(Desk::open_windows().size(), 3u);
                      EXPECT_NE(utf8(text_of(Desk::child(id_description))).find("Empresa"), std::string::npos);
                      EXPECT_EQ(desk.reports.size(), 1u);
                  }),
                  key(VK_RETURN), look([](Desk&) { EXPECT_EQ(row_count(), 0); }), key(VK_ESCAPE), key(VK_ESCAPE)});
}

TEST(Win32_windows, a_search_that_fails_as_the_list_opens_is_shown_over_the_form) {
    Desk desk;
    desk.sql("DROP TABLE Empresa");
    desk.deposit({key(VK_F2), look([](Desk& desk) {
                      EXPECT_EQ(GetWindow(Desk::top(), GW_OWNER), GetParent(desk.control(account)));
                      EXPECT_FALSE(IsWindowEnabled(GetParent(desk.control(account))));
                  }),
                  key(VK_RETURN), look([](Desk&) { EXPECT_EQ(row_count(), 0); }), key(VK_ESCAPE), focus_is(account),
                  key(VK_ESCAPE)});
    EXPECT_EQ(desk.reports.size(), 1u);
}

TEST(Win32_windows, the_list_can_be_made_larger) {
    Desk desk;
    desk.deposit({key(VK_F2), look([](Desk&) {
                      RECT before{}, after{}, inside{};
                      GetWindowRect(Desk::child(id_table), &before);
                      SetWindowPos(Desk::top(), nullptr, 0, 0, 1100, 700, SWP_NOZORDER);
                      GetWindowRect(Desk::child(id_table), &after);
                      GetWindowRect(Desk::top(), &inside);
                      EXPECT_GT(after.bottom - after.top, before.bottom - before.top);
                      EXPECT_GT(after.right - after.left, before.right - before.left);
                      EXPECT_LT(after.right, inside.right);
                  }),
                  key(VK_ESCAPE), key(VK_ESCAPE)});
}

// ---- The payment method --------------------------------------------------------------------------------------------

TEST(Win32_windows, the_data_of_a_transfer_is_asked_and_remembered) {
    Desk desk;
    const auto answer = desk.payment({
        focus_is("txtBanco"),
        text_is("txtDocumento", "CL01"),
        text_is("txtnFormaPago", "Transferencia electrónica"),
        type(L"SIERRA"),
        key(VK_RETURN),
        text_is("txtNBanco", "Banco de la Sierra"),
        focus_is("txtSucursal"),
        type(L"12"),
        key(VK_RETURN),
        type(L"0901"),
        key(VK_RETURN),
        type(L"TR-5"),
        key(VK_RETURN),
        key(VK_SPACE),
    });
    EXPECT_EQ(answer, "Banco de la Sierra|TR-5|0901|SIERRA");
    EXPECT_EQ(to_text(desk.database.connection()
                          .execute("SELECT Dcb_Cuenta FROM Documento_Cuenta_Bancaria")
                          ->field("Dcb_Cuenta")),
              "0901");
}

TEST(Win32_windows, what_a_method_does_not_require_is_greyed_out) {
    Desk desk;
    desk.payment({look([](Desk& desk) {
                      EXPECT_FALSE(IsWindowEnabled(desk.control("txtBanco")));
                      EXPECT_FALSE(IsWindowEnabled(desk.control("txtCuenta")));
                      EXPECT_TRUE(IsWindowEnabled(desk.control("txtReferencia")));
                  }),
                  focus_is("txtSucursal"), key(VK_ESCAPE)},
                 "04");
}

TEST(Win32_windows, a_refusal_sends_the_focus_to_its_field) {
    Desk desk;
    desk.payment({type(L"SIERRA"), click("txtReferencia"), focus_is("txtReferencia"), click("Controles.b1"),
                  key(VK_RETURN), focus_is("txtCuenta"), key(VK_ESCAPE)});
    EXPECT_THAT(desk.reports,
                ElementsAre("Controles_B1Click() ERR-ID:7500003 Esta forma de pago requiere una cuenta!"));
}

TEST(Win32_windows, a_bank_that_is_not_found_can_be_left_and_its_name_written_by_hand) {
    Desk desk;
    desk.payment({type(L"NADA"), key(VK_RETURN), focus_is("txtSucursal"), look([](Desk& desk) {
                      EXPECT_FALSE(IsWindowVisible(desk.control("txtNBanco")));
                      RECT area{};
                      GetWindowRect(desk.control("txtNBanco"), &area);
                      POINT at{area.left + 3, area.top + 3};
                      ScreenToClient(Desk::top(), &at);
                      PostMessageW(Desk::top(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
                  }),
                  focus_is("txtNBanco"), type(L"Otro"), text_is("txtNBanco", "Otro"),
                  look([](Desk& desk) { EXPECT_TRUE(IsWindowVisible(desk.control("txtNBanco"))); }), key(VK_ESCAPE)});
}

// ---- Owner and loop ------------------------------------------------------------------------------------------------

TEST(Win32_windows, the_active_window_owns_the_dialog_and_no_other_window_of_the_thread_can_be_reached_meanwhile) {
    Desk desk;
    Host_window other(L"Otra");
    Host_window host;
    desk.deposit({look([&](Desk&) {
                      EXPECT_EQ(GetWindow(Desk::top(), GW_OWNER), host.window());
                      EXPECT_FALSE(host.enabled());
                      EXPECT_FALSE(other.enabled());
                      EXPECT_EQ(utf8(text_of(Desk::top())), "Depósito a banco");
                  }),
                  key(VK_F4), look([&](Desk& desk) {
                      EXPECT_EQ(GetWindow(Desk::top(), GW_OWNER), GetParent(desk.control(account)));
                      EXPECT_FALSE(host.enabled());
                  }),
                  key(VK_RETURN), look([&](Desk& desk) {
                      EXPECT_TRUE(IsWindowEnabled(GetParent(desk.control(account))));
                      EXPECT_FALSE(host.enabled()) << "the message alone was closed";
                  }),
                  key(VK_ESCAPE)});
    EXPECT_TRUE(host.enabled());
    EXPECT_TRUE(other.enabled());
    EXPECT_EQ(GetActiveWindow(), host.window());
    EXPECT_EQ(GetFocus(), host.field()) << "the keyboard is back where it was";
}

TEST(Win32_windows, a_window_that_was_disabled_before_stays_so) {
    Desk desk;
    Host_window other(L"Otra");
    EnableWindow(other.window(), FALSE);
    Host_window host;
    desk.deposit({key(VK_ESCAPE)});
    EXPECT_FALSE(other.enabled());
    EXPECT_TRUE(host.enabled());
}

/// What the owner is when the dialog is being hidden.
bool enabled_in_time = false;
HWND watched_owner = nullptr;
LRESULT CALLBACK watch(int code, WPARAM wparam, LPARAM lparam) {
    if (code == HCBT_DESTROYWND && GetWindow(reinterpret_cast<HWND>(wparam), GW_OWNER) == watched_owner) {
        enabled_in_time = IsWindowEnabled(watched_owner) != FALSE;
    }
    return CallNextHookEx(nullptr, code, wparam, lparam);
}

TEST(Win32_windows, the_owner_can_take_the_keyboard_before_the_dialog_goes) {
    Desk desk;
    Host_window host;
    watched_owner = host.window();
    enabled_in_time = false;
    const HHOOK hook = SetWindowsHookExW(WH_CBT, &watch, nullptr, GetCurrentThreadId());
    desk.deposit({key(VK_ESCAPE)});
    UnhookWindowsHookEx(hook);
    EXPECT_TRUE(enabled_in_time);
}

TEST(Win32_windows, the_end_of_the_programs_messages_cancels_and_stays_their_end) {
    Desk desk;
    Host_window host;
    EXPECT_EQ(desk.deposit({type(L"SRR-MXN"), key(VK_F2), [](Desk&) { PostQuitMessage(7); }}), "");
    MSG message{};
    bool quit = false;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) quit |= message.message == WM_QUIT && message.wParam == 7;
    EXPECT_TRUE(quit);
    EXPECT_TRUE(host.enabled());
}

TEST(Win32_windows, a_host_that_destroys_its_window_under_the_dialog_cancels_it) {
    Desk desk;
    auto host = std::make_unique<Host_window>();
    EXPECT_EQ(desk.deposit({type(L"SRR-MXN"), [&](Desk&) { host.reset(); }}), "");
}

TEST(Win32_windows, other_messages_of_the_thread_go_on_meanwhile) {
    Desk desk;
    Host_window host;
    desk.deposit({[&](Desk&) { PostMessageW(host.field(), WM_CHAR, L'x', 1); },
                  look([&](Desk&) { EXPECT_EQ(utf8(text_of(host.field())), "x"); }), key(VK_ESCAPE)});
}

TEST(Win32_windows, the_class_belongs_to_the_module_and_goes_with_the_last_window) {
    Desk desk;
    const std::wstring name = L"Cuvexa.Window." + std::to_wstring(GetCurrentThreadId());
    WNDCLASSEXW found{};
    found.cbSize = sizeof found;
    desk.deposit({key(VK_F2), key(VK_ESCAPE),
                  look([&](Desk&) { EXPECT_TRUE(GetClassInfoExW(win32::this_module(), name.c_str(), &found)); }),
                  key(VK_ESCAPE)});
    EXPECT_FALSE(GetClassInfoExW(win32::this_module(), name.c_str(), &found));
    EXPECT_EQ(win32::this_module(), GetModuleHandleW(nullptr)) << "linked into the program here";
}

TEST(Win32_windows, a_key_that_is_still_down_does_not_go_on_in_the_next_window) {
    Desk desk;
    const Step held = [](Desk&) {
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_F4, 1);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_F4, MAKELPARAM(1, KF_REPEAT));
    };
    const Step still_held = [](Desk&) { PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, MAKELPARAM(1, KF_REPEAT)); };
    desk.deposit({held, still_held, look([](Desk&) { EXPECT_EQ(Desk::open_windows().size(), 2u); }), key(VK_RETURN),
                  key(VK_ESCAPE)});
    EXPECT_EQ(desk.reports.size(), 1u);
}

TEST(Win32_windows, keys_with_ctrl_are_the_controls_own) {
    Desk desk;
    desk.deposit({[](Desk&) {
                      BYTE keys[256] = {};
                      keys[VK_CONTROL] = 0x80;
                      SetKeyboardState(keys);
                      PostMessageW(GetFocus(), WM_KEYDOWN, VK_F4, 1);
                  },
                  look([](Desk&) { EXPECT_EQ(Desk::open_windows().size(), 1u); }), key(VK_ESCAPE)});
    EXPECT_THAT(desk.reports, IsEmpty());
}

TEST(Win32_windows, a_library_that_is_unloaded_leaves_nothing_and_can_come_again) {
    Desk desk;
    const std::wstring name = L"Cuvexa.Window." + std::to_wstring(GetCurrentThreadId());
    for (int time = 0; time < 2; ++time) {
        const HMODULE library = LoadLibraryW(L"cuvexa_windows_dialogs_library.dll");
        ASSERT_NE(library, nullptr) << GetLastError();
        const auto show =
            reinterpret_cast<void (*)()>(reinterpret_cast<void*>(GetProcAddress(library, "show_a_warning")));
        ASSERT_NE(show, nullptr);
        desk.run({look([&](Desk&) {
                      EXPECT_EQ(GetClassLongPtrW(Desk::top(), GCLP_HMODULE), reinterpret_cast<ULONG_PTR>(library));
                      EXPECT_EQ(utf8(text_of(Desk::child(id_description))), "Aviso de una biblioteca");
                  }),
                  key(VK_RETURN)},
                 show);
        WNDCLASSEXW found{};
        found.cbSize = sizeof found;
        EXPECT_FALSE(GetClassInfoExW(library, name.c_str(), &found));
        EXPECT_TRUE(FreeLibrary(library));
        EXPECT_EQ(GetModuleHandleW(L"cuvexa_windows_dialogs_library.dll"), nullptr);
    }
}

TEST(Win32_windows, a_service_without_a_desktop_is_told_so) {
    Desk desk;
    EXPECT_EQ(desk.toolkit->obstacle(), "");
    const HWINSTA station = GetProcessWindowStation();
    const HWINSTA invisible = CreateWindowStationW(nullptr, 0, WINSTA_ALL_ACCESS, nullptr);
    ASSERT_NE(invisible, nullptr);
    ASSERT_TRUE(SetProcessWindowStation(invisible));
    EXPECT_EQ(desk.toolkit->obstacle(), "el programa corre donde nadie ve sus ventanas (un servicio).");
    SetProcessWindowStation(station);
    CloseWindowStation(invisible);
}

// ---- Failures ------------------------------------------------------------------------------------------------------

TEST(Win32_windows, what_a_service_throws_inside_a_handler_ends_the_window_and_reaches_the_caller) {
    Desk desk;
    Host_window host;
    int times = 0;
    desk.on_report = [&](const Reported_error&) {
        if (++times == 1) throw std::runtime_error("sin memoria");
    };
    EXPECT_EQ(desk.failure_of_deposit({key(VK_F4)}), "sin memoria");
    EXPECT_TRUE(host.enabled());
}

TEST(Win32_windows, also_when_it_throws_while_a_message_of_the_system_is_handled) {
    Desk desk;
    desk.on_report = [times = 0](const Reported_error&) mutable {
        if (++times == 1) throw std::runtime_error("sin memoria");
    };
    EXPECT_EQ(desk.failure_of_deposit({[](Desk& desk) { PostMessageW(desk.control("Controles.b1"), BM_CLICK, 0, 0); }}),
              "sin memoria");
}

TEST(Win32_windows, the_next_dialog_opens_as_if_nothing_had_been) {
    Desk desk;
    desk.on_report = [times = 0](const Reported_error&) mutable {
        if (++times == 1) throw std::runtime_error("sin memoria");
    };
    EXPECT_EQ(desk.failure_of_deposit({key(VK_F4)}), "sin memoria");
    EXPECT_EQ(desk.deposit({type(L"SRR-MXN"), key(VK_F4)}), "SRR-MXN|2024-03-15|0");
    EXPECT_EQ(desk.treasury->Error(), "");
}

// ---- The error dialog ----------------------------------------------------------------------------------------------

TEST(Win32_windows, the_error_dialog_shows_the_text_as_it_stands_with_code_and_routine) {
    Desk desk;
    Host_window host;
    for (const int end : {VK_RETURN, VK_ESCAPE, VK_SPACE}) {
        desk.run({look([&](Desk&) {
                      EXPECT_EQ(utf8(text_of(Desk::top())), "Cuvexa");
                      EXPECT_EQ(GetWindow(Desk::top(), GW_OWNER), host.window());
                      EXPECT_FALSE(host.enabled());
                      EXPECT_EQ(utf8(text_of(Desk::child(id_description))), "<b>No</b> & nunca\r\nrenglón\r\n");
                      EXPECT_EQ(utf8(text_of(Desk::child(id_where))), "ERR-ID:7500009  ·  Controles_B1Click()");
                      EXPECT_EQ(GetFocus(), Desk::child(id_accept));
                  }),
                  key(end)},
                 [&] {
                     desk.toolkit->show_error(
                         {"<b>No</b> & nunca\nrenglón\r\n", 16, "Controles_B1Click()", "", "Cuvexa", "ERR-ID:7500009"});
                 });
        EXPECT_TRUE(host.enabled());
    }
}

TEST(Win32_windows, a_long_error_is_scrolled_and_stays_on_the_screen) {
    Desk desk;
    std::string text;
    for (int line = 0; line < 500; ++line) text += "Renglón " + std::to_string(line) + "\r\n";
    desk.run({look([](Desk&) {
                  RECT window{}, screen{};
                  GetWindowRect(Desk::top(), &window);
                  SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
                  EXPECT_LE(window.bottom - window.top, screen.bottom - screen.top);
                  EXPECT_EQ(SendMessageW(Desk::child(id_description), EM_GETFIRSTVISIBLELINE, 0, 0), 0);
              }),
              key(VK_NEXT), look([](Desk&) {
                  EXPECT_GT(SendMessageW(Desk::child(id_description), EM_GETFIRSTVISIBLELINE, 0, 0), 0);
              }),
              key(VK_RETURN)},
             [&] {
                 desk.toolkit->show_error({text, 48, "R()", "Aviso", "Cuvexa", ""});
             });
}

// ---- Resolution and texts ------------------------------------------------------------------------------------------

TEST(Win32_windows, a_monitor_of_twice_the_resolution_doubles_the_window) {
    Desk desk;
    RECT before{};
    desk.payment({look([&](Desk&) {
                      GetClientRect(Desk::top(), &before);
                      RECT place{};
                      GetWindowRect(Desk::top(), &place);
                      SendMessageW(Desk::top(), WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&place));
                  }),
                  look([&](Desk& desk) {
                      RECT after{}, field{}, inside{};
                      GetClientRect(Desk::top(), &after);
                      EXPECT_NEAR(after.right, 2 * before.right, before.right / 8);
                      EXPECT_NEAR(after.bottom, 2 * before.bottom, before.bottom / 8);
                      GetWindowRect(desk.control("Controles.b2"), &field);
                      GetWindowRect(Desk::top(), &inside);
                      EXPECT_LE(field.right, inside.right);
                      EXPECT_LE(field.bottom, inside.bottom);
                      LOGFONTW font{};
                      const auto handle = SendMessageW(desk.control("txtCuenta"), WM_GETFONT, 0, 0);
                      GetObjectW(reinterpret_cast<HGDIOBJ>(handle), sizeof font, &font);
                      EXPECT_LE(font.lfHeight, -32);
                  }),
                  key(VK_ESCAPE)});
}

BOOL CALLBACK expect_inside_and_uncut(HWND child, LPARAM) {
    if (GetParent(child) != Desk::top()) return TRUE;  // a part of a control
    RECT own{}, inside{};
    GetWindowRect(child, &own);
    GetClientRect(GetParent(child), &inside);
    MapWindowPoints(GetParent(child), nullptr, reinterpret_cast<POINT*>(&inside), 2);
    const std::string text = utf8(text_of(child));
    EXPECT_TRUE(own.left >= inside.left && own.right <= inside.right && own.top >= inside.top &&
                own.bottom <= inside.bottom)
        << text;
    const HDC dc = GetDC(child);
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(child, WM_GETFONT, 0, 0)));
    SIZE size{};
    const std::wstring shown = text_of(child);
    GetTextExtentPoint32W(dc, shown.data(), static_cast<int>(shown.size()), &size);
    SelectObject(dc, before);
    ReleaseDC(child, dc);
    EXPECT_GE(own.right - own.left, size.cx) << text;
    EXPECT_GE(own.bottom - own.top, size.cy) << text;
    return TRUE;
}

TEST(Win32_windows, nothing_is_cut_off_nor_outside) {
    Desk desk;
    const Step check = look([](Desk&) { EnumChildWindows(Desk::top(), &expect_inside_and_uncut, 0); });
    desk.deposit({check, type(L"NADA"), key(VK_RETURN), check, key(VK_F2), key(VK_ESCAPE), key(VK_ESCAPE)});
    desk.payment({check, key(VK_ESCAPE)});
}

TEST(Win32_windows, every_field_has_its_label_right_before_it) {
    Desk desk;
    desk.payment({look([](Desk& desk) {
                      for (const auto& row : desk.toolkit->shown->rows()) {
                          if (!row.label) continue;
                          const HWND before = GetWindow(desk.control(row.field->Name()), GW_HWNDPREV);
                          EXPECT_EQ(utf8(text_of(before)), row.label->caption());
                      }
                  }),
                  key(VK_ESCAPE)});
}

TEST(Win32_texts, an_ampersand_is_an_ampersand_and_breaks_are_the_systems) {
    EXPECT_EQ(win32::label_text("A & B"), L"A && B");
    EXPECT_EQ(win32::lines_of("a\nb\r\nc\rd\r"), L"a\r\nb\r\nc\r\nd\r\n");
    EXPECT_EQ(win32::lines_of("\n\n"), L"\r\n\r\n");
    EXPECT_EQ(win32::utf8(win32::wide("Depósito ñ € 𝄞")), "Depósito ñ € 𝄞");
}

}  // namespace
}  // namespace cuvexa::tests
