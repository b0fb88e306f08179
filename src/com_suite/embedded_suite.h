// The reference suite on an embedded database: what the servers work with on a machine that has no other suite.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "cuvexa/company.h"

namespace cuvexa::com_suite {

struct Embedded_settings {
    Company_options company;      ///< in a file
    bool try_out = false;         ///< nobody named the file: it is made, with the sample company, when it is not there
    std::string user = "CUVEXA";  ///< written to the audit columns
    std::optional<Date> server_date;
};

/// From the environment (CUVEXA_DB, CUVEXA_TRACE, CUVEXA_SYNCHRONOUS, CUVEXA_WAIT, CUVEXA_USER, CUVEXA_SERVER_DATE);
/// the file also from the value `BaseDeDatos` of the key `Software\Cuvexa`, and otherwise `Cuvexa\empresa.db` in the
/// local application data of the user; the user is the one of Windows unless the environment names another. Throws
/// `Company_error` for a setting that cannot be read.
Embedded_settings embedded_settings();

/// The reference suite on the company that the settings of this process name. `report_error` shows what the component
/// reports to the user. Throws `Company_error` when the company cannot be opened.
std::shared_ptr<Suite> make_embedded_suite(std::function<void(const Reported_error&)> report_error);

}  // namespace cuvexa::com_suite
