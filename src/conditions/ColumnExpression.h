#pragma once

#include <string>
#include <string_view>

namespace orv::conditions {

/// A column as it stands in a comparison, written where it is needed instead of being built as a text of its own.
struct ColumnExpression {
    std::u16string_view name;
    bool asDateText = false; ///< the ten characters "yyyy-mm-dd" of a date
    int emptyGuards = 0;     ///< how often it is wrapped as "isnull(...,'')", so that a missing text compares as empty

    void appendTo(std::u16string& out) const {
        for (int i = 0; i < emptyGuards; ++i)
            out += u"isnull(";
        if (asDateText)
            out += u"convert(char(10),";
        out += name;
        if (asDateText)
            out += u",120)";
        for (int i = 0; i < emptyGuards; ++i)
            out += u",'')";
    }
};

} // namespace orv::conditions
