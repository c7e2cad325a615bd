#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace orv::tour {

/// What the tour says, one line each, on the standard output. Every check is a line "ok: ..." or "FAILED: ...".
class Report {
  public:
    /// Without pictures `shot` does nothing: nobody stands ready to take them.
    explicit Report(bool takesPictures) : takesPictures_(takesPictures) {}

    void chapter(const std::string& title);
    void say(const std::wstring& text);
    void check(const std::string& what, bool isSo, const std::wstring& seen = {});
    void checkEqual(const std::string& what, const std::wstring& seen, const std::wstring& expected);
    /// Has a picture taken of a window and of what stands over it: prints its place and awaits a line on the standard
    /// input.
    void shot(const std::string& name, HWND window);

    int failed() const noexcept { return failed_; }
    void printCounts() const;

  private:
    bool takesPictures_;
    int passed_ = 0;
    int failed_ = 0;
};

} // namespace orv::tour
