#pragma once

#include "automation/Views.h"

#include <deque>
#include <optional>
#include <string>

namespace orv::erp {

/// What the user of a look-up dialog does.
struct LookUpAnswer {
    bool cancelled = false;
    std::u16string number;             ///< picks the record of that FNumber (FBillNo of a bill), or
    automation::Dictionary properties; ///< is the chosen record itself
};

/// The answers that wait for the look-up dialogs to come.
class LookUpAnswers {
  public:
    void push(LookUpAnswer answer) { queue_.push_back(std::move(answer)); }
    /// Nothing when no answer waits.
    std::optional<LookUpAnswer> take() {
        if (queue_.empty())
            return std::nullopt;
        LookUpAnswer answer = std::move(queue_.front());
        queue_.pop_front();
        return answer;
    }
    void clear() { queue_.clear(); }

  private:
    std::deque<LookUpAnswer> queue_;
};

} // namespace orv::erp
