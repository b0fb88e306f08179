#include "company/files.h"

#ifndef _WIN32
#include <fcntl.h>
#endif
#include <unistd.h>

#include <functional>
#include <system_error>
#include <thread>

#include "cuvexa/company.h"

namespace cuvexa::company {

namespace fs = std::filesystem;

namespace {

std::string utf8_name(const fs::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

bool stands(const std::string& file) {
    return fs::symlink_status(path(file)).type() != fs::file_type::not_found;
}

fs::path folder_of(const std::string& file) {
    return fs::absolute(path(file)).parent_path();
}

bool no_links_here(const std::error_code& error) {
    return error == std::errc::operation_not_permitted || error == std::errc::not_supported ||
           error == std::errc::function_not_supported;
}

/// The name survives a power cut only when its folder has reached the disk. Windows has no such call.
void sync_folder([[maybe_unused]] const std::string& file) {
#ifndef _WIN32
    const int folder = open(folder_of(file).c_str(), O_RDONLY | O_DIRECTORY);
    if (folder < 0) return;
    fsync(folder);
    close(folder);
#endif
}

/// A name that no other thread of no other program has at this time.
std::string draft_name(const std::string& file) {
    const auto thread = std::hash<std::thread::id>()(std::this_thread::get_id());
    return file + ".nueva-" + std::to_string(getpid()) + '-' + std::to_string(thread);
}

}  // namespace

fs::path path(const std::string& name) {
    return std::u8string(name.begin(), name.end());
}

// The engine would take what a deleted database left beside it for a part of the new one.
void refuse_in_place(const std::string& file) {
    if (stands(file)) throw Company_error("Ya existe y no se toca: " + file);
    for (const char* ending : {"-wal", "-journal"}) {
        if (stands(file + ending)) throw Company_error("Quedan restos de otra base de datos: " + file + ending);
    }
    const fs::path folder = folder_of(file);
    if (!fs::is_directory(folder)) throw Company_error("No existe la carpeta: " + utf8_name(folder));
}

Draft::Draft(const std::string& file) : name_(draft_name(file)) {
    remove();
}

Draft::~Draft() {
    remove();
}

void Draft::become(const std::string& file) {
    std::error_code error;
    fs::create_hard_link(path(name_), path(file), error);
    if (error) refuse_in_place(file);
    if (no_links_here(error)) fs::rename(path(name_), path(file), error);
    if (error) throw Company_error("No es posible crear la base de datos: " + file + " (" + error.message() + ")");
    sync_folder(file);
}

void Draft::remove() {
    std::error_code ignored;
    for (const char* ending : {"", "-wal", "-shm", "-journal"}) fs::remove(path(name_ + ending), ignored);
}

}  // namespace cuvexa::company
