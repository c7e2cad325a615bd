#pragma once

#include "automation/AutomationError.h"
#include "automation/Object.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

// How calls read in a trace.
namespace orv::automation {

/// What a trace does with the values of users.
enum class TraceMasking : bool { showsValues, hidesValues };

/// Writes values as a trace shows them. Texts stand in quotation marks with their control characters escaped, cut after
/// 4,000 UTF-16 units; of an object only the type is told.
///
/// Where values are hidden, a text is replaced by its length and a number or date by the word for it. What stays is
/// what the diagnosis lives on: Booleans, types of objects, names of record keys and columns, and SQL text, in which
/// the literals are replaced.
class TraceText {
  public:
    explicit TraceText(TraceMasking masking) : masking_(masking) {}

    /// "(a, b)": the arguments of a call of `member`.
    std::u16string arguments(std::u16string_view member, InvokeKind kind, std::span<const Argument> arguments) const;
    std::u16string result(std::u16string_view member, const Value& value) const;
    /// "error 5 from SOURCE: DESCRIPTION"; the wording stays, its literals are hidden where values are.
    std::u16string error(const AutomationError& error) const;
    /// A text that the control showed.
    std::u16string shown(std::u16string_view text) const;

    /// Texts that users have typed, which SQL text may hold without quotation marks.
    void setTypedValues(std::vector<std::u16string> values) { typed_ = std::move(values); }

  private:
    enum class Content { value, sql, name };
    static Content contentOf(std::u16string_view member, InvokeKind kind, std::size_t position, std::size_t count);
    std::u16string value(const Value& value, Content content) const;

    TraceMasking masking_;
    std::vector<std::u16string> typed_;
};

/// SQL text with "?" for its literals and for every text of `typed` that stands by itself. Values are not escaped in
/// this system's SQL, so what lies between the first and the last quotation mark of a line counts as one literal.
std::u16string withoutLiterals(std::u16string_view sql, std::span<const std::u16string> typed);

} // namespace orv::automation
