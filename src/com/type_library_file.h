// The file of a type library, corrected where the system that wrote it leaves layouts out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace cuvexa::com {

/// The types of a library stand in the order in which they were created. Wine writes neither the size of a record nor,
/// when it writes for the other bitness, the place of an interface's functions in the virtual table; Windows does, and
/// then nothing changes.
class Type_library_file {
public:
    explicit Type_library_file(const std::wstring& path);

    void set_record_size(std::size_t type, std::size_t size);
    /// An interface whose functions follow, without a gap, those of IDispatch.
    void set_virtual_table(std::size_t type, std::size_t pointer_size);

    void save() const;

private:
    std::size_t type_at(std::size_t type) const;
    template <class Number>
    Number read(std::size_t at) const;
    template <class Number>
    void write(std::size_t at, Number value);

    std::wstring path_;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace cuvexa::com
