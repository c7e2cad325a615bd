#pragma once

#include "automation/AutomationError.h"

// The wording of every condition that cannot be translated, as the user reads it.
namespace orv::conditions {

namespace refusal {
inline constexpr const char16_t* notNumeric = u"无效的输入值,请输入数字";
inline constexpr const char16_t* notDate = u"无效的输入值,请输入日期,格式如:1999/12/25或1999-12-25";
inline constexpr const char16_t* boundNotDate = u"无效的输入值,请输入正确的日期格式,如:1999/12/25或1999-12-25";
inline constexpr const char16_t* boundsMissing = u"无效的输入值,请输入两个比较值,中间用'AND'隔开";
inline constexpr const char16_t* boundsReversed = u"无效的输入值,初始值大于结束值";
inline constexpr const char16_t* noBetween = u"模版不正确,系统不支持该种数据类型的'Between'语法";
// The comma of this one is the full-width one, unlike its neighbour's.
inline constexpr const char16_t* noLike = u"模版不正确，系统不支持该种数据类型的'Like'语法";
inline constexpr const char16_t* brackets = u"左括号与右括号不匹配, 请重新设置. ";
inline constexpr const char16_t* noField = u"请选择过滤字段";
inline constexpr const char16_t* noComparison = u"请选择比较关系";
} // namespace refusal

/// Raises error 5 with one of the texts above.
[[noreturn]] inline void refuse(const char16_t* description) {
    throw automation::AutomationError(automation::errorNumber::invalidCall, automation::controlSource, description);
}

} // namespace orv::conditions
