#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace orv::erp {

/// What the command line says.
struct ListOptions {
    std::wstring language = L"CHS";
    std::wstring user;     ///< by name; "": the first user
    std::wstring now;      ///< "": the real time
    std::wstring database; ///< "": in the user's local application data
    long classType = 1000201;
    int width = 0; ///< of the window, pixels; 0: as it was last
    int height = 0;
};

/// The command line makes no sense, or asks for help: what is to be said about it.
class OptionsMessage : public std::runtime_error {
  public:
    OptionsMessage(const std::string& text, int exitCode) : std::runtime_error(text), exitCode_(exitCode) {}
    int exitCode() const noexcept { return exitCode_; }

  private:
    int exitCode_;
};

/// Reads the arguments (UTF-8, without the program's name). Raises OptionsMessage.
ListOptions readOptions(std::vector<std::string> arguments);

} // namespace orv::erp
