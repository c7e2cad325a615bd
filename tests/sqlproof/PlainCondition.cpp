#include "sqlproof/PlainCondition.h"

#include "sqlproof/PlainDates.h"
#include "sqlproof/PlainText.h"
#include "sqlproof/Values.h"

#include <algorithm>
#include <charconv>

namespace orv::sqlproof {

namespace {

using Picks = std::function<bool(const Cell&)>;

const Expectation open{};
const Expectation refusedByControl{Answer::refusedByControl, {}};
const Expectation refusedByDatabase{Answer::refusedByDatabase, {}};
Expectation counted(Picks picks) {
    return {Answer::counted, std::move(picks)};
}

const std::u16string emptyMoment = u"1900-01-01 00:00:00"; // what an empty text is as a moment

std::u16string trimmed(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    return first == std::u16string_view::npos
               ? std::u16string()
               : std::u16string(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

enum class Form { scalar, list, range, pattern, other };

/// The operator of a comparison as SQL understands it.
struct Operator {
    std::u16string text;
    Form form = Form::other;
    bool negated = false;

    explicit Operator(std::u16string_view written) : text(trimmed(written)) {
        std::ranges::transform(text, text.begin(),
                               [](char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c; });
        negated = text.starts_with(u"NOT ");
        const std::u16string word = negated ? text.substr(4) : text;
        if (word == u"IN")
            form = Form::list;
        else if (word == u"LIKE")
            form = Form::pattern;
        else if (word == u"BETWEEN")
            form = Form::range;
        else if (text == u"=" || text == u"!=" || text == u"<>" || text == u"<" || text == u"<=" || text == u">" ||
                 text == u">=")
            form = Form::scalar;
    }
    /// The one operator for which a missing value compares as an empty one.
    bool takesNull() const { return text == u"<>"; }
    /// Whether a scalar operator holds for two values that compare as `order`.
    bool holds(int order) const {
        return order == 0 ? text == u"=" || text == u"<=" || text == u">="
                          : text == u"<>" || text == u"!=" || text.starts_with(order < 0 ? u'<' : u'>');
    }
};

int orderOf(double a, double b) {
    return a < b ? -1 : a > b ? 1 : 0;
}
int orderOf(const std::u16string& a, const std::u16string& b) {
    return a.compare(b);
}

bool isOneOf(std::int32_t colType, std::initializer_list<std::int32_t> codes) {
    return colType < 0 || std::ranges::find(codes, colType) != codes.end();
}

/// The question with all that is derived from it once.
struct Case {
    const Question& question;
    Operator op{question.entry.FOperate};
    bool isDate = question.colType == 0;
    bool isRaw = question.colType == 501;
    bool isChecked = isOneOf(question.colType, {2, 4, 6, 8, 9, 10});
    bool isGuarded = isOneOf(question.colType, {2, 4, 6, 9, 10, 501});
    bool isTyped = question.entry.FInputCtlType == u"0";
    bool isMoment = question.storage == Storage::moment;
    bool isText = question.storage == Storage::text;
    bool isNumber = question.storage == Storage::whole || question.storage == Storage::decimal ||
                    question.storage == Storage::truth;

    /// The text between the quotes: what is typed loses the blanks around it.
    std::u16string body() const { return isTyped ? trimmed(question.value) : question.value; }
};

template <class Table>
auto find(const Table& table, const std::u16string& text) {
    return std::ranges::find_if(table, [&](const auto& entry) { return entry.text == text; });
}

/// Cells of one type against one value; `absent` stands for NULL where the comparison gives it a value.
template <class T>
Expectation scalar(const Operator& op, T value, std::optional<T> absent) {
    return counted([op, value, absent](const Cell& cell) {
        const T* content = std::get_if<T>(&cell);
        if (!content && !absent)
            return false;
        return op.holds(orderOf(content ? *content : *absent, value));
    });
}

template <class T>
Expectation oneOf(const Operator& op, std::vector<T> values) {
    return counted([op, values](const Cell& cell) {
        const T* content = std::get_if<T>(&cell);
        return content && (std::ranges::find(values, *content) != values.end()) != op.negated;
    });
}

template <class T>
Expectation within(std::vector<T> bounds) {
    return counted([bounds](const Cell& cell) {
        const T* content = std::get_if<T>(&cell);
        return content && *content >= bounds[0] && *content <= bounds[1];
    });
}

/// The same with the day alone of a moment.
Expectation ofDay(const Expectation& expectation) {
    return counted([picks = expectation.picks](const Cell& cell) {
        const auto* moment = std::get_if<std::u16string>(&cell);
        return picks(moment ? Cell(moment->substr(0, 10)) : cell);
    });
}

/// What "isnull(number,'')" is for NULL. A decimal cannot be made from an empty text.
Expectation numberScalar(const Case& c, double value) {
    if (!c.op.takesNull())
        return scalar<double>(c.op, value, {});
    return c.question.storage == Storage::decimal ? open : scalar<double>(c.op, value, 0.0);
}

Expectation numbers(const Case& c) {
    const bool onlyNumber = c.isTyped && c.isGuarded; // the SQL gets the leading number and nothing else
    const std::u16string& value = c.question.value;
    if (c.op.form == Form::pattern)
        return c.isRaw ? open : refusedByControl;
    if (c.op.form == Form::range && c.isRaw)
        return refusedByControl;
    if (c.op.form == Form::other)
        return open;
    if (c.op.form == Form::scalar) {
        const auto found = find(numberTexts(), value);
        if (found == numberTexts().end() || !found->leading)
            return c.isRaw ? open : refusedByControl; // the raw type takes the user's own expressions
        if (onlyNumber)
            return c.isNumber ? scalar<double>(c.op, *found->leading, 0.0) : open;
        if (!found->asIs)
            return refusedByDatabase;
        return c.isNumber ? numberScalar(c, *found->asIs) : open;
    }
    const bool isList = c.op.form == Form::list;
    const auto& table = isList ? numberLists() : numberRanges();
    const auto found = find(table, value);
    if (found == table.end() || !found->parts)
        return c.isRaw ? open : refusedByControl;
    if (onlyNumber)
        return refusedByDatabase;
    // The raw type's pieces are quoted: what has an exponent is no number then, and truths are no numbers either.
    const bool isQuotedNumber = value.find(u'e') == std::u16string::npos && c.question.storage != Storage::truth;
    if (!c.isNumber || (c.isRaw && !isQuotedNumber))
        return open;
    return isList ? oneOf<double>(c.op, *found->parts) : within<double>(*found->parts);
}

Expectation dates(const Case& c) {
    const std::u16string& value = c.question.value;
    if (c.op.form == Form::pattern)
        return refusedByControl;
    if (c.op.form == Form::other)
        return open;
    if (c.op.form == Form::scalar) {
        const auto found = find(dateTexts(), value);
        if (!value.empty() && found == dateTexts().end())
            return open;
        if (!value.empty() && !found->day)
            return refusedByControl;
        if (!c.isMoment)
            return open;
        const std::u16string day = value.empty() ? std::u16string() : *found->day;
        return ofDay(
            scalar<std::u16string>(c.op, day, c.op.takesNull() ? std::optional<std::u16string>(u"") : std::nullopt));
    }
    const auto& table = c.op.form == Form::list ? dateLists() : dateRanges();
    const auto found = find(table, value);
    if (found == table.end())
        return open;
    if (!found->parts)
        return refusedByControl;
    if (!c.isMoment)
        return open;
    return ofDay(c.op.form == Form::list ? oneOf<std::u16string>(c.op, *found->parts)
                                         : within<std::u16string>(*found->parts));
}

/// A column of texts against the text between the quotes.
Expectation texts(const Case& c, const std::u16string& body) {
    const std::optional<std::u16string> read = insideQuotes(body);
    if (!read)
        return refusedByDatabase;
    return counted([op = c.op, value = *read](const Cell& cell) {
        const auto* content = std::get_if<std::u16string>(&cell);
        if (!content && !op.takesNull())
            return false;
        return op.holds(compareTexts(content ? *content : std::u16string_view(), value));
    });
}

Expectation like(const Case& c, const std::u16string& body) {
    const std::optional<std::u16string> pattern = insideQuotes(body);
    if (!pattern)
        return refusedByDatabase;
    return counted([negated = c.op.negated, pattern = *pattern](const Cell& cell) {
        const auto* content = std::get_if<std::u16string>(&cell);
        return content && isLike(*content, pattern) != negated;
    });
}

Expectation textList(const Case& c) {
    const auto found = find(textLists(), c.question.value);
    if (found == textLists().end())
        return open;
    if (!found->parts)
        return refusedByControl;
    std::vector<std::u16string> values;
    for (const std::u16string& part : *found->parts) {
        const auto read = insideQuotes(part);
        if (!read)
            return refusedByDatabase;
        values.push_back(*read);
    }
    if (!c.isText)
        return open;
    return counted([negated = c.op.negated, values](const Cell& cell) {
        const auto* content = std::get_if<std::u16string>(&cell);
        const auto equals = [&](const std::u16string& value) { return compareTexts(*content, value) == 0; };
        return content && std::ranges::any_of(values, equals) != negated;
    });
}

/// A moment against a text that the server reads as one.
Expectation momentScalar(const Case& c) {
    const std::u16string& value = c.question.value;
    const auto found = find(dateTexts(), value);
    if (!value.empty() && found == dateTexts().end())
        return open;
    if (!value.empty() && !found->moment)
        return refusedByDatabase;
    return scalar<std::u16string>(c.op, value.empty() ? emptyMoment : *found->moment,
                                  c.op.takesNull() ? std::optional(emptyMoment) : std::nullopt);
}

Expectation quoted(const Case& c) {
    switch (c.op.form) {
    case Form::range:
        return refusedByControl;
    case Form::list:
        return textList(c);
    case Form::scalar:
        if (c.isMoment)
            return momentScalar(c);
        return c.isText ? texts(c, c.body()) : open;
    case Form::pattern:
        return c.isText ? like(c, u"%" + c.body() + u"%") : open;
    case Form::other:
        break;
    }
    return open;
}

double leadingNumber(const std::u16string& text) {
    std::string digits;
    for (const char16_t unit : trimmed(text))
        digits += unit < 0x80 ? static_cast<char>(unit) : '?';
    double number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

/// A look-up cell: the first 255 units are the caption, what follows is the key.
Expectation lookedUp(const Case& c) {
    constexpr std::size_t captionUnits = 255;
    const std::u16string& value = c.question.value;
    const bool isKey = c.question.entry.FDataFieldIndex == u"2";
    const bool hasKey = value.size() > captionUnits;
    const std::u16string part =
        isKey ? (hasKey ? value.substr(captionUnits) : std::u16string()) : trimmed(value.substr(0, captionUnits));
    if (c.op.form == Form::list || c.op.form == Form::range)
        return refusedByDatabase; // one value without brackets
    if (c.isGuarded)
        return c.isNumber && c.op.form == Form::scalar ? numberScalar(c, leadingNumber(part)) : open;
    if (c.op.takesNull() && value.starts_with(u"..."))
        return counted([](const Cell&) { return false; });
    if (!c.isText || c.isDate)
        return insideQuotes(part) ? open : refusedByDatabase;
    if (c.op.form == Form::pattern)
        return like(c, trimmed(part));
    return c.op.form == Form::scalar ? texts(c, trimmed(part)) : open;
}

Expectation emptiness(const Case& c, bool wanted) {
    switch (c.question.storage) {
    case Storage::unknown:
        return open;
    case Storage::decimal:
        return c.isDate ? open : refusedByDatabase;
    case Storage::moment:
        return counted([wanted, isDate = c.isDate](const Cell& cell) {
            const auto* moment = std::get_if<std::u16string>(&cell);
            return (!moment || (!isDate && *moment == emptyMoment)) == wanted;
        });
    case Storage::truth:
    case Storage::whole:
        if (c.isDate)
            return open;
        return counted([wanted](const Cell& cell) {
            const auto* number = std::get_if<double>(&cell);
            return (!number || *number == 0) == wanted;
        });
    case Storage::text:
        return counted([wanted](const Cell& cell) {
            const auto* text = std::get_if<std::u16string>(&cell);
            return (!text || compareTexts(*text, u"") == 0) == wanted;
        });
    }
    return open;
}

Expectation keyword(const Case& c) {
    const std::u16string& word = c.question.entry.FValue;
    if (word == u"ISNULL" || word == u"NOTISNULL")
        return c.op.text == (word == u"ISNULL" ? u"=" : u"<>") ? emptiness(c, word == u"ISNULL") : open;
    const auto count = find(dayCounts(), c.question.value);
    const std::optional<Days> days = rangeOf(word, c.question.today, count == dayCounts().end() ? 0 : count->days);
    if (!days)
        return refusedByDatabase; // an operator without anything behind it
    if (c.op.form != Form::range)
        return refusedByDatabase; // two bounds for an operator that takes one value
    if (!c.isMoment)
        return open;
    const std::u16string first = isoDay(days->first);
    const std::u16string last = isoDay(days->last);
    if (c.isDate)
        return ofDay(within<std::u16string>({first, last}));
    return within<std::u16string>({first + u" 00:00:00", last + u" 23:59:59"});
}

} // namespace

Expectation expectationOf(const Question& question) {
    const Case c{question};
    const std::u16string& word = question.entry.FValue;
    if (!question.entry.FInput || word == u"TODAYBEFORE" || word == u"TODAYAFTER")
        return keyword(c);
    if (question.entry.FInputCtlType == u"1")
        return lookedUp(c);
    if (!c.isTyped && question.entry.FInputCtlType != u"2")
        return refusedByDatabase; // nothing between the brackets
    if (c.op.form == Form::list && (c.body().empty() || trimmed(c.body()).starts_with(u',')))
        return refusedByControl; // a list of nothing
    if (c.isChecked || c.isRaw)
        return numbers(c);
    return c.isDate ? dates(c) : quoted(c);
}

} // namespace orv::sqlproof
