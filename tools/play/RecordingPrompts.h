#pragma once

#include "ui/Dialog.h"
#include "ui/Prompts.h"

#include <cstdint>
#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace orv::play {

/// A message box as the user saw it.
struct ShownMessage {
    std::u16string text;
    std::u16string title;
    std::int32_t style = 0;
    friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};

/// What the user does in a modal dialog: fills in texts, ticks boxes, presses a button.
struct DialogAnswer {
    std::vector<std::pair<std::u16string, std::u16string>> texts; ///< by name of the text box
    std::vector<std::pair<std::u16string, bool>> ticks;           ///< by name of the check box
    std::u16string press;                                         ///< name of the button; empty: the one of Enter
};

/// Records the message boxes and dialogs of the control and answers them: boxes with an OK button alone are confirmed,
/// questions and dialogs take the next queued answer of their kind.
///
/// What cannot be answered is answered with No, or cancelled, and kept for `takeProblems`: an exception could not leave
/// the control's own error traps.
class RecordingPrompts final : public ui::Prompts {
  public:
    void queue(ui::MessageAnswer answer) { answers_.push_back(answer); }
    void queue(DialogAnswer answer) { dialogAnswers_.push_back(std::move(answer)); }
    /// The answers that wait.
    std::size_t queued() const noexcept { return answers_.size() + dialogAnswers_.size(); }

    ui::MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string& title) override;
    /// A dialog that an answer leaves open takes the next one too.
    void showModal(ui::Dialog& dialog) override;
    void log(const std::u16string& text) override { logged_.push_back(text); }

    // What has come up since the last call.
    std::vector<ShownMessage> takeMessages() { return std::exchange(messages_, {}); }
    /// The names of the dialogs.
    std::vector<std::u16string> takeDialogs() { return std::exchange(dialogs_, {}); }
    std::vector<std::u16string> takeLogged() { return std::exchange(logged_, {}); }
    /// What could not be answered, in sentences (UTF-8).
    std::vector<std::string> takeProblems() { return std::exchange(problems_, {}); }

  private:
    std::deque<ui::MessageAnswer> answers_;
    std::deque<DialogAnswer> dialogAnswers_;
    std::vector<ShownMessage> messages_;
    std::vector<std::u16string> dialogs_;
    std::vector<std::u16string> logged_;
    std::vector<std::string> problems_;
};

} // namespace orv::play
