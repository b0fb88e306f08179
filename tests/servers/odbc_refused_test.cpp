// What ODBC says where no server answers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "cuvexa/database/odbc_connection.h"
#include "cuvexa/errors.h"

namespace cuvexa::tests {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

TEST(Odbc_without_a_server, a_driver_that_is_not_there_is_told_by_all_its_records) {
    try {
        const Odbc_connection refused("Driver=No Existe;Server=127.0.0.1;PWD=secreto-78");
        FAIL() << "it was let in";
    } catch (const Database_error& error) {
        EXPECT_THAT(error.what(), AllOf(HasSubstr("[01000, 0]"), Not(HasSubstr("secreto-78"))));
    }
}

TEST(Odbc_without_a_server, a_port_where_nobody_listens_is_told) {
    for (const std::string driver : {"PostgreSQL Unicode", "FreeTDS"}) {
        try {
            const Odbc_connection refused("Driver=" + driver + ";Server=127.0.0.1;Port=1;UID=x;PWD=secreto-79");
            FAIL() << "it was let in";
        } catch (const Database_error& error) {
            EXPECT_THAT(error.what(), AllOf(StartsWith("No es posible abrir la sesión"), HasSubstr("["),
                                            Not(HasSubstr("secreto-79"))));
        }
    }
}

}  // namespace
}  // namespace cuvexa::tests
