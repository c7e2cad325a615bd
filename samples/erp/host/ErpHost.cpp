#include "erp/host/ErpHost.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/MemberNames.h"
#include "automation/Records.h"
#include "erp/host/BillList.h"
#include "erp/host/ComponentTable.h"
#include "erp/host/DataService.h"
#include "erp/host/DescribedTables.h"
#include "erp/host/HostClock.h"
#include "erp/host/ListQuery.h"
#include "erp/host/ProfileSamples.h"
#include "erp/metadata/Embedded.h"
#include "support/Letters.h"

namespace orv::erp {

using automation::AutomationError;
using automation::Dictionary;
using automation::ObjectRef;

namespace {

constexpr std::u16string_view dataServiceProgId = u"ORVClassTpl.DataSrv";

ObjectRef makeRecord(const HostStateRef&, std::u16string_view) {
    return automation::makeDictionary().object();
}
ObjectRef makeList(const HostStateRef&, std::u16string_view) {
    return automation::makeCollection().object();
}

const std::vector<ComponentClass>& componentClasses() {
    static const auto all = [] {
        std::vector<ComponentClass> classes = {
            {automation::progId::dictionary, &makeRecord},
            {automation::progId::collection, &makeList},
        };
        for (const auto part : {metadataComponents(), profileComponents(), dataComponents(), lookUpComponents(),
                                periodComponents(), textComponents()})
            classes.insert(classes.end(), part.begin(), part.end());
        return classes;
    }();
    return all;
}

/// A described database may lack the user.
std::u16string defaultProps(const Database& database) {
    const ResultSet user = database.query(u"SELECT FName FROM t_user WHERE FUserID=1");
    const std::u16string name = user.rows.empty() ? u"管理员" : automation::toText(user.rows[0][0]);
    return u"UserID=1;UserName=" + name + u";Language=CHS;ItemNaming=物料";
}

void prepare(HostState& state, const HostOptions& options) {
    state.database.setNow(automation::Date{options.now ? *options.now : localNow()});
    state.props = options.props.empty() ? defaultProps(state.database) : options.props;
}

} // namespace

std::shared_ptr<ErpHost> ErpHost::open(const HostOptions& options) {
    const auto state = std::make_shared<HostState>(Database(options.databasePath));
    for (const EmbeddedFile& file : embeddedDescription())
        state->description.add(file.content, file.name);
    if (state->database.isNew())
        saveSampleSchemes(state->database);
    prepare(*state, options);
    return std::shared_ptr<ErpHost>(new ErpHost(state));
}

std::shared_ptr<ErpHost> ErpHost::described(std::string_view json, const HostOptions& options) {
    HostDescription description;
    description.add(json, "host");
    const auto state = std::make_shared<HostState>(makeDatabase(description.tables()));
    state->description = std::move(description);
    prepare(*state, options);
    return std::shared_ptr<ErpHost>(new ErpHost(state));
}

ErpHost::ErpHost(std::shared_ptr<HostState> state) : state_(std::move(state)) {}
ErpHost::~ErpHost() = default;

ObjectRef ErpHost::create(std::u16string_view progId) {
    for (const ComponentClass& offered : componentClasses())
        if (automation::sameMember(offered.progId, progId)) {
            state_->log.note(offered.progId, {}, automation::InvokeKind::method, {});
            return offered.make(state_, offered.progId);
        }
    throw AutomationError(automation::errorNumber::cannotCreateObject, std::u16string(progId),
                          automation::runtimeErrorText(automation::errorNumber::cannotCreateObject));
}

ObjectRef ErpHost::shared(std::u16string_view progId) {
    const std::u16string key = support::toUpper(progId);
    if (const auto kept = shared_.find(key); kept != shared_.end())
        return kept->second;
    ObjectRef made = create(progId);
    shared_.emplace(key, made);
    return made;
}

std::vector<std::u16string> ErpHost::progIds() const {
    std::vector<std::u16string> all;
    for (const ComponentClass& offered : componentClasses())
        all.emplace_back(offered.progId);
    return all;
}

ObjectRef ErpHost::dataService(std::int32_t classTypeId) {
    const auto service = std::make_shared<DataService>(state_, dataServiceProgId);
    service->serve(classTypeId);
    return service;
}

Dictionary ErpHost::defaultSettings() {
    const Dictionary& settings = state_->description.settings();
    return settings ? settings.cloneAll() : automation::makeDictionary();
}

void ErpHost::setProps(std::u16string props) {
    state_->props = std::move(props);
}
const std::u16string& ErpHost::props() const noexcept {
    return state_->props;
}

void ErpHost::setLookUpDialog(std::shared_ptr<LookUpDialog> dialog) {
    state_->lookUpDialog = std::move(dialog);
}
void ErpHost::queueLookUp(std::u16string_view number) {
    state_->lookUps.push({false, std::u16string(number), {}});
}
void ErpHost::queueLookUp(Dictionary properties) {
    state_->lookUps.push({false, {}, std::move(properties)});
}
void ErpHost::queueLookUpCancel() {
    state_->lookUps.push({true, {}, {}});
}

void ErpHost::clearLookUps() {
    state_->lookUps.clear();
}

void ErpHost::failNext(std::u16string_view progId, std::u16string_view member, std::int32_t number,
                       std::u16string_view description) {
    state_->log.failNext(progId, member, number, description);
}
const std::vector<RecordedCall>& ErpHost::calls() const noexcept {
    return state_->log.calls();
}
void ErpHost::clearCalls() {
    state_->log.clear();
}

ListResult ErpHost::list(std::int32_t classTypeId, std::u16string_view where, std::u16string_view headSort,
                         std::u16string_view entrySort, std::size_t firstKeys) {
    const auto* type = state_->description.findClassType(classTypeId);
    if (type == nullptr || !type->list)
        throw AutomationError(automation::errorNumber::invalidCall, u"ORVErp.Host",
                              u"单据类型 " + automation::toText(classTypeId) + u" 没有列表");
    return runList(state_->database, *type->list, {where, headSort, entrySort}, firstKeys);
}

BillList ErpHost::billList(std::int32_t classTypeId, std::span<const BillColumn> columns, std::u16string_view where,
                           std::u16string_view headSort, std::u16string_view entrySort) {
    const auto* type = state_->description.findClassType(classTypeId);
    if (type == nullptr)
        throw AutomationError(automation::errorNumber::invalidCall, u"ORVErp.Host",
                              u"没有单据类型 " + automation::toText(classTypeId));
    return runBillList(state_->database, *type, columns, {where, headSort, entrySort});
}

void ErpHost::logOn(std::u16string_view user, std::u16string_view language) {
    const automation::Value name[] = {std::u16string(user)};
    const ResultSet found =
        user.empty() ? state_->database.query(u"SELECT FUserID, FName FROM t_user WHERE FUserID=1")
                     : state_->database.query(u"SELECT FUserID, FName FROM t_user WHERE FDisabled=0 AND FName=?", name);
    if (found.rows.empty())
        throw AutomationError(automation::errorNumber::invalidCall, u"ORVErp.Host",
                              u"没有用户 " + std::u16string(user));
    state_->props = u"UserID=" + automation::toText(found.rows[0][0]) + u";UserName=" +
                    automation::toText(found.rows[0][1]) + u";Language=" + std::u16string(language) +
                    u";ItemNaming=物料";
}

void ErpHost::setNow(automation::Date now) {
    state_->database.setNow(now);
}

automation::Collection ErpHost::classTypes() {
    const automation::Collection list = automation::makeCollection();
    for (const ClassTypeDescription& type : state_->description.classTypes())
        list.add(type.record.cloneAll().object());
    return list;
}

Database& ErpHost::database() noexcept {
    return state_->database;
}

} // namespace orv::erp
