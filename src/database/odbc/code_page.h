// The characters that a server's database keeps in its texts. A literal without N goes through the code page of the
// database's collation, and what that lacks becomes a question mark there without a word.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace cuvexa::odbc {

class Code_page {
public:
    /// The code page of that number. UTF-8 (65001), 0 and one that this machine does not know keep everything.
    explicit Code_page(int number);

    /// The characters of `text` that it lacks, each once.
    std::string lacking(std::string_view text) const;

    /// Throws `Database_error`, with the characters, when a text in the statement holds one that it lacks. What stands in
    /// N'…' goes around the code page.
    void require_kept(std::string_view statement) const;

private:
    struct Close {
        void operator()(void* converter) const noexcept;
    };

    int number_;
    std::unique_ptr<void, Close> converter_;  ///< none: everything is kept
};

}  // namespace cuvexa::odbc
