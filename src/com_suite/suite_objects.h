// Which automation objects are the suite's services.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "com_suite/contract.h"

namespace cuvexa::com_suite {

/// The programmatic identifier of each service's object.
class Suite_objects {
public:
    /// The one that was set, or else that of the reference suite's object, "CuvexaSuite." and the name of the service.
    std::string prog_id(std::string_view service) const;
    template <class Service>
    std::string prog_id() const {
        return prog_id(service<Service>.name);
    }

    Suite_objects& set(std::string_view service, std::string prog_id);

private:
    std::map<std::string, std::string, std::less<>> set_;
};

/// As the key `Software\Cuvexa\Servicios` says, the current user's before everybody's; a service that it does not name
/// keeps its default. The values carry the names of the services ("SessionServices", …).
Suite_objects suite_objects_from_registry();

/// Whether a suite is there: the class of its session object is registered for programs of this bitness.
bool is_registered(const Suite_objects& objects);

/// A text under `Software\` and the key, the current user's before everybody's; empty when there is none.
std::string registry_setting(const std::wstring& key, const std::wstring& name);

}  // namespace cuvexa::com_suite
