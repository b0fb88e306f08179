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

/// What fills one hole: a text as it stands, or a number in its ordinary text form. Throws `Automation_error` (6) for a
/// number that is NaN or infinite.
class Piece {
public:
    Piece(std::string_view text) : view_(text) {}
    Piece(const std::string& text) : view_(text) {}
    Piece(const char* text) : view_(text) {}
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

/// A literal whose number of holes "{}" is checked against the arguments when it is compiled.
template <class... Arguments>
class Holes {
public:
    template <std::size_t N>
    consteval Holes(const char (&literal)[N]) : literal_(literal, N - 1) {
        std::size_t holes = 0;
        for (std::size_t i = 0; i + 1 < literal_.size(); ++i) {
            if (literal_[i] == '{' && literal_[i + 1] == '}') ++holes;
        }
        if (holes != sizeof...(Arguments)) throw "the number of holes differs from the number of arguments";
    }
    constexpr std::string_view literal() const { return literal_; }

private:
    std::string_view literal_;
};

/// Appends `literal` to `out`, its holes filled in order.
void append_filled(std::string& out, std::string_view literal, std::initializer_list<std::string_view> pieces);

/// The literal with its holes filled.
template <class... Arguments>
std::string filled(Holes<std::type_identity_t<Arguments>...> holes, const Arguments&... arguments) {
    std::string out;
    append_filled(out, holes.literal(), {Piece(arguments).view()...});
    return out;
}

/// The same, into a buffer that keeps its capacity.
template <class... Arguments>
void fill(std::string& out, Holes<std::type_identity_t<Arguments>...> holes, const Arguments&... arguments) {
    out.clear();
    append_filled(out, holes.literal(), {Piece(arguments).view()...});
}

}  // namespace cuvexa
