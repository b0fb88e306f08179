// What a suite gets to see, and what becomes of what it does: a suite that notes every call and answers as it was told.
#include <functional>

#include "com/failures.h"
#include "com/late.h"
#include "com/object.h"
#include "windows/com_suite/registered.h"

namespace cuvexa::tests {
namespace {

std::string shown(const VARIANT& value);

/// The properties of a record that a call handed over.
std::string property(const VARIANT& record, std::string_view name) {
    Late_object object(object_in(record));
    return shown(*object.get(name).get());
}

std::string shown(const VARIANT& value) {
    if (is_missing(value)) return "missing";
    const std::string reference = value.vt & VT_BYREF ? "&" : "";
    Any plain = copy_of(value);
    switch (plain->vt) {
        case VT_BSTR:
            return reference + "'" + text_in(value) + "'";
        case VT_I2:
            return reference + "i2:" + text_in(value);
        case VT_I4:
            return reference + "i4:" + text_in(value);
        case VT_R8:
            return reference + "r8:" + number_text(plain->dblVal);
        case VT_DATE:
            return reference + "date:" + iso_date({plain->date});
        case VT_BOOL:
            return reference + (plain->boolVal ? "True" : "False");
        case VT_DISPATCH:
            return reference + "object";
        default:
            return reference + "vt" + std::to_string(plain->vt);
    }
}

/// An object that knows every name.
class Scripted : public Dispatch_object<> {
public:
    using Answer = std::function<HRESULT(std::vector<VARIANT*> given, VARIANT& result, EXCEPINFO& record)>;

    void on(const std::string& name, Answer answer) { answers_[name] = std::move(answer); }
    void gives(const std::string& name, Any value) {
        auto kept = std::make_shared<Any>(std::move(value));
        on(name, [kept](auto, VARIANT& result, EXCEPINFO&) { return VariantCopy(&result, kept->get()); });
    }
    std::vector<std::string> calls;

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        names_.push_back(utf8(names[0]));
        ids[0] = static_cast<DISPID>(names_.size());
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* record, UINT*) override {
        const std::string& name = names_.at(static_cast<std::size_t>(id - 1));
        std::vector<VARIANT*> given;
        for (UINT i = parameters->cArgs; i > 0; --i) given.push_back(&parameters->rgvarg[i - 1]);
        std::string call = (kind & DISPATCH_PROPERTYPUT ? "put " : "") + name + "(";
        for (const VARIANT* argument : given) call += (call.back() == '(' ? "" : ", ") + shown(*argument);
        calls.push_back(call + ")");
        const auto answer = answers_.find(name);
        VARIANT dropped{};
        EXCEPINFO nowhere{};
        return answer == answers_.end() ? S_OK
                                        : answer->second(given, result ? *result : dropped, record ? *record : nowhere);
    }

private:
    std::vector<std::string> names_;
    std::map<std::string, Answer> answers_;
};

constexpr CLSID scripted_class = {0x0a5cf1f0, 0x7d0e, 0x4f0b, {0x8d, 0x52, 0x7e, 0x3b, 0x11, 0x2a, 0x44, 0x01}};
Scripted* current = nullptr;
constexpr Class_entry scripted_classes[] = {{scripted_class, L"CuvexaPrueba.Guion", L"A suite that does as it is told",
                                             [] { return Pointer<IDispatch>::sharing(current); }}};

/// Every service is the one scripted object.
class Scripted_suite : public ::testing::Test {
protected:
    Scripted_suite() {
        current = object.get();
        register_server(scripted_classes, this_module());
        Pointer<IUnknown> factory;
        get_class_object(scripted_classes, scripted_class, IID_IUnknown, factory.receive_void());
        CoRegisterClassObject(scripted_class, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
        Suite_objects objects;
        for_each_service([&](const auto& service) { objects.set(service.name, "CuvexaPrueba.Guion"); });
        suite = make_automation_suite(objects);
    }
    ~Scripted_suite() override {
        CoRevokeClassObject(cookie_);
        unregister_server(scripted_classes, this_module());
    }

    template <class Failure>
    std::string failure_of(const std::function<void()>& body) {
        try {
            body();
        } catch (const Failure& failure) {
            return failure.what();
        } catch (const std::exception& other) {
            return std::string("another kind of failure: ") + other.what();
        }
        return "no failure";
    }

    Apartment apartment;
    Pointer<Scripted> object = Pointer<Scripted>::owning(new Scripted);
    std::shared_ptr<Suite> suite;

private:
    DWORD cookie_ = 0;
};

TEST_F(Scripted_suite, arguments_arrive_in_their_order_and_types) {
    object->gives("GetParameter", any("x"));
    object->gives("ValidatePaymentLine", any(true));
    object->gives("IsOperatingPeriodOpen", any(true));
    suite->session()->GetParameter("NOMBRE", 0, "B", "0");
    suite->session()->ReportError("d", 16, "r", "t", "p", "c");
    suite->payment_methods()->ValidatePaymentLine("01", "77", "SIERRA", 1234.5, "RECIBO_PAGO", "RP-1", "ref", "com");
    suite->data()->IsOperatingPeriodOpen(make_date(2024, 3, 15, 12), "FINANZAS");
    EXPECT_THAT(object->calls,
                ElementsAre("GetParameter('NOMBRE', i2:0, 'B', '0')", "ReportError('d', i4:16, 'r', 't', 'p', 'c')",
                            "ValidatePaymentLine('01', '77', 'SIERRA', r8:1234.5, 'RECIBO_PAGO', 'RP-1', 'ref', 'com')",
                            "IsOperatingPeriodOpen(date:2024-03-15T12:00:00, 'FINANZAS')"));
}

TEST_F(Scripted_suite, a_look_up_leaves_two_empty_slots_before_the_table) {
    object->on("LookupValue", [](auto given, VARIANT& result, EXCEPINFO&) {
        SysFreeString(*given[3]->pbstrVal);  // as a suite does that uses the slot
        *given[3]->pbstrVal = SysAllocString(L"changed");
        result = any("Peso").release();
        return S_OK;
    });
    EXPECT_EQ(suite->data()->LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", "MXN", "Moneda"), "Peso");
    EXPECT_EQ(suite->data()->LookupValue("a", "b", "c", "d", "e = 1"), "Peso");
    EXPECT_THAT(object->calls, ElementsAre("LookupValue('Mn_Descripcion', 'Mn_Cve_Moneda', 'MXN', &'', &'', 'Moneda')",
                                           "LookupValue('a', 'b', 'c', &'', &'', 'd', 'e = 1')"));
}

TEST_F(Scripted_suite, a_company_of_its_own_is_left_out) {
    object->gives("PostDocument", any(true));
    suite->new_accounting()->PostDocument("CHEQUE", "CH-1");
    suite->new_accounting()->PostDocument("CHEQUE", "CH-1", "EM01");
    EXPECT_THAT(object->calls, ElementsAre("PostDocument('CHEQUE', 'CH-1')", "PostDocument('CHEQUE', 'CH-1', 'EM01')"));
}

TEST_F(Scripted_suite, a_record_is_an_object_with_a_property_per_field) {
    std::vector<std::string> seen;
    object->on("RegisterPayment", [&](auto given, VARIANT& result, EXCEPINFO&) {
        for (const char* name :
             {"ReceivableFolio", "Amount", "Date", "ConceptText", "SourceTable", "SourceDocument", "Reference",
              "Currency", "ExchangeRate", "PaymentMethod", "UpdateBalance", "ValidateBalance", "RegisterDocument"}) {
            seen.push_back(property(*given[0], name));
        }
        result = any(true).release();
        return S_OK;
    });
    const Receivable_payment payment{
        "CXC-1", 9.5, make_date(2024, 3, 15), "Abono", "CHEQUE", "CH-2", "R", "MXN", 19.25, "01", true, false, true};
    EXPECT_TRUE(suite->new_accounts_receivable()->RegisterPayment(payment));
    EXPECT_THAT(seen, ElementsAre("'CXC-1'", "r8:9.5", "date:2024-03-15", "'Abono'", "'CHEQUE'", "'CH-2'", "'R'",
                                  "'MXN'", "r8:19.25", "'01'", "True", "False", "True"));
    EXPECT_THAT(object->calls, ElementsAre("RegisterPayment(object)"));
}

TEST_F(Scripted_suite, a_record_refuses_names_and_values_that_do_not_fit) {
    object->on("AddPaymentLine", [&](auto given, VARIANT&, EXCEPINFO&) {
        Late_object line(object_in(*given[0]));
        EXPECT_FALSE(line.has("Importe"));
        line.put("amount", "12.5");
        EXPECT_EQ(shown(*line.get("AMOUNT").get()), "r8:12.5");
        EXPECT_THROW(line.put("Amount", "doce"), Result_error);
        return S_OK;
    });
    EXPECT_FALSE(suite->new_accounts_payable()->AddPaymentLine({})) << "no answer is False";
}

TEST_F(Scripted_suite, the_document_that_the_suite_made_comes_back_filled) {
    const auto document = Pointer<Scripted>::owning(new Scripted);
    for (const char* text : {"Supplier", "Branch", "Comment", "SourceTable", "SourceDocument", "Reference"}) {
        document->gives(text, any(""));
    }
    for (const char* number : {"Amount", "NetAmount", "ExchangeRate"}) document->gives(number, any(1.5));
    for (const char* date : {"Date", "DueDate"}) document->gives(date, any(make_date(2024, 3, 15)));
    document->gives("Currency", any("MXN"));
    const Pointer<IDispatch> as_dispatch = Pointer<IDispatch>::sharing(document.get());
    object->gives("NewDocument", any(as_dispatch));
    IDispatch* returned = nullptr;
    object->on("CreatePayable", [&](auto given, VARIANT& result, EXCEPINFO&) {
        returned = object_in(*given[0]).get();
        result = any(true).release();
        return S_OK;
    });
    const auto payables = suite->new_accounts_payable();
    Payable payable = payables->NewDocument();
    EXPECT_EQ(payable.currency, "MXN");
    EXPECT_EQ(payable.exchange_rate, 1.5);
    payable.supplier = "PV01";
    EXPECT_TRUE(payables->CreatePayable(payable));
    EXPECT_EQ(returned, as_dispatch.get());
    EXPECT_THAT(document->calls, ::testing::Contains("put Supplier('PV01')"));
    EXPECT_THAT(document->calls, ::testing::Contains("put DueDate(date:2024-03-15)"));
    EXPECT_TRUE(payables->CreatePayable(payable));
    EXPECT_NE(returned, as_dispatch.get()) << "each document is created once";
}

TEST_F(Scripted_suite, the_folio_of_an_advance_comes_back_by_reference) {
    object->on("CreateSupplierAdvance", [](auto given, VARIANT& result, EXCEPINFO&) {
        EXPECT_EQ(given[1]->vt, VT_BYREF | VT_BSTR);
        SysFreeString(*given[1]->pbstrVal);
        *given[1]->pbstrVal = SysAllocString(L"CXP-Ñ-1");
        result = any(true).release();
        return S_OK;
    });
    std::string folio = "before";
    EXPECT_TRUE(suite->new_accounts_payable()->CreateSupplierAdvance({}, folio));
    EXPECT_EQ(folio, "CXP-Ñ-1");
    EXPECT_THAT(object->calls, ElementsAre("CreateSupplierAdvance(object, &'before')"));
}

TEST_F(Scripted_suite, what_the_suite_raises_arrives_with_number_and_description) {
    object->on("GetServerId", [](auto, VARIANT&, EXCEPINFO& record) {
        record.scode = result_of_number(9);
        record.bstrDescription = SysAllocString(L"Subíndice fuera del intervalo");
        return DISP_E_EXCEPTION;
    });
    try {
        suite->session()->GetServerId();
        FAIL();
    } catch (const Automation_error& failure) {
        EXPECT_EQ(failure.number(), 9);
        EXPECT_STREQ(failure.what(), "Subíndice fuera del intervalo");
    }
}

TEST_F(Scripted_suite, a_failing_result_code_is_a_failure_in_the_systems_words) {
    object->on("GetNextFolio", [](auto, VARIANT&, EXCEPINFO&) { return E_ACCESSDENIED; });
    EXPECT_THAT(failure_of<Result_error>([&] { suite->data()->GetNextFolio("MTY", "CHEQUE"); }),
                ::testing::StartsWith("GetNextFolio: "));
}

TEST_F(Scripted_suite, an_answer_of_the_wrong_type_is_a_failure) {
    object->gives("GetServerDate", any("mañana"));
    object->gives("IsReplicaServer", any("quizá"));
    object->gives("GetConnection", any("no es un objeto"));
    const auto result_of = [](const std::function<void()>& body) {
        try {
            body();
        } catch (const Result_error& failure) {
            return failure.result();
        }
        return S_OK;
    };
    EXPECT_EQ(result_of([&] { suite->data()->GetServerDate(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(result_of([&] { suite->session()->IsReplicaServer(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(result_of([&] { suite->session()->GetConnection(); }), DISP_E_TYPEMISMATCH);
}

TEST_F(Scripted_suite, numbers_that_a_suite_gives_in_other_types_are_taken) {
    Any currency;
    currency->vt = VT_CY;
    currency->cyVal.int64 = 123450;
    object->gives("GetParameter", std::move(currency));
    object->gives("IsReplicaServer", any(std::int16_t{-1}));
    object->gives("GetServerDate", any(45366.5));
    EXPECT_EQ(to_number(suite->session()->GetParameter("X", 0, "", "")), 12.345);
    EXPECT_TRUE(suite->session()->IsReplicaServer());
    EXPECT_EQ(suite->data()->GetServerDate(), make_date(2024, 3, 15, 12));
}

TEST_F(Scripted_suite, a_service_that_is_not_registered_is_named) {
    const Suite_objects objects = Suite_objects().set("AccountingService", "NoHay.Contabilidad");
    EXPECT_THAT(failure_of<Result_error>([&] { make_automation_suite(objects)->new_accounting(); }),
                ::testing::StartsWith("NoHay.Contabilidad: "));
}

// ---- The connection -------------------------------------------------------------------------------------------------

class Scripted_connection : public Scripted_suite {
protected:
    Scripted_connection() {
        object->gives("GetConnection", any(Pointer<IDispatch>::sharing(connection.get())));
        connection->gives("Execute", any(Pointer<IDispatch>::sharing(recordset.get())));
        recordset->gives("State", any(std::int32_t{1}));
        recordset->gives("EOF", any(false));
        recordset->gives("Fields", any(Pointer<IDispatch>::sharing(recordset.get())));
        recordset->gives("Item", any(Pointer<IDispatch>::sharing(field.get())));
    }
    Connection& database() { return suite->session()->GetConnection(); }
    Value value(Any given) {
        field->gives("Value", std::move(given));
        return database().execute("SELECT x")->field("x");
    }

    Pointer<Scripted> connection = Pointer<Scripted>::owning(new Scripted);
    Pointer<Scripted> recordset = Pointer<Scripted>::owning(new Scripted);
    Pointer<Scripted> field = Pointer<Scripted>::owning(new Scripted);
};

TEST_F(Scripted_connection, statements_run_with_options_minus_one_and_rows_are_walked_by_name) {
    field->gives("Value", any("Ñ"));
    const auto rows = database().execute("SELECT 'ñ' AS x");
    EXPECT_FALSE(rows->eof());
    EXPECT_EQ(to_text(rows->field("x")), "Ñ");
    rows->move_next();
    rows->close();
    EXPECT_THAT(connection->calls, ElementsAre("Execute('SELECT 'ñ' AS x', missing, i4:-1)"));
    EXPECT_THAT(recordset->calls,
                ElementsAre("State()", "EOF()", "EOF()", "Fields()", "Item('x')", "EOF()", "MoveNext()", "Close()"));
    EXPECT_TRUE(rows->eof()) << "closed is at the end";
}

TEST_F(Scripted_connection, values_keep_their_kind) {
    Any null, currency, decimal, byte;
    null->vt = VT_NULL;
    currency->vt = VT_CY;
    currency->cyVal.int64 = -15000;
    ASSERT_TRUE(SUCCEEDED(VarDecFromR8(1234.56, &decimal->decVal)));
    decimal->vt = VT_DECIMAL;
    byte->vt = VT_UI1;
    byte->bVal = 200;
    EXPECT_TRUE(is_null(value(std::move(null))));
    EXPECT_EQ(value(std::move(currency)), Value(-1.5));
    EXPECT_EQ(value(std::move(decimal)), Value(1234.56));
    EXPECT_EQ(value(std::move(byte)), Value(std::int64_t{200}));
    EXPECT_EQ(value(any(true)), Value(true));
    EXPECT_EQ(value(any(make_date(2024, 2, 29, 1, 2, 3))), Value(make_date(2024, 2, 29, 1, 2, 3)));
}

TEST_F(Scripted_connection, no_recordset_and_a_closed_one_are_at_their_end) {
    recordset->gives("State", any(std::int32_t{0}));
    recordset->on("EOF", [](auto, VARIANT&, EXCEPINFO&) { return E_FAIL; });
    EXPECT_TRUE(database().execute("UPDATE x")->eof());
    connection->gives("Execute", any(Pointer<IDispatch>()));
    EXPECT_TRUE(database().execute("UPDATE x")->eof());
    connection->gives("Execute", Any());
    EXPECT_TRUE(database().execute("UPDATE x")->eof());
}

TEST_F(Scripted_connection, a_failure_is_the_databases_with_its_description) {
    const auto raises = [](auto, VARIANT&, EXCEPINFO& record) {
        record.scode = static_cast<SCODE>(0x80040E14);
        record.bstrDescription = SysAllocString(L"Incorrect syntax near 'O''Hara'.");
        return DISP_E_EXCEPTION;
    };
    connection->on("Execute", raises);
    EXPECT_EQ(failure_of<Database_error>([&] { database().execute("SELECT"); }), "Incorrect syntax near 'O''Hara'.");
    connection->gives("Execute", any(Pointer<IDispatch>::sharing(recordset.get())));
    recordset->on("MoveNext", raises);
    EXPECT_EQ(failure_of<Database_error>([&] { database().execute("SELECT")->move_next(); }),
              "Incorrect syntax near 'O''Hara'.");
    recordset->on("EOF", [](auto, VARIANT&, EXCEPINFO&) { return E_FAIL; });
    EXPECT_THAT(failure_of<Database_error>([&] { database().execute("SELECT")->eof(); }),
                ::testing::StartsWith("EOF: "));
    connection->on("Execute", [](auto, VARIANT&, EXCEPINFO&) { return E_OUTOFMEMORY; });
    EXPECT_THAT(failure_of<Database_error>([&] { database().execute("SELECT"); }), ::testing::StartsWith("Execute: "));
}

TEST_F(Scripted_connection, past_the_end_nothing_is_asked_of_the_recordset) {
    recordset->gives("EOF", any(true));
    const auto rows = database().execute("SELECT x");
    EXPECT_NE(failure_of<Database_error>([&] { rows->field("x"); }), "no failure");
    EXPECT_NE(failure_of<Database_error>([&] { rows->move_next(); }), "no failure");
    EXPECT_THAT(recordset->calls, ::testing::Not(::testing::Contains("MoveNext()")));
}

TEST_F(Scripted_connection, the_suite_is_asked_for_its_connection_each_time) {
    const auto other = Pointer<Scripted>::owning(new Scripted);
    database().execute("UPDATE 1");
    object->gives("GetConnection", any(Pointer<IDispatch>::sharing(other.get())));
    database().execute("UPDATE 2");
    EXPECT_THAT(connection->calls, ElementsAre("Execute('UPDATE 1', missing, i4:-1)"));
    EXPECT_THAT(other->calls, ElementsAre("Execute('UPDATE 2', missing, i4:-1)"));
    object->gives("GetConnection", any(Pointer<IDispatch>()));
    EXPECT_THAT(failure_of<Database_error>([&] { database().execute("UPDATE 3"); }),
                HasSubstr("Object variable not set"));
}

}  // namespace
}  // namespace cuvexa::tests
