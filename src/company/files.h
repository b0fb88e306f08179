// Files whose names are UTF-8, also where the system's narrow texts are not.
#pragma once

#include <filesystem>
#include <string>

namespace cuvexa::company {

std::filesystem::path path(const std::string& name);

/// Throws `Company_error` when a database of that name cannot be made: something stands there, or what a deleted one
/// left, or its folder is missing.
void refuse_in_place(const std::string& file);

/// A file in the making, under a name of its own; gone in the end, with what the engine put beside it.
class Draft {
public:
    explicit Draft(const std::string& file);
    ~Draft();
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    const std::string& name() const { return name_; }

    /// Gives it its name. Throws `Company_error` when another program has made a file of that name meanwhile.
    void become(const std::string& file);

private:
    void remove();

    std::string name_;
};

}  // namespace cuvexa::company
