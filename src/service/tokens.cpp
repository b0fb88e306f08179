#include "service/tokens.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "service/secrets.h"

namespace cuvexa::service {

namespace {

using Json = nlohmann::ordered_json;

// A token reads cvx_<id>_<secret>: the id finds the entry, so that one fingerprint is computed and not one per token.
constexpr std::string_view prefix = "cvx_";
constexpr std::size_t id_digits = 16;

std::optional<std::pair<std::string, std::string>> halves(std::string_view text) {
    if (!text.starts_with(prefix)) return std::nullopt;
    text.remove_prefix(prefix.size());
    if (text.size() <= id_digits || text[id_digits] != '_') return std::nullopt;
    return std::pair{std::string(text.substr(0, id_digits)), std::string(text.substr(id_digits + 1))};
}

bool is_entry(const Json& entry) {
    const auto holds_text = [&](const char* name) { return entry.contains(name) && entry[name].is_string(); };
    return entry.is_object() && holds_text("name") && holds_text("id") && holds_text("salt") && holds_text("hash");
}

Json read(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw Token_error("No es posible leer el archivo de tokens: " + file);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    Json json = Json::parse(text, nullptr, false);
    const bool whole = json.is_object() && json.contains("tokens") && json["tokens"].is_array() &&
                       std::all_of(json["tokens"].begin(), json["tokens"].end(), is_entry);
    if (!whole) throw Token_error("No es un archivo de tokens: " + file);
    return json;
}

Token token_of(const Json& entry) {
    return {entry.at("name"), entry.value("company", ""), entry.value("read", false)};
}

/// The audit columns hold sixty characters; control characters would break the lines of a log.
bool is_name(std::string_view name) {
    return !name.empty() && name.size() <= 60 &&
           std::none_of(name.begin(), name.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f; });
}

/// Others that change the file wait until this one is done.
class Lock {
public:
    explicit Lock(const std::string& file)
        : handle_(open((file + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (handle_ < 0 || flock(handle_, LOCK_EX) != 0) {
            throw Token_error("No es posible escribir el archivo de tokens: " + file + " (" + std::strerror(errno) +
                              ")");
        }
    }
    ~Lock() { close(handle_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    int handle_;
};

void write(const std::string& file, const Json& json) {
    const std::string draft = file + ".nuevo";
    const int handle = open(draft.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const std::string text = json.dump(2) + '\n';
    bool done = handle >= 0 && ::write(handle, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    done = done && fsync(handle) == 0;
    if (handle >= 0) close(handle);
    if (!done || std::rename(draft.c_str(), file.c_str()) != 0) {
        unlink(draft.c_str());
        throw Token_error("No es posible escribir el archivo de tokens: " + file);
    }
}

}  // namespace

std::string Token_file::add(const Token& token) const {
    if (!is_name(token.name)) throw Token_error("No es un nombre para un token: " + token.name);
    const Lock lock(file_);
    Json json = std::filesystem::exists(file_) ? read(file_) : Json{{"tokens", Json::array()}};
    for (const Json& entry : json["tokens"]) {
        if (token_of(entry).name == token.name) throw Token_error("Ya existe el token: " + token.name);
    }
    const std::string id = random_hex(id_digits / 2);
    const std::string secret = random_hex(32);
    const std::string salt = random_hex(16);
    json["tokens"].push_back({{"name", token.name},
                              {"company", token.company},
                              {"read", token.read_only},
                              {"id", id},
                              {"salt", salt},
                              {"hash", salted(secret, salt)}});
    write(file_, json);
    return std::string(prefix) + id + '_' + secret;
}

std::vector<Token> Token_file::list() const {
    std::vector<Token> tokens;
    const Json json = read(file_);
    for (const Json& entry : json["tokens"]) tokens.push_back(token_of(entry));
    std::sort(tokens.begin(), tokens.end(), [](const Token& a, const Token& b) { return a.name < b.name; });
    return tokens;
}

void Token_file::remove(const std::string& name) const {
    const Lock lock(file_);
    Json json = read(file_);
    Json& tokens = json["tokens"];
    const auto found =
        std::find_if(tokens.begin(), tokens.end(), [&](const Json& entry) { return token_of(entry).name == name; });
    if (found == tokens.end()) throw Token_error("No existe el token: " + name);
    tokens.erase(found);
    write(file_, json);
}

Tokens::Tokens(std::string file) : file_(std::move(file)) {
    read_again();
}

std::optional<Token> Tokens::owner(std::string_view text) {
    const auto parts = halves(text);
    if (!parts) return std::nullopt;
    const std::lock_guard lock(mutex_);
    if (version_on_disk() != version_) read_again();
    const auto found = entries_.find(parts->first);
    // A fingerprint is computed and compared for an unknown id too, so that the time tells nothing of ids.
    static const Entry nobody{{}, "", sha256("")};
    const Entry& entry = found == entries_.end() ? nobody : found->second;
    const bool good = same_secret(salted(parts->second, entry.salt), entry.hash);
    if (!good || found == entries_.end()) return std::nullopt;
    return entry.token;
}

Tokens::Version Tokens::version_on_disk() const {
    struct stat status {};
    if (stat(file_.c_str(), &status) != 0) return {};
    std::error_code ignored;
    return {std::filesystem::last_write_time(file_, ignored), static_cast<std::uintmax_t>(status.st_size),
            status.st_ino};
}

// A file that cannot be read leaves nobody who may.
void Tokens::read_again() {
    const Version version = version_on_disk();
    entries_.clear();
    version_ = {};
    const Json json = read(file_);
    for (const Json& entry : json["tokens"]) {
        entries_[entry.at("id")] = {token_of(entry), entry.at("salt"), entry.at("hash")};
    }
    version_ = version;
}

}  // namespace cuvexa::service
