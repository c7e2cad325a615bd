#include "HostTesting.h"
#include "automation/AutomationError.h"
#include "erp/host/TextTable.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orv::erp {
namespace {

using namespace testing;
using automation::call;
using automation::get;
using automation::let;
using automation::ObjectRef;

bool hasIdeograph(std::u16string_view text) {
    return std::ranges::any_of(text, [](char16_t unit) { return unit >= 0x4E00 && unit <= 0x9FFF; });
}

/// What the control shows, as it looks texts up: blanks trimmed, texts that go around an argument in their parts.
constexpr const char16_t* shownTexts[] = {
    // captions
    u"项目名称", u"比较", u"比较值", u"逻辑", u"并且", u"或", u"排序字段", u"升序", u"降序", u"第一行标题",
    u"第二行标题", u"显示", u"宽度(毫米)", u"索引:主要是用来更新系统数据", u"对齐方式", u"对应的字段名",
    u"对应的字段的别名", u"对应的库表名", u"库表别名", u"上移", u"下移", u"全选", u"全清", u"恢复默认", u"显示隐藏列",
    u"条件", u"排序", u"单据类型", u"方案", u"保存", u"删除", u"清除", u"视图", u"插入", u"全删", u"页面", u"时间",
    u"审核", u"凭证", u"当天", u"本周", u"本期", u"全部", u"已审核", u"未审核", u"已生成凭证", u"未生成凭证",
    u"显示全部单据头", u"保存方案", u"方案名称", u"与其他用户共享", u"确定", u"取消", u"物料", u"商品", u"默认方案",
    // messages
    u"请选择过滤字段", u"请选择比较关系", u"左括号与右括号不匹配, 请重新设置.", u"行：", u"字段：",
    u"无效的输入值,请输入数字", u"无效的输入值,请输入日期,格式如:1999/12/25或1999-12-25",
    u"无效的输入值,请输入正确的日期格式,如:1999/12/25或1999-12-25", u"无效的输入值,请输入两个比较值,中间用'AND'隔开",
    u"无效的输入值,初始值大于结束值", u"模版不正确,系统不支持该种数据类型的'Between'语法",
    u"模版不正确，系统不支持该种数据类型的'Like'语法", u"动态构造取数SQL错误：参数中使用了未知的变量 %1", u"您暂无",
    u"科目权限，请系统管理员授权后再进入！", u"%1对应的核算项目类别不确定，请先设置%2！",
    u"%1对应的核算项目类别不确定，不支持F7功能。", u"请录入计量单位关联的%1。", u"不能选择表外科目", u"没有权限：",
    u"数据读取错误。", u"中间层调用失败！", u"列的宽度不应该大于150毫米，请重新输入。", u"请输入方案名称!",
    u"默认方案不能设置为共享!", u"不能覆盖", u"设置的方案。", u"是否覆盖原方案?", u"用户自定义方案不允许命名为默认方案",
    u"该方案已经存在,是否覆盖原方案?", u"该方案不是你设置的，将不会保存。", u"保存方案 [ %1 ] 失败！", u"不能删除%1!",
    u"不能删除", u"是否要删除%1?", u"删除方案 [", u"] 失败！",
    // the control's own run-time errors
    u"无效的过程调用或参数", u"溢出", u"下标越界", u"类型不匹配", u"对象变量或 With 块变量未设置", u"无效使用 Null",
    u"ActiveX 部件不能创建对象", u"对象不支持该属性或方法", u"错误的参数号或无效的属性赋值"};

TEST(HostTexts, EveryTextOfTheControlHasBothTranslations) {
    const auto host = describe("{}");
    const ObjectRef loader = host->create(u"ORVResLoader.Loader");
    let(loader, u"ResFileBaseName", u"ORVDesign");
    const auto& known = TextTable::design().entries();
    for (const char16_t* text : shownTexts) {
        SCOPED_TRACE(utf8(text));
        EXPECT_NE(std::ranges::find(known, text, &TextTable::Entry::chs), known.end()) << "not in the resource file";
        let(loader, u"LanguageID", u"EN");
        const std::u16string english = automation::toText(call(loader, u"LoadString2", text));
        EXPECT_FALSE(english.empty());
        EXPECT_FALSE(hasIdeograph(english)) << utf8(english);
        let(loader, u"LanguageID", u"CHS");
        EXPECT_EQ(utf8(call(loader, u"LoadString2", text)), utf8(text));
    }
}

// An argument that a translation loses would be missing in the message.
TEST(HostTexts, TranslationsKeepTheirArguments) {
    for (const auto& entry : TextTable::design().entries()) {
        SCOPED_TRACE(utf8(entry.chs));
        for (const char16_t* argument : {u"%1", u"%2"})
            for (const auto& translation : {entry.cht, entry.en})
                EXPECT_EQ(entry.chs.find(argument) == std::u16string::npos,
                          translation.find(argument) == std::u16string::npos)
                    << utf8(translation);
        EXPECT_FALSE(hasIdeograph(entry.en));
        EXPECT_FALSE(entry.cht.empty());
        EXPECT_FALSE(entry.chs.starts_with(u' ') || entry.chs.ends_with(u' ')) << "texts are looked up trimmed";
    }
}

TEST(HostTexts, TheLoaderAnswersInItsLanguageAndFile) {
    struct {
        const char16_t* file;
        const char16_t* language;
        const char16_t* text;
        const char* expected;
    } const cases[] = {
        {u"ORVDesign", u"EN", u"删除", "Delete"}, {u"orvdesign", u"en", u"删除", "Delete"},
        {u"ORVDesign", u"CHT", u"删除", "刪除"},  {u"ORVDesign", u"CHT", u"默认方案", "默認方案"},
        {u"ORVDesign", u"FR", u"删除", "删除"},   {u"ORVDesign", u"EN", u"没有这个词", "没有这个词"},
        {u"ORVOther", u"EN", u"删除", "删除"},    {u"ORVDesign", u"EN", u"", ""},
    };
    const auto host = describe("{}");
    for (const auto& expected : cases) {
        SCOPED_TRACE(utf8(expected.file) + " " + utf8(expected.language));
        const ObjectRef loader = host->create(u"ORVResLoader.Loader");
        let(loader, u"ResFileBaseName", expected.file);
        let(loader, u"LanguageID", expected.language);
        EXPECT_EQ(utf8(get(loader, u"ResFileBaseName")), utf8(expected.file));
        EXPECT_EQ(utf8(get(loader, u"LanguageID")), utf8(expected.language));
        EXPECT_EQ(utf8(call(loader, u"LoadString2", expected.text)), expected.expected);
    }
}

TEST(HostTexts, RefusesAMalformedResourceFile) {
    for (const char* json : {"", "{}", R"([{"CHS": "a", "CHT": "b"}])",
                             R"([{"CHS": "a", "CHT": "b", "EN": "c"}, {"CHS": "a", "CHT": "b", "EN": "c"}])"})
        EXPECT_THROW(TextTable{json}, automation::AutomationError) << json;
}

} // namespace
} // namespace orv::erp
