#include "control/PageBoxes.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/TracedCall.h"
#include "control/ClassTypeReload.h"
#include "control/SchemeEntry.h"
#include "support/FlagScope.h"
#include "support/Letters.h"

#include <algorithm>
#include <vector>

namespace orv::control {

using automation::AutomationError;
using automation::Collection;
using automation::Value;

namespace {

/// Laying the rows back needs the names: a host that fails does so before the lists change.
void readFieldNames(FilterState& state) {
    const auto catalogue = state.catalogue();
    const metadata::PageSelection pages(state.selectedPages);
    for (std::int32_t position = 1; position <= catalogue->count(); ++position) {
        const metadata::FieldRef field = catalogue->field(position);
        if (pages.contains(field->text(metadata::fieldKey::page)))
            field->text(metadata::fieldKey::fieldName);
    }
}

/// `FEntryType` of pages of which at most one takes part.
constexpr std::int32_t exclusivePageType = 1;

bool isExclusive(const Collection& pages, int index) {
    const Value type = pages.record(index + 1).getValue(u"FEntryType", std::int32_t{0});
    return !type.isNull() && automation::toInt32(type) == exclusivePageType;
}

std::u16string pageCaption(const FilterState& state, const Collection& pages, std::int32_t page) {
    const Value name = pages.record(page).getValue(u"FName", Value());
    std::u16string caption = name.isEmpty() || name.isNull() ? std::u16string() : automation::toText(name);
    return caption.empty() ? state.localisation.TranslateText(u"页面") + automation::numberToText(page) : caption;
}

/// How many of the first boxes are checked for good: the header's, and the only entry page's.
int alwaysChecked(int boxes) {
    return boxes == 2 ? 2 : std::min(boxes, 1);
}

/// At most one exclusive page is checked: checking one unchecks the others. The header is never touched.
void uncheckOtherExclusivePages(FilterState& state, int index) {
    const Collection pages = state.classTypeEntries;
    if (!pages || !isExclusive(pages, index))
        return;
    auto& boxes = state.controls->chkPage;
    for (int i = 1; i < boxes.count(); ++i) {
        if (i != index && boxes(i).isChecked() && isExclusive(pages, i))
            boxes(i).setValue(ui::CheckState::unchecked);
    }
}

} // namespace

void rebuildPageBoxes(FilterState& state) {
    const support::FlagScope loading(state.loadingPages);
    const Collection pages = state.classTypeEntries;
    const std::int32_t count = pages ? pages.count() : 0;
    // Asked first: the host may fail, or have the boxes rebuilt while it answers.
    std::vector<std::u16string> captions;
    for (std::int32_t page = 1; page <= count; ++page)
        captions.push_back(pageCaption(state, pages, page));
    auto& boxes = state.controls->chkPage;
    state.pageSubscriptions.clear();
    boxes.resize(0);
    for (std::u16string& caption : captions) {
        const int index = boxes.count();
        ui::CheckBox& box = boxes.load();
        box.setCaption(std::move(caption));
        state.pageSubscriptions.push_back(box.click.subscribe([&state, index] {
            try {
                automation::tracedEvent(state.trace, u"chkPage.click", [&] { pageClicked(state, index); });
            } catch (const AutomationError& error) {
                // The boxes keep whatever state they had reached.
                state.log(error.description());
            }
        }));
    }
    if (boxes.count() > 0) {
        boxes(0).setValue(ui::CheckState::checked);
        boxes(0).setEnabled(false);
    }
}

void selectPages(FilterState& state, std::u16string_view pageList) {
    const support::FlagScope loading(state.loadingPages);
    state.selectedPages = pageList;
    const metadata::PageSelection selection(pageList);
    auto& boxes = state.controls->chkPage;
    // A box that always takes part stays checked: the user could not check it again.
    for (int i = alwaysChecked(boxes.count()); i < boxes.count(); ++i)
        boxes(i).setValue(selection.contains(automation::numberToText(i + 1)) ? ui::CheckState::checked
                                                                              : ui::CheckState::unchecked);
}

std::u16string pageListOfBoxes(const FilterState& state) {
    std::u16string list = u",";
    const auto& boxes = state.controls->chkPage;
    for (int i = 0; i < boxes.count(); ++i) {
        if (!boxes(i).isChecked())
            continue;
        list += automation::numberToText(i + 1);
        if (!boxes(i).enabled())
            list += u'*';
        list += u',';
    }
    return list;
}

void fixPageBoxes(FilterState& state) {
    const support::FlagScope loading(state.loadingPages);
    auto& boxes = state.controls->chkPage;
    if (boxes.count() == 2) {
        boxes(1).setValue(ui::CheckState::checked);
        boxes(1).setEnabled(false);
    } else if (boxes.count() == 3) {
        boxes(1).setEnabled(false);
        boxes(2).setEnabled(false);
    }
}

void pageClicked(FilterState& state, int index) {
    if (state.handlingPageClick || state.loadingPages)
        return;
    const support::FlagScope handling(state.handlingPageClick);
    const auto& boxes = state.controls->chkPage;
    state.finishEdits();
    if (index == 0 || boxes(index).isChecked())
        uncheckOtherExclusivePages(state, index);
    state.selectedPages = pageListOfBoxes(state);
    // Taken before the lists change: the rows are laid back on what the new selection offers.
    const GridSettings settings = captureGrids(state);
    if (!support::Trim(settings.Relation).empty())
        readFieldNames(state);
    fillFieldLists(state);
    applyGrids(state, settings, editor::MissingField::dropsLine);
}

std::u16string enabledPages(FilterState& state) {
    const Collection pages = state.classTypeEntries;
    std::u16string list = u",";
    const auto& boxes = state.controls->chkPage;
    for (int i = 0; i < boxes.count() && pages; ++i) {
        const bool exclusive = isExclusive(pages, i);
        if (i < boxes.count() && (boxes(i).isChecked() || !exclusive)) {
            list += automation::numberToText(i + 1);
            list += u',';
        }
    }
    return list;
}

} // namespace orv::control
