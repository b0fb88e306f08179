#include "automation/json_rpc.h"

#include <istream>
#include <new>
#include <ostream>
#include <string>

#include "automation/members.h"
#include "automation/rpc_session.h"

namespace cuvexa::automation {

Object_factory object_factory(Module& module) {
    return [&module](std::string_view class_name) {
        const Automation_class* type = find_class(class_name);
        return type ? type->create(module) : Object();
    };
}

namespace {

/// The lines of a stream. Of one that is longer than the most, or than memory, only the beginning is kept.
class Lines {
public:
    Lines(std::istream& stream, std::size_t most) : stream_(stream), most_(most) {}

    /// False at the end of the stream.
    bool next() {
        begin();
        for (bool any = false;; stream_.clear()) {
            stream_.getline(piece_, sizeof piece_);
            const auto read = static_cast<std::size_t>(stream_.gcount());
            any = any || read > 0;
            if (!stream_.fail()) {  // up to the line's end, which is counted and not kept, or the stream's
                keep({piece_, stream_.eof() ? read : read - 1});
                return true;
            }
            keep({piece_, read});
            if (stream_.eof() || stream_.bad()) return any && !stream_.bad();
        }  // the piece is full: the line goes on
    }

    const std::string& line() const { return line_; }
    bool is_beyond_memory() const { return beyond_memory_; }

private:
    void begin() {
        beyond_memory_ = false;
        line_.clear();
        if (line_.capacity() > largest_idle_buffer) line_ = {};
    }

    /// One more than the most tells that there was more.
    void keep(std::string_view piece) {
        if (beyond_memory_ || line_.size() > most_) return;
        try {
            line_.append(piece.substr(0, most_ + 1 - line_.size()));
        } catch (const std::bad_alloc&) {
            beyond_memory_ = true;
            line_ = {};
        }
    }

    static constexpr std::size_t largest_idle_buffer = 256 * 1024;

    std::istream& stream_;
    std::size_t most_;
    std::string line_;
    bool beyond_memory_ = false;
    char piece_[16 * 1024];
};

bool is_blank(std::string_view line) {
    return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

}  // namespace

void serve_json_rpc(std::istream& requests, std::ostream& answers, const Object_factory& create,
                    const Around_call& around_call, const Json_rpc_limits& limits) {
    Rpc_session session(create, around_call, limits);
    Lines lines(requests, limits.request_bytes);
    while (answers && lines.next()) {
        if (lines.is_beyond_memory()) {
            write_without_memory(answers);
            answers << '\n' << std::flush;
        } else if (!is_blank(lines.line()) && session.answer_text(lines.line(), answers)) {
            answers << '\n' << std::flush;
        }
    }
}

}  // namespace cuvexa::automation

namespace cuvexa {

void serve_json_rpc(std::istream& requests, std::ostream& answers, Module& module, const Around_call& around_call,
                    const Json_rpc_limits& limits) {
    automation::serve_json_rpc(requests, answers, automation::object_factory(module), around_call, limits);
}

}  // namespace cuvexa
