// The database in the shape of ADO: Connection.Execute, Recordset, Fields, Field.
#pragma once

#include <memory>

#include "com/named_object.h"
#include "com_suite/session.h"
#include "database/row_set.h"

namespace cuvexa::com_suite {

using namespace com;

/// Execute(CommandText, [RecordsAffected], [Options]), Close, State. Closing it closes this object, not the services'
/// database.
class Published_connection final : public Named_object {
public:
    explicit Published_connection(std::shared_ptr<Session> session) : session_(std::move(session)) {}

protected:
    ~Published_connection() override { session_->connection_gone(); }

    std::span<const std::string_view> member_names() const override;
    Any perform(std::size_t member, WORD kind, const Call_arguments& given) override;
    const char* source() const override { return "CuvexaSuite.Connection"; }

private:
    Any execute(const Call_arguments& given);

    std::shared_ptr<Session> session_;
    bool open_ = true;
};

/// BOF, EOF, Fields, MoveNext, Close, State; closed from the beginning when the statement gave no rows.
class Published_recordset final : public Named_object {
public:
    explicit Published_recordset(std::unique_ptr<database::Row_set> rows)
        : rows_(std::move(rows)), empty_(rows_->eof()), open_(!rows_->columns().empty()) {}

    /// Throws `Automation_error` 3704 when closed.
    database::Row_set& rows();

protected:
    std::span<const std::string_view> member_names() const override;
    Any perform(std::size_t member, WORD kind, const Call_arguments& given) override;
    const char* source() const override { return "CuvexaSuite.Recordset"; }

private:
    std::unique_ptr<database::Row_set> rows_;
    bool empty_;
    bool open_;
};

}  // namespace cuvexa::com_suite
