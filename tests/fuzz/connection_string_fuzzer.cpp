// Any text as a connection string: nothing that is shown holds its password, and a value that is guarded stays whole.
#include "core/text.h"
#include "database/connection_string.h"
#include "fuzz/oracle.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace cuvexa::database;
    using namespace cuvexa::fuzz;
    std::string_view rest = text_of(data, size);
    const std::string text(first_line(rest));
    const std::string value(rest);

    const char* end = text.data();
    for (const Connection_attribute& attribute : connection_attributes(text)) {
        for (const std::string_view part : {attribute.key, attribute.value}) {
            if (part.empty()) continue;
            require(part.data() >= end && part.data() + part.size() <= text.data() + text.size(),
                    "attributes follow each other within the text", text);
            end = part.data() + part.size();
        }
    }

    for (const std::string& password : passwords(text)) require(!password.empty(), "a password is a text", text);
    const std::string without = without_password(text);
    for (const Connection_attribute& shown : connection_attributes(without)) {
        require(!is_password_key(shown.key) || shown.value == "***", "no password is shown", text);
    }
    const std::string blotted = without_secrets(text, passwords(text));
    for (const std::string& password : passwords(text)) {
        require(password.find('*') != std::string::npos || blotted.find(password) == std::string::npos,
                "secrets are blotted out", text, blotted);
    }

    require(plain_value(guarded_value(value)) == value, "a guarded value is the value", value, guarded_value(value));
    const std::string one = "UID=" + guarded_value(value) + ";Port=1";
    const auto attributes = connection_attributes(one);
    require(attributes.size() == 2 && plain_value(attributes[0].value) == value && attributes[1].value == "1",
            "a guarded value cannot end early", value, one);

    const std::string with = with_password(text, value);
    require(with == text || with == "PWD=" + guarded_value(value) + ";" + text, "a password stands first", text, with);
    require(passwords(with).empty() == (passwords(text).empty() && value.empty()), "one that is given is there", text,
            with);
    return 0;
}
