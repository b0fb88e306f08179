// A cash receipt through the virtual table of Cuvexa.dll: captured, closed, deposited, and cancelled again.
//
// Needs Cuvexa.h, which the build of the library makes, and the system's own libraries (ole32, oleaut32). Works on the
// suite that is registered on this machine, or on the reference suite with the sample company, whose keys are used
// here. Set CUVEXA_DB to choose another database.
#include <Cuvexa.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

std::string utf8(BSTR text) {
    const int length = static_cast<int>(SysStringLen(text));
    std::string result(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr)), 0);
    WideCharToMultiByte(CP_UTF8, 0, text, length, result.data(), static_cast<int>(result.size()), nullptr, nullptr);
    return result;
}

/// A string of one's own.
class Text {
public:
    explicit Text(const wchar_t* text = L"") : text_(SysAllocString(text)) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text_); }

    BSTR get() const { return text_; }
    /// For an argument by reference, and for a result: what comes out becomes one's own.
    BSTR* by_reference() { return &text_; }
    BSTR* receive() {
        SysFreeString(text_);
        text_ = nullptr;
        return &text_;
    }
    std::string utf8() const { return ::utf8(text_); }

private:
    BSTR text_;
};

/// Ends the program when a call failed, with the words that the component left.
void check(HRESULT result) {
    if (SUCCEEDED(result)) return;
    IErrorInfo* info = nullptr;
    Text description;
    if (GetErrorInfo(0, &info) == S_OK) {
        info->GetDescription(description.receive());
        info->Release();
    }
    std::printf("Failure %08lX: %s\n", static_cast<unsigned long>(result), description.utf8().c_str());
    std::exit(1);
}

/// The day of today as automation counts it.
DATE today() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    now.wHour = now.wMinute = now.wSecond = now.wMilliseconds = 0;
    DATE date = 0;
    SystemTimeToVariantTime(&now, &date);
    return date;
}

class Treasury {
public:
    Treasury() {
        check(CoCreateInstance(Cuvexa::clsid_Tesoreria, nullptr, CLSCTX_INPROC_SERVER, Cuvexa::iid__Tesoreria,
                               reinterpret_cast<void**>(&object_)));
    }
    Treasury(const Treasury&) = delete;
    Treasury& operator=(const Treasury&) = delete;
    ~Treasury() { object_->Release(); }

    Cuvexa::_Tesoreria* operator->() const { return object_; }

    /// What the component refuses it says in Error, and the call itself succeeds.
    void expect(VARIANT_BOOL done, const char* what) const {
        std::printf("%s: %s\n", what, done ? "ok" : error().c_str());
        if (!done) std::exit(1);
    }
    std::string error() const {
        Text text;
        check(object_->get_Error(text.receive()));
        return text.utf8();
    }

private:
    Cuvexa::_Tesoreria* object_ = nullptr;
};

/// Strings that go in remain the caller's: a record that goes in only points to them.
void begin_receipt(const Treasury& treasury) {
    const Text type(L"01"), branch(L"MTY"), currency(L"MXN");
    Cuvexa::tRpEncabezado header{};
    header.Rp_Fecha = today();
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = type.get();
    header.Sucursal.Sc_Cve_Sucursal = branch.get();
    header.Mn_Cve_Moneda = currency.get();
    header.Rp_Tipo_Cambio = 1;
    check(treasury->NuevoReciboCaja());
    check(treasury->put_RpEncabezado(&header));
}

void add_line(const Treasury& treasury, const wchar_t* method, const wchar_t* reference, double amount,
              const char* what) {
    const Text key(method), number(reference);
    Cuvexa::tRpDetalle line{};
    line.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = key.get();
    line.Rp_Cheque = number.get();
    line.Rp_Importe = amount;
    check(treasury->put_RpDetalle(&line));
    VARIANT_BOOL done = VARIANT_FALSE;
    check(treasury->Add_Recibo_Caja_Detalle(&done));
    treasury.expect(done, what);
}

/// Strings that come out become the caller's.
std::wstring folio_of_receipt(const Treasury& treasury) {
    Cuvexa::tRpEncabezado header{};
    check(treasury->get_RpEncabezado(&header));
    const std::wstring folio(header.Rp_Folio, SysStringLen(header.Rp_Folio));
    Cuvexa::clear(header);
    return folio;
}

double balance(const Treasury& treasury, Text& account) {
    double amount = 0;
    check(treasury->GetSaldo(account.by_reference(), nullptr, &amount));
    return amount;
}

void run() {
    const Treasury treasury;
    begin_receipt(treasury);
    add_line(treasury, L"01", L"", 1500, "Line of 1,500.00");
    add_line(treasury, L"04", L"T-881", 250.5, "Line of 250.50");

    Text folio(folio_of_receipt(treasury).c_str()), account(L"SRR-MXN"), comment(L"From a C++ client"), deposit;
    VARIANT_BOOL done = VARIANT_FALSE, firm = VARIANT_TRUE;
    DATE date = today();
    check(treasury->FinReciboCaja(folio.by_reference(), &done));
    treasury.expect(done, "Receipt closed");
    check(treasury->Genera_Deposito(account.by_reference(), folio.by_reference(), &date, &firm, &date, comment.get(),
                                    &done));
    treasury.expect(done, "Deposited");
    check(treasury->get_Dp_Folio(deposit.receive()));
    std::printf("Receipt %s, deposit %s, balance %.2f\n", folio.utf8().c_str(), deposit.utf8().c_str(),
                balance(treasury, account));

    // An optional argument may be null.
    check(treasury->Genera_Deposito(account.by_reference(), folio.by_reference(), &date, &firm, &date, nullptr, &done));
    if (done) std::exit(1);
    std::printf("Refused: %s\n", treasury.error().c_str());

    VARIANT_BOOL with_deposit = VARIANT_TRUE;
    check(treasury->Cancelar_Recibo_Caja(folio.by_reference(), &with_deposit, nullptr, &done));
    treasury.expect(done, "Receipt cancelled");
    std::printf("Balance %.2f\n", balance(treasury, account));
}

}  // namespace

int main() {
    check(CoInitialize(nullptr));
    run();
    CoUninitialize();
    std::printf("Done\n");
    return 0;
}
