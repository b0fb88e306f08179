// The frame of every operation: what it may call, how it refuses, and the only place that catches.
#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <type_traits>

#include "core/query.h"

namespace cuvexa {

inline constexpr std::string_view line_break = "\r\n";

/// A business refusal on its way to `Error`. It carries the finished text; `Operation` alone throws it.
struct Refusal {
    std::string text;
};

/// How a refusal is worded: the message alone, or behind the tag of the operation.
enum class Wording { plain, tagged };

/// The text that a service left when it refused.
template <class Service>
std::string last_error(Service& service) {
    return service.LastError();
}
inline std::string last_error(DataServices& service) {
    return service.LastErrorText();
}

/// Tells the suite where an operation begins and ends.
class Notice_to_suite {
public:
    explicit Notice_to_suite(SessionServices& session) : session_(session) { session_.operation_begins(); }
    ~Notice_to_suite() { session_.operation_ends(); }
    Notice_to_suite(const Notice_to_suite&) = delete;
    Notice_to_suite& operator=(const Notice_to_suite&) = delete;

private:
    SessionServices& session_;
};

/// One operation in progress. Inside it a failure is an exception; the frame below makes it a Boolean.
class Operation {
public:
    Operation(Module& module, const std::string& error, std::string_view tag)
        : module_(module), error_(error), tag_(tag) {}

    Module& module() { return module_; }
    DataServices& data() { return module_.data(); }
    SessionServices& session() { return module_.session(); }

    // ---- The database ---------------------------------------------------------------------------------------------

    template <class... Arguments>
    Rows query(Statement<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
        return cuvexa::query(module_, statement, arguments...);
    }

    template <class... Arguments>
    void execute(Statement<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
        query(statement, arguments...);
    }

    /// The server's date and time, now, as text for the audit columns.
    std::string server_stamp() { return data().SqlDateTime(data().GetServerDate()); }

    // ---- The four forms of a refusal --------------------------------------------------------------------------------

    /// Tag, line break, message.
    template <class... Arguments>
    [[noreturn]] void refuse(Holes<std::type_identity_t<Arguments>...> message, const Arguments&... arguments) {
        throw Refusal{tagged(filled(message, arguments...))};
    }
    template <class... Arguments>
    void refuse_if(bool condition, Holes<std::type_identity_t<Arguments>...> message, const Arguments&... arguments) {
        if (condition) refuse(message, arguments...);
    }

    /// The message alone, with or without data in it.
    template <class... Arguments>
    [[noreturn]] void refuse_plain(Holes<std::type_identity_t<Arguments>...> message, const Arguments&... arguments) {
        throw Refusal{filled(message, arguments...)};
    }
    template <class... Arguments>
    void refuse_plain_if(bool condition, Holes<std::type_identity_t<Arguments>...> message,
                         const Arguments&... arguments) {
        if (condition) refuse_plain(message, arguments...);
    }

    /// One of the two, as the operation words a validation that it shares with others.
    template <class... Arguments>
    [[noreturn]] void refuse_as(Wording wording, Holes<std::type_identity_t<Arguments>...> message,
                                const Arguments&... arguments) {
        if (wording == Wording::tagged) refuse(message, arguments...);
        refuse_plain(message, arguments...);
    }

    /// Tag, line break, and the text that a member called inside left in `Error`.
    void relay_unless(bool succeeded) {
        if (!succeeded) throw Refusal{tagged(error_)};
    }
    /// Tag, line break, and the last error of the service, which is asked only when it refused.
    template <class Service>
    void relay_unless(bool succeeded, Service& service) {
        if (!succeeded) throw Refusal{tagged(last_error(service))};
    }

    /// The text that a member called inside left in `Error` becomes this operation's own.
    void pass_on_unless(bool succeeded) {
        if (!succeeded) throw Refusal{error_};
    }
    /// So does the last error of the service.
    template <class Service>
    void pass_on_unless(bool succeeded, Service& service) {
        if (!succeeded) throw Refusal{last_error(service)};
    }

    /// The same operation where it speaks under another tag, as callers know it from there.
    Operation under(std::string_view tag) const { return Operation(module_, error_, tag); }

    std::string tagged(std::string_view message) const {
        std::string text(tag_);
        text += line_break;
        text += message;
        return text;
    }

    /// What the trap makes of a description: tagged, or as it stands in an operation without tag.
    std::string trapped(std::string_view description) const {
        return tag_.empty() ? std::string(description) : tagged(description);
    }

private:
    Module& module_;
    const std::string& error_;
    std::string_view tag_;
};

/// Runs `body(Operation&)`: empties `error`, and turns a refusal into its text and any other failure into the tag, a
/// line break and the description (the description alone when the tag is empty). True when the body came to its end.
template <class Body>
bool operation(Module& module, std::string& error, std::string_view tag, Body&& body) {
    error.clear();
    const Notice_to_suite notice(module.session());
    Operation op(module, error, tag);
    try {
        body(op);
        error.clear();  // a member called inside may have failed without the body minding
        return true;
    } catch (const Refusal& refusal) {
        error = refusal.text;
    } catch (const std::exception& failure) {
        error = op.trapped(failure.what());
    } catch (...) {
        error = op.trapped("Error desconocido");
    }
    return false;
}

}  // namespace cuvexa
