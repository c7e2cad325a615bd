#pragma once

#include "tour/ListScreen.h"
#include "tour/Program.h"
#include "tour/Report.h"
#include "tour/Scenario.h"

#include <functional>
#include <memory>
#include <string>

namespace orv::tour {

/// What the command line says.
struct TourOptions {
    std::wstring program;  ///< orvlist.exe
    std::wstring database; ///< file of the sample's database; may not be there yet
    std::wstring desktop;  ///< "": the present one
    std::string scenarios; ///< folder of the scenario files
    std::string results;   ///< folder of what filterplay printed for them, NAME.jsonl
    bool takesPictures = false;
};

/// The tour over the sample's windows.
class Tour {
  public:
    explicit Tour(const TourOptions& options) : options_(options), report_(options.takesPictures) {}

    /// Whether every check held. Raises TourError when the tour cannot go on.
    bool run();
    /// To be told when the tour cannot go on: counts that as a failure and takes a picture of the whole screen.
    void stopped(const std::string& why);
    const Report& report() const noexcept { return report_; }

  private:
    void start(const std::wstring& more = {});
    void close();
    Scenario scenario(const std::string& name) const;
    void tellConditions(const class FilterScreen& screen);
    void checkResult(const std::string& who, const Scenario& played);

    void showList();
    void composeByKeyboard();
    void composeByMouse();
    void keepSchemeOverRestart();
    void refuseLetters();
    void showOtherClassTypes();
    void showEnglish();
    void showHighResolution();

    TourOptions options_;
    Report report_;
    std::unique_ptr<Program> program_;
    std::unique_ptr<ListScreen> list_;
};

} // namespace orv::tour
