#include "fuzz/oracle.h"

#include <cstdio>
#include <cstdlib>

namespace cuvexa::fuzz {

void require(bool kept, std::string_view promise, std::string_view shown, std::string_view beside) {
    if (kept) return;
    const auto print = [](std::string_view text) {
        std::fwrite(text.data(), 1, text.size(), stderr);
        std::fputc('\n', stderr);
    };
    std::fputs("NOT KEPT: ", stderr);
    print(promise);
    print(shown);
    print(beside);
    std::abort();
}

std::string_view first_line(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    return line;
}

std::string skeleton(std::string_view statement) {
    std::string bare;
    for (std::size_t at = 0; at < statement.size(); ++at) {
        const char open = statement[at];
        bare += open;
        if (open != '\'' && open != '"' && open != '[') continue;
        const char close = open == '[' ? ']' : open;
        for (++at; at < statement.size(); ++at) {
            if (statement[at] != close) continue;
            if (at + 1 >= statement.size() || statement[at + 1] != close) break;
            ++at;
        }
        bare += at < statement.size() ? close : '\x01';
    }
    return bare;
}

}  // namespace cuvexa::fuzz
