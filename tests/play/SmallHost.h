#pragma once

#include "play/CommandLine.h"
#include "play/Player.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace orv::play {

/// A host with one class type of two fields and two bills, and the steps of a scenario on it.
inline std::string smallScenario(const std::string& steps) {
    return R"({"host": {
        "classTypes": [{"FID": 7, "FName": "测试单", "pages": [{"FName": "单据头", "FEntryType": 0}],
            "list": {"from": "t_Test", "key": "t_Test.FBillNo"},
            "fields": [
                {"FKey": "FBillNo", "FCaption": "单号", "FColType": 1, "FFieldName": "t_Test.FBillNo",
                 "FFieldNameExt": "t_Test.FBillNo", "FPage": 1, "FCondition": "text"},
                {"FKey": "FQty", "FCaption": "数量", "FColType": 2, "FFieldName": "t_Test.FQty",
                 "FFieldNameExt": "t_Test.FQty", "FPage": 1, "FCondition": "text"}]}],
        "conditions": {"text": [{"FName": "等于", "FOperate": "=", "FValue": "", "FInput": true, "FInputCtlType": "0"}]},
        "tables": {"t_Test": [{"FBillNo": "B", "FQty": 1}, {"FBillNo": "A", "FQty": 1}, {"FBillNo": "C", "FQty": 2}]}},
        "steps": [)" +
           steps + "]}";
}

/// Keeps the outcome of every step.
class Outcomes final : public Audience {
  public:
    void played(const Step& step, const StepOutcome& outcome, const std::vector<std::string>&) override {
        lines.push_back(outcome.toJson(step.number));
    }
    std::vector<Json> lines;
};

/// Plays a scenario on the small host, named "small".
inline Report playSmall(const std::string& steps, Outcomes& outcomes) {
    return play(parseScenario(smallScenario(steps), "small"), outcomes);
}
inline Report playSmall(const std::string& steps) {
    Outcomes outcomes;
    return playSmall(steps, outcomes);
}

} // namespace orv::play
