#include "company/files.h"

#include <fcntl.h>
#ifdef _WIN32
#include <io.h>
#else
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <random>
#include <string_view>
#include <system_error>
#include <utility>

#include "cuvexa/company.h"
#include "database/sqlite/whole.h"

namespace cuvexa::company {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view draft_mark = ".nueva-";
constexpr std::size_t draft_digits = 16;

std::string utf8_name(const fs::path& path) {
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

bool stands(const std::string& file) {
    std::error_code error;
    const auto type = fs::symlink_status(path(file), error).type();
    return type != fs::file_type::not_found;
}

fs::path folder_of(const std::string& file) {
    return fs::absolute(path(file)).parent_path();
}

bool no_links_here(const std::error_code& error) {
    return error == std::errc::operation_not_permitted || error == std::errc::not_supported ||
           error == std::errc::function_not_supported;
}

[[noreturn]] void refuse_to_make(const std::string& file, const std::error_code& error) {
    throw Company_error("No es posible crear la base de datos: " + file + " (" + error.message() + ")");
}

std::error_code last_error() {
    return {errno, std::generic_category()};
}

// ---- The disk ------------------------------------------------------------------------------------------------------

#ifdef _WIN32
/// Windows keeps names by itself, and has no call for it.
std::error_code sync_folder(const std::string&) {
    return {};
}

std::error_code sync_file(const std::string& file) {
    const int descriptor = _wopen(path(file).c_str(), _O_RDWR | _O_BINARY);
    if (descriptor < 0) return last_error();
    const std::error_code error = _commit(descriptor) == 0 ? std::error_code() : last_error();
    _close(descriptor);
    return error;
}
#else
std::error_code synced(const char* name, int flags) {
    const int descriptor = open(name, O_RDONLY | O_CLOEXEC | flags);
    if (descriptor < 0) return last_error();
    const std::error_code error = fsync(descriptor) == 0 ? std::error_code() : last_error();
    close(descriptor);
    return error;
}

/// The name survives a power cut only when its folder has reached the disk.
std::error_code sync_folder(const std::string& file) {
    const std::error_code error = synced(folder_of(file).c_str(), O_DIRECTORY);
    const bool cannot = error == std::errc::invalid_argument || error == std::errc::permission_denied;
    return cannot ? std::error_code() : error;
}

std::error_code sync_file(const std::string& file) {
    return synced(file.c_str(), 0);
}
#endif

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

// ---- Drafts --------------------------------------------------------------------------------------------------------

/// A folder that one program works in. The system knows that it does, and forgets it when the program dies.
class Draft::Folder {
public:
    /// Makes one that nobody has.
    static std::unique_ptr<Folder> make(const std::string& file);

    /// Removes those that nobody has any more.
    static void remove_abandoned(const std::string& file);

    ~Folder() {
        release();
        remove(path_);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const fs::path& where() const { return path_; }

private:
    explicit Folder(fs::path path) : path_(std::move(path)) {}

    /// False when another program holds it, or it is gone.
    bool hold();
    void release();

    static bool is_name(const std::string& name, const std::string& file);
    static void remove(const fs::path& folder) {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

    fs::path path_;
#ifdef _WIN32
    std::ofstream held_;
#else
    int held_ = -1;
#endif
};

#ifdef _WIN32
// Windows removes no file that is open.
bool Draft::Folder::hold() {
    std::error_code error;
    fs::remove(path_ / "held", error);
    if (!error) held_.open(path_ / "held");
    return held_.is_open();
}

void Draft::Folder::release() {
    held_.close();
}
#else
// Of the folder, not of the file: to close a file gives up what the engine holds of it in the whole program.
bool Draft::Folder::hold() {
    held_ = open(path_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (held_ < 0) return false;
    struct stat held {};
    struct stat found {};
    const bool ours = flock(held_, LOCK_EX | LOCK_NB) == 0 || errno == ENOLCK || errno == EOPNOTSUPP;
    if (ours && fstat(held_, &held) == 0 && stat(path_.c_str(), &found) == 0 && held.st_ino == found.st_ino) {
        return true;
    }
    release();
    return false;
}

void Draft::Folder::release() {
    if (held_ >= 0) close(std::exchange(held_, -1));
}
#endif

std::unique_ptr<Draft::Folder> Draft::Folder::make(const std::string& file) {
    constexpr int attempts = 100;  // each fails only when another program looked for abandoned ones in that moment
    std::random_device random;
    std::error_code error;
    for (int i = 0; i < attempts; ++i) {
        char digits[draft_digits + 1];
        std::snprintf(digits, sizeof digits, "%08x%08x", random(), random());
        std::unique_ptr<Folder> folder(new Folder(path(file + std::string(draft_mark) + digits)));
        const bool made = fs::create_directory(folder->where(), error);
        if (made && folder->hold()) return folder;
        if (!made) folder->path_.clear();
        if (error) break;
    }
    refuse_to_make(file, error ? error : std::make_error_code(std::errc::resource_unavailable_try_again));
}

bool Draft::Folder::is_name(const std::string& name, const std::string& file) {
    const std::string beginning = utf8_name(path(file).filename()) + std::string(draft_mark);
    const auto is_digit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    return name.starts_with(beginning) && name.size() == beginning.size() + draft_digits &&
           std::all_of(name.begin() + static_cast<std::ptrdiff_t>(beginning.size()), name.end(), is_digit);
}

void Draft::Folder::remove_abandoned(const std::string& file) {
    std::error_code ignored;
    for (fs::directory_iterator entry(folder_of(file), ignored), end; entry != end; entry.increment(ignored)) {
        if (!is_name(utf8_name(entry->path().filename()), file)) continue;
        if (!fs::is_directory(entry->symlink_status(ignored))) continue;
        Folder folder(entry->path());
        if (!folder.hold()) folder.path_.clear();  // another program works there
    }
}

Draft::Draft(const std::string& file) {
    Folder::remove_abandoned(file);
    folder_ = Folder::make(file);
    name_ = utf8_name(folder_->where() / path(file).filename());
}

Draft::~Draft() = default;

void Draft::become(const std::string& file) {
    sqlite::require_whole(name_);
    std::error_code error = sync_file(name_);
    if (error) refuse_to_make(file, error);
    fs::create_hard_link(path(name_), path(file), error);
    if (error) refuse_in_place(file);
    if (no_links_here(error)) fs::rename(path(name_), path(file), error);
    if (error) refuse_to_make(file, error);
    if ((error = sync_folder(file))) {
        std::error_code ignored;
        fs::remove(path(file), ignored);
        refuse_to_make(file, error);
    }
}

}  // namespace cuvexa::company
