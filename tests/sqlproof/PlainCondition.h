#pragma once

#include "conditions/ConditionRow.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>

// What a comparison means to the user's database, in plain code over the raw values of the column.
namespace orv::sqlproof {

/// How a column is declared.
enum class Storage : std::uint8_t { unknown, truth, whole, decimal, moment, text };

/// One stored value: NULL, a number (truths too), or a text; a moment is "yyyy-mm-dd hh:mm:ss", whose order is that of
/// the moments.
using Cell = std::variant<std::monostate, double, std::u16string>;

/// A comparison with a value that a user gave it.
struct Question {
    conditions::CompareEntry entry;
    std::int32_t colType = 1;
    Storage storage = Storage::text;
    std::u16string value;
    int today = 0; ///< days since 30 December 1899
};

enum class Answer : std::uint8_t {
    counted,           ///< the database must find exactly the rows that `picks` picks
    refusedByControl,  ///< the control must not write any SQL
    refusedByDatabase, ///< the SQL must be an error to the database
    open,              ///< not told here: the SQL is parsed only
};

struct Expectation {
    Answer answer = Answer::open;
    std::function<bool(const Cell&)> picks;
};

/// What is to be expected of a question whose value comes from Values.h.
Expectation expectationOf(const Question& question);

} // namespace orv::sqlproof
