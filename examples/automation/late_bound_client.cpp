// A cash receipt by late binding: captured, closed, deposited, and cancelled again, by names alone. No header of the
// component and no type library is needed, only the system's own libraries (ole32, oleaut32).
//
// Works on the suite that is registered on this machine, or on the reference suite with the sample company, whose keys
// are used here. Set CUVEXA_DB to choose another database.
#include <oaidl.h>
#include <oleauto.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string utf8(BSTR text) {
    const int length = static_cast<int>(SysStringLen(text));
    std::string result(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr)), 0);
    WideCharToMultiByte(CP_UTF8, 0, text, length, result.data(), static_cast<int>(result.size()), nullptr, nullptr);
    return result;
}

/// A VARIANT of one's own.
class Any {
public:
    Any() { VariantInit(&value_); }
    Any(const wchar_t* text) : Any() { value_.vt = VT_BSTR, value_.bstrVal = SysAllocString(text); }
    Any(double number) : Any() { value_.vt = VT_R8, value_.dblVal = number; }
    Any(bool boolean) : Any() { value_.vt = VT_BOOL, value_.boolVal = boolean ? VARIANT_TRUE : VARIANT_FALSE; }
    Any(IDispatch* object) : Any() {
        object->AddRef();
        value_.vt = VT_DISPATCH, value_.pdispVal = object;
    }
    Any(const Any& other) : Any() { VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)); }
    Any& operator=(Any other) {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Any() { VariantClear(&value_); }

    VARIANT* get() { return &value_; }
    const VARIANT& value() const { return value_; }
    std::string text() const { return value_.vt == VT_BSTR ? utf8(value_.bstrVal) : std::string(); }

private:
    VARIANT value_;
};

[[noreturn]] void fail(const std::string& what) {
    std::printf("%s\n", what.c_str());
    std::exit(1);
}

/// An object whose members are called by name.
class Object {
public:
    explicit Object(const wchar_t* prog_id) {
        CLSID clsid;
        if (FAILED(CLSIDFromProgID(prog_id, &clsid)) ||
            FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                    reinterpret_cast<void**>(&object_)))) {
            fail("The class cannot be created");
        }
    }
    explicit Object(const Any& value) : object_(value.value().pdispVal) { object_->AddRef(); }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    ~Object() { object_->Release(); }

    IDispatch* get() const { return object_; }

    Any call(const wchar_t* name, std::vector<Any> arguments = {}) const {
        return invoke(name, DISPATCH_METHOD, std::move(arguments));
    }
    Any get(const wchar_t* name) const { return invoke(name, DISPATCH_PROPERTYGET, {}); }
    void put(const wchar_t* name, Any value) const { invoke(name, DISPATCH_PROPERTYPUT, {std::move(value)}); }

private:
    Any invoke(const wchar_t* name, WORD kind, std::vector<Any> arguments) const {
        DISPID id;
        LPOLESTR names[] = {const_cast<LPOLESTR>(name)};
        if (FAILED(object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) fail("A name is not known");
        // Arguments are handed over last one first, and the value of a put has a name.
        std::vector<VARIANT> reversed;
        for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
            reversed.push_back(*argument->get());
        }
        DISPID put = DISPID_PROPERTYPUT;
        const bool puts = kind == DISPATCH_PROPERTYPUT;
        DISPPARAMS parameters{reversed.data(), puts ? &put : nullptr, static_cast<UINT>(reversed.size()),
                              puts ? 1u : 0u};
        Any result;
        EXCEPINFO failure{};
        const HRESULT outcome =
            object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result.get(), &failure, nullptr);
        if (FAILED(outcome)) fail("A call failed: " + utf8(failure.bstrDescription));
        return result;
    }

    IDispatch* object_ = nullptr;
};

/// The day of today as automation counts it.
Any today() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    now.wHour = now.wMinute = now.wSecond = now.wMilliseconds = 0;
    Any date;
    date.get()->vt = VT_DATE;
    SystemTimeToVariantTime(&now, &date.get()->date);
    return date;
}

/// What the component refuses it says in Error.
void expect(const Object& treasury, const Any& done, const char* what) {
    const bool ok = done.value().boolVal != VARIANT_FALSE;
    std::printf("%s: %s\n", what, ok ? "ok" : treasury.get(L"Error").text().c_str());
    if (!ok) std::exit(1);
}

/// A record is an object of the class of its name, whose properties are the members.
void begin_receipt(const Object& treasury) {
    const Object header(L"Cuvexa.tRpEncabezado");
    header.put(L"Rp_Fecha", today());
    Object(header.get(L"TipoReciboPago")).put(L"Trp_Cve_Tipo_Recibo_Pago", L"01");
    Object(header.get(L"Sucursal")).put(L"Sc_Cve_Sucursal", L"MTY");
    header.put(L"Mn_Cve_Moneda", L"MXN");
    header.put(L"Rp_Tipo_Cambio", 1.0);
    treasury.call(L"NuevoReciboCaja");
    treasury.put(L"RpEncabezado", header.get());
}

void add_line(const Object& treasury, const wchar_t* method, const wchar_t* reference, double amount,
              const char* what) {
    const Object line(L"Cuvexa.tRpDetalle");
    Object(line.get(L"Fp_Cve_Forma_Pago")).put(L"Fp_Cve_Forma_Pago", method);
    line.put(L"Rp_Cheque", reference);
    line.put(L"Rp_Importe", amount);
    treasury.put(L"RpDetalle", line.get());
    expect(treasury, treasury.call(L"Add_Recibo_Caja_Detalle"), what);
}

double balance(const Object& treasury) {
    return treasury.call(L"GetSaldo", {L"SRR-MXN"}).value().dblVal;
}

void run() {
    const Object treasury(L"Cuvexa.Tesoreria");
    begin_receipt(treasury);
    add_line(treasury, L"01", L"", 1500, "Line of 1,500.00");
    add_line(treasury, L"04", L"T-881", 250.5, "Line of 250.50");

    // The component gave the receipt its folio with the first line.
    const Object header(L"Cuvexa.tRpEncabezado");
    header.call(L"Leer", {treasury.get(), L"RpEncabezado"});
    const Any folio = header.get(L"Rp_Folio");
    expect(treasury, treasury.call(L"FinReciboCaja", {folio}), "Receipt closed");
    expect(treasury,
           treasury.call(L"Genera_Deposito", {L"SRR-MXN", folio, today(), true, today(), L"From a C++ client"}),
           "Deposited");
    std::printf("Receipt %s, deposit %s, balance %.2f\n", folio.text().c_str(),
                treasury.get(L"Dp_Folio").text().c_str(), balance(treasury));

    const Any again = treasury.call(L"Genera_Deposito", {L"SRR-MXN", folio, today(), true, today()});
    if (again.value().boolVal) std::exit(1);
    std::printf("Refused: %s\n", treasury.get(L"Error").text().c_str());

    expect(treasury, treasury.call(L"Cancelar_Recibo_Caja", {folio, true}), "Receipt cancelled");
    std::printf("Balance %.2f\n", balance(treasury));
}

}  // namespace

int main() {
    CoInitialize(nullptr);
    run();
    CoUninitialize();
    std::printf("Done\n");
    return 0;
}
