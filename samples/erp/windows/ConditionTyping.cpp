#include "erp/windows/ConditionTyping.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "support/PaddedItem.h"
#include "windows/com/DispatchObject.h"
#include "windows/com/Errors.h"
#include "windows/com/Handles.h"
#include "windows/com/IFilterControls.h"
#include "windows/com/Wrappers.h"

#include <optional>
#include <string_view>

namespace orv::erp {

using automation::AutomationError;
using automation::call;
using automation::toBoolean;
using automation::toInt32;
using automation::toText;

namespace {

// Columns of the condition grid.
constexpr std::int32_t leftColumn = 1;
constexpr std::int32_t fieldColumn = 2;
constexpr std::int32_t compareColumn = 3;
constexpr std::int32_t valueColumn = 4;
constexpr std::int32_t timeColumn = 5;
constexpr std::int32_t rightColumn = 7;
constexpr std::int32_t logicColumn = 8;

automation::ObjectRef conditionGrid(const automation::ObjectRef& filter) {
    const auto* hosts = dynamic_cast<const windows::DispatchObject*>(filter.get());
    windows::ComPtr<IFilterControls> controls;
    if (!hosts || FAILED(hosts->dispatch().as(controls)))
        throw AutomationError::runtime(automation::errorNumber::typeMismatch);
    windows::ComPtr<IDispatch> grid;
    const windows::UniqueBstr name(u"vsFilter");
    if (const HRESULT result = controls->GetControl(name.get(), grid.put()); FAILED(result))
        throw windows::errorOfCall(result, nullptr, nullptr);
    return windows::wrap(grid.get());
}

/// A user at one line of the grid.
class LineUser {
  public:
    LineUser(automation::ObjectRef grid, std::int32_t row) : grid_(std::move(grid)), row_(row) {}

    void chooseUnlessEmpty(std::int32_t column, const std::u16string& caption) {
        if (caption.empty())
            return;
        enter(column);
        const auto position = find(column, caption);
        if (!position)
            refused(column, u"has no item \"" + caption + u"\"");
        choose(column, *position);
    }

    void fillValue(const std::u16string& value) {
        if (value.empty())
            return;
        enter(valueColumn);
        if (isType(valueColumn, u"comboBox")) {
            if (const auto position = find(valueColumn, value)) {
                choose(valueColumn, *position);
                return;
            }
        }
        const std::size_t blank = isType(timeColumn, u"time") ? value.find(u' ') : std::u16string::npos;
        type(valueColumn, value.substr(0, blank));
        if (blank != std::u16string::npos) {
            enter(timeColumn);
            type(timeColumn, value.substr(blank + 1));
        }
    }

  private:
    [[noreturn]] void refused(std::int32_t column, const std::u16string& what) const {
        throw AutomationError(automation::errorNumber::invalidCall, u"OrvSample.Host",
                              u"vsFilter, column " + toText(column) + u", row " + toText(row_) + u" " + what);
    }
    bool isType(std::int32_t column, std::u16string_view type) const {
        return toText(call(grid_, u"CellType", column, row_)) == type;
    }
    void enter(std::int32_t column) const {
        if (!toBoolean(call(grid_, u"MoveTo", column, row_)))
            refused(column, u"cannot be entered");
    }
    void choose(std::int32_t column, std::int32_t position) const {
        if (!toBoolean(call(grid_, u"Choose", column, row_, position)))
            refused(column, u"cannot be changed");
    }
    void type(std::int32_t column, const std::u16string& text) const {
        if (!toBoolean(call(grid_, u"Type", column, row_, text)))
            refused(column, u"does not take \"" + text + u"\"");
    }
    std::optional<std::int32_t> find(std::int32_t column, const std::u16string& caption) const {
        const std::int32_t count = toInt32(call(grid_, u"ListCount", column, row_));
        for (std::int32_t i = 0; i < count; ++i) {
            const std::u16string item = toText(call(grid_, u"Item", column, row_, i));
            if (support::SplitLookupText(item, false) == caption)
                return i;
        }
        return std::nullopt;
    }

    automation::ObjectRef grid_;
    std::int32_t row_;
};

std::int32_t freeLine(const automation::ObjectRef& grid) {
    const std::int32_t rows = toInt32(get(grid, u"MaxRows"));
    for (std::int32_t row = 1; row <= rows; ++row) {
        if (toText(call(grid, u"Text", fieldColumn, row)).empty())
            return row;
    }
    throw AutomationError(automation::errorNumber::invalidCall, u"OrvSample.Host",
                          u"every line of the condition grid is in use");
}

} // namespace

void fillConditionRow(const automation::ObjectRef& filter, std::int32_t line, const ConditionTexts& texts) {
    const automation::ObjectRef grid = conditionGrid(filter);
    LineUser user(grid, line == 0 ? freeLine(grid) : line);
    user.chooseUnlessEmpty(leftColumn, texts.left);
    user.chooseUnlessEmpty(fieldColumn, texts.field);
    user.chooseUnlessEmpty(compareColumn, texts.compare);
    user.fillValue(texts.value);
    user.chooseUnlessEmpty(rightColumn, texts.right);
    user.chooseUnlessEmpty(logicColumn, texts.logic);
}

} // namespace orv::erp
