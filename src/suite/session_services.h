// The working session: connection, parameters, user, server.
#pragma once

#include "suite/context.h"

namespace cuvexa::reference {

class Session : public SessionServices {
public:
    explicit Session(std::shared_ptr<Context> context) : context_(std::move(context)) {}

    Connection& GetConnection() override { return context_->session_connection(); }

    /// A Boolean parameter ("B") is True when it reads SI, 1, -1, TRUE or VERDADERO, whatever the case.
    Value GetParameter(const std::string& name, int flag, const std::string& type,
                       const std::string& fallback) override;

    std::string GetUserName() override { return context_->user(); }
    std::string GetServerId() override;
    bool IsReplicaServer() override;

    void operation_begins() noexcept override { context_->memory().begin(); }
    void operation_ends() noexcept override { context_->memory().end(); }

    void ReportError(const std::string& description, int style, const std::string& routine, const std::string& title,
                     const std::string& project, const std::string& code) override;

private:
    std::shared_ptr<Context> context_;
};

}  // namespace cuvexa::reference
