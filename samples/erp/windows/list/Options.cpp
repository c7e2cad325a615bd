#include "erp/windows/list/Options.h"

#include <windows.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>

namespace orv::erp {

namespace {

std::wstring wide(const std::string& utf8) {
    std::wstring text(static_cast<std::size_t>(
                          MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), text.data(),
                        static_cast<int>(text.size()));
    return text;
}

} // namespace

ListOptions readOptions(std::vector<std::string> arguments) {
    CLI::App app("The list window of the sample ERP, with the filter control in its filter dialog.", "orvlist");
    ListOptions options;
    std::string language = "CHS", user, now, database, size;
    app.add_option("--lang", language, "language of all texts: CHS, CHT or EN")
        ->check(CLI::IsMember({"CHS", "CHT", "EN"}, CLI::ignore_case));
    app.add_option("--user", user, "user to log on, by name (Admin, 张敏, 李强); the first one by default");
    app.add_option("--now", now, "what the server's clock says, e.g. \"2024-02-29 10:00:00\"");
    app.add_option("--class-type", options.classType, "class type to begin with")->capture_default_str();
    app.add_option("--db", database, "database file, or :memory:; by default one in the local application data");
    app.add_option("--size", size, "size of the window in pixels, e.g. 1100x700");
    try {
        std::reverse(arguments.begin(), arguments.end()); // as the parser takes them
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        std::ostringstream text;
        const int exitCode = app.exit(error, text, text);
        throw OptionsMessage(text.str(), exitCode);
    }
    char by = 0;
    if (std::istringstream in(size); !size.empty() && !(in >> options.width >> by >> options.height && by == 'x'))
        throw OptionsMessage("--size: not of the form 1100x700", 2);
    for (char& letter : language)
        letter = static_cast<char>(letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter);
    options.language = wide(language);
    options.user = wide(user);
    options.now = wide(now);
    options.database = wide(database);
    return options;
}

} // namespace orv::erp
