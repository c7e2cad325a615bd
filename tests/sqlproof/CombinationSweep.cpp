#include "sqlproof/Columns.h"
#include "sqlproof/PlainDates.h"
#include "sqlproof/Sweeps.h"

#include <algorithm>
#include <random>

namespace orv::sqlproof {

namespace {

/// What the lines are drawn from: columns of the header table, so that every line speaks about the same rows.
struct Piece {
    const char16_t* column;
    std::int32_t colType;
    const char16_t* operation;
    const char16_t* input;
    const char16_t* keyword;
    const char16_t* value;
};

constexpr Piece pieces[] = {
    {u"t_RP_RBill.FDate", 0, u">=", u"0", u"", u"2024-01-15 10:30:00"},
    {u"t_RP_RBill.FDate", 0, u"<>", u"0", u"", u"2024-02-29"},
    {u"t_RP_RBill.FDate", 0, u" BETWEEN ", u"0", u"", u"2024-02-01 AND 2024-02-29"},
    {u"t_RP_RBill.FDate", 0, u" BETWEEN ", u"", u"THISMONTH", u""},
    {u"t_RP_RBill.FDate", 0, u" BETWEEN ", u"", u"TODAYBEFORE", u"30"},
    {u"t_RP_RBill.FDate", 0, u"=", u"", u"ISNULL", u""},
    {u"t_RP_RBill.FDate", 0, u"<>", u"", u"NOTISNULL", u""},
    {u"t_RP_RBill.FAmountFor", 6, u">", u"0", u"", u"1e3"},
    {u"t_RP_RBill.FAmountFor", 6, u"<>", u"0", u"", u"0"},
    {u"t_RP_RBill.FAmountFor", 6, u" BETWEEN ", u"2", u"", u"-50.5 and 2000"},
    {u"t_RP_RBill.FAmountFor", 6, u" NOT IN ", u"2", u"", u"0, 100"},
    {u"t_RP_RBill.FYear", 8, u"=", u"0", u"", u"2024"},
    {u"t_RP_RBill.FExplanation", 1, u" LIKE ", u"0", u"", u"a"},
    {u"t_RP_RBill.FExplanation", 1, u" LIKE ", u"0", u"", u"10%"},
    {u"t_RP_RBill.FExplanation", 1, u" NOT LIKE ", u"0", u"", u"货款"},
    {u"t_RP_RBill.FExplanation", 1, u"<>", u"1", u"", u"货款"},
    {u"t_RP_RBill.FExplanation", 1, u"=", u"0", u"", u"it''s"},
    {u"t_RP_RBill.FExplanation", 1, u"=", u"", u"ISNULL", u""},
};

const std::vector<std::u16string>& columns() {
    static const std::vector<std::u16string> all{u"t_RP_RBill.FDate", u"t_RP_RBill.FAmountFor", u"t_RP_RBill.FYear",
                                                 u"t_RP_RBill.FExplanation"};
    return all;
}

/// A line with its answer for every row.
struct Term {
    Line line;
    std::vector<bool> picks;
};

Term termOf(const Piece& piece, const Table& table) {
    const auto column = static_cast<std::size_t>(std::ranges::find(columns(), piece.column) - columns().begin());
    Term term;
    term.line.column = piece.column;
    Question& question = term.line.question;
    question.entry.FOperate = piece.operation;
    question.entry.FInput = *piece.input != u'\0';
    question.entry.FInputCtlType = piece.input;
    question.entry.FDataFieldIndex = u"1";
    question.entry.FValue = piece.keyword;
    question.colType = piece.colType;
    question.storage = table.storages[column];
    question.value = piece.value;
    question.today = dayOf("2024-02-29");
    const Expectation expectation = expectationOf(question);
    for (const auto& row : table.rows)
        term.picks.push_back(expectation.picks(row[column]));
    return term;
}

/// AND before OR, brackets before both, as every SQL reads it.
class Evaluator {
  public:
    Evaluator(const std::vector<Line>& lines, const std::vector<const Term*>& terms, std::size_t row)
        : lines_(lines), terms_(terms), row_(row) {}

    bool whole() {
        opened_ = lines_[0].left.size();
        return alternatives();
    }

  private:
    bool alternatives() {
        bool value = conjunction();
        while (joinedBy(true))
            value = conjunction() || value;
        return value;
    }
    bool conjunction() {
        bool value = operand();
        while (joinedBy(false))
            value = operand() && value;
        return value;
    }
    bool operand() {
        if (opened_ > 0) {
            --opened_;
            const bool value = alternatives();
            --closed_; // the bracket that ended it
            return value;
        }
        closed_ = lines_[at_].right.size();
        return terms_[at_]->picks[row_];
    }
    /// Steps over the logic word behind a line when it is the wanted one and no bracket comes first.
    bool joinedBy(bool wantsOr) {
        if (closed_ > 0 || at_ + 1 == lines_.size() || lines_[at_].orNext != wantsOr)
            return false;
        opened_ = lines_[++at_].left.size();
        return true;
    }

    const std::vector<Line>& lines_;
    const std::vector<const Term*>& terms_;
    std::size_t row_;
    std::size_t at_ = 0;
    std::size_t opened_ = 0; ///< brackets before the line that are not entered yet
    std::size_t closed_ = 0; ///< brackets behind the line that are not left yet
};

} // namespace

void sweepCombinations(erp::ErpHost& host, Proof& proof) {
    constexpr std::int32_t receipts = 1000201;
    constexpr int combinations = 1500;
    const Table table = readColumns(host, receipts, columns());
    std::vector<Term> terms;
    for (const Piece& piece : pieces)
        terms.push_back(termOf(piece, table));

    std::mt19937 random(20240229);
    const auto below = [&](std::size_t limit) { return random() % limit; }; // the same numbers everywhere
    for (int n = 0; n < combinations; ++n) {
        const std::size_t count = 2 + below(4);
        std::vector<const Term*> chosen;
        std::vector<Line> lines;
        for (std::size_t i = 0; i < count; ++i) {
            chosen.push_back(&terms[below(terms.size())]);
            lines.push_back(chosen.back()->line);
            lines.back().orNext = below(2) == 0;
        }
        // Pairs of brackets that nest: each opens at a line and closes at the same or a later one.
        std::vector<std::size_t> closings;
        for (std::size_t i = 0; i < count; ++i) {
            for (std::size_t open = below(3); open > 0; --open) {
                const std::size_t last = closings.empty() ? count - 1 : closings.back();
                closings.push_back(i + below(last - i + 1));
                lines[i].left += u'(';
            }
            for (; !closings.empty() && closings.back() == i; closings.pop_back())
                lines[i].right += u')';
        }
        proof.check({receipts, lines}, Answer::counted, [&] {
            std::size_t picked = 0;
            for (std::size_t row = 0; row < table.rows.size(); ++row)
                picked += Evaluator(lines, chosen, row).whole() ? 1U : 0U;
            return picked;
        });
    }
}

} // namespace orv::sqlproof
