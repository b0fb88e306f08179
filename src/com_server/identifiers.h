// What the component is registered under. Clients keep these: they never change.
#pragma once

#include <windows.h>

#include <string_view>

#include "automation/record_table.h"

namespace cuvexa::com_server {

using namespace automation;

inline constexpr GUID library_id = {0x6d1b4a52, 0x83c7, 0x4f0e, {0x9a, 0x1d, 0x52, 0x70, 0xc3, 0xb8, 0x4e, 0x01}};
inline constexpr WORD library_major = 1, library_minor = 0;

/// Class and interface of `Tesoreria` and of `clsRpDetalle`.
struct Class_ids {
    std::string_view name;
    GUID class_id;
    GUID interface_id;
};

inline constexpr Class_ids class_ids[] = {
    {"Tesoreria",
     {0x6d1b4a53, 0x83c7, 0x4f0e, {0x9a, 0x1d, 0x52, 0x70, 0xc3, 0xb8, 0x4e, 0x01}},
     {0x6d1b4a54, 0x83c7, 0x4f0e, {0x9a, 0x1d, 0x52, 0x70, 0xc3, 0xb8, 0x4e, 0x01}}},
    {"clsRpDetalle",
     {0x6d1b4a55, 0x83c7, 0x4f0e, {0x9a, 0x1d, 0x52, 0x70, 0xc3, 0xb8, 0x4e, 0x01}},
     {0x6d1b4a56, 0x83c7, 0x4f0e, {0x9a, 0x1d, 0x52, 0x70, 0xc3, 0xb8, 0x4e, 0x01}}},
};

/// The identifiers of a published class.
constexpr const Class_ids& ids_of(std::string_view class_name) {
    return class_ids[0].name == class_name ? class_ids[0] : class_ids[1];
}

/// A record, as the type library names it; its class of script objects has the same one with another first number.
inline GUID record_id(const Record_type& record) {
    GUID id = {0x6d1b4a60, 0x83c7, 0x4f0e, {0x9a, 0x1d, 0x52, 0x70, 0xc3, 0xb8, 0x4e, 0x01}};
    id.Data1 += static_cast<unsigned long>(&record - record_types);
    return id;
}

inline GUID script_record_id(const Record_type& record) {
    GUID id = record_id(record);
    id.Data1 += 0x20;
    return id;
}

}  // namespace cuvexa::com_server
