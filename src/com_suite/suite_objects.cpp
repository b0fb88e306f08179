#include "com_suite/suite_objects.h"

#include "com/registry.h"

namespace cuvexa::com_suite {

using namespace com;

std::string Suite_objects::prog_id(std::string_view service) const {
    const auto found = set_.find(service);
    return found == set_.end() ? std::string("CuvexaSuite.").append(service) : found->second;
}

Suite_objects& Suite_objects::set(std::string_view service, std::string prog_id) {
    set_[std::string(service)] = std::move(prog_id);
    return *this;
}

std::string registry_setting(const std::wstring& key, const std::wstring& name) {
    for (const HKEY hive : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        if (const auto text = Key::existing(hive, L"Software\\" + key).text(name)) return utf8(*text);
    }
    return {};
}

Suite_objects suite_objects_from_registry() {
    Suite_objects objects;
    for_each_service([&](const auto& service) {
        const std::string prog_id = registry_setting(L"Cuvexa\\Servicios", wide(service.name));
        if (!prog_id.empty()) objects.set(service.name, prog_id);
    });
    return objects;
}

bool is_registered(const Suite_objects& objects) {
    CLSID clsid;
    if (FAILED(CLSIDFromProgID(wide(objects.prog_id<SessionServices>()).c_str(), &clsid))) return false;
    wchar_t text[40];
    StringFromGUID2(clsid, text, 40);
    const std::wstring key = std::wstring(L"CLSID\\") + text;
    return Key::existing(HKEY_CLASSES_ROOT, key + L"\\InprocServer32") ||
           Key::existing(HKEY_CLASSES_ROOT, key + L"\\LocalServer32");
}

}  // namespace cuvexa::com_suite
