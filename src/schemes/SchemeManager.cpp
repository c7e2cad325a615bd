#include "schemes/SchemeManager.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "support/Letters.h"
#include "support/PropsString.h"

namespace orv::schemes {

using automation::AutomationError;
using automation::Collection;
using automation::Dictionary;
using automation::Value;

namespace {

std::int32_t wholeNumber(std::u16string_view text) {
    return automation::roundToInt32(automation::Val(text));
}

std::u16string textOf(const Dictionary& record, std::u16string_view key) {
    const Value value = record.getValue(key, Value());
    return value.isNull() ? std::u16string() : automation::toText(value);
}

} // namespace

SchemeManager::SchemeManager(ui::ListView& lvwProject, SchemeHost& host)
    : list_(lvwProject), host_(host), storage_(host.components(), [this] { return host_.propsString(); }) {}

void SchemeManager::fillList() {
    list_.clear();
    if (!host_.schemesInUse())
        return;
    const std::int32_t classTypeId = host_.classTypeId();
    try {
        const Collection rows = storage_.list(classTypeId);
        const std::u16string language = host_.texts().language();
        const std::int32_t count = rows.count();
        list_.clear(); // the component may have shown a window, and the list been filled under it
        for (std::int32_t i = 1; i <= count; ++i) {
            const Dictionary row = rows.record(i);
            const SchemeTag tag{textOf(row, u"FSchemeID"), textOf(row, u"FUserID"), textOf(row, u"FIsShare")};
            list_.addItem({u"S" + tag.id, shownSchemeName(textOf(row, u"FSchemeName"), language), tag.text(), {}});
        }
    } catch (const AutomationError& error) {
        host_.log(error.description());
    }
    selectLastUsed(classTypeId);
}

void SchemeManager::selectLastUsed(std::int32_t classTypeId) {
    int lastUsed = 0;
    try {
        lastUsed = list_.find(u"S" + storage_.lastUsed(classTypeId));
    } catch (const AutomationError& error) {
        host_.log(error.description());
    }
    if (lastUsed > 0)
        list_.setSelected(lastUsed);
    else
        selectDefault();
}

void SchemeManager::selectDefault() {
    int position = list_.count() > 0 ? 1 : 0;
    for (int i = 1; i <= list_.count(); ++i) {
        if (isDefaultSchemeName(list_.items()[static_cast<std::size_t>(i - 1)].text)) {
            position = i;
            break;
        }
    }
    list_.setSelected(position);
}

bool SchemeManager::isUserSchemeSelected() const {
    const auto* item = list_.selectedItem();
    return item != nullptr && !isDefaultSchemeName(item->text);
}

void SchemeManager::applySelected() {
    const auto* item = list_.selectedItem();
    if (item == nullptr)
        return;
    Dictionary entry;
    try {
        entry = storage_.load(wholeNumber(SchemeTag::parse(item->tag).id));
    } catch (const AutomationError& error) {
        // The grids keep what they show.
        host_.log(error.description());
        return;
    }
    applyEntry(entry);
}

void SchemeManager::applyEntry(const Dictionary& entry) {
    entry_ = entry;
    host_.applyEntry(entry);
}

void SchemeManager::toolbarClick(std::u16string_view key) {
    if (key == u"TLBSAVE") {
        save(SaveMode::interactive, 0);
    } else if (key == u"TLBDEL") {
        deleteSelected();
    } else if (key == u"TLBCLEAR") {
        host_.clearGrids();
    } else if (key == u"TLBVIEW") {
        const int next = (static_cast<int>(list_.view()) + 1) % (static_cast<int>(ui::ListViewMode::details) + 1);
        list_.setView(static_cast<ui::ListViewMode>(next));
    }
}

SchemeManager::Target SchemeManager::selectedTarget() const {
    const auto* item = list_.selectedItem();
    if (item == nullptr)
        return {std::u16string(defaultSchemeName), {}, std::nullopt};
    return {storedSchemeName(item->text), SchemeTag::parse(item->tag), std::nullopt};
}

void SchemeManager::save(SaveMode mode, std::int32_t status) {
    const Target selected = selectedTarget();
    const bool isDefault = selected.name == defaultSchemeName;
    if (!selected.tag.id.empty()) {
        const std::u16string owner = storage_.ownerOfScheme(selected.tag.id);
        if (!isDefault && !owner.empty() && !isCurrentUserName(owner)) {
            if (status != 1)
                host_.messages().warnAround(u"不能覆盖", owner, u"设置的方案。");
            return;
        }
    }
    if (mode == SaveMode::silent || (!isDefault && host_.messages().confirm(u"是否覆盖原方案?"))) {
        saveTo(selected, mode, status);
        return;
    }
    if (const auto target = askForTarget())
        saveTo(*target, mode, status);
}

std::optional<SchemeManager::Target> SchemeManager::askForTarget() {
    SaveSchemeForm form(host_.messages(), host_.texts());
    host_.showDialog(form);
    const auto result = form.result();
    if (!result)
        return std::nullopt;
    const std::u16string& name = result->FSchemeName;
    if (isDefaultSchemeName(name)) {
        host_.messages().inform(u"用户自定义方案不允许命名为默认方案");
        return std::nullopt;
    }
    Target target{name, {}, result->FIsShare};
    if (const int listed = findByText(name); listed > 0) {
        if (!mayOverwriteListed(name))
            return std::nullopt;
        // The list may have changed under the question.
        if (const int still = findByText(name); still > 0)
            target.tag = SchemeTag::parse(list_.items()[static_cast<std::size_t>(still - 1)].tag);
    }
    return target;
}

bool SchemeManager::mayOverwriteListed(const std::u16string& name) {
    const std::u16string owner = storage_.ownerOfSharedScheme(name, host_.classTypeId());
    if (!owner.empty() && !isCurrentUserName(owner)) {
        host_.messages().informAround(u"不能覆盖", owner, u"设置的方案。");
        return false;
    }
    return host_.messages().confirm(u"该方案已经存在,是否覆盖原方案?");
}

void SchemeManager::saveTo(const Target& target, SaveMode mode, std::int32_t status) {
    if (wholeNumber(target.tag.id) > 0 && !isOwn(target.tag) && target.name != defaultSchemeName) {
        if (mode == SaveMode::interactive)
            host_.messages().warn(u"该方案不是你设置的，将不会保存。");
        return;
    }
    try {
        Dictionary header = makeHeader(target, status);
        Dictionary entry = entryRecord();
        storage_.save(header, entry);
        header_ = header;
        entry_ = entry;
    } catch (const AutomationError& error) {
        host_.log(error.description());
        host_.messages().warn(u"保存方案 [ %1 ] 失败！", target.name);
        return;
    }
    try {
        showSaved(target);
    } catch (const AutomationError& error) {
        // The scheme is saved: the list stays as it was until it is filled again.
        host_.log(error.description());
    }
}

bool SchemeManager::isCurrentUserName(std::u16string_view name) {
    const support::PropsString props(host_.propsString());
    return support::equalIgnoringCase(support::Trim(name), support::Trim(props.value(u"UserName")));
}

bool SchemeManager::isOwn(const SchemeTag& tag) {
    const support::PropsString props(host_.propsString());
    const std::int32_t owner = wholeNumber(tag.owner);
    return owner == 0 || owner == wholeNumber(props.value(u"UserID"));
}

Dictionary SchemeManager::makeHeader(const Target& target, std::int32_t status) {
    std::int32_t share = target.dialogShare ? *target.dialogShare : wholeNumber(target.tag.isShare);
    if (target.name == defaultSchemeName)
        share = 0;
    Dictionary header = automation::newRecord(host_.components());
    header.set(u"FSchemeID", wholeNumber(target.tag.id));
    header.set(u"FSchemeName", support::replaceAll(target.name, u"'", u"''"));
    header.set(u"FTranType", host_.classTypeId());
    header.set(u"FSysName", u"");
    header.set(u"FStatus", std::int32_t{status == 1 ? 1 : 0});
    header.set(u"FIsShare", share);
    return header;
}

Dictionary SchemeManager::headerRecord() {
    header_ = makeHeader(selectedTarget(), 0);
    return header_;
}

Dictionary SchemeManager::entryRecord() {
    Dictionary entry = automation::newRecord(host_.components());
    host_.captureEntry(entry);
    return entry;
}

void SchemeManager::showSaved(const Target& target) {
    const support::PropsString props(host_.propsString());
    SchemeTag tag{textOf(header_, u"FSchemeID"), target.tag.owner, textOf(header_, u"FIsShare")};
    if (wholeNumber(tag.owner) == 0)
        tag.owner = props.value(u"UserID");
    const std::u16string key = u"S" + tag.id;
    const ui::ListView::Item item{key, shownSchemeName(target.name, host_.texts().language()), tag.text(), {}};
    int position = list_.find(key);
    if (position > 0) {
        list_.setItem(position, item);
    } else {
        list_.addItem(item);
        position = list_.count();
    }
    list_.setSelected(position);
}

int SchemeManager::findByText(std::u16string_view text) const {
    for (int i = 1; i <= list_.count(); ++i) {
        if (list_.items()[static_cast<std::size_t>(i - 1)].text == text)
            return i;
    }
    return 0;
}

void SchemeManager::deleteSelected() {
    const auto* item = list_.selectedItem();
    if (item == nullptr)
        return;
    const std::u16string name = item->text;
    const SchemeTag tag = SchemeTag::parse(item->tag);
    if (isDefaultSchemeName(name)) {
        host_.messages().warn(u"不能删除%1!", name);
        return;
    }
    if (!isOwn(tag)) {
        host_.messages().warnAround(u"不能删除", storage_.userName(tag.owner), u"设置的方案。");
        return;
    }
    if (!host_.messages().confirm(u"是否要删除%1?", name))
        return;
    bool deleted = false;
    try {
        deleted = storage_.remove(wholeNumber(tag.id));
    } catch (const AutomationError& error) {
        host_.log(error.description());
    }
    if (!deleted) {
        host_.messages().warnAround(u"删除方案 [", name, u"] 失败！");
        return;
    }
    // Another user's shared scheme may have the same name: the item that was selected goes, while it is still there.
    int position = list_.find(u"S" + tag.id);
    if (position == 0)
        position = findByText(name);
    if (position > 0)
        list_.removeItem(position);
    selectDefault();
}

bool SchemeManager::saveLastUsed() {
    const auto* item = list_.selectedItem();
    if (item == nullptr)
        return false;
    const std::u16string id = SchemeTag::parse(item->tag).id;
    try {
        storage_.setLastUsed(host_.classTypeId(), id);
        return true;
    } catch (const AutomationError& error) {
        host_.log(error.description());
        return false;
    }
}

void SchemeManager::release() {
    const Dictionary oldHeader = std::exchange(header_, {});
    const Dictionary oldEntry = std::exchange(entry_, {});
}

} // namespace orv::schemes
