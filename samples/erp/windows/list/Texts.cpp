#include "erp/windows/list/Texts.h"

namespace orv::erp {

Texts::Texts(const std::wstring& language) : loader_(ole::Object::create(L"ORVResLoader.Loader")) {
    loader_.write(L"ResFileBaseName", _bstr_t(L"ORVList"));
    loader_.write(L"LanguageID", ole::toBstr(language));
}

std::wstring Texts::operator()(const std::wstring& chinese) const {
    const auto [entry, isNew] = known_.try_emplace(chinese);
    if (isNew)
        entry->second = ole::textOf(loader_.call(L"LoadString2", ole::toBstr(chinese)));
    return entry->second;
}

std::wstring Texts::operator()(const std::wstring& chinese, std::initializer_list<std::wstring> arguments) const {
    std::wstring text = (*this)(chinese);
    int number = 0;
    for (const std::wstring& argument : arguments) {
        const std::wstring mark = L"%" + std::to_wstring(++number);
        if (const std::size_t at = text.find(mark); at != std::wstring::npos)
            text.replace(at, mark.size(), argument);
    }
    return text;
}

} // namespace orv::erp
