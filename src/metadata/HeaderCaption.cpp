#include "metadata/HeaderCaption.h"

#include "support/Pieces.h"

namespace orv::metadata {

HeaderCaption HeaderCaptions::place(std::u16string_view caption, bool shown) {
    HeaderCaption result;
    const std::u16string_view top = support::GetPiece(caption, 1, u"+");
    result.second = support::GetPiece(caption, 2, u"+");
    if (result.second.empty()) {
        result.first = std::u16string(caption) + u"$";
    } else if (leaderIndex_ && support::GetPiece(leader_, 1, u"+") == top) {
        leader_ += u"+|";
        result.continues = leaderIndex_;
    } else {
        result.first = top;
    }
    if (shown && !support::GetPiece(result.first, 1, u"+").empty()) {
        leaderIndex_ = count_;
        leader_ = result.first;
    }
    ++count_;
    return result;
}

} // namespace orv::metadata
