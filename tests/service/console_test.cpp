// The console as it is served: to anybody, with what a browser needs to know of it, and nothing else.
#include "service/console.h"

#include "service/running_service.h"

namespace cuvexa::tests {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class Service_console : public Running_service {
protected:
    httplib::Result get_as_nobody(const std::string& path, const httplib::Headers& headers = {}) const {
        return httplib::Client("127.0.0.1", running->port()).Get(path, headers);
    }

    void serve_two_companies() {
        const Company_options company = options.companies[""];
        options.companies = {{"console", company}, {"norte", company}};
        start();
    }
};

TEST_F(Service_console, its_page_needs_no_token_and_lets_a_browser_do_nothing_but_what_it_says) {
    start();
    const auto page = get_as_nobody("/");
    ASSERT_EQ(page->status, 200);
    EXPECT_EQ(page->get_header_value("Content-Type"), "text/html; charset=utf-8");
    EXPECT_THAT(page->body, AllOf(StartsWith("<!DOCTYPE html>"), HasSubstr("console/main.js")));
    EXPECT_EQ(page->get_header_value("Content-Security-Policy"),
              "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' data:; connect-src 'self'; "
              "base-uri 'none'; form-action 'none'; frame-ancestors 'none'; require-trusted-types-for 'script'; "
              "trusted-types 'none'");
    EXPECT_EQ(page->get_header_value("X-Content-Type-Options"), "nosniff");
    EXPECT_EQ(page->get_header_value("Referrer-Policy"), "no-referrer");
    EXPECT_EQ(page->get_header_value("Cross-Origin-Opener-Policy"), "same-origin");
    EXPECT_FALSE(page->has_header("Set-Cookie"));
    EXPECT_EQ(log_lines().back()["resource"], "console");
}

TEST_F(Service_console, each_file_has_its_type_and_is_what_was_embedded) {
    start();
    const std::map<std::string, std::string> types = {{".js", "text/javascript; charset=utf-8"},
                                                      {".css", "text/css; charset=utf-8"},
                                                      {".svg", "image/svg+xml"},
                                                      {".txt", "text/plain; charset=utf-8"}};
    std::vector<std::string> names;
    for (const auto& [name, content] : service::console_files()) {
        names.emplace_back(name);
        const std::string extension = std::filesystem::path(name).extension().string();
        if (extension == ".html") continue;
        const auto file = get_as_nobody("/console/" + std::string(name));
        ASSERT_EQ(file->status, 200) << name;
        EXPECT_EQ(file->get_header_value("Content-Type"), types.at(extension)) << name;
        EXPECT_EQ(file->body, content) << name;
        EXPECT_TRUE(file->has_header("Content-Security-Policy")) << name;
    }
    EXPECT_THAT(names, AllOf(Contains("index.html"), Contains("main.js"), Contains("console.css"),
                             Contains("uPlot.esm.js"), Contains("uPlot.min.css")));
    // A build that had no network stands without the charts.
    const bool has_charts = get_as_nobody("/console/uPlot.esm.js")->body.find("uPlot (v") != std::string::npos;
    EXPECT_EQ(get_as_nobody("/console/uPlot.LICENSE.txt")->status, has_charts ? 200 : 401);
}

/// The policy would keep a browser from it, and the page would not work.
TEST(Service_console_files, no_page_holds_a_script_or_a_style_or_names_another_place) {
    for (const auto& [name, content] : service::console_files()) {
        if (!name.ends_with(".html")) continue;
        EXPECT_THAT(std::string(content),
                    AllOf(Not(HasSubstr("<style")), Not(HasSubstr(" style=")), Not(HasSubstr(" onclick=")),
                          Not(HasSubstr("://")), Not(HasSubstr("<script>"))))
            << name;
    }
}

TEST_F(Service_console, what_a_browser_has_is_not_sent_again) {
    start();
    const auto first = get_as_nobody("/console/main.js");
    const std::string tag = first->get_header_value("ETag");
    ASSERT_FALSE(tag.empty());
    EXPECT_EQ(first->get_header_value("Cache-Control"), "no-cache");
    const auto again = get_as_nobody("/console/main.js", {{"If-None-Match", tag}});
    EXPECT_EQ(again->status, 304);
    EXPECT_THAT(again->body, IsEmpty());
    EXPECT_EQ(get_as_nobody("/console/console.css", {{"If-None-Match", tag}})->status, 200);
}

TEST_F(Service_console, a_head_has_the_headers_alone_and_nothing_is_posted_to_it) {
    start();
    httplib::Client client("127.0.0.1", running->port());
    const auto head = client.Head("/");
    EXPECT_EQ(head->status, 200);
    EXPECT_THAT(head->body, IsEmpty());
    EXPECT_TRUE(head->has_header("Content-Security-Policy"));
    EXPECT_EQ(client.Post("/", "", "application/json")->status, 401);
}

TEST_F(Service_console, what_is_no_file_of_it_is_not_there) {
    start();
    for (const char* path : {"/console/", "/console/nothing.js", "/console/index.html", "/console/../company.db",
                             "/console/%2e%2e/company.db", "/console/..%2fcompany.db", "/console//main.js",
                             "/console/main.js/", "/console/main.js%00", "//", "/norte/", "/norte/console/main.js"}) {
        const auto answer = get_as_nobody(path);
        EXPECT_THAT(answer->status, testing::AnyOf(400, 401, 404)) << path;
        EXPECT_THAT(get(path)->status, testing::AnyOf(400, 404)) << path;
    }
}

TEST_F(Service_console, of_several_companies_each_has_its_own_and_none_is_given_away) {
    serve_two_companies();
    const std::string door = get_as_nobody("/")->body;
    EXPECT_THAT(door, AllOf(HasSubstr("console/companies.js"), Not(HasSubstr("norte"))));
    EXPECT_EQ(get_as_nobody("/console/companies.js")->status, 200);
    const std::string page = get_as_nobody("/norte/")->body;
    EXPECT_THAT(page, HasSubstr("console/main.js"));
    EXPECT_EQ(get_as_nobody("/norte/console/main.js")->status, 200);
    EXPECT_EQ(get_as_nobody("/sur/")->body, page) << "whether or not there is such a company";
    EXPECT_EQ(get_as_nobody("/console/")->body, page) << "a company of that name";
    EXPECT_EQ(get_as_nobody("/console/console/main.js")->status, 200);
    EXPECT_EQ(get("/norte/accounts")->status, 200);
    EXPECT_EQ(get_as_nobody("/norte/accounts")->status, 401);
    EXPECT_EQ(get("/norte/console/nothing.js")->status, 404);
}

}  // namespace
}  // namespace cuvexa::tests
