#include "automation/portable/DateFields.h"

#include "automation/Ascii.h"
#include "automation/portable/WidthFolding.h"

#include <cstddef>
#include <string>
#include <utility>

namespace orv::automation {

namespace {

/// Year, month, day, hour, minute, second: a text with more numbers is no date.
constexpr std::size_t mostFields = 6;
constexpr int mostDateSeparators = 2;
/// Larger than any part of a date, small enough to be added up.
constexpr std::int32_t tooLarge = 1'000'000;

struct HalfDayWord {
    std::u16string_view text;
    HalfDay half;
};
// The longer word first: "a" is short for "am".
constexpr HalfDayWord halfDayWords[] = {
    {u"上午", HalfDay::morning}, {u"下午", HalfDay::afternoon}, {u"am", HalfDay::morning},
    {u"pm", HalfDay::afternoon}, {u"a", HalfDay::morning},      {u"p", HalfDay::afternoon},
};

struct MarkSign {
    char16_t unit;
    FieldMark mark;
};
constexpr MarkSign markSigns[] = {
    {u'年', FieldMark::year}, {u'月', FieldMark::month}, {u'日', FieldMark::day},    {u'号', FieldMark::day},
    {u'时', FieldMark::hour}, {u'点', FieldMark::hour},  {u'分', FieldMark::minute}, {u'秒', FieldMark::second},
};

class FieldSplitter {
  public:
    explicit FieldSplitter(std::u16string_view text) : rest_(text) {}

    std::optional<std::vector<DateField>> split() {
        while (!rest_.empty())
            if (!(takeBlank() || takeNumber() || takeMark() || takeHalfDay() || takeTimeSeparator() ||
                  takeDateSeparator()))
                return std::nullopt;
        const bool endsOpen = separatorOpen_ || pendingHalf_ != HalfDay::none;
        if (fields_.empty() || fields_.size() > mostFields || endsOpen)
            return std::nullopt;
        return std::move(fields_);
    }

  private:
    char16_t front() const noexcept { return rest_.front(); }

    bool takeBlank() {
        if (!isWhite(front()))
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool takeNumber() {
        if (!isAsciiDigit(front()) || fields_.size() == mostFields)
            return false;
        DateField field;
        for (; !rest_.empty() && isAsciiDigit(front()); rest_.remove_prefix(1))
            if (field.value < tooLarge)
                field.value = field.value * 10 + (front() - u'0');
        field.halfDay = std::exchange(pendingHalf_, HalfDay::none);
        fields_.push_back(field);
        separatorOpen_ = false;
        return true;
    }

    bool takeMark() {
        if (fields_.empty() || fields_.back().mark != FieldMark::none || separatorOpen_)
            return false;
        for (const MarkSign& sign : markSigns) {
            if (sign.unit != front())
                continue;
            fields_.back().mark = sign.mark;
            rest_.remove_prefix(1);
            return true;
        }
        return false;
    }

    bool takeHalfDay() {
        if (halfDaySeen_ || separatorOpen_)
            return false;
        for (const HalfDayWord& word : halfDayWords) {
            if (!sameIgnoringAsciiCase(rest_.substr(0, word.text.size()), word.text))
                continue;
            const bool isChinese = word.text[0] >= 0x80;
            rest_.remove_prefix(word.text.size());
            halfDaySeen_ = true;
            // The Chinese words stand before the time as a rule, the others behind it only.
            if (isChinese && !rest_.empty() && leadsNumber())
                pendingHalf_ = word.half;
            else if (fields_.empty())
                return false;
            else
                fields_.back().halfDay = word.half;
            return true;
        }
        return false;
    }

    bool leadsNumber() const noexcept {
        std::size_t i = 0;
        while (i < rest_.size() && isWhite(rest_[i]))
            ++i;
        return i < rest_.size() && isAsciiDigit(rest_[i]);
    }

    bool takeTimeSeparator() {
        if ((front() != u':' && front() != u'.') || fields_.empty() || separatorOpen_)
            return false;
        fields_.back().timeFollows = true;
        separatorOpen_ = true;
        rest_.remove_prefix(1);
        return true;
    }

    bool takeDateSeparator() {
        const bool isComma = front() == u',';
        if ((front() != u'-' && front() != u'/' && !isComma) || fields_.empty() || separatorOpen_)
            return false;
        if (!isComma && ++dateSeparators_ > mostDateSeparators)
            return false;
        separatorOpen_ = true;
        rest_.remove_prefix(1);
        return true;
    }

    std::u16string_view rest_;
    std::vector<DateField> fields_;
    bool separatorOpen_ = false; ///< a separator is waiting for the number behind it
    bool halfDaySeen_ = false;
    HalfDay pendingHalf_ = HalfDay::none; ///< of the number to come
    int dateSeparators_ = 0;
};

} // namespace

std::optional<std::vector<DateField>> splitDateFields(std::u16string_view text) {
    const std::u16string folded = foldWidth(text);
    return FieldSplitter(folded).split();
}

} // namespace orv::automation
