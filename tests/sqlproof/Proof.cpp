#include "sqlproof/Proof.h"

#include "automation/AutomationError.h"
#include "automation/Text.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace orv::sqlproof {

using automation::toUtf8;
using nlohmann::json;

namespace {

json described(const Line& line) {
    const conditions::CompareEntry& entry = line.question.entry;
    return {{"column", toUtf8(line.column)},
            {"type", line.question.colType},
            {"operator", toUtf8(entry.FOperate)},
            {"keyword", toUtf8(entry.FValue)},
            {"typed", entry.FInput},
            {"input", toUtf8(entry.FInputCtlType)},
            {"comparesKey", entry.FDataFieldIndex == u"2"},
            {"value", toUtf8(line.question.value)},
            {"today", line.question.today}};
}

json described(const Subject& subject) {
    json lines = json::array();
    for (const Line& line : subject.lines)
        lines.push_back(described(line));
    return {{"classType", subject.classType}, {"lines", std::move(lines)}};
}

} // namespace

Proof::Proof(erp::ErpHost& host, std::ostream& statements, std::size_t every)
    : host_(host), statements_(statements), every_(every) {}

void Proof::check(const Subject& subject, Answer answer, const std::function<std::size_t()>& expected) {
    if (asked_++ % every_ != 0)
        return;
    std::u16string where;
    try {
        where = filterText(subject.lines);
    } catch (const automation::AutomationError& error) {
        if (error.number() == automation::errorNumber::invalidCall && answer == Answer::refusedByControl)
            ++tally_.refused;
        else
            fail(subject, std::string("the control refuses it: ") + error.what());
        return;
    }
    if (answer == Answer::refusedByControl)
        return fail(subject, "the control should refuse it: " + toUtf8(where));

    std::size_t found = 0;
    try {
        const erp::ListResult result = host_.list(subject.classType, where, u"", u"", 0);
        found = result.rows;
        write(subject, answer, result.sql);
    } catch (const automation::AutomationError& error) {
        // The statement behind the error: any table will do for the parser.
        write(subject, answer, u"SELECT FBillID FROM t_RP_RBill WHERE " + where);
        if (answer == Answer::refusedByDatabase)
            ++tally_.databaseErrors;
        else if (answer == Answer::open)
            ++tally_.open;
        else
            fail(subject, "the database refuses it: " + std::string(error.what()) + ": " + toUtf8(where));
        return;
    }
    if (answer == Answer::refusedByDatabase)
        return fail(subject, "the database should refuse it: " + toUtf8(where));
    if (answer == Answer::open) {
        ++tally_.open;
        return;
    }
    const std::size_t wanted = expected();
    if (found != wanted)
        return fail(subject,
                    std::to_string(found) + " rows found, " + std::to_string(wanted) + " picked: " + toUtf8(where));
    ++tally_.counted;
    tally_.someRows += found > 0 ? 1U : 0U;
}

void Proof::fail(const Subject& subject, const std::string& what) {
    ++tally_.failed;
    std::cout << "FAILED: " << what << "\n    " << described(subject).dump() << '\n';
}

void Proof::write(const Subject& subject, Answer answer, const std::u16string& sql) {
    json line = described(subject);
    line["sql"] = toUtf8(sql);
    line["refused"] = answer == Answer::refusedByDatabase;
    statements_ << line.dump() << '\n';
}

} // namespace orv::sqlproof
