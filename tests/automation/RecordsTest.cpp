#include "automation/Records.h"

#include "ErrorOf.h"
#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/MemberNames.h"
#include "automation/ObjectFactory.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace orv::automation::tests {
namespace {

TEST(Dictionary, KeepsEntriesByExactKeyInWritingOrder) {
    const Dictionary record = makeDictionary();
    record.set(u"FKey", u"a");
    record.set(u"fkey", u"b");
    record.set(u"", 3.5);
    record.set(u"FKey", std::int32_t{7});

    EXPECT_EQ(record.count(), 3);
    EXPECT_EQ(record.get(u"FKey"), Value(std::int32_t{7}));
    EXPECT_EQ(record.get(u"fkey"), Value(u"b"));
    EXPECT_EQ(record.get(u""), Value(3.5));
    EXPECT_EQ(record.keys(), (std::vector<std::u16string>{u"FKey", u"fkey", u""}));
    EXPECT_TRUE(record.exists(u"fkey"));
    EXPECT_FALSE(record.exists(u"FKEY"));
}

TEST(Dictionary, AnswersAnAbsentKeyWithTheDefaultOrAnError) {
    const Dictionary record = makeDictionary();
    EXPECT_EQ(record.getValue(u"x", u"fallback"), Value(u"fallback"));
    EXPECT_EQ(errorOf([&] { record.get(u"x"); }), errorNumber::invalidCall);
    EXPECT_EQ(record.count(), 0) << "asking for a key must not write it";
    record.set(u"x", Value());
    EXPECT_EQ(record.getValue(u"x", u"fallback"), Value());
}

TEST(Dictionary, ClonesNestedDictionariesAndSharesOtherObjects) {
    const Dictionary inner = makeDictionary();
    inner.set(u"k", u"old");
    const Collection list = makeCollection();
    const Dictionary record = makeDictionary();
    record.set(u"inner", inner.object());
    record.set(u"list", list.object());
    record.set(u"nothing", ObjectRef());

    const Dictionary copy = record.cloneAll();
    inner.set(u"k", u"new");
    record.set(u"added", true);

    EXPECT_EQ(copy.keys(), (std::vector<std::u16string>{u"inner", u"list", u"nothing"}));
    EXPECT_EQ(Dictionary(toObject(copy.get(u"inner"))).get(u"k"), Value(u"old"));
    EXPECT_EQ(toObject(copy.get(u"list")), list.object());
    EXPECT_EQ(copy.get(u"nothing"), Value(ObjectRef()));
}

TEST(Dictionary, RefusesToCloneALoop) {
    const Dictionary record = makeDictionary();
    record.set(u"self", record.object());
    EXPECT_EQ(errorOf([&] { record.cloneAll(); }), errorNumber::outOfStackSpace);
    record.set(u"self", Value()); // breaks the loop of references
}

TEST(Collection, IsOneBased) {
    const Collection list = makeCollection();
    list.add(u"a");
    list.add(makeDictionary().object());
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(1), Value(u"a"));
    EXPECT_TRUE(list.record(2));
    for (const std::int32_t index : {0, 3, -1})
        EXPECT_EQ(errorOf([&] { list.item(index); }), errorNumber::subscriptOutOfRange) << "item " << index;
    EXPECT_EQ(errorOf([&] { list.record(1); }), errorNumber::objectRequired);
}

TEST(Records, AnswerToTheNamesOfTheHostsLibrary) {
    const ObjectRef record = makeDictionary().object();
    let(record, u"VALUE", u"k", 1.0);
    EXPECT_EQ(call(record, u"value", u"k"), Value(1.0));
    EXPECT_EQ(get(record, u"COUNT"), Value(std::int32_t{1}));
    EXPECT_EQ(call(record, u"getvalue", u"x"), Value());
    Argument byPutRef[] = {u"o", record};
    callMember(record, u"Value", InvokeKind::set, byPutRef);
    EXPECT_EQ(get(record, defaultMember, u"o"), Value(record));
    let(record, u"Value", u"o", Value());

    const ObjectRef list = makeCollection().object();
    call(list, u"add", 5.0);
    EXPECT_EQ(get(list, u"Item", u"1"), Value(5.0));
}

TEST(Records, RefuseWhatTheyDoNotHave) {
    const ObjectRef record = makeDictionary().object();
    const ObjectRef list = makeCollection().object();
    const struct {
        const char* name;
        std::int32_t error;
        std::function<void()> call;
    } cases[] = {
        {"an unknown member", 438, [&] { call(record, u"Remove", u"k"); }},
        {"an unknown collection member", 438, [&] { get(list, u"Keys"); }},
        {"writing the count", 438, [&] { let(record, u"Count", 1.0); }},
        {"writing an item", 438, [&] { let(list, u"Item", 1.0, 2.0); }},
        {"reading Add as a property", 438, [&] { get(list, u"Add", 1.0); }},
        {"no key", 450, [&] { get(record, defaultMember); }},
        {"two keys", 450, [&] { get(record, defaultMember, u"a", u"b"); }},
        {"no value", 450, [&] { let(record, defaultMember, u"a"); }},
        {"a Null key", 94, [&] { get(record, defaultMember, Null{}); }},
        {"an index that is no number", 13, [&] { get(list, u"Item", u"x"); }},
        {"no object at all", 91, [&] { get(ObjectRef(), u"Count"); }},
    };
    for (const auto& c : cases)
        EXPECT_EQ(errorOf(c.call), c.error) << c.name;
}

/// A factory that knows one object, or fails with one error.
class OneObjectFactory final : public ObjectFactory {
  public:
    explicit OneObjectFactory(ObjectRef object) : object_(std::move(object)) {}
    explicit OneObjectFactory(std::int32_t error) : error_(error) {}
    ObjectRef create(std::u16string_view name) override {
        asked_.emplace_back(name);
        if (!object_)
            throw AutomationError::runtime(error_);
        return object_;
    }
    ObjectRef shared(std::u16string_view) override { throw AutomationError::runtime(errorNumber::invalidCall); }
    const std::vector<std::u16string>& asked() const { return asked_; }

  private:
    ObjectRef object_;
    std::int32_t error_ = 0;
    std::vector<std::u16string> asked_;
};

TEST(Records, AreTheHostsWhereItHasThem) {
    const ObjectRef hosts = makeDictionary().object();
    OneObjectFactory host(hosts);
    EXPECT_EQ(newRecord(host).object(), hosts);
    EXPECT_EQ(newCollection(host).object(), hosts);
    EXPECT_EQ(host.asked(), (std::vector<std::u16string>{u"QDX.Dictionary", u"QDX.Collection"}));
}

TEST(Records, AreTheControlsOwnWhereTheHostHasNone) {
    OneObjectFactory bare(errorNumber::cannotCreateObject);
    EXPECT_EQ(newRecord(bare).count(), 0);
    EXPECT_EQ(newCollection(bare).count(), 0);
    OneObjectFactory broken(errorNumber::outOfMemory);
    EXPECT_EQ(errorOf([&] { newRecord(broken); }), errorNumber::outOfMemory);
}

} // namespace
} // namespace orv::automation::tests
