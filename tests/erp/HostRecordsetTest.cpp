#include "HostTesting.h"
#include "automation/AutomationError.h"
#include "erp/host/RecordsetObject.h"

#include <functional>
#include <gtest/gtest.h>

namespace orv::erp {
namespace {

using namespace testing;
using automation::AutomationError;
using automation::get;
using automation::let;
using automation::Null;
using automation::ObjectRef;
using automation::Recordset;
using automation::toInt32;
using automation::Value;

ObjectRef goods() {
    ResultSet rows{{u"FID", u"FName", u"FPrice"}, {}};
    rows.rows = {
        {std::int32_t{1}, u"Bolt", 2.5}, {std::int32_t{2}, u"nut", Null{}}, {std::int32_t{3}, u"O'Ring", 10.0}};
    return RecordsetObject::make(std::move(rows));
}

/// The identifiers of the records from the first one on, as "1,3".
std::string idsIn(const ObjectRef& object) {
    const Recordset rows(object);
    std::string ids;
    for (; !rows.eof(); rows.moveNext())
        ids += (ids.empty() ? "" : ",") + utf8(rows.field(u"FID"));
    return ids;
}

std::int32_t errorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const AutomationError& error) {
        return error.number();
    }
    return 0;
}

TEST(HostRecordset, ReadsColumnsByNameAndPositionAndDefaultMembers) {
    const ObjectRef rows = goods();
    const Value cell = get(rows, u"Fields", u"fname");
    EXPECT_EQ(utf8(get(automation::toObject(cell), u"Value")), "Bolt");
    EXPECT_EQ(utf8(cell), "Bolt") << "the default member of a field is its value";
    EXPECT_EQ(utf8(get(rows, automation::defaultMember, std::int32_t{1})), "Bolt");
    EXPECT_EQ(utf8(get(rows, u"Collect", u"FID")), "1");
    const ObjectRef fields = automation::toObject(get(rows, u"Fields"));
    EXPECT_EQ(toInt32(get(fields, u"Count")), 3);
    EXPECT_EQ(utf8(get(automation::toObject(get(fields, u"Item", std::int32_t{2})), u"Name")), "FPrice");
}

TEST(HostRecordset, AFieldShowsTheRecordOnWhichTheRecordsetStands) {
    const ObjectRef rows = goods();
    const Value name = get(rows, u"Fields", u"FName");
    automation::call(rows, u"MoveNext");
    EXPECT_EQ(utf8(name), "nut");
    EXPECT_TRUE(get(automation::toObject(get(rows, u"Fields", u"FPrice")), u"Value").isNull());
    automation::let(rows, u"AbsolutePosition", std::int32_t{2});
    EXPECT_EQ(automation::toInt32(automation::get(rows, u"AbsolutePosition")), 2);
    EXPECT_EQ(errorOf([&] { automation::let(rows, u"AbsolutePosition", std::int32_t{0}); }), adoError::wrongArgument);
    automation::call(rows, u"MoveLast");
    EXPECT_EQ(utf8(name), "O'Ring");
    automation::call(rows, u"MovePrevious");
    automation::call(rows, u"MoveFirst");
    EXPECT_EQ(utf8(name), "Bolt");
}

TEST(HostRecordset, StopsAtBothEnds) {
    const ObjectRef rows = goods();
    EXPECT_FALSE(automation::toBoolean(get(rows, u"BOF")));
    automation::call(rows, u"MovePrevious");
    EXPECT_TRUE(automation::toBoolean(get(rows, u"BOF")));
    EXPECT_EQ(errorOf([&] { automation::call(rows, u"MovePrevious"); }), adoError::noCurrentRecord);
    EXPECT_EQ(errorOf([&] { utf8(get(rows, u"Collect", u"FID")); }), adoError::noCurrentRecord);
    automation::call(rows, u"MoveLast");
    automation::call(rows, u"MoveNext");
    EXPECT_TRUE(automation::toBoolean(get(rows, u"EOF")));
    EXPECT_EQ(errorOf([&] { automation::call(rows, u"MoveNext"); }), adoError::noCurrentRecord);
}

TEST(HostRecordset, RefusesWhatItDoesNotHave) {
    const ObjectRef rows = goods();
    EXPECT_EQ(errorOf([&] { get(rows, u"Fields", u"FSize"); }), adoError::itemNotFound);
    EXPECT_EQ(errorOf([&] { get(rows, u"Fields", std::int32_t{3}); }), adoError::itemNotFound);
    EXPECT_EQ(errorOf([&] { get(rows, u"Fields", std::int32_t{-1}); }), adoError::itemNotFound);
    EXPECT_EQ(errorOf([&] { get(rows, u"Bookmark"); }), automation::errorNumber::memberNotFound);
    EXPECT_EQ(errorOf([&] { let(rows, u"RecordCount", std::int32_t{1}); }), automation::errorNumber::memberNotFound);
    EXPECT_EQ(errorOf([&] { get(rows, u"Fields", u"FID", u"FName"); }), automation::errorNumber::wrongArgumentCount);
    automation::call(rows, u"Close");
    EXPECT_EQ(toInt32(get(rows, u"State")), 0);
    EXPECT_EQ(errorOf([&] { get(rows, u"EOF"); }), adoError::objectClosed);
}

TEST(HostRecordset, FiltersByCriteria) {
    struct {
        const char16_t* filter;
        const char* ids;
    } const cases[] = {
        {u"", "1,2,3"},
        {u"FID=2", "2"},
        {u"FID=2 AND FName='NUT'", "2"}, // letter case does not count
        {u"FID=2 AND FName='bolt'", ""},
        {u"FName='O''Ring'", "3"},
        {u"fid<>2", "1,3"},
        {u"FID>=2", "2,3"},
        {u"FID<3 AND FID>1", "2"},
        {u"FID=1 OR FID=3", "1,3"},
        {u"(FID=1 OR FID=3) AND FPrice>5", "3"},
        {u"FID=1 OR FID=2 AND FPrice>5", "1"}, // AND binds tighter
        {u"FName LIKE '*n*'", "2,3"},
        {u"FName LIKE 'b%'", "1"},
        {u"FPrice=Null", "2"},
        {u"FPrice<>Null", "1,3"},
        {u"FPrice<100", "1,3"}, // Null compares with nothing
        {u"[FID]=-1", ""},
        {u"FID= AND FName='nut'", ""}, // a value left out matches nothing
        {u"FID=", ""},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(utf8(expected.filter));
        const ObjectRef rows = goods();
        automation::call(rows, u"MoveLast");
        let(rows, u"Filter", expected.filter);
        const std::int32_t count = toInt32(get(rows, u"RecordCount"));
        const std::string ids = idsIn(rows);
        EXPECT_EQ(ids, expected.ids);
        EXPECT_EQ(count, ids.empty() ? 0 : static_cast<std::int32_t>(ids.size() + 1) / 2);
        EXPECT_EQ(utf8(get(rows, u"Filter")), utf8(expected.filter));
    }
}

TEST(HostRecordset, AFilterStaysUntilItIsLifted) {
    const ObjectRef rows = goods();
    let(rows, u"Filter", u"FID=2");
    EXPECT_EQ(idsIn(rows), "2");
    let(rows, u"Filter", u"FID=3");
    EXPECT_EQ(idsIn(rows), "3") << "a filter replaces the one before";
    let(rows, u"Filter", std::int32_t{0});
    EXPECT_EQ(idsIn(rows), "1,2,3");
}

TEST(HostRecordset, RefusesACriterionThatItCannotRead) {
    for (const char16_t* malformed :
         {u"FSize=1", u"FID", u"FID=1 AND", u"FID=abc", u"FName='open", u"(FID=1", u"FID=1)", u"FID=1 FID=2", u"=1",
          u"FID==1", u"FName=#nonsense#", u"[FID=1", u"FID=1-"}) {
        SCOPED_TRACE(utf8(malformed));
        const ObjectRef rows = goods();
        let(rows, u"Filter", u"FID=2");
        EXPECT_EQ(errorOf([&] { let(rows, u"Filter", malformed); }), adoError::wrongArgument);
        EXPECT_EQ(idsIn(rows), "2") << "the filter before stays";
    }
}

} // namespace
} // namespace orv::erp
