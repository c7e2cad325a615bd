#include "sqlproof/Values.h"

namespace orv::sqlproof {

const std::vector<NumberText>& numberTexts() {
    static const std::vector<NumberText> all{
        {u"0", 0, 0},
        {u"100", 100, 100},
        {u"  12.50 ", 12.5, 12.5},
        {u"-3", -3, -3},
        {u"1e3", 1000, 1000},
        {u"2024", 2024, 2024},
        // Numbers to the user; only the beginning counts, or nothing at all where the text goes into the SQL as it is.
        {u"1,234.5", 1, {}},
        {u"¥12", 0, {}},
        {u".5", 0.5, 0.5},
        {u"5.", 5, 5},
        {u"", {}, {}},
        {u"   ", {}, {}},
        {u"abc", {}, {}},
        {u"12abc", {}, {}},
        {u"1' OR '1'='1", {}, {}},
        {u"%", {}, {}},
    };
    return all;
}

const std::vector<Parts<double>>& numberLists() {
    static const std::vector<Parts<double>> all{
        {u"0", {{0}}},         {u"0, 100", {{0, 100}}},
        {u"1,2,,3", {{1, 2}}}, {u" -3 ,1e3", {{-3, 1000}}},
        {u"2024,", {{2024}}},  {u"", {}},
        {u",1", {}},           {u"1,x", {}},
    };
    return all;
}

const std::vector<Parts<double>>& numberRanges() {
    static const std::vector<Parts<double>> all{
        {u"0 AND 100", {{0, 100}}},
        {u"-50.5 and 2000", {{-50.5, 2000}}},
        {u"5AND5", {{5, 5}}},
        {u"5 AND 3", {}},
        {u"5", {}},
        {u"", {}},
        {u"a AND b", {}},
        {u" AND 1", {}},
    };
    return all;
}

const std::vector<DateText>& dateTexts() {
    static const std::vector<DateText> all{
        {u"2024-02-29", u"2024-02-29", u"2024-02-29 00:00:00"},
        {u"2024/2/5", u"2024-02-05", u"2024-02-05 00:00:00"},
        {u" 2023-12-31 ", u"2023-12-31", u"2023-12-31 00:00:00"},
        {u"1999-12-25", u"1999-12-25", u"1999-12-25 00:00:00"},
        {u"2024-01-15 10:30:00", u"2024-01-15", u"2024-01-15 10:30:00"},
        {u"2024-02-30", {}, {}},
        {u"不是日期", {}, {}},
        {u"20240229x", {}, {}},
    };
    return all;
}

const std::vector<Parts<std::u16string>>& dateLists() {
    static const std::vector<Parts<std::u16string>> all{
        {u"2024-02-28, 2024/2/29", {{u"2024-02-28", u"2024-02-29"}}},
        {u"2023-12-31", {{u"2023-12-31"}}},
        {u"2024-02-28,,2024-02-29", {{u"2024-02-28"}}},
        {u"2024-02-28,昨天", {}},
        {u"", {}},
    };
    return all;
}

const std::vector<Parts<std::u16string>>& dateRanges() {
    static const std::vector<Parts<std::u16string>> all{
        {u"2023-12-31 and 2024/1/1", {{u"2023-12-31", u"2024-01-01"}}},
        {u"2024-02-01 AND 2024-02-29", {{u"2024-02-01", u"2024-02-29"}}},
        {u"2024-02-29 AND 2024-02-01", {}},
        {u"2024-02-29", {}},
        {u"2024-02-01 AND x", {}},
        {u"", {}},
    };
    return all;
}

const std::vector<std::u16string>& plainTexts() {
    static const std::vector<std::u16string> all{
        u"货款",  u"A",    u"ａ",  u"",      u" ",   u" 货款 ", u"%",  u"_",       u"[", u"]",
        u"[a-c]", u"[^a]", u"-",   u"it''s", u"a,b", u"--",     u"/*", u"O'Brien", u"'", u"\u3000",
        u"0",     u"2024", u"10%", u"NULL",  u"a;b", u"\"x\"",  u"@x", u"\\",
    };
    return all;
}

const std::vector<Parts<std::u16string>>& textLists() {
    static const std::vector<Parts<std::u16string>> all{
        {u"货款,OVERSEAS", {{u"货款", u"OVERSEAS"}}},
        {u" 货款 , ａ", {{u"货款", u"ａ"}}},
        {u"%,_", {{u"%", u"_"}}},
        {u"货款,,A", {{u"货款"}}},
        {u"it''s,A", {{u"it''s", u"A"}}},
        {u"O'Brien,A", {{u"O'Brien", u"A"}}},
        {u"", {}},
        {u" ,A", {}},
    };
    return all;
}

const std::vector<DayCount>& dayCounts() {
    static const std::vector<DayCount> all{{u"30", 30}, {u"0", 0}, {u"-3", -3}, {u"2.5", 2}, {u"abc", 0}, {u"", 0}};
    return all;
}

std::optional<std::u16string> insideQuotes(std::u16string_view text) {
    std::u16string read;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\'' && (i + 1 == text.size() || text[++i] != u'\''))
            return std::nullopt;
        read += text[i];
    }
    return read;
}

} // namespace orv::sqlproof
