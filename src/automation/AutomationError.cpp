#include "automation/AutomationError.h"

#include "automation/Text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace orv::automation {

namespace {

struct Wording {
    std::int32_t number;
    const char16_t* text;
};

constexpr Wording wordings[] = {
    {errorNumber::invalidCall, u"无效的过程调用或参数"},
    {errorNumber::overflow, u"溢出"},
    {errorNumber::outOfMemory, u"内存溢出"},
    {errorNumber::subscriptOutOfRange, u"下标越界"},
    {errorNumber::typeMismatch, u"类型不匹配"},
    {errorNumber::outOfStackSpace, u"堆栈空间溢出"},
    {errorNumber::objectNotSet, u"对象变量或 With 块变量未设置"},
    {errorNumber::invalidNull, u"无效使用 Null"},
    {errorNumber::objectRequired, u"要求对象"},
    {errorNumber::cannotCreateObject, u"ActiveX 部件不能创建对象"},
    {errorNumber::memberNotFound, u"对象不支持该属性或方法"},
    {errorNumber::wrongArgumentCount, u"错误的参数号或无效的属性赋值"},
    {errorNumber::keyExists, u"该关键字已经与该集合的一个元素相关联"},
};

} // namespace

AutomationError::AutomationError(std::int32_t number, std::u16string source, std::u16string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)),
      what_("error " + std::to_string(number) + ": " + toUtf8(description_)) {}

AutomationError AutomationError::runtime(std::int32_t number) {
    return AutomationError(number, controlSource, runtimeErrorText(number));
}

std::u16string runtimeErrorText(std::int32_t number) {
    const auto* found = std::ranges::find(wordings, number, &Wording::number);
    return found == std::end(wordings) ? u"应用程序定义或对象定义错误" : found->text;
}

} // namespace orv::automation
