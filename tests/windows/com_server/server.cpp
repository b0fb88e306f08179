#include "windows/com_server/server.h"

#include <atomic>
#include <cstdlib>
#include <stdexcept>

#include "com/failures.h"
#include "com/registration.h"
#include "com_server/identifiers.h"
#include "cuvexa/database/script.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/schema.h"

namespace cuvexa::tests {

using namespace com;
using namespace com_server;

// ---- The database --------------------------------------------------------------------------------------------------

Sample_company::Sample_company() {
    static std::atomic<int> made{0};
    const std::string name =
        "cuvexa-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++made) + "-añejo.db";
    path_ = utf8((std::filesystem::temp_directory_path() / wide(name)).wstring());
    Sqlite_connection connection(path_, {.synchronous = Synchronous::off, .create = true});
    run_script(connection, schema_sql());
    run_script(connection, sample_company_sql());
}

Sample_company::~Sample_company() {
    for (const char* end : {"", "-wal", "-shm"}) {
        std::error_code ignored;
        std::filesystem::remove(wide(path_ + end), ignored);
    }
}

void Sample_company::sql(std::string_view statement) const {
    Sqlite_connection(path_).execute(statement);
}

std::vector<std::string> Sample_company::rows(std::string_view query,
                                              std::initializer_list<std::string_view> columns) const {
    Sqlite_connection connection(path_);
    std::vector<std::string> lines;
    const auto found = connection.execute(query);
    for (; !found->eof(); found->move_next()) {
        std::string line;
        for (const std::string_view column : columns) {
            if (!line.empty()) line += '|';
            line += to_text(found->field(column));
        }
        lines.push_back(line);
    }
    return lines;
}

// ---- The library ---------------------------------------------------------------------------------------------------

std::wstring Library::default_path() {
    return (std::filesystem::path(wide(path_of(nullptr))).parent_path() / L"Cuvexa.dll").wstring();
}

Library::Library(const std::wstring& path) : path_(path), module_(LoadLibraryW(path.c_str())) {
    if (!module_) throw std::runtime_error("no " + utf8(path));
}

Library::~Library() {
    FreeLibrary(module_);
}

template <class Function>
Function Library::function(const char* name) const {
    const auto found = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    if (!found) throw std::runtime_error(std::string("no entry point ") + name);
    return found;
}

HRESULT Library::factory(const CLSID& clsid, REFIID iid, void** object) const {
    return function<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(clsid, iid, object);
}
HRESULT Library::can_unload() const {
    return function<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")();
}
HRESULT Library::register_server() const {
    return function<HRESULT(STDAPICALLTYPE*)()>("DllRegisterServer")();
}
HRESULT Library::unregister_server() const {
    return function<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")();
}

CLSID class_id(std::string_view class_name) {
    for (const Class_ids& ids : class_ids) {
        if (ids.name == class_name) return ids.class_id;
    }
    return script_record_id(record_named(class_name));
}

Server::Server() {
    SetEnvironmentVariableW(L"CUVEXA_DB", wide(company.path()).c_str());
    _wputenv_s(L"CUVEXA_DB", wide(company.path()).c_str());
}

HRESULT Server::create(const CLSID& clsid, REFIID iid, void** object) const {
    Pointer<IClassFactory> factory;
    const HRESULT found = library.factory(clsid, IID_IClassFactory, factory.receive_void());
    return FAILED(found) ? found : factory->CreateInstance(nullptr, iid, object);
}

Pointer<IDispatch> Server::create(std::string_view class_name) const {
    Pointer<IDispatch> object;
    check(create(class_id(class_name), IID_IDispatch, object.receive_void()));
    return object;
}

Pointer<IRecordInfo> Server::record_info(std::string_view name) const {
    Pointer<ITypeLib> types;
    check(LoadTypeLibEx(library.path().c_str(), REGKIND_NONE, types.receive()));
    Pointer<ITypeInfo> type;
    check(types->GetTypeInfoOfGuid(record_id(record_named(name)), type.receive()));
    Pointer<IRecordInfo> info;
    check(GetRecordInfoFromTypeInfo(type.get(), info.receive()));
    return info;
}

// ---- Calls ---------------------------------------------------------------------------------------------------------

DISPID identifier(const Pointer<IDispatch>& object, const wchar_t* name) {
    DISPID id = DISPID_UNKNOWN;
    LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK) << utf8(name);
    return id;
}

Outcome invoke(const Pointer<IDispatch>& object, DISPID id, WORD kind, std::vector<Given> given) {
    // Named ones stand first, the others behind in reverse.
    std::vector<VARIANT> handed;
    std::vector<DISPID> names;
    for (Given& argument : given) {
        if (argument.name == DISPID_UNKNOWN) continue;
        handed.push_back(*argument.value.get());
        names.push_back(argument.name);
    }
    for (auto argument = given.rbegin(); argument != given.rend(); ++argument) {
        if (argument->name == DISPID_UNKNOWN) handed.push_back(*argument->value.get());
    }
    DISPPARAMS parameters{handed.data(), names.data(), static_cast<UINT>(handed.size()),
                          static_cast<UINT>(names.size())};
    Outcome outcome;
    EXCEPINFO record{};
    outcome.wrong = 99;
    outcome.result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, outcome.value.get(), &record,
                                    &outcome.wrong);
    outcome.scode = record.scode;
    outcome.source = text_of(record.bstrSource);
    outcome.description = text_of(record.bstrDescription);
    SysFreeString(record.bstrSource);
    SysFreeString(record.bstrDescription);
    SysFreeString(record.bstrHelpFile);
    return outcome;
}

Outcome call(const Pointer<IDispatch>& object, const wchar_t* name, std::vector<Given> given) {
    return invoke(object, identifier(object, name), DISPATCH_METHOD, std::move(given));
}

Outcome get(const Pointer<IDispatch>& object, const wchar_t* name) {
    return invoke(object, identifier(object, name), DISPATCH_PROPERTYGET);
}

Outcome put(const Pointer<IDispatch>& object, const wchar_t* name, Any value, WORD kind) {
    return invoke(object, identifier(object, name), kind, arguments(Given(DISPID_PROPERTYPUT, std::move(value))));
}

std::string text(const Outcome& outcome) {
    EXPECT_EQ(outcome.result, S_OK) << outcome.description;
    EXPECT_EQ(outcome.value->vt, VT_BSTR);
    return outcome.value->vt == VT_BSTR ? text_of(outcome.value->bstrVal) : std::string("no text");
}

double number(const Outcome& outcome) {
    EXPECT_EQ(outcome.result, S_OK) << outcome.description;
    EXPECT_EQ(outcome.value->vt, VT_R8);
    return outcome.value->vt == VT_R8 ? outcome.value->dblVal : -1;
}

bool truth(const Outcome& outcome) {
    EXPECT_EQ(outcome.result, S_OK) << outcome.description;
    EXPECT_EQ(outcome.value->vt, VT_BOOL);
    EXPECT_TRUE(outcome.value->boolVal == VARIANT_TRUE || outcome.value->boolVal == VARIANT_FALSE);
    return outcome.value->boolVal != VARIANT_FALSE;
}

Pointer<IDispatch> inside(const Pointer<IDispatch>& record, const wchar_t* member) {
    const Outcome outcome = get(record, member);
    EXPECT_EQ(outcome.value->vt, VT_DISPATCH) << utf8(member);
    return Pointer<IDispatch>::sharing(outcome.value->pdispVal);
}

bool capture(const Server& server, const Pointer<IDispatch>& treasury) {
    const auto header = server.create("tRpEncabezado"), line = server.create("tRpDetalle");
    put(header, L"Rp_Fecha", any(Date{45366}));
    put(inside(header, L"TipoReciboPago"), L"Trp_Cve_Tipo_Recibo_Pago", any("01"));
    put(inside(header, L"Sucursal"), L"Sc_Cve_Sucursal", any("MTY"));
    put(header, L"Mn_Cve_Moneda", any("MXN"));
    put(header, L"Rp_Tipo_Cambio", any(1.0));
    put(inside(line, L"Fp_Cve_Forma_Pago"), L"Fp_Cve_Forma_Pago", any("01"));
    put(line, L"Rp_Importe", any(10.0));
    EXPECT_EQ(call(treasury, L"NuevoReciboCaja").result, S_OK);
    EXPECT_EQ(put(treasury, L"RpEncabezado", any(header), DISPATCH_PROPERTYPUTREF).result, S_OK);
    EXPECT_EQ(put(treasury, L"RpDetalle", any(line), DISPATCH_PROPERTYPUTREF).result, S_OK);
    return truth(call(treasury, L"Add_Recibo_Caja_Detalle"));
}

namespace {

Any reference(VARTYPE type, void* place) {
    Any result;
    result->vt = type | VT_BYREF;
    result->byref = place;
    return result;
}

}  // namespace

Any reference(BSTR& text) {
    return reference(VT_BSTR, &text);
}
Any reference(double& number) {
    return reference(VT_R8, &number);
}
Any reference(std::int16_t& number) {
    return reference(VT_I2, &number);
}
Any reference(std::int32_t& number) {
    return reference(VT_I4, &number);
}
Any reference(Any& variant) {
    return reference(VT_VARIANT, variant.get());
}
Any reference_bool(VARIANT_BOOL& boolean) {
    return reference(VT_BOOL, &boolean);
}
Any reference_date(DATE& date) {
    return reference(VT_DATE, &date);
}
Any reference_object(IDispatch*& object) {
    return reference(VT_DISPATCH, &object);
}

// ---- Records -------------------------------------------------------------------------------------------------------

const Record_type& record_named(std::string_view name) {
    for (const Record_type& type : record_types) {
        if (type.name == name) return type;
    }
    throw std::runtime_error("no record " + std::string(name));
}

}  // namespace cuvexa::tests
