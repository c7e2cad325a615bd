#include "erp/db/SampleBillParts.h"

namespace orv::erp {

namespace {

struct Day {
    int year;
    unsigned month, day;
};

constexpr std::array<Day, 20> boundaryDays = {
    {{2024, 2, 29}, {2024, 2, 28}, {2024, 3, 1},   {2024, 2, 1},  {2024, 1, 31},  {2024, 3, 31}, {2024, 2, 26},
     {2024, 3, 3},  {2024, 2, 25}, {2024, 3, 4},   {2024, 2, 19}, {2024, 3, 10},  {2024, 4, 1},  {2024, 4, 30},
     {2023, 2, 28}, {2023, 3, 31}, {2023, 12, 31}, {2024, 1, 1},  {2024, 12, 31}, {2023, 1, 1}}};
constexpr std::array<int, 4> boundaryTimes = {0, 86399, 1, 43200}; // seconds of the day

constexpr int firstToLastDay = 730; // 2023-01-01 to 2024-12-31

} // namespace

std::optional<Moment> billDate(Random& random, int number) {
    const auto index = static_cast<std::size_t>(number - 1);
    if (index < boundaryDays.size() * boundaryTimes.size()) {
        const Day day = boundaryDays[index % boundaryDays.size()];
        return makeMoment(day.year, day.month, day.day, boundaryTimes[index / boundaryDays.size()]);
    }
    if (random.chance(2))
        return std::nullopt;
    const Moment day = random.chance(33) ? addDays(sampleToday(), random.between(-30, 30))
                                         : addDays(*makeMoment(2023, 1, 1), random.between(0, firstToLastDay));
    if (random.chance(70))
        return day;
    return addSeconds(day, random.chance(30) ? 86399 : random.below(86400));
}

std::optional<Moment> dayOf(const std::optional<Moment>& moment) {
    if (!moment)
        return std::nullopt;
    return Moment{moment->seconds - moment->seconds % 86400};
}

std::optional<std::string> remark(Random& random) {
    constexpr std::array<const char*, 24> remarks = {
        "",     "  ",    "货款",     "货款 ", "预收定金", "退款",  "O'Brien 来款", "''",
        "100%", "100",   "50% 定金", "a_b",   "axb",      "[急]",  "急",           "ABC",
        "abc",  "Abc  ", "ＡＢＣ",   "co-op", "coop",     "第1期", "第2期",        "含税, 已开票"};
    if (random.chance(20))
        return std::nullopt;
    if (random.chance(40))
        return "合同 HT-" + std::to_string(random.between(1000, 1999));
    return random.pick(remarks);
}

Progress progress(Random& random) {
    Progress result;
    result.status = random.chance(70) ? 1 : 0;
    result.preparer = random.between(1, baseCount::users);
    if (result.status == 1)
        result.checker = random.between(1, baseCount::users);
    if (result.status == 1 && random.chance(60))
        result.voucher = random.between(1, 2000);
    return result;
}

Fixed amount(Random& random, bool negative) {
    int cents = random.between(1, 100000000);
    if (random.chance(10))
        cents = random.between(1, 1000) * 100000;
    if (random.chance(2))
        cents = 0;
    return {negative ? -cents : cents, 2};
}

std::optional<int> reference(Random& random, int count, int percentMissing) {
    if (random.chance(percentMissing))
        return std::nullopt;
    return random.between(1, count);
}

} // namespace orv::erp
