#include "automation/TraceText.h"

#include "automation/Calendar.h"
#include "automation/Coercion.h"
#include "automation/MemberNames.h"

#include <algorithm>
#include <array>

namespace orv::automation {

namespace {

/// The longest text that is shown whole: a filter of thirty conditions fits.
constexpr std::size_t longestText = 4000;

/// Where the members of the control and of its host carry SQL text: positions of arguments, and the result.
struct SqlPlace {
    std::u16string_view member;
    std::array<bool, 4> arguments;
    bool result = false;
};
constexpr std::array sqlPlaces{SqlPlace{u"GetFilterSql", {true}},          SqlPlace{u"GetSortString", {true, true}},
                               SqlPlace{u"GetTakeBaseDataSQL", {}, true},  SqlPlace{u"GetData", {true}},
                               SqlPlace{u"getanyrecordset", {true}},       SqlPlace{u"Execute", {true}},
                               SqlPlace{u"GetClassType", {false, true}},   SqlPlace{u"GetItemFilter", {true}},
                               SqlPlace{member::recordset::filter, {true}}};

const SqlPlace* sqlPlaceOf(std::u16string_view member) {
    const auto* found =
        std::ranges::find_if(sqlPlaces, [&](const SqlPlace& place) { return sameMember(place.member, member); });
    return found == sqlPlaces.end() ? nullptr : found;
}

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool isWordPart(char16_t c) {
    return isDigit(c) || c == u'_' || c == u'@' || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}
/// A number in digits, or one that begins with "&H" or "&O".
bool startsNumber(std::u16string_view text) {
    return isDigit(text[0]) || (text.size() > 1 && text[0] == u'&' && isWordPart(text[1]));
}

std::u16string quoted(std::u16string_view text) {
    std::u16string result = u"\"";
    for (const char16_t c : text.substr(0, longestText)) {
        if (c == u'\r')
            result += u"\\r";
        else if (c == u'\n')
            result += u"\\n";
        else if (c == u'\t')
            result += u"\\t";
        else if (c == u'"' || c == u'\\')
            (result += u'\\') += c;
        else
            result += c < u' ' ? u'?' : c;
    }
    result += u'"';
    if (text.size() > longestText)
        result += u"..." + numberToText(static_cast<double>(text.size()));
    return result;
}

void appendPadded(std::u16string& text, int number) {
    if (number < 10)
        text += u'0';
    text += numberToText(number);
}

std::u16string dateText(double days) {
    if (!isDateInRange(days))
        return numberToText(days);
    const Moment moment = momentOf(days);
    std::u16string text = numberToText(moment.date.year);
    for (const int part : {moment.date.month, moment.date.day})
        appendPadded(text += u'-', part);
    char16_t separator = u' ';
    for (const int part : {moment.time.hour, moment.time.minute, moment.time.second}) {
        appendPadded(text += separator, part);
        separator = u':';
    }
    return text;
}

/// One line of SQL text: from its first quotation mark to its last, and its numbers.
std::u16string lineWithoutLiterals(std::u16string_view line) {
    const std::size_t first = line.find(u'\'');
    const std::size_t last = line.rfind(u'\'');
    std::u16string result;
    for (std::size_t i = 0; i < line.size();) {
        const bool startsWord = i == 0 || !isWordPart(line[i - 1]);
        if (i == first) {
            result += u"'?'";
            i = last + 1;
        } else if (startsWord && startsNumber(line.substr(i))) {
            result += u'?';
            do {
                ++i;
            } while (i < line.size() && (isWordPart(line[i]) || line[i] == u'.'));
        } else {
            result += line[i++];
        }
    }
    return result;
}

std::u16string withoutTyped(std::u16string text, std::span<const std::u16string> typed) {
    for (const std::u16string& value : typed) {
        for (std::size_t at = value.empty() ? text.npos : text.find(value); at != text.npos;) {
            const std::size_t end = at + value.size();
            const bool standsAlone = (at == 0 || !isWordPart(text[at - 1]) || !isWordPart(value.front())) &&
                                     (end == text.size() || !isWordPart(text[end]) || !isWordPart(value.back()));
            if (standsAlone)
                text.replace(at, value.size(), u"?");
            at = text.find(value, at + 1);
        }
    }
    return text;
}

} // namespace

std::u16string withoutLiterals(std::u16string_view sql, std::span<const std::u16string> typed) {
    const std::u16string text = withoutTyped(std::u16string(sql), typed);
    std::u16string result;
    for (std::u16string_view rest = text; !rest.empty();) {
        const std::size_t lineEnd = rest.find(u'\n');
        const std::u16string_view line = rest.substr(0, lineEnd == rest.npos ? rest.size() : lineEnd + 1);
        result += lineWithoutLiterals(line);
        rest.remove_prefix(line.size());
    }
    return result;
}

TraceText::Content TraceText::contentOf(std::u16string_view member, InvokeKind kind, std::size_t position,
                                        std::size_t count) {
    if (const SqlPlace* place = sqlPlaceOf(member))
        return position < place->arguments.size() && place->arguments[position] ? Content::sql : Content::value;
    // The first argument of a record's or a recordset's members is a key; of a write's two arguments as well.
    const bool named = member == defaultMember || sameMember(member, member::dictionary::exists) ||
                       sameMember(member, member::dictionary::getValue) ||
                       sameMember(member, member::recordset::fields);
    const bool writes = kind == InvokeKind::let || kind == InvokeKind::set;
    return named && position == 0 && (!writes || count > 1) ? Content::name : Content::value;
}

std::u16string TraceText::arguments(std::u16string_view member, InvokeKind kind,
                                    std::span<const Argument> arguments) const {
    std::u16string text = u"(";
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0)
            text += u", ";
        text += value(arguments[i].value(), contentOf(member, kind, i, arguments.size()));
    }
    return text += u')';
}

std::u16string TraceText::result(std::u16string_view member, const Value& value) const {
    const SqlPlace* place = sqlPlaceOf(member);
    return this->value(value, place && place->result ? Content::sql : Content::value);
}

std::u16string TraceText::error(const AutomationError& error) const {
    const bool hides = masking_ == TraceMasking::hidesValues;
    const std::u16string description = hides ? withoutLiterals(error.description(), typed_) : error.description();
    return u"error " + numberToText(error.number()) + u" from " + quoted(error.source()) + u": " + quoted(description);
}

std::u16string TraceText::shown(std::u16string_view text) const {
    return value(Value(text), Content::value);
}

std::u16string TraceText::value(const Value& value, Content content) const {
    const bool hides = masking_ == TraceMasking::hidesValues && content != Content::name;
    if (const auto* text = value.getIf<std::u16string>()) {
        if (!hides || text->empty())
            return quoted(*text);
        return content == Content::sql ? quoted(withoutLiterals(*text, typed_))
                                       : u"<text " + numberToText(static_cast<double>(text->size())) + u'>';
    }
    if (const auto* object = value.getIf<ObjectRef>()) {
        if (!*object)
            return u"Nothing";
        const std::u16string_view type = (*object)->typeName();
        return std::u16string(type.empty() ? u"Object" : type);
    }
    if (const auto* flag = value.getIf<bool>())
        return *flag ? u"True" : u"False";
    if (value.isEmpty())
        return u"Empty";
    if (value.isNull())
        return u"Null";
    if (value.isMissing())
        return u"Missing";
    if (const auto* code = value.getIf<ErrorCode>())
        return u"Error " + numberToText(code->code);
    if (const auto* date = value.getIf<Date>())
        return hides ? u"<date>" : dateText(date->days);
    return hides ? u"<number>" : toText(value);
}

} // namespace orv::automation
