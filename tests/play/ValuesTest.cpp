#include "play/Values.h"
#include "automation/AutomationError.h"
#include "automation/Records.h"
#include "play/DateText.h"
#include "play/ScenarioError.h"

#include <gtest/gtest.h>

namespace orv::play {
namespace {

/// A host that has no dictionary of its own.
class NoComponents final : public automation::ObjectFactory {
  public:
    automation::ObjectRef create(std::u16string_view) override {
        throw automation::AutomationError::runtime(automation::errorNumber::cannotCreateObject);
    }
    automation::ObjectRef shared(std::u16string_view progId) override { return create(progId); }
};

TEST(Values, GoThereAndBack) {
    NoComponents host;
    const char* texts[] = {
        "true", "7", "-2147483648", "2147483648", "0.5", R"("单号")", "null", R"({"b":1,"a":{"c":[1,"x",{}]}})", "[]"};
    for (const char* text : texts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(toJson(toValue(Json::parse(text), host)).dump(), text);
    }
    EXPECT_EQ(toValue(7, host), automation::Value(std::int32_t{7}));
    EXPECT_EQ(toValue(2147483648, host), automation::Value(2147483648.0));
    EXPECT_EQ(toValue(nullptr, host), automation::Value(automation::Null{}));
}

TEST(Values, OfKindsThatJsonLacksAreWrittenReadably) {
    using automation::Value;
    EXPECT_EQ(toJson(Value(automation::Date{45351.4375})).dump(), R"("2024-02-29 10:30:00")");
    EXPECT_EQ(toJson(Value(automation::Currency{12'5000})).dump(), "12.5");
    EXPECT_EQ(toJson(Value(automation::Currency{12'0000})).dump(), "12");
    EXPECT_EQ(toJson(Value(automation::Missing{})).dump(), "null");
    EXPECT_EQ(toJson(Value(automation::ObjectRef())).dump(), "null");
    EXPECT_EQ(toJson(Value(automation::ErrorCode{-5})).dump(), R"({"errorCode":-5})");
}

TEST(Values, RefuseRecordsThatHoldThemselves) {
    const automation::Dictionary record = automation::makeDictionary();
    record.set(u"self", record.object());
    EXPECT_THROW(toJson(automation::Value(record.object())), ScenarioError);
    record.set(u"self", automation::Value());
}

TEST(DateText, IsReadAndWritten) {
    struct Case {
        const char* text;
        double days;
        const char* written;
    };
    const Case cases[] = {
        {"1899-12-30", 0, "1899-12-30"},
        {"2024-02-29", 45351, "2024-02-29"},
        {"2024-02-29 12:00", 45351.5, "2024-02-29 12:00:00"},
        {"2024-02-29 23:59:59", 45351 + 86399.0 / 86400, "2024-02-29 23:59:59"},
        {"1899-12-29 06:00:00", -1.25, "1899-12-29 06:00:00"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_DOUBLE_EQ(parseDateText(c.text).days, c.days);
        EXPECT_EQ(dateText({c.days}), c.written);
    }
    for (const char* text : {"", "2024", "2024-2-9", "2023-02-29", "2024-13-01", "2024-02-29T10:00", "2024-02-29 24:00",
                             "2024-02-29 10:00:00 ", "2024-02-29 10:6", "+024-02-01"}) {
        SCOPED_TRACE(text);
        EXPECT_THROW(parseDateText(text), ScenarioError);
    }
}

} // namespace
} // namespace orv::play
