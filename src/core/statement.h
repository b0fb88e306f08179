// Texts with holes: a statement or a message is one literal, so that a search for what the user or the trace shows
// finds it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

namespace cuvexa {

/// Words of the program itself: a literal, never a value. They may stand outside of quotes.
class Words {
public:
    constexpr Words() = default;
    template <std::size_t N>
    consteval Words(const char (&literal)[N]) : text_(literal, N - 1) {}

    constexpr std::string_view view() const { return text_; }

private:
    std::string_view text_;
};

/// A part of a statement that was composed by the rule of statements itself (`part`), or nothing. It may stand outside of
/// quotes.
class Part {
public:
    Part() = default;
    Part(Words words) : text_(words.view()) {}

    const std::string& text() const { return text_; }

private:
    friend class Part_maker;
    std::string text_;
};

/// Texts parted by commas as the content of an IN list: "R1, R2" is 'R1','R2'. Blanks are dropped wherever they stand.
class Text_list {
public:
    explicit Text_list(std::string_view texts);

    const std::string& text() const { return text_; }

    /// The list as it may stand in a statement. Throws `Database_error` when one of its texts would end the quotes.
    std::string_view checked() const;

private:
    std::string text_;
    std::string breaks_out_;
};

/// Throws `Database_error` when a text holds a run of apostrophes of odd length: between quotes it would end the text
/// there, and what follows it would be read as part of the statement. Doubled, they stand for themselves.
void require_doubled_apostrophes(std::string_view text);

/// What fills one hole: a text as it stands, or a number in its ordinary text form. Throws `Automation_error` (6) for a
/// number that is NaN or infinite.
class Piece {
public:
    Piece(std::string_view text) : view_(text) {}
    Piece(const std::string& text) : view_(text) {}
    Piece(const char* text) : view_(text) {}
    Piece(Words words) : view_(words.view()) {}
    Piece(const Part& part) : view_(part.text()) {}
    Piece(const Text_list& list) : view_(list.checked()) {}
    Piece(double number);
    Piece(int number);
    Piece(const Piece&) = delete;
    Piece& operator=(const Piece&) = delete;

    std::string_view view() const { return length_ != 0 ? std::string_view(digits_, length_) : view_; }

private:
    std::string_view view_;
    char digits_[40];
    std::size_t length_ = 0;
};

namespace detail {

/// Calls `hole(position)` for each "{}" of a literal and gives their number.
template <class Hole>
constexpr std::size_t each_hole(std::string_view literal, Hole&& hole) {
    std::size_t holes = 0;
    for (std::size_t i = 0; i + 1 < literal.size(); ++i) {
        if (literal[i] != '{' || literal[i + 1] != '}') continue;
        hole(i);
        ++holes;
    }
    return holes;
}

}  // namespace detail

/// A message with holes: a literal whose number of holes "{}" is checked against the arguments when it is compiled.
template <class... Arguments>
class Holes {
public:
    template <std::size_t N>
    consteval Holes(const char (&literal)[N]) : literal_(literal, N - 1) {
        if (detail::each_hole(literal_, [](std::size_t) {}) != sizeof...(Arguments)) {
            throw "the number of holes differs from the number of arguments";
        }
    }
    constexpr std::string_view literal() const { return literal_; }

private:
    std::string_view literal_;
};

/// Whether an argument may fill a hole outside of quotes: a number, words of the program's own, a composed part, a list.
template <class Argument>
inline constexpr bool stands_unquoted = std::is_arithmetic_v<Argument> || std::is_same_v<Argument, Words> ||
                                        std::is_same_v<Argument, Part> || std::is_same_v<Argument, Text_list>;

/// Which holes of a statement stand between quotes: bit i for the i-th.
using Quoted_holes = std::uint64_t;

/// A statement with holes. The literal decides what a value can be: when it is compiled it is known which holes stand
/// between quotes; outside of them a plain text does not compile, and between them a text that would end the quotes is
/// refused before anything is sent. So no value becomes part of the statement.
template <class... Arguments>
class Statement {
public:
    template <std::size_t N>
    consteval Statement(const char (&literal)[N]) : literal_(literal, N - 1) {
        constexpr bool unquoted_too[] = {stands_unquoted<Arguments>..., true};
        std::size_t hole = 0;
        std::size_t from = 0;
        bool quoted = false;
        detail::each_hole(literal_, [&](std::size_t at) {
            for (; from < at; ++from) quoted ^= literal_[from] == '\'';
            if (hole >= sizeof...(Arguments)) throw "there are more holes than arguments";
            if (!quoted && !unquoted_too[hole]) throw "a text stands outside of quotes";
            if (quoted) quoted_ |= Quoted_holes{1} << hole;
            ++hole;
        });
        for (; from < literal_.size(); ++from) quoted ^= literal_[from] == '\'';
        if (hole != sizeof...(Arguments)) throw "there are fewer holes than arguments";
        if (quoted) throw "a quote is left open";
        static_assert(sizeof...(Arguments) <= 64);
    }
    constexpr std::string_view literal() const { return literal_; }
    constexpr Quoted_holes quoted() const { return quoted_; }

private:
    std::string_view literal_;
    Quoted_holes quoted_ = 0;
};

/// Appends `literal` to `out`, its holes filled in order. Pieces of `quoted` holes must not end the quotes: throws
/// `Database_error` otherwise, and `out` is not to be used.
void append_filled(std::string& out, std::string_view literal, std::initializer_list<std::string_view> pieces,
                   Quoted_holes quoted = 0);

/// A message with its holes filled by values as they stand.
template <class... Arguments>
std::string filled(Holes<std::type_identity_t<Arguments>...> message, const Arguments&... arguments) {
    std::string out;
    append_filled(out, message.literal(), {Piece(arguments).view()...});
    return out;
}

/// Composes a statement into a buffer that keeps its capacity. Throws `Database_error` for a value that would end the
/// quotes it stands between.
template <class... Arguments>
void compose(std::string& out, Statement<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
    out.clear();
    append_filled(out, statement.literal(), {Piece(arguments).view()...}, statement.quoted());
}

/// Composes a part of a statement.
class Part_maker {
public:
    template <class... Arguments>
    static Part make(Statement<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
        Part part;
        compose(part.text_, statement, arguments...);
        return part;
    }
};
template <class... Arguments>
Part part(Statement<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
    return Part_maker::make(statement, arguments...);
}

}  // namespace cuvexa
