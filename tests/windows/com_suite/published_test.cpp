// The published objects as a client sees them that knows names and numbers only.
#include <functional>

#include "com/failures.h"
#include "com/late.h"
#include "com_suite/record_object.h"
#include "windows/com_suite/registered.h"

namespace cuvexa::tests {
namespace {

class Published : public Registered_suite {
protected:
    static HRESULT result_of(const std::function<void()>& body) {
        try {
            body();
        } catch (const Result_error& failure) {
            return failure.result();
        }
        return S_OK;
    }
    static std::pair<int, std::string> raised_by(const std::function<void()>& body) {
        try {
            body();
        } catch (const Automation_error& failure) {
            return {failure.number(), failure.what()};
        }
        return {0, "nothing"};
    }

    Late_object connection() { return Late_object(object_in(*session().call("GetConnection").get())); }
    Late_object rows(const std::string& text) {
        return Late_object(object_in(*connection().call("Execute", text).get()));
    }
    static Any field(Late_object& recordset, const Any& name) {
        Late_object fields(object_in(*recordset.get("Fields").get()));
        Any given[] = {copy_of(*name.get())};
        Late_object one(object_in(*fields.invoke("Item", DISPATCH_PROPERTYGET, given).get()));
        return one.get("Value");
    }
    static std::string text(Late_object& recordset, const std::string& name) {
        return to_text(value_in(*field(recordset, any(name)).get()));
    }
    Late_object& session() {
        if (!session_) session_ = Late_object::create("CuvexaSuite.SessionServices");
        return session_;
    }

private:
    Late_object session_;
};

TEST_F(Published, members_are_found_by_name_whatever_the_case_and_numbered_in_their_order) {
    const auto data = Late_object::create("CuvexaSuite.DataServices").object();
    wchar_t first[] = L"lookupvalue", ninth[] = L"LASTERRORTEXT", unknown[] = L"NoHay", argument[] = L"Table";
    LPOLESTR name = first;
    DISPID id = 0;
    EXPECT_EQ(data->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    EXPECT_EQ(id, 1);
    name = ninth;
    EXPECT_EQ(data->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    EXPECT_EQ(id, 9);
    name = unknown;
    EXPECT_EQ(data->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(id, DISPID_UNKNOWN);
    LPOLESTR names[] = {first, argument};
    DISPID ids[2] = {};
    EXPECT_EQ(data->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], 1);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
    DISPPARAMS none{};
    for (const DISPID outside : {0, 10, -5}) {
        EXPECT_EQ(
            data->Invoke(outside, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
    }
}

TEST_F(Published, calls_with_the_wrong_arguments_are_refused) {
    auto data = Late_object::create("CuvexaSuite.DataServices");
    EXPECT_EQ(result_of([&] { data.call("GetNextFolio", "MTY"); }), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(result_of([&] { data.call("GetNextFolio", "MTY", "CHEQUE", "x"); }), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(result_of([&] { data.call("SqlDate", "ayer"); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(result_of([&] { data.put("LastErrorText", "x"); }), DISP_E_MEMBERNOTFOUND);
    Any given[] = {any("MTY"), missing()};
    EXPECT_EQ(result_of([&] { data.invoke("GetNextFolio", DISPATCH_METHOD, given); }), DISP_E_PARAMNOTOPTIONAL);
    auto payables = Late_object::create("CuvexaSuite.AccountsPayableService");
    EXPECT_EQ(result_of([&] { payables.call("AddPaymentLine", Pointer<IDispatch>()); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(result_of([&] { payables.call("AddPaymentLine", session().object()); }), DISP_E_UNKNOWNNAME);
}

TEST_F(Published, a_script_variable_takes_the_folio_by_reference) {
    auto payables = Late_object::create("CuvexaSuite.AccountsPayableService");
    const Supplier_advance advance{today(), "R", "CH-1", "MXN", 1, "MTY", "PV01", 250, "Anticipo", "SRR-MXN"};
    Any variable;
    Any given[2];
    given[0] = any(Record_object<Supplier_advance>::made(advance));
    given[1]->vt = VT_BYREF | VT_VARIANT;
    given[1]->pvarVal = variable.get();
    variable = any("");
    EXPECT_TRUE(boolean_in(*payables.invoke("CreateSupplierAdvance", DISPATCH_METHOD, given).get()));
    EXPECT_THAT(text_in(*variable.get()), ::testing::StartsWith("CXP-MTY-"));
}

TEST_F(Published, a_recordset_is_walked_to_its_end) {
    auto banks = rows("SELECT Bn_Cve_Banco, Bn_Descripcion FROM Banco ORDER BY Bn_Cve_Banco");
    EXPECT_FALSE(boolean_in(*banks.get("BOF").get()));
    EXPECT_EQ(integer_in(*banks.get("State").get()), 1);
    std::string keys;
    for (; !boolean_in(*banks.get("EOF").get()); banks.call("MoveNext")) keys += text(banks, "bn_cve_banco") + " ";
    EXPECT_EQ(keys, "PUERTO SIERRA VIEJO ");
    EXPECT_EQ(raised_by([&] { banks.call("MoveNext"); }).first, 3021);
    EXPECT_EQ(raised_by([&] { text(banks, "Bn_Cve_Banco"); }).first, 3021);
    auto none = rows("SELECT * FROM Banco WHERE Bn_Cve_Banco = 'NO'");
    EXPECT_TRUE(boolean_in(*none.get("BOF").get()) && boolean_in(*none.get("EOF").get()));
}

TEST_F(Published, fields_are_found_by_name_and_by_place) {
    auto row = rows("SELECT 1 AS uno, 'dos' AS dos");
    Late_object fields(object_in(*row.get("Fields").get()));
    EXPECT_EQ(integer_in(*fields.get("Count").get()), 2);
    Late_object second(object_in(*fields.get("Item", std::int32_t{1}).get()));
    EXPECT_EQ(text_in(*second.get("Name").get()), "dos");
    EXPECT_EQ(to_text(value_in(*field(row, any("UNO")).get())), "1");
    Any by_default = row.get("Fields", "dos");  // as a script writes recordset.Fields("dos")
    EXPECT_EQ(text_in(*Late_object(object_in(*by_default.get())).get("Value").get()), "dos");
    EXPECT_EQ(raised_by([&] { fields.get("Item", "tres"); }).first, 3265);
    EXPECT_EQ(raised_by([&] { fields.get("Item", std::int32_t{2}); }).first, 3265);
    EXPECT_EQ(raised_by([&] { fields.get("Item", std::int32_t{-1}); }).first, 3265);
}

TEST_F(Published, values_of_every_kind_arrive) {
    auto row = rows(
        "SELECT NULL AS nada, 1234.5678 AS numero, 7 AS entero, 4000000000 AS grande, "
        "'Ñandú \"señor\" O''Hara €' AS texto, '' AS vacio, CAST('2024-03-15' AS TEXT) AS fecha");
    EXPECT_EQ(field(row, any("nada"))->vt, VT_NULL);
    EXPECT_EQ(field(row, any("numero"))->vt, VT_R8);
    EXPECT_EQ(field(row, any("entero"))->vt, VT_I4);
    EXPECT_EQ(number_in(*field(row, any("grande")).get()), 4e9);
    EXPECT_EQ(text(row, "texto"), "Ñandú \"señor\" O'Hara €");
    EXPECT_EQ(text(row, "vacio"), "");
    EXPECT_EQ(to_date(value_in(*field(row, any("fecha")).get())), make_date(2024, 3, 15));
}

TEST_F(Published, the_rows_affected_come_back_by_reference) {
    for (const VARTYPE kind : {VT_I4, VT_VARIANT}) {
        std::int32_t affected = -1;
        VARIANT variable{};
        Any given[3];
        given[0] = any("UPDATE Banco SET Bn_Descripcion = 'x' WHERE Bn_Cve_Banco <> 'VIEJO'");
        given[1]->vt = VT_BYREF | kind;
        if (kind == VT_I4) {
            given[1]->plVal = reinterpret_cast<LONG*>(&affected);
        } else {
            given[1]->pvarVal = &variable;
        }
        given[2] = any(std::int32_t{-1});
        auto database = connection();
        Late_object none(object_in(*database.invoke("Execute", DISPATCH_METHOD, given).get()));
        EXPECT_EQ(kind == VT_I4 ? affected : integer_in(variable), 2);
        EXPECT_EQ(integer_in(*none.get("State").get()), 0) << "no rows, no open recordset";
        EXPECT_EQ(raised_by([&] { none.get("EOF"); }).first, 3704);
    }
}

TEST_F(Published, a_statement_that_fails_carries_the_engines_description) {
    auto database = connection();
    const auto [number, description] = raised_by([&] { database.call("Execute", "SELECT * FROM No_Existe"); });
    EXPECT_EQ(number, 440);
    EXPECT_EQ(description, "no such table: No_Existe");
    EXPECT_THAT(raised_by([&] { database.call("Execute", "SELECT 'O'Hara'"); }).second, ::testing::Not("nothing"));
    EXPECT_EQ(integer_in(*database.get("State").get()), 1) << "and the connection remains usable";
}

TEST_F(Published, what_is_closed_says_so) {
    auto recordset = rows("SELECT 1 AS uno");
    Late_object fields(object_in(*recordset.get("Fields").get()));
    recordset.call("Close");
    EXPECT_EQ(integer_in(*recordset.get("State").get()), 0);
    for (const char* member : {"EOF", "BOF", "Fields"}) {
        EXPECT_EQ(raised_by([&] { recordset.get(member); }).first, 3704) << member;
    }
    EXPECT_EQ(raised_by([&] { fields.get("Count"); }).first, 3704);
    EXPECT_EQ(raised_by([&] { recordset.call("Close"); }).first, 3704);

    auto database = connection();
    database.call("Close");
    EXPECT_EQ(raised_by([&] { database.call("Execute", "SELECT 1"); }),
              std::pair(3704, std::string("La conexión está cerrada")));
    EXPECT_EQ(text_in(*session().call("GetServerId").get()), "CENTRAL") << "the services go on";
}

TEST_F(Published, the_session_gives_one_and_the_same_connection) {
    const auto one = connection(), other = connection();
    EXPECT_EQ(one.object().get(), other.object().get());
}

TEST_F(Published, the_library_can_go_when_its_last_object_went) {
    Library library;
    EXPECT_EQ(library.call("DllCanUnloadNow"), S_OK);
    {
        auto recordset = rows("SELECT 1 AS uno");
        EXPECT_EQ(library.call("DllCanUnloadNow"), S_FALSE);
    }
    session() = {};
    EXPECT_EQ(library.call("DllCanUnloadNow"), S_OK);
}

TEST_F(Published, a_class_that_is_not_the_librarys_has_no_factory) {
    Library library;
    using Get = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto get =
        reinterpret_cast<Get>(reinterpret_cast<void*>(GetProcAddress(library.module(), "DllGetClassObject")));
    void* object = &library;
    EXPECT_EQ(get(IID_IDispatch, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    CLSID session_class;
    ASSERT_EQ(CLSIDFromProgID(L"CuvexaSuite.SessionServices", &session_class), S_OK);
    Pointer<IClassFactory> factory;
    ASSERT_EQ(get(session_class, IID_IClassFactory, factory.receive_void()), S_OK);
    EXPECT_EQ(library.call("DllCanUnloadNow"), S_FALSE) << "a factory holds the library";
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, &object), E_NOINTERFACE);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    factory->LockServer(TRUE);
    factory = nullptr;
    EXPECT_EQ(library.call("DllCanUnloadNow"), S_FALSE) << "so does a lock";
    ASSERT_EQ(get(session_class, IID_IClassFactory, factory.receive_void()), S_OK);
    factory->LockServer(FALSE);
    factory = nullptr;
    EXPECT_EQ(library.call("DllCanUnloadNow"), S_OK);
}

}  // namespace
}  // namespace cuvexa::tests
