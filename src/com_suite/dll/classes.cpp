// CuvexaSuite.dll: the reference suite for programs that reach a suite through automation.
#include "com/class_factory.h"
#include "com/registration.h"
#include "com_suite/published_service.h"

namespace cuvexa::com_suite {
namespace {

constexpr CLSID class_id(unsigned long number) {
    return {0x3e9c7a10 + number, 0x5d24, 0x4b6b, {0xa7, 0x31, 0x0f, 0x86, 0x2c, 0xd9, 0x54, 0xe8}};
}

constexpr Class_entry classes[] = {
    {class_id(1), L"CuvexaSuite.SessionServices", L"Cuvexa reference suite: session",
     Published_service<SessionServices>::made},
    {class_id(2), L"CuvexaSuite.DataServices", L"Cuvexa reference suite: data", Published_service<DataServices>::made},
    {class_id(3), L"CuvexaSuite.PaymentMethodService", L"Cuvexa reference suite: payment methods",
     Published_service<PaymentMethodService>::made},
    {class_id(4), L"CuvexaSuite.DocumentPaymentsService", L"Cuvexa reference suite: document payments",
     Published_service<DocumentPaymentsService>::made},
    {class_id(5), L"CuvexaSuite.AccountsPayableService", L"Cuvexa reference suite: accounts payable",
     Published_service<AccountsPayableService>::made},
    {class_id(6), L"CuvexaSuite.AccountsReceivableService", L"Cuvexa reference suite: accounts receivable",
     Published_service<AccountsReceivableService>::made},
    {class_id(7), L"CuvexaSuite.AccountingService", L"Cuvexa reference suite: accounting",
     Published_service<AccountingService>::made},
};

}  // namespace
}  // namespace cuvexa::com_suite

using namespace cuvexa;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return com::get_class_object(com_suite::classes, clsid, iid, object);
}

STDAPI DllCanUnloadNow() {
    return com::can_unload();
}

STDAPI DllRegisterServer() {
    return com::register_server(com_suite::classes, com::this_module());
}

STDAPI DllUnregisterServer() {
    return com::unregister_server(com_suite::classes, com::this_module());
}
