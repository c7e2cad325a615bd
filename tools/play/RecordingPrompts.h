#pragma once

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

/// Records the message boxes of the control and answers them: boxes with an OK button alone are confirmed, questions
/// take the next queued answer.
class RecordingPrompts final : public ui::Prompts {
  public:
    /// The answer to the next question that has none yet.
    void queue(ui::MessageAnswer answer) { answers_.push_back(answer); }
    std::size_t queued() const noexcept { return answers_.size(); }

    /// A question without a queued answer is answered with No, and remembered for `takeUnanswered`: an exception
    /// could not leave the control's own error traps.
    ui::MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string& title) override;
    void log(const std::u16string& text) override { logged_.push_back(text); }

    /// What was shown since the last call.
    std::vector<ShownMessage> takeShown() { return std::exchange(shown_, {}); }
    /// What went to the host's diagnostics since the last call.
    std::vector<std::u16string> takeLogged() { return std::exchange(logged_, {}); }
    /// The texts of the questions that found no answer since the last call.
    std::vector<std::u16string> takeUnanswered() { return std::exchange(unanswered_, {}); }

  private:
    std::deque<ui::MessageAnswer> answers_;
    std::vector<ShownMessage> shown_;
    std::vector<std::u16string> logged_;
    std::vector<std::u16string> unanswered_;
};

} // namespace orv::play
