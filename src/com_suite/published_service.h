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
        } else if constexpr (std::is_same_v<Type, Short>) {
            value.number = integer_in(given.required(place));
        } else if constexpr (Travelling_record<Type>) {
            Late_object object(object_in(given.required(place)));
            if (!object) check(DISP_E_TYPEMISMATCH);
            value = record_in<Type>(object);
        } else if constexpr (!std::is_same_v<Type, Slot>) {
            value = value_of<Type>(given.required(place));
        }
    }

    void give_back_to(const Call_arguments& given, std::size_t place) const {
        if constexpr (std::is_same_v<Parameter, std::string&>) give_back(given[place], any(value));
    }

    Type value{};
};

/// Calls an operation with automation's arguments and gives its result.
template <auto operation, class Parameters = typename Signature<decltype(operation)>::Parameters>
struct Operation_call;

template <auto operation, class... Parameter>
struct Operation_call<operation, std::tuple<Parameter...>> {
    using Service = typename Signature<decltype(operation)>::Service;
    using Result = typename Signature<decltype(operation)>::Result;

    static Any run(Service& service, const std::shared_ptr<Session>& session, const Call_arguments& given) {
        constexpr std::size_t optional = (std::is_same_v<std::remove_cvref_t<Parameter>, Optional_text> + ... + 0);
        given.expect(sizeof...(Parameter) - optional, sizeof...(Parameter));
        return run(service, session, given, std::index_sequence_for<Parameter...>());
    }

private:
    template <std::size_t... places>
    static Any run(Service& service, const std::shared_ptr<Session>& session, const Call_arguments& given,
                   std::index_sequence<places...>) {
        std::tuple<Incoming<Parameter>...> arguments{Incoming<Parameter>(given, places)...};
        const auto call = [&]() -> Result {
            return std::invoke(operation, service, std::get<places>(arguments).value...);
        };
        Any result;
        if constexpr (std::is_void_v<Result>) {
            call();
        } else {
            result = answer(call(), session);
        }
        (std::get<places>(arguments).give_back_to(given, places), ...);
        return result;
    }

    template <class Answer>
    static Any answer(Answer&& result, const std::shared_ptr<Session>& session) {
        using Type = std::remove_cvref_t<Answer>;
        if constexpr (std::is_same_v<Type, Connection>) {
            return any(Session::connection_object(session));
        } else if constexpr (Travelling_record<Type>) {
            return any(Record_object<Type>::made(std::move(result)));
        } else {
            return any(result);
        }
    }
};

template <auto operation>
Operation_call<operation> call_of(const Named<operation>&) {
    return {};
}

template <class Service>
class Published_service final : public Named_object {
public:
    explicit Published_service(std::shared_ptr<Session> session) : session_(std::move(session)) {}

    static Pointer<IDispatch> made(std::shared_ptr<Session> session) {
        return Pointer<IDispatch>::owning(new Published_service(std::move(session)));
    }

protected:
    std::span<const std::string_view> member_names() const override {
        static constexpr auto names = names_in(operations<Service>);
        return names;
    }

    Any perform(std::size_t member, WORD kind, const Call_arguments& given) override {
        if (!gets(kind)) check(DISP_E_MEMBERNOTFOUND);
        if (!service_) service_ = service<Service>.take(session_->suite());
        Any result;
        with_element(operations<Service>, member,
                     [&](const auto& named) { result = call_of(named).run(*service_, session_, given); });
        return result;
    }

    const char* source() const override { return "CuvexaSuite"; }

private:
    std::shared_ptr<Session> session_;
    std::shared_ptr<Service> service_;
};

}  // namespace cuvexa::com_suite
