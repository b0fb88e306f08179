// A statement that the server has prepared for texts of the same shape.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "database/postgresql/session.h"
#include "database/shape.h"

namespace cuvexa::postgresql {

/// A name under which the server keeps a statement, given up in the end.
class Prepared {
public:
    Prepared() = default;
    Prepared(Session& session, std::string name) : session_(&session), name_(std::move(name)) {}
    ~Prepared() {
        if (session_ != nullptr) session_->forget(std::move(name_));
    }
    Prepared(Prepared&& other) noexcept
        : session_(std::exchange(other.session_, nullptr)), name_(std::move(other.name_)) {}
    Prepared& operator=(Prepared&& other) noexcept {
        std::swap(session_, other.session_);
        std::swap(name_, other.name_);
        return *this;
    }

    explicit operator bool() const noexcept { return session_ != nullptr; }
    const std::string& name() const noexcept { return name_; }

private:
    Session* session_ = nullptr;
    std::string name_;
};

struct Kept_statement {
    std::string shape;
    std::vector<std::pair<std::size_t, std::string>> pinned;  ///< literals that stayed in the text
    Prepared prepared;                                        ///< none: texts of this shape go as they are

    bool serves(const database::Shape& other) const;
};

/// The mark of a literal tells how the server takes it: two literals of one mark may stand for one parameter.
char mark_of(dialect::Token_kind kind, std::string_view literal) noexcept;

/// The type that the server gives a literal of its own accord; 0 for a text, whose type is what stands around it.
Oid type_of(const database::Shape& shape, std::size_t literal) noexcept;

}  // namespace cuvexa::postgresql
