// Cuvexa.dll as a program finds it: loaded from the folder of this test, over a sample company of its own. Nothing is
// registered.
//
//     Server server;
//     auto treasury = server.create("Tesoreria");
//     Outcome outcome = call(treasury, "Crear_Cheque", {any("C1")});
//
// Objects must be let go before the server is.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

#include "automation/members.h"
#include "com/late.h"
#include "com/pointers.h"
#include "com/values.h"

namespace cuvexa::tests {

using namespace automation;
using namespace com;

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// A file with the sample company, removed with its owner.
class Sample_company {
public:
    Sample_company();
    Sample_company(const Sample_company&) = delete;
    Sample_company& operator=(const Sample_company&) = delete;
    ~Sample_company();

    const std::string& path() const { return path_; }
    void sql(std::string_view statement) const;
    /// The rows of a query, their columns parted by "|".
    std::vector<std::string> rows(std::string_view query, std::initializer_list<std::string_view> columns) const;

private:
    std::string path_;
};

/// The apartment of this thread.
class Apartment {
public:
    Apartment() : result_(CoInitialize(nullptr)) {}
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { end(); }

    void end() {
        if (SUCCEEDED(result_)) CoUninitialize();
        result_ = E_FAIL;
    }

private:
    HRESULT result_;
};

/// The library, as long as it is held.
class Library {
public:
    explicit Library(const std::wstring& path = default_path());
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library();

    static std::wstring default_path();
    const std::wstring& path() const { return path_; }

    HRESULT factory(const CLSID& clsid, REFIID iid, void** object) const;
    HRESULT can_unload() const;
    HRESULT register_server() const;
    HRESULT unregister_server() const;

private:
    template <class Function>
    Function function(const char* name) const;

    std::wstring path_;
    HMODULE module_;
};

class Server {
public:
    Server();

    Sample_company company;
    Library library;
    Apartment apartment;  // ends before the library goes, whose module it ends

    /// A new object of one of the classes, or of a record's class of script objects.
    Pointer<IDispatch> create(std::string_view class_name) const;
    HRESULT create(const CLSID& clsid, REFIID iid, void** object) const;

    /// How the system handles a record of the library.
    Pointer<IRecordInfo> record_info(std::string_view name) const;
};

/// The identifier of a class that has one of its own, or of a record's class.
CLSID class_id(std::string_view class_name);

/// What a call of `Invoke` gave.
struct Outcome {
    HRESULT result = S_OK;
    Any value;
    UINT wrong = 0;  ///< place among the arguments as they were handed over, last one first
    HRESULT scode = 0;
    std::string source, description;
};

/// An argument, perhaps with a name.
struct Given {
    Given(Any value) : value(std::move(value)) {}
    Given(DISPID name, Any value) : value(std::move(value)), name(name) {}
    Any value;
    DISPID name = DISPID_UNKNOWN;
};

DISPID identifier(const Pointer<IDispatch>& object, const wchar_t* name);

/// Arguments in their order, those with a name last; they are moved from, and dropped after the call.
template <class... Arguments>
std::vector<Given> arguments(Arguments&&... given) {
    std::vector<Given> list;
    (list.emplace_back(std::forward<Arguments>(given)), ...);
    return list;
}

Outcome invoke(const Pointer<IDispatch>& object, DISPID id, WORD kind, std::vector<Given> given = {});
Outcome call(const Pointer<IDispatch>& object, const wchar_t* name, std::vector<Given> given = {});
Outcome get(const Pointer<IDispatch>& object, const wchar_t* name);
Outcome put(const Pointer<IDispatch>& object, const wchar_t* name, Any value, WORD kind = DISPATCH_PROPERTYPUT);

/// The text, number or truth of a result; fails the test when the call failed.
std::string text(const Outcome& outcome);
double number(const Outcome& outcome);
bool truth(const Outcome& outcome);

/// The record inside a script's object.
Pointer<IDispatch> inside(const Pointer<IDispatch>& record, const wchar_t* member);

/// Captures a receipt of one line, 10 pesos on 15 March 2024, by late binding. Whether the line was taken.
bool capture(const Server& server, const Pointer<IDispatch>& treasury);

/// Arguments by reference: variants that point to the caller's own.
Any reference(BSTR& text);
Any reference(double& number);
Any reference(std::int16_t& number);
Any reference(std::int32_t& number);
Any reference(Any& variant);
Any reference_bool(VARIANT_BOOL& boolean);
Any reference_date(DATE& date);
Any reference_object(IDispatch*& object);

/// A record in the memory of a client: a struct of the header that the build makes, with the texts that it owns.
template <class Record>
class Client_record {
public:
    Client_record() = default;
    Client_record(const Client_record&) = delete;
    Client_record& operator=(const Client_record&) = delete;
    ~Client_record() { clear(record_); }

    Record* operator->() { return &record_; }
    Record* get() { return &record_; }

    /// As an argument by reference.
    Any reference(const Pointer<IRecordInfo>& info) {
        Any result;
        result->vt = VT_RECORD | VT_BYREF;
        result->pRecInfo = info.get();
        result->pvRecord = &record_;
        return result;
    }

private:
    Record record_{};
};

/// A result that is a record: a view of its memory as a struct of the header.
template <class Record>
const Record& record_in(const Outcome& outcome) {
    EXPECT_EQ(outcome.result, S_OK) << outcome.description;
    if (outcome.value->vt != VT_RECORD) throw std::runtime_error("no record");
    return *static_cast<const Record*>(outcome.value->pvRecord);
}

const Record_type& record_named(std::string_view name);

}  // namespace cuvexa::tests
