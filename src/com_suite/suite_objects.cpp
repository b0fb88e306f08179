#include "com_suite/suite_objects.h"

#include "com/registry.h"

namespace cuvexa::com_suite {

using namespace com;
namespace {

constexpr struct {
    const wchar_t* value;
    std::string Suite_objects::*place;
} services[] = {
    {L"SessionServices", &Suite_objects::session},
    {L"DataServices", &Suite_objects::data},
    {L"PaymentMethodService", &Suite_objects::payment_methods},
    {L"DocumentPaymentsService", &Suite_objects::document_payments},
    {L"AccountsPayableService", &Suite_objects::accounts_payable},
    {L"AccountsReceivableService", &Suite_objects::accounts_receivable},
    {L"AccountingService", &Suite_objects::accounting},
};

}  // namespace

std::string registry_setting(const std::wstring& key, const std::wstring& name) {
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        if (const auto text = Key::existing(hive, L"Software\\" + key).text(name)) return utf8(*text);
    }
    return {};
}

Suite_objects suite_objects_from_registry() {
    Suite_objects names;
    for (const auto& service : services) {
        const std::string name = registry_setting(L"Cuvexa\\Servicios", service.value);
        if (!name.empty()) names.*service.place = name;
    }
    return names;
}

bool is_registered(const Suite_objects& names) {
    CLSID clsid;
    if (FAILED(CLSIDFromProgID(wide(names.session).c_str(), &clsid))) return false;
    wchar_t text[40];
    StringFromGUID2(clsid, text, 40);
    const std::wstring key = std::wstring(L"CLSID\\") + text;
    return Key::existing(HKEY_CLASSES_ROOT, key + L"\\InprocServer32") ||
           Key::existing(HKEY_CLASSES_ROOT, key + L"\\LocalServer32");
}

}  // namespace cuvexa::com_suite
