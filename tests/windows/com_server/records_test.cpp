// Records on their way in and out: as the system's record variants, as the server's script objects, as any object with
// such properties.
#include <Cuvexa.h>

#include <map>

#include "com_server/identifiers.h"
#include "windows/com_server/probe.h"
#include "windows/com_server/server.h"

namespace cuvexa::tests {

using namespace com;
using namespace com_server;
namespace {

constexpr const char* odd_text = "Acción ñ 😀 \"comillas\" 'apóstrofos' “más”";

BSTR new_text(const char* text = odd_text) {
    return new_string(text);
}

struct Records : ::testing::Test {
    Server server;
    Pointer<IDispatch> treasury = server.create("Tesoreria");
    Pointer<IRecordInfo> header_info = server.record_info("tRpEncabezado");
    Pointer<IRecordInfo> line_info = server.record_info("tRpDetalle");

    Client_record<Cuvexa::tRpEncabezado> header;

    void fill_header() {
        header->Rp_Folio = new_text("RP-9");
        header->Rp_Fecha = 45366.25;
        header->TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = new_text("ZZ");  // not in the catalog: nothing is filled in
        header->TipoReciboPago.Trp_Descripcion = new_text();
        header->TipoReciboPago.Trp_Solicitar_Vendedor = VARIANT_TRUE;
        header->Sucursal.Sc_Cve_Sucursal = new_text("MTY");
        header->Sucursal.Es_Cve_Estado = new_text("AC");
        header->Rp_Comentario = new_text();
        header->Rp_Tipo_Cambio = 17.25;
        header->Rp_Deposito_ID = new_text("0001");
    }

    void expect_header(const Cuvexa::tRpEncabezado& found) {
        EXPECT_EQ(text_of(found.Rp_Folio), "RP-9");
        EXPECT_EQ(found.Rp_Fecha, 45366.25);
        EXPECT_EQ(text_of(found.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago), "ZZ");
        EXPECT_EQ(text_of(found.TipoReciboPago.Trp_Descripcion), odd_text);
        EXPECT_EQ(found.TipoReciboPago.Trp_Solicitar_Fecha, VARIANT_FALSE);
        EXPECT_EQ(found.TipoReciboPago.Trp_Solicitar_Vendedor, VARIANT_TRUE);
        EXPECT_EQ(text_of(found.Sucursal.Sc_Cve_Sucursal), "MTY");
        EXPECT_EQ(text_of(found.Sucursal.Sc_Telefono), "");
        EXPECT_EQ(text_of(found.Sucursal.Es_Cve_Estado), "AC");
        EXPECT_EQ(text_of(found.Rp_Comentario), odd_text);
        EXPECT_EQ(found.Rp_Tipo_Cambio, 17.25);
        EXPECT_EQ(text_of(found.Rp_Deposito_ID), "0001");
    }
};

TEST_F(Records, go_in_and_out_whole_with_the_records_inside_them) {
    fill_header();
    ASSERT_EQ(put(treasury, L"RpEncabezado", header.reference(header_info)).result, S_OK);
    const Outcome outcome = get(treasury, L"RpEncabezado");
    expect_header(record_in<Cuvexa::tRpEncabezado>(outcome));
    GUID id;
    ASSERT_EQ(outcome.value->pRecInfo->GetGuid(&id), S_OK);
    EXPECT_TRUE(IsEqualGUID(id, Cuvexa::guid_tRpEncabezado));
}

TEST_F(Records, go_in_by_value_by_reference_and_from_a_variable_alike) {
    fill_header();
    Any by_value;
    by_value->vt = VT_RECORD;
    by_value->pRecInfo = header_info.get();
    by_value->pvRecord = header.get();
    Any variable;
    std::swap(*variable.get(), *by_value.get());
    for (const bool inside : {false, true}) {
        const auto fresh = server.create("Tesoreria");
        Any given;
        if (inside) {
            given = reference(variable);
        } else {
            *given.get() = *variable.get();
        }
        const Outcome outcome = [&] {
            DISPID id = identifier(fresh, L"RpEncabezado"), put = DISPID_PROPERTYPUT;
            DISPPARAMS parameters{given.get(), &put, 1, 1};
            Outcome made;
            made.result = fresh->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr);
            return made;
        }();
        EXPECT_EQ(outcome.result, S_OK);
        VariantInit(given.get());
        expect_header(record_in<Cuvexa::tRpEncabezado>(get(fresh, L"RpEncabezado")));
    }
    VariantInit(variable.get());  // the memory is the record's own
    expect_header(*header.get());
}

TEST_F(Records, changed_after_a_let_do_not_change_the_instance) {
    fill_header();
    ASSERT_EQ(put(treasury, L"RpEncabezado", header.reference(header_info)).result, S_OK);
    header->Rp_Comentario[0] = L'X';
    header->Sucursal.Sc_Cve_Sucursal[0] = L'X';
    header->Rp_Tipo_Cambio = 1;
    expect_header(record_in<Cuvexa::tRpEncabezado>(get(treasury, L"RpEncabezado")));
}

TEST_F(Records, that_were_read_are_copies_down_to_the_texts_inside) {
    fill_header();
    ASSERT_EQ(put(treasury, L"RpEncabezado", header.reference(header_info)).result, S_OK);
    const Outcome first = get(treasury, L"RpEncabezado"), second = get(treasury, L"RpEncabezado");
    auto& changed = const_cast<Cuvexa::tRpEncabezado&>(record_in<Cuvexa::tRpEncabezado>(first));
    EXPECT_NE(changed.Sucursal.Sc_Cve_Sucursal, record_in<Cuvexa::tRpEncabezado>(second).Sucursal.Sc_Cve_Sucursal);
    changed.Rp_Comentario[0] = L'X';
    changed.Sucursal.Sc_Cve_Sucursal[0] = L'X';
    expect_header(record_in<Cuvexa::tRpEncabezado>(second));
    expect_header(record_in<Cuvexa::tRpEncabezado>(get(treasury, L"RpEncabezado")));
}

TEST_F(Records, whose_texts_were_never_set_carry_empty_ones) {
    ASSERT_EQ(put(treasury, L"RpEncabezado", header.reference(header_info)).result, S_OK);
    const Outcome outcome = get(treasury, L"RpEncabezado");
    const auto& found = record_in<Cuvexa::tRpEncabezado>(outcome);
    for (const BSTR text :
         {found.Rp_Folio, found.Rp_Comentario, found.Sucursal.Sc_Cve_Sucursal, found.Rp_Deposito_ID}) {
        ASSERT_TRUE(text);
        EXPECT_EQ(SysStringLen(text), 0u);
    }
    const Outcome untouched = get(server.create("Tesoreria"), L"RpDetalle");
    const auto& line = record_in<Cuvexa::tRpDetalle>(untouched);
    ASSERT_TRUE(line.Rp_ID);
    EXPECT_EQ(SysStringLen(line.Rp_ID), 0u);
    EXPECT_EQ(line.Rp_Importe, 0);
}

TEST_F(Records, are_read_by_the_system_s_own_view_of_them) {
    fill_header();
    ASSERT_EQ(put(treasury, L"RpEncabezado", header.reference(header_info)).result, S_OK);
    const Outcome outcome = get(treasury, L"RpEncabezado");
    ASSERT_EQ(outcome.value->vt, VT_RECORD);
    ULONG size = 0;
    ASSERT_EQ(outcome.value->pRecInfo->GetSize(&size), S_OK);
    EXPECT_EQ(size, sizeof(Cuvexa::tRpEncabezado));
    Any comment, rate;
    ASSERT_EQ(outcome.value->pRecInfo->GetField(outcome.value->pvRecord, L"Rp_Comentario", comment.get()), S_OK);
    ASSERT_EQ(outcome.value->pRecInfo->GetField(outcome.value->pvRecord, L"Rp_Tipo_Cambio", rate.get()), S_OK);
    EXPECT_EQ(text_in(*comment.get()), odd_text);
    EXPECT_EQ(number_in(*rate.get()), 17.25);
}

TEST_F(Records, of_another_type_are_refused) {
    Client_record<Cuvexa::tRpDetalle> line;
    fill_header();
    ASSERT_EQ(put(treasury, L"RpEncabezado", header.reference(header_info)).result, S_OK);
    const Outcome refused = put(treasury, L"RpEncabezado", line.reference(line_info));
    EXPECT_EQ(refused.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refused.wrong, 0u);
    EXPECT_EQ(put(treasury, L"RpEncabezado", any(server.create("tRpDetalle"))).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(put(treasury, L"RpEncabezado", any(server.create("clsRpDetalle"))).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(put(treasury, L"RpEncabezado", any(std::int32_t{5})).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(put(treasury, L"RpEncabezado", any(Pointer<IDispatch>())).result, DISP_E_TYPEMISMATCH);
    Any empty;
    empty->vt = VT_RECORD;
    EXPECT_EQ(put(treasury, L"RpEncabezado", std::move(empty)).result, DISP_E_TYPEMISMATCH);
    expect_header(record_in<Cuvexa::tRpEncabezado>(get(treasury, L"RpEncabezado")));
}

TEST_F(Records, that_a_member_changes_by_reference_come_back_changed) {
    const auto probe = std::make_shared<Probe>();
    const auto client = published(probe);
    Client_record<Cuvexa::tBnMovimiento> movement;
    movement->Bm_Folio = new_text("antes");
    movement->Cuenta.Bn_Cve_Banco = new_text("antes");
    movement->Cuenta.Mn_Cve_Moneda = new_text("MXN");
    movement->Bm_Importe = 12.5;
    ASSERT_TRUE(
        truth(call(client, L"Take_movement", arguments(movement.reference(server.record_info("tBnMovimiento"))))));
    EXPECT_EQ(text_of(movement->Bm_Folio), "F-1 “ñ”");
    EXPECT_EQ(text_of(movement->Cuenta.Bn_Cve_Banco), "BX");
    EXPECT_EQ(text_of(movement->Cuenta.Mn_Cve_Moneda), "MXN");
    EXPECT_EQ(movement->EnFirme, VARIANT_TRUE);
    EXPECT_EQ(movement->Bm_Importe, 12.5);
}

TEST_F(Records, that_a_member_changes_by_value_stay_as_they_were) {
    const auto client = published(std::make_shared<Probe>());
    Client_record<Cuvexa::tBnMovimiento> movement;
    const auto info = server.record_info("tBnMovimiento");
    movement->Bm_Folio = new_text("antes");
    VARIANT given{};
    given.vt = VT_RECORD;
    given.pRecInfo = info.get();
    given.pvRecord = movement.get();
    DISPPARAMS parameters{&given, nullptr, 1, 0};
    ASSERT_EQ(client->Invoke(identifier(client, L"Take_movement"), IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr,
                             nullptr, nullptr),
              S_OK);
    EXPECT_EQ(text_of(movement->Bm_Folio), "antes");
    EXPECT_EQ(movement->EnFirme, VARIANT_FALSE);
}

// ---- Objects in the place of records -------------------------------------------------------------------------------

TEST_F(Records, are_objects_to_scripts_with_the_records_inside_as_objects) {
    const auto record = server.create("tRpEncabezado");
    ASSERT_EQ(put(record, L"Rp_Comentario", any(odd_text)).result, S_OK);
    ASSERT_EQ(put(record, L"RP_TIPO_CAMBIO", any("17.25")).result, S_OK);
    ASSERT_EQ(put(record, L"Rp_Fecha", any(45366.25)).result, S_OK);
    ASSERT_EQ(put(inside(record, L"Sucursal"), L"Sc_Cve_Sucursal", any("MTY")).result, S_OK);
    ASSERT_EQ(put(inside(record, L"TipoReciboPago"), L"Trp_Solicitar_Fecha", any(1.0)).result, S_OK);
    ASSERT_EQ(put(treasury, L"RpEncabezado", any(record), DISPATCH_PROPERTYPUTREF).result, S_OK);
    const Outcome outcome = get(treasury, L"RpEncabezado");
    const auto& found = record_in<Cuvexa::tRpEncabezado>(outcome);
    EXPECT_EQ(text_of(found.Rp_Comentario), odd_text);
    EXPECT_EQ(found.Rp_Tipo_Cambio, 17.25);
    EXPECT_EQ(found.Rp_Fecha, 45366.25);
    EXPECT_EQ(text_of(found.Sucursal.Sc_Cve_Sucursal), "MTY");
    EXPECT_EQ(found.TipoReciboPago.Trp_Solicitar_Fecha, VARIANT_TRUE);
}

TEST_F(Records, of_every_type_have_all_their_members_as_properties) {
    for (const Record_type& type : record_types) {
        const auto record = server.create(type.name);
        for (const Field& field : type.fields) {
            const Outcome outcome = get(record, wide(field.name).c_str());
            EXPECT_EQ(outcome.result, S_OK) << type.name << "." << field.name;
            const VARTYPE expected = field.type.type == Type::record    ? VT_DISPATCH
                                     : field.type.type == Type::boolean ? VT_BOOL
                                     : field.type.type == Type::real    ? VT_R8
                                     : field.type.type == Type::date    ? VT_DATE
                                                                        : VT_BSTR;
            EXPECT_EQ(outcome.value->vt, expected) << type.name << "." << field.name;
        }
    }
}

TEST_F(Records, read_a_property_of_another_object_into_a_script_s_object) {
    fill_header();
    ASSERT_EQ(put(treasury, L"RpEncabezado", header.reference(header_info)).result, S_OK);
    const auto record = server.create("tRpEncabezado");
    const auto branch = inside(record, L"Sucursal");
    ASSERT_EQ(call(record, L"Leer", arguments(any(treasury), any("RpEncabezado"))).result, S_OK);
    EXPECT_EQ(text(get(record, L"Rp_Comentario")), odd_text);
    EXPECT_EQ(text(get(branch, L"Sc_Cve_Sucursal")), "MTY");  // taken before: it still is the record's
    EXPECT_EQ(call(record, L"Leer", arguments(any(treasury), any("RpDetalle"))).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(record, L"Leer", arguments(any(treasury))).result, DISP_E_BADPARAMCOUNT);
    EXPECT_NE(call(record, L"Leer", arguments(any(Pointer<IDispatch>()), any("RpEncabezado"))).result, S_OK);
    EXPECT_EQ(text(get(record, L"Rp_Comentario")), odd_text);
    ASSERT_EQ(call(record, L"Vaciar").result, S_OK);
    EXPECT_EQ(text(get(record, L"Rp_Comentario")), "");
    EXPECT_EQ(text(get(branch, L"Sc_Cve_Sucursal")), "");
}

TEST_F(Records, inside_another_outlive_the_object_that_holds_them) {
    auto record = server.create("tRpEncabezado");
    const auto branch = inside(record, L"Sucursal");
    record = nullptr;
    ASSERT_EQ(put(branch, L"Sc_Descripcion", any(odd_text)).result, S_OK);
    EXPECT_EQ(text(get(branch, L"Sc_Descripcion")), odd_text);
}

TEST_F(Records, refuse_values_that_are_none_of_a_member_s_type) {
    const auto record = server.create("tRpEncabezado");
    EXPECT_EQ(put(record, L"Rp_Tipo_Cambio", any("uno")).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(put(record, L"Rp_Fecha", any("ayer")).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(put(record, L"Sucursal", any("MTY")).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(put(record, L"Rp_Tipo_Cambio", missing()).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(invoke(record, 0x2000, DISPATCH_PROPERTYGET).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(number(get(record, L"Rp_Tipo_Cambio")), 0);
}

/// An object such as a script makes: properties that somebody gave it, of any kind.
class Bag final : public IDispatch {
public:
    static Pointer<Bag> create(std::map<std::wstring, Variant> values) {
        auto bag = Pointer<Bag>::owning(new Bag);
        for (auto& [name, value] : values) {
            bag->names_.push_back(name);
            bag->values_.push_back(result(value));
        }
        return bag;
    }
    void add(const std::wstring& name, const Pointer<IDispatch>& object) {
        names_.push_back(name);
        values_.push_back(any(object));
    }
    std::string text(const std::wstring& name) { return text_in(*values_.at(place(name)).get()); }
    VARTYPE kind(const std::wstring& name) { return values_.at(place(name))->vt; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ? this : nullptr;
        if (*object) AddRef();
        return *object ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        ids[0] = static_cast<DISPID>(place(names[0]));
        return static_cast<std::size_t>(ids[0]) < names_.size() ? S_OK : DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* value,
                                     EXCEPINFO*, UINT*) override {
        auto& held = values_.at(static_cast<std::size_t>(id));
        if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
            return VariantCopyInd(held.get(), &parameters->rgvarg[0]);
        }
        return VariantCopy(value, held.get());
    }

private:
    virtual ~Bag() = default;
    static Any result(const Variant& value) {
        if (const auto* text = std::get_if<std::string>(&value)) return any(*text);
        if (const auto* real = std::get_if<double>(&value)) return any(*real);
        return Any();
    }
    std::size_t place(const std::wstring& name) const {
        std::size_t at = 0;
        while (at < names_.size() &&
               CompareStringOrdinal(names_[at].c_str(), -1, name.c_str(), -1, TRUE) != CSTR_EQUAL) {
            ++at;
        }
        return at;
    }

    ULONG references_ = 1;
    std::vector<std::wstring> names_;
    std::vector<Any> values_;
};

Pointer<IDispatch> dispatch(const Pointer<Bag>& bag) {
    return Pointer<IDispatch>::sharing(bag.get());
}

TEST_F(Records, may_be_any_object_with_properties_of_the_members_names) {
    const auto branch = Bag::create({{L"sc_cve_sucursal", std::string("MTY")}});
    const auto record = Bag::create({{L"rp_comentario", std::string(odd_text)},
                                     {L"Rp_Tipo_Cambio", std::string("17.25")},
                                     {L"Rp_Referencia", Missing()},
                                     {L"Otra_cosa", 5.0}});
    record->add(L"Sucursal", dispatch(branch));
    ASSERT_EQ(put(treasury, L"RpEncabezado", any(dispatch(record)), DISPATCH_PROPERTYPUTREF).result, S_OK);
    const Outcome outcome = get(treasury, L"RpEncabezado");
    const auto& found = record_in<Cuvexa::tRpEncabezado>(outcome);
    EXPECT_EQ(text_of(found.Rp_Comentario), odd_text);
    EXPECT_EQ(found.Rp_Tipo_Cambio, 17.25);
    EXPECT_EQ(text_of(found.Rp_Referencia), "");
    EXPECT_EQ(text_of(found.Sucursal.Sc_Cve_Sucursal), "MTY");
}

TEST_F(Records, that_are_such_objects_take_back_what_a_member_changed) {
    const auto client = published(std::make_shared<Probe>());
    const auto account = Bag::create({{L"Bn_Cve_Banco", std::string("antes")}});
    const auto movement = Bag::create({{L"Bm_Folio", std::string("antes")}, {L"EnFirme", Missing()}});
    movement->add(L"Cuenta", dispatch(account));
    ASSERT_TRUE(truth(call(client, L"Take_movement", arguments(any(dispatch(movement))))));
    EXPECT_EQ(movement->text(L"Bm_Folio"), "F-1 “ñ”");
    EXPECT_EQ(movement->kind(L"EnFirme"), VT_BOOL);
    EXPECT_EQ(account->text(L"Bn_Cve_Banco"), "BX");
}

// The probe is published by this program, which is to the objects of Cuvexa.dll what another copy of the library would
// be.
TEST_F(Records, of_another_copy_of_the_library_are_objects_like_any_other) {
    const auto client = published(std::make_shared<Probe>());
    const auto script = server.create("tBnMovimiento");
    Any variable = any(script);
    ASSERT_TRUE(truth(call(client, L"Take_movement", arguments(reference(variable)))));
    EXPECT_EQ(text(get(script, L"Bm_Folio")), "F-1 “ñ”");
    EXPECT_EQ(text(get(inside(script, L"Cuenta"), L"Bn_Cve_Banco")), "BX");
}

TEST_F(Records, come_from_this_copy_alone_where_objects_are_held) {
    const auto client = published(std::make_shared<Probe>());
    EXPECT_EQ(call(client, L"Take_object", arguments(any(server.create("clsRpDetalle")))).result, DISP_E_TYPEMISMATCH);
}

TEST_F(Records, that_lack_every_member_are_refused) {
    const auto stranger = Bag::create({{L"Otra_cosa", 5.0}});
    EXPECT_EQ(put(treasury, L"RpEncabezado", any(dispatch(stranger))).result, DISP_E_TYPEMISMATCH);
    const auto wrong = Bag::create({{L"Rp_Tipo_Cambio", std::string("uno")}});
    EXPECT_EQ(put(treasury, L"RpEncabezado", any(dispatch(wrong))).result, DISP_E_TYPEMISMATCH);
    const auto flat = Bag::create({{L"Sucursal", std::string("MTY")}});
    EXPECT_EQ(put(treasury, L"RpEncabezado", any(dispatch(flat))).result, DISP_E_TYPEMISMATCH);
}

}  // namespace
}  // namespace cuvexa::tests
