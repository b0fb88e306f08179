// A service of the reference suite as an automation object, made from the list of its operations.
#pragma once

#include <memory>

#include "com/failures.h"
#include "com_suite/record_object.h"
#include "com_suite/session.h"

namespace cuvexa::com_suite {

using namespace com;

/// One argument in the type of its parameter.
template <class Parameter>
class Incoming {
public:
    using Type = std::remove_cvref_t<Parameter>;

    Incoming(const Call_arguments& given, std::size_t place) {
        if constexpr (std::is_same_v<Type, Optional_text>) {
            if (given.has(place)) value.text = text_in(given[place]);
        } else if constexpr (Record<Type>) {
            Late_object object(object_in(given.required(place)));
            if (!object) check(DISP_E_TYPEMISMATCH);
            value = record_in<Type>(object);
        } else if constexpr (!std::is_same_v<Type, Slot>) {
            value = value_of<Type>(given.required(place));
        }
    }

    void give_back_to(const Call_arguments& given, std::size_t place) const {
        if constexpr (std::is_lvalue_reference_v<Parameter> && !std::is_const_v<std::remove_reference_t<Parameter>>)
            give_back(given[place], any(value));
    }

    Type value{};
};

/// Calls an operation with automation's arguments and gives its result.
template <class Service, class... Parameters>
class Operation_call {
public:
    Operation_call(const std::shared_ptr<Session>& session, const Call_arguments& given)
        : session_(session), given_(given) {
        constexpr std::size_t optional = (std::is_same_v<std::remove_cvref_t<Parameters>, Optional_text> + ... + 0);
        given.expect(sizeof...(Parameters) - optional, sizeof...(Parameters));
    }

    template <class Function>
    Any operator()(const Function& function, Service& service) const {
        return run(function, service, std::index_sequence_for<Parameters...>());
    }

private:
    template <class Function, std::size_t... places>
    Any run(const Function& function, Service& service, std::index_sequence<places...>) const {
        std::tuple<Incoming<Parameters>...> arguments{Incoming<Parameters>(given_, places)...};
        using Result = std::invoke_result_t<Function, Service&, Parameters...>;
        Any result;
        if constexpr (std::is_void_v<Result>) {
            std::invoke(function, service, std::get<places>(arguments).value...);
        } else {
            result = answer(std::invoke(function, service, std::get<places>(arguments).value...));
        }
        (std::get<places>(arguments).give_back_to(given_, places), ...);
        return result;
    }

    template <class Result>
    Any answer(Result&& result) const {
        using Type = std::remove_cvref_t<Result>;
        if constexpr (std::is_same_v<Type, Connection>) {
            return any(Session::connection_object(session_));
        } else if constexpr (Record<Type>) {
            return any(Record_object<Type>::made(std::move(result)));
        } else {
            return any(result);
        }
    }

    const std::shared_ptr<Session>& session_;
    const Call_arguments& given_;
};

template <class Service, class Result, class... Parameters>
Operation_call<Service, Parameters...> call_of(Result (Service::*)(Parameters...),
                                               const std::shared_ptr<Session>& session, const Call_arguments& given) {
    return {session, given};
}
template <class Service, class Result, class... Parameters>
Operation_call<Service, Parameters...> call_of(Result (*)(Service&, Parameters...),
                                               const std::shared_ptr<Session>& session, const Call_arguments& given) {
    return {session, given};
}

/// How the suite gives each service.
inline std::shared_ptr<SessionServices> take(Suite& suite, SessionServices*) {
    return suite.session();
}
inline std::shared_ptr<DataServices> take(Suite& suite, DataServices*) {
    return suite.data();
}
inline std::shared_ptr<PaymentMethodService> take(Suite& suite, PaymentMethodService*) {
    return suite.payment_methods();
}
inline std::shared_ptr<DocumentPaymentsService> take(Suite& suite, DocumentPaymentsService*) {
    return suite.document_payments();
}
inline std::shared_ptr<AccountsPayableService> take(Suite& suite, AccountsPayableService*) {
    return suite.new_accounts_payable();
}
inline std::shared_ptr<AccountsReceivableService> take(Suite& suite, AccountsReceivableService*) {
    return suite.new_accounts_receivable();
}
inline std::shared_ptr<AccountingService> take(Suite& suite, AccountingService*) {
    return suite.new_accounting();
}

template <class Service>
class Published_service final : public Named_object {
public:
    static Pointer<IDispatch> made() { return Pointer<IDispatch>::owning(new Published_service); }

protected:
    std::span<const std::string_view> member_names() const override {
        static constexpr auto names = names_in(operations<Service>);
        return names;
    }

    Any perform(std::size_t member, WORD kind, const Call_arguments& given) override {
        if (!gets(kind)) check(DISP_E_MEMBERNOTFOUND);
        if (!service_) service_ = take(session_->suite(), static_cast<Service*>(nullptr));
        Any result;
        with_element(operations<Service>, member, [&](const auto& operation) {
            result = call_of(operation.function, session_, given)(operation.function, *service_);
        });
        return result;
    }

    const char* source() const override { return "CuvexaSuite"; }

private:
    std::shared_ptr<Session> session_ = Session::of_this_thread();
    std::shared_ptr<Service> service_;
};

}  // namespace cuvexa::com_suite
