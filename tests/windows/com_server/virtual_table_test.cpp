// The component through its virtual table, by the header that the build makes.
#include <Cuvexa.h>

#include <cstring>

#include "windows/com_server/server.h"

namespace cuvexa::tests {

using namespace com;
namespace {

struct Virtual_table : ::testing::Test {
    Server server;
    Pointer<Cuvexa::_Tesoreria> treasury = create();

    ~Virtual_table() override { SetErrorInfo(0, nullptr); }

    Pointer<Cuvexa::_Tesoreria> create() const {
        Pointer<Cuvexa::_Tesoreria> created;
        EXPECT_EQ(server.create(Cuvexa::clsid_Tesoreria, Cuvexa::iid__Tesoreria, created.receive_void()), S_OK);
        return created;
    }
    Pointer<Cuvexa::_clsRpDetalle> new_extras() const {
        Pointer<Cuvexa::_clsRpDetalle> created;
        EXPECT_EQ(server.create(Cuvexa::clsid_clsRpDetalle, Cuvexa::iid__clsRpDetalle, created.receive_void()), S_OK);
        return created;
    }
    std::string error() {
        String text;
        EXPECT_EQ(treasury->get_Error(text.receive()), S_OK);
        return text.text();
    }

    /// A receipt of one line of that amount, closed. Gives its folio.
    std::string receipt(double amount);
};

/// A text that goes in by reference.
struct Text {
    explicit Text(std::string_view utf8) : text(new_string(utf8)) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text); }
    BSTR* operator&() { return &text; }
    std::string value() const { return text_of(text); }
    BSTR text;
};

std::string Virtual_table::receipt(double amount) {
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(treasury->NuevoReciboCaja(), S_OK);
    Client_record<Cuvexa::tRpEncabezado> header;
    header->Rp_Fecha = 45366;
    header->TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = new_string("01");
    header->Sucursal.Sc_Cve_Sucursal = new_string("MTY");
    header->Rp_Comentario = new_string("Acción ñ 😀 \"x\"");
    header->Mn_Cve_Moneda = new_string("MXN");
    header->Rp_Tipo_Cambio = 1;
    EXPECT_EQ(treasury->put_RpEncabezado(header.get()), S_OK);
    Client_record<Cuvexa::tRpDetalle> line;
    line->Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = new_string("01");
    line->Rp_Importe = amount;
    EXPECT_EQ(treasury->put_RpDetalle(line.get()), S_OK);
    EXPECT_EQ(treasury->Add_Recibo_Caja_Detalle(&done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE) << error();
    Client_record<Cuvexa::tRpEncabezado> written;
    EXPECT_EQ(treasury->get_RpEncabezado(written.get()), S_OK);
    Text folio(text_of(written->Rp_Folio));
    EXPECT_EQ(treasury->FinReciboCaja(&folio, &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE) << error();
    return folio.value();
}

TEST_F(Virtual_table, captures_deposits_and_cancels_with_records) {
    const std::string written = receipt(1500);
    EXPECT_THAT(
        server.company.rows("SELECT Rp_Comentario, Rp_Importe FROM Recibo_Pago WHERE Rp_Folio = '" + written + "'",
                            {"Rp_Comentario", "Rp_Importe"}),
        ElementsAre("Acción ñ 😀 \"x\"|1500"));
    Text folio(written), account("SRR-MXN"), comment("por tabla");
    DATE date = 45366;
    VARIANT_BOOL firm = VARIANT_TRUE, done = VARIANT_FALSE;
    ASSERT_EQ(treasury->Genera_Deposito(&account, &folio, &date, &firm, &date, comment.text, &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE) << error();
    double balance = 0;
    ASSERT_EQ(treasury->GetSaldo(&account, nullptr, &balance), S_OK);
    EXPECT_EQ(balance, 1500);
    String deposit;
    ASSERT_EQ(treasury->get_Dp_Folio(deposit.receive()), S_OK);
    EXPECT_NE(deposit.text(), "");
    VARIANT_BOOL with_deposit = VARIANT_TRUE;
    ASSERT_EQ(treasury->Cancelar_Recibo_Caja(&folio, &with_deposit, nullptr, &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE) << error();
    ASSERT_EQ(treasury->GetSaldo(&account, &firm, &balance), S_OK);
    EXPECT_EQ(balance, 0);
    EXPECT_THAT(server.company.rows("SELECT Es_Cve_Estado FROM Recibo_Pago WHERE Rp_Folio = '" + written + "'",
                                    {"Es_Cve_Estado"}),
                ElementsAre("CA"));
}

TEST_F(Virtual_table, takes_null_for_an_optional_text_by_value) {
    Text folio(receipt(10)), account("SRR-MXN");
    DATE date = 45366;
    VARIANT_BOOL firm = VARIANT_FALSE, done = VARIANT_FALSE;
    ASSERT_EQ(treasury->Genera_Deposito(&account, &folio, &date, &firm, &date, nullptr, &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE) << error();
}

TEST_F(Virtual_table, takes_a_null_string_for_an_empty_text) {
    BSTR none = nullptr;
    ASSERT_EQ(treasury->put_Ch_Banco_Destino(&none), S_OK);
    String back;
    ASSERT_EQ(treasury->get_Ch_Banco_Destino(back.receive()), S_OK);
    ASSERT_TRUE(back.get());
    EXPECT_EQ(back.text(), "");
    ASSERT_EQ(treasury->put_FolioMovimiento(nullptr), S_OK);
}

TEST_F(Virtual_table, keeps_text_as_it_is) {
    for (const std::string_view text :
         {std::string_view("ñandú 😀 'x' \"y\""), std::string_view("a\0b", 3), std::string_view()}) {
        Text given(text);
        ASSERT_EQ(treasury->put_Ch_Banco_Destino(&given), S_OK);
        String back;
        ASSERT_EQ(treasury->get_Ch_Banco_Destino(back.receive()), S_OK);
        EXPECT_EQ(back.text(), text);
    }
}

TEST_F(Virtual_table, leaves_a_refusal_in_Error_and_not_in_the_result_code) {
    Text folio("no hay");
    VARIANT_BOOL done = VARIANT_TRUE;
    ASSERT_EQ(treasury->Crear_Cheque(folio.text, &done), S_OK);
    EXPECT_EQ(done, VARIANT_FALSE);
    EXPECT_EQ(error(), "Esta operación no está soportada por la versión del sistema");
    EXPECT_EQ(folio.value(), "no hay");
}

TEST_F(Virtual_table, refuses_null_where_a_value_is_needed_and_says_which) {
    VARIANT_BOOL done = VARIANT_TRUE;
    Text account("SRR-MXN");
    EXPECT_EQ(treasury->FinReciboCaja(nullptr, &done), E_POINTER);
    Pointer<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.receive()), S_OK);
    String description;
    info->GetDescription(description.receive());
    EXPECT_THAT(description.text(), HasSubstr("Rp_Folio"));
    EXPECT_EQ(treasury->FinReciboCaja(&account, nullptr), E_POINTER);
    ASSERT_EQ(GetErrorInfo(0, info.receive()), S_OK);
    info->GetDescription(description.receive());
    EXPECT_THAT(description.text(), HasSubstr("result"));
    EXPECT_EQ(treasury->GetSaldo(nullptr, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(treasury->get_Error(nullptr), E_POINTER);
    EXPECT_EQ(treasury->get_RpEncabezado(nullptr), E_POINTER);
    EXPECT_EQ(treasury->put_RpEncabezado(nullptr), E_POINTER);
    EXPECT_EQ(treasury->put_Validar_Forma_Pago(nullptr), E_POINTER);
    EXPECT_EQ(treasury->put_RpDetalle2(nullptr), E_POINTER);
    EXPECT_EQ(treasury->QueryInterface(Cuvexa::iid__Tesoreria, nullptr), E_POINTER);
    EXPECT_EQ(done, VARIANT_TRUE);
}

TEST_F(Virtual_table, raises_error_91_with_source_and_description_for_those_who_ask) {
    const auto support = treasury.as<ISupportErrorInfo>(IID_ISupportErrorInfo);
    ASSERT_TRUE(support);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(Cuvexa::iid__Tesoreria), S_OK);
    SetErrorInfo(0, nullptr);
    Cuvexa::_clsRpDetalle* extras = nullptr;
    EXPECT_EQ(treasury->get_RpDetalle2(&extras), static_cast<HRESULT>(0x800A005B));
    EXPECT_FALSE(extras);
    Pointer<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.receive()), S_OK);
    String description, source;
    info->GetDescription(description.receive());
    info->GetSource(source.receive());
    EXPECT_NE(description.text(), "");
    EXPECT_EQ(source.text(), "Cuvexa");
}

TEST_F(Virtual_table, keeps_the_extras_by_reference_and_counts_them) {
    const auto extras = new_extras();
    Cuvexa::_clsRpDetalle* given = extras.get();
    ASSERT_EQ(treasury->put_RpDetalle2(&given), S_OK);
    Text seller("VN01");
    ASSERT_EQ(extras->put_Rp_Vendedor(&seller), S_OK);
    const std::string folio = receipt(5);
    EXPECT_THAT(
        server.company.rows("SELECT Rp_Vendedor FROM Recibo_Pago WHERE Rp_Folio = '" + folio + "'", {"Rp_Vendedor"}),
        ElementsAre("VN01"));
    given = nullptr;
    ASSERT_EQ(treasury->put_RpDetalle2(&given), S_OK);
    extras->AddRef();
    EXPECT_EQ(extras->Release(), 1u);
    // An object of another class fires the trap, and the caller keeps it.
    given = reinterpret_cast<Cuvexa::_clsRpDetalle*>(treasury.get());
    EXPECT_EQ(treasury->put_RpDetalle2(&given), S_OK);
    EXPECT_EQ(given, reinterpret_cast<Cuvexa::_clsRpDetalle*>(treasury.get()));
}

TEST_F(Virtual_table, reads_a_record_over_whatever_the_memory_holds) {
    Cuvexa::tRpDetalle line;
    std::memset(&line, 0xCD, sizeof line);
    ASSERT_EQ(treasury->get_RpDetalle(&line), S_OK);
    EXPECT_EQ(SysStringLen(line.Rp_ID), 0u);
    EXPECT_EQ(line.Rp_Importe, 0);
    Cuvexa::clear(line);
}

TEST_F(Virtual_table, lets_and_gets_every_extra_under_its_own_name) {
    const auto extras = new_extras();
    using E = Cuvexa::_clsRpDetalle;
    using Put = HRESULT (STDMETHODCALLTYPE E::*)(BSTR*);
    const std::pair<Put, Put> properties[] = {
        {&E::put_Rp_Cve_Banco, &E::get_Rp_Cve_Banco},
        {&E::put_Rp_Vendedor, &E::get_Rp_Vendedor},
        {&E::put_Rp_Comisionista, &E::get_Rp_Comisionista},
        {&E::put_Rp_Promotor, &E::get_Rp_Promotor},
        {&E::put_Rp_Chofer, &E::get_Rp_Chofer},
        {&E::put_Rp_Cobratario, &E::get_Rp_Cobratario},
    };
    for (std::size_t at = 0; at < std::size(properties); ++at) {
        Text text("valor " + std::to_string(at));
        ASSERT_EQ((extras.get()->*properties[at].first)(&text), S_OK);
    }
    for (std::size_t at = 0; at < std::size(properties); ++at) {
        String text;
        ASSERT_EQ((extras.get()->*properties[at].second)(text.receive()), S_OK);
        EXPECT_EQ(text.text(), "valor " + std::to_string(at));
    }
    const wchar_t* names[] = {L"Rp_Cve_Banco", L"Rp_Vendedor", L"Rp_Comisionista",
                              L"Rp_Promotor",  L"Rp_Chofer",   L"Rp_Cobratario"};
    const auto late = extras.as<IDispatch>(IID_IDispatch);
    for (std::size_t at = 0; at < std::size(names); ++at) {
        EXPECT_EQ(text(get(late, names[at])), "valor " + std::to_string(at));
    }
}

}  // namespace
}  // namespace cuvexa::tests
