// Who may: the file of tokens, and what reads it for every request.
#pragma once

#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace cuvexa::service {

/// What a token lets its bearer do.
struct Token {
    std::string name;          ///< the operator of the audit columns
    std::string company = {};  ///< the only one; empty: all
    bool read_only = false;

    bool operator==(const Token&) const = default;
};

/// Why the file of tokens cannot be read or changed; a Spanish text for its operator.
class Token_error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The file of tokens, as the command line changes it: whole or not at all, readable by its owner alone.
class Token_file {
public:
    explicit Token_file(std::string file) : file_(std::move(file)) {}

    /// Adds a token, makes the file when it is missing, and gives the token's text, which is kept nowhere. Throws
    /// `Token_error` when the name is taken or no name.
    std::string add(const Token& token) const;

    /// All tokens by name.
    std::vector<Token> list() const;

    /// Throws `Token_error` when there is no such token.
    void remove(const std::string& name) const;

private:
    std::string file_;
};

/// The tokens that are good at this moment. Used by many threads.
class Tokens {
public:
    /// Throws `Token_error` when the file cannot be read.
    explicit Tokens(std::string file);

    /// Whose token a text is; nothing when it is nobody's.
    std::optional<Token> owner(std::string_view text);

private:
    struct Entry {
        Token token;
        std::string salt;
        std::string hash;
    };
    struct Version {
        std::filesystem::file_time_type written;
        std::uintmax_t size = 0;
        std::uint64_t inode = 0;
        bool operator==(const Version&) const = default;
    };

    Version version_on_disk() const;
    void read_again();

    std::string file_;
    std::mutex mutex_;
    Version version_;
    std::map<std::string, Entry, std::less<>> entries_;  ///< by the public half of their text
};

}  // namespace cuvexa::service
