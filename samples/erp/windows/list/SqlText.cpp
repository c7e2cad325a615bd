#include "erp/windows/list/SqlText.h"

#include <array>
#include <cwctype>

namespace orv::erp {

namespace {

bool startsWord(const std::wstring& sql, std::size_t at, const std::wstring& word) {
    for (std::size_t i = 0; i < word.size(); ++i)
        if (at + i >= sql.size() || std::towupper(static_cast<wint_t>(sql[at + i])) != static_cast<wint_t>(word[i]))
            return false;
    return true;
}

} // namespace

std::wstring brokenLines(const std::wstring& sql) {
    static const std::array<std::wstring, 6> clauses{L"FROM ",     L"LEFT OUTER JOIN ", L"WHERE ",
                                                     L"ORDER BY ", L"INNER JOIN ",      L"UNION "};
    std::wstring text;
    bool isQuoted = false;
    int depth = 0;
    for (std::size_t at = 0; at < sql.size(); ++at) {
        const wchar_t letter = sql[at];
        if (letter == L'\'')
            isQuoted = !isQuoted;
        if (!isQuoted && (letter == L'(' || letter == L')'))
            depth += letter == L'(' ? 1 : -1;
        const bool isBreak = !isQuoted && letter == L' ' && depth == 0;
        bool broken = false;
        for (const std::wstring& clause : clauses)
            broken = broken || (isBreak && startsWord(sql, at + 1, clause));
        if (letter == L'\n' && !text.ends_with(L'\r'))
            text += L'\r';
        text += broken ? std::wstring(L"\r\n") : std::wstring(1, letter);
    }
    return text;
}

} // namespace orv::erp
