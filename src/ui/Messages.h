#pragma once

#include "automation/Trace.h"
#include "support/Localisation.h"
#include "ui/Prompts.h"

#include <string>
#include <string_view>

namespace orv::ui {

/// The control's message boxes, in the user's language. Texts are given in the source language; a template is
/// translated as a whole before "%1" and "%2" are replaced, what stands around an argument piece by piece.
class Messages {
  public:
    /// Both must outlive this object.
    Messages(Prompts& prompts, const support::Localisation& localisation)
        : prompts_(prompts), localisation_(localisation) {}

    /// A refusal or warning (exclamation icon).
    void warn(std::u16string_view messageTemplate, std::u16string_view first = {}, std::u16string_view second = {}) {
        show(localisation_.message(messageTemplate, first, second), messageStyle::exclamation);
    }
    /// A refusal or warning whose text stands around an argument.
    void warnAround(std::u16string_view before, std::u16string_view argument, std::u16string_view after) {
        show(around(before, argument, after), messageStyle::exclamation);
    }
    /// A refusal with the information icon.
    void inform(std::u16string_view messageTemplate) {
        show(localisation_.TranslateText(messageTemplate), messageStyle::information);
    }
    void informAround(std::u16string_view before, std::u16string_view argument, std::u16string_view after) {
        show(around(before, argument, after), messageStyle::information);
    }
    /// A question; True only for Yes.
    bool confirm(std::u16string_view messageTemplate, std::u16string_view first = {}) {
        return show(localisation_.message(messageTemplate, first), messageStyle::yesNoInformation) ==
               MessageAnswer::yes;
    }
    /// A text that needs no translation any more.
    MessageAnswer show(const std::u16string& text, std::int32_t style) {
        const MessageAnswer answer = prompts_.message(text, style, messageTitle);
        if (automation::Trace* const trace = automation::Trace::current())
            trace->note(u"message",
                        answer == MessageAnswer::yes  ? u"yes"
                        : answer == MessageAnswer::no ? u"no"
                                                      : u"ok",
                        text);
        return answer;
    }

  private:
    std::u16string around(std::u16string_view before, std::u16string_view argument, std::u16string_view after) const {
        return localisation_.TranslateText(before).append(argument) + localisation_.TranslateText(after);
    }

    Prompts& prompts_;
    const support::Localisation& localisation_;
};

} // namespace orv::ui
