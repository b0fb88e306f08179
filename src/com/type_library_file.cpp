#include "com/type_library_file.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace cuvexa::com {
namespace {

// Places in the file, in bytes.
constexpr std::size_t flags_at = 0x14;  // of the header
constexpr std::size_t type_count_at = 0x20;
constexpr std::size_t header_size = 0x54;  // without the name of a help library, which a flag announces
constexpr std::uint32_t has_help_library = 0x100;
constexpr std::size_t functions_at = 0x04;  // of a type
constexpr std::size_t function_count_at = 0x18;
constexpr std::size_t table_size_at = 0x4E;
constexpr std::size_t size_at = 0x50;
constexpr std::size_t type_size = 0x64;
constexpr std::size_t table_offset_at = 0x0C;  // of a function
constexpr std::size_t inherited_functions = 7;

}  // namespace

Type_library_file::Type_library_file(const std::wstring& path) : path_(path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
    if (bytes_.size() < header_size || std::memcmp(bytes_.data(), "MSFT", 4) != 0) {
        throw std::runtime_error("not a type library");
    }
}

template <class Number>
Number Type_library_file::read(std::size_t at) const {
    Number value;
    if (at + sizeof value > bytes_.size()) throw std::runtime_error("the type library ends too early");
    std::memcpy(&value, bytes_.data() + at, sizeof value);
    return value;
}

template <class Number>
void Type_library_file::write(std::size_t at, Number value) {
    read<Number>(at);
    std::memcpy(bytes_.data() + at, &value, sizeof value);
}

std::size_t Type_library_file::type_at(std::size_t type) const {
    const std::size_t places = header_size + (read<std::uint32_t>(flags_at) & has_help_library ? 4 : 0);
    // Behind the places of the types stands the directory, which begins with the place of the first one.
    const std::size_t first = read<std::uint32_t>(places + 4 * read<std::uint32_t>(type_count_at));
    return first + type * type_size;
}

void Type_library_file::set_record_size(std::size_t type, std::size_t size) {
    write(type_at(type) + size_at, static_cast<std::uint32_t>(size));
}

void Type_library_file::set_virtual_table(std::size_t type, std::size_t pointer_size) {
    const std::size_t base = type_at(type);
    const std::size_t functions = read<std::uint16_t>(base + function_count_at);
    std::size_t function = read<std::uint32_t>(base + functions_at) + 4;  // behind their length
    for (std::size_t at = 0; at < functions; ++at) {
        write(function + table_offset_at, static_cast<std::uint16_t>((inherited_functions + at) * pointer_size));
        function += read<std::uint16_t>(function);
    }
    write(base + table_size_at, static_cast<std::uint16_t>((inherited_functions + functions) * pointer_size));
}

void Type_library_file::save() const {
    std::ofstream file(std::filesystem::path(path_), std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes_.data()), static_cast<std::streamsize>(bytes_.size()));
    if (!file.flush()) throw std::runtime_error("the type library could not be written");
}

}  // namespace cuvexa::com
