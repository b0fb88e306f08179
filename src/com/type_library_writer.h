// Writes type libraries: records, interfaces with their members, classes.
#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "com/pointers.h"

namespace cuvexa::com {

/// What a library is found by.
struct Library_identity {
    const wchar_t* name;
    GUID id;
    WORD major, minor;
};

/// The type of a value in a library.
struct Described_type {
    VARTYPE number = VT_EMPTY;
    std::string name = {};  ///< of a record (VT_RECORD), or of the interface of an object (VT_DISPATCH)
};

struct Described_field {
    std::string_view name;
    Described_type type;
    std::size_t offset;
};

struct Described_parameter {
    std::string_view name;
    Described_type type;
    bool by_reference;
    Any default_value;  ///< of an optional one; empty when it is not
};

/// A member of an interface whose members give a result code; the result comes last, by reference.
struct Described_member {
    std::string_view name;
    DISPID identifier;
    INVOKEKIND kind;
    std::vector<Described_parameter> parameters;
    Described_type result;  ///< VT_EMPTY for none
    std::string_view help;
};

/// All that fails here throws `Result_error`.
class Type_library_writer {
public:
    /// A library for clients of that bitness (SYS_WIN32 or SYS_WIN64), in a new file.
    Type_library_writer(const Library_identity& identity, SYSKIND system, const std::wstring& path);

    /// Names a record or an interface, in the order in which the library shows them; each is described afterwards, when
    /// those that it mentions have been named too.
    void declare(std::string_view name, TYPEKIND kind, const GUID& id);
    void describe_record(std::string_view name, std::span<const Described_field> fields, std::size_t size,
                         WORD alignment);

    /// A dual interface, which scripts call by number and others through its virtual table.
    void describe_interface(std::string_view name, std::span<const Described_member> members);

    /// A class that programs create, with its one interface.
    void add_class(std::string_view name, const GUID& id, std::string_view interface_name);

    void save();

private:
    struct Declared {
        std::size_t place;
        Pointer<ICreateTypeInfo> create;
        Pointer<ITypeInfo> read;
    };

    Declared& declared(std::string_view name);
    HREFTYPE reference(ICreateTypeInfo& from, ITypeInfo* to);
    TYPEDESC described(ICreateTypeInfo& from, const Described_type& type);
    TYPEDESC pointer_to(TYPEDESC description);
    ELEMDESC parameter(ICreateTypeInfo& info, const Described_parameter& described, PARAMDESCEX& extra);
    void add_member(ICreateTypeInfo& info, UINT at, const Described_member& member);
    void name_member(ICreateTypeInfo& info, UINT at, const Described_member& member);

    std::wstring path_;
    std::size_t pointer_size_;
    Pointer<ICreateTypeLib2> library_;
    Pointer<ITypeInfo> dispatch_;
    std::map<std::string, Declared, std::less<>> declared_;
    std::deque<TYPEDESC> pointed_to_;
    std::map<std::size_t, std::size_t> record_sizes_;  ///< by place
    std::vector<std::size_t> interfaces_;              ///< their places
};

}  // namespace cuvexa::com
