#include "erp/db/SampleBillParts.h"
#include "erp/db/Schema.h"

#include <map>

// Deliveries, wage bills, vouchers.
namespace orv::erp {

namespace {

constexpr int deliveries = 5000;
constexpr int wageBills = 2000; // of either kind
constexpr int vouchers = 2000;

/// A quantity of up to 1,000 with four decimals, mostly whole.
Fixed quantity(Random& random, bool negative) {
    const int units = random.chance(70) ? random.between(1, 1000) * 10000 : random.between(1, 10000000);
    return {negative ? -units : units, 4};
}

Fixed price(Random& random) {
    return {random.between(100, 9999999), 4};
}

void addDeliveryEntries(Random& random, int id, Moment day, Rows& goods, Rows& charges, Rows& plan) {
    constexpr std::array<const char*, 5> batches = {"B2023-01", "b2023-01", "B2024_02", "B2024%", ""};
    for (int entry = 1, count = random.between(1, 3); entry <= count; ++entry) {
        const bool priced = !random.chance(3);
        const Fixed quantityOf = quantity(random, random.chance(5));
        const Fixed priceOf = price(random);
        const int item = random.between(1, baseCount::goods);
        const int unit = random.between(1, baseCount::units);
        const auto discount = random.chance(20) ? std::optional(Fixed{random.between(0, 500000), 4}) : std::nullopt;
        const auto batch = random.chance(40) ? std::optional(random.pick(batches)) : std::nullopt;
        const auto produced = random.chance(40) ? std::optional(addDays(day, -random.between(1, 300))) : std::nullopt;
        goods.add({id, entry, item, unit, quantityOf, priced ? std::optional(priceOf) : std::nullopt, discount,
                   priced ? std::optional(multiplied(quantityOf, priceOf, 2)) : std::nullopt, batch, produced,
                   remark(random)});
    }
    if (random.chance(40)) {
        const auto account = reference(random, baseCount::accounts);
        const auto charge = random.chance(90) ? std::optional(Fixed{random.between(100, 100000), 2}) : std::nullopt;
        charges.add({id, 1, account, charge, remark(random)});
    }
    for (int entry = 1, count = random.below(3); entry <= count; ++entry) {
        const auto due = random.chance(95) ? std::optional(addDays(day, 30 * entry)) : std::nullopt;
        plan.add({id, entry, due, Fixed{1000000 / count, 4}, amount(random)});
    }
}

} // namespace

void fillDeliveries(sqlite3* connection, Random& random) {
    constexpr std::array<const char*, 5> addresses = {"上海市浦东新区 8 号", "广州市天河区's 仓", "Dock 7_B", "",
                                                      "北京市 [东城]"};
    constexpr std::array<const char*, 4> contacts = {"王先生", "Ms. Lee", "O'Neil", "陈"};
    Rows headers(connection, "t_SO_Delivery", 21);
    Rows goods(connection, "t_SO_DeliveryEntry1", 11);
    Rows charges(connection, "t_SO_DeliveryEntry2", 5);
    Rows plan(connection, "t_SO_DeliveryEntry3", 5);
    for (int id = 1; id <= deliveries; ++id) {
        const auto date = billDate(random, id);
        const Moment day = *dayOf(date.value_or(sampleToday()));
        const Progress stand = progress(random);
        const Fixed net = amount(random, random.chance(5));
        const auto customer = reference(random, baseCount::customers);
        const auto department = reference(random, baseCount::departments);
        const auto employee = reference(random, baseCount::employees, 10);
        const auto warehouse = reference(random, baseCount::warehouses);
        const auto transport = random.chance(80)
                                   ? std::optional(auxStart::transports + random.below(baseCount::transports))
                                   : std::nullopt;
        const int currency = random.chance(85) ? 1 : random.between(2, baseCount::currencies);
        const auto tax = random.chance(95) ? std::optional(multiplied(net, {13, 2}, 2)) : std::nullopt;
        const auto address = random.chance(70) ? std::optional(random.pick(addresses)) : std::nullopt;
        const auto contact = random.chance(60) ? std::optional(random.pick(contacts)) : std::nullopt;
        const auto text = remark(random);
        const int prints = random.below(4);
        const bool urgent = random.chance(10);
        const auto delivered =
            random.chance(85) ? std::optional(addSeconds(day, random.between(0, 3 * 86400 - 1))) : std::nullopt;
        headers.add({id,
                     billNumber("XS", id),
                     date,
                     customer,
                     department,
                     employee,
                     warehouse,
                     transport,
                     currency,
                     net,
                     tax,
                     address,
                     contact,
                     text,
                     prints,
                     urgent,
                     delivered,
                     stand.preparer,
                     stand.checker,
                     stand.status,
                     stand.voucher});
        addDeliveryEntries(random, id, day, goods, charges, plan);
    }
}

void fillWages(sqlite3* connection, Random& random) {
    Rows hourly(connection, "ICHourlywage", 16);
    Rows pieces(connection, "ICPiecewage", 15);
    for (int id = 1; id <= wageBills; ++id) {
        const auto date = billDate(random, id);
        const Moment start = addSeconds(*dayOf(date.value_or(sampleToday())), random.between(6, 20) * 3600);
        const int minutes = random.between(2, 48) * 15;
        const Fixed hours{minutes * 100 / 60, 2};
        const Fixed rate{random.between(150000, 600000), 4};
        const Progress stand = progress(random);
        const int ownClass = random.chance(95) ? hourlyWageClass : pieceWageClass;
        const auto employee = reference(random, baseCount::employees);
        const auto department = reference(random, baseCount::departments);
        const auto reason = random.chance(90)
                                ? std::optional(auxStart::wageReasons + random.below(baseCount::wageReasons))
                                : std::nullopt;
        const auto end = random.chance(97) ? std::optional(addSeconds(start, minutes * 60)) : std::nullopt;
        hourly.add({id, billNumber("JS", id), ownClass, date, employee, department, reason, start, end, hours, rate,
                    multiplied(hours, rate, 2), remark(random), stand.preparer, stand.status, stand.voucher});
    }
    for (int id = 1; id <= wageBills; ++id) {
        const auto date = billDate(random, id);
        const Fixed made = quantity(random, false);
        const Fixed passed{made.units - made.units * random.below(10) / 100, 4};
        const Fixed each{random.between(1000, 300000), 4};
        const Progress stand = progress(random);
        const int ownClass = random.chance(95) ? pieceWageClass : hourlyWageClass;
        const auto employee = reference(random, baseCount::employees);
        const auto department = reference(random, baseCount::departments);
        const auto item = reference(random, baseCount::goods);
        pieces.add({id, billNumber("JJ", id), ownClass, date, employee, department, item, made, passed, each,
                    multiplied(passed, each, 2), remark(random), stand.preparer, stand.status, stand.voucher});
    }
}

void fillVouchers(sqlite3* connection, Random& random) {
    constexpr std::array<const char*, 4> groups = {"记", "收", "付", "转"};
    Rows headers(connection, "t_GL_Voucher", 15);
    Rows entries(connection, "t_GL_VoucherEntry", 8);
    std::map<std::string, int> lastNumber; // by year, period and group
    for (int id = 1; id <= vouchers; ++id) {
        const auto date = dayOf(billDate(random, id));
        const Moment known = date.value_or(sampleToday());
        const std::string group = random.pick(groups);
        const int number = ++lastNumber[storedText(known).substr(0, 7) + group];
        const Fixed total = amount(random);
        const Progress stand = progress(random);
        const auto text = remark(random);
        const bool posted = stand.status == 1 && random.chance(80);
        const auto postedAt = posted ? std::optional(addSeconds(known, random.between(0, 10 * 86400))) : std::nullopt;
        const int attachments = random.below(5);
        headers.add({id, date, yearOf(known), monthOf(known), group, number, attachments, total, total, text,
                     stand.preparer, stand.checker, postedAt, posted, stand.status});
        for (const int direction : {1, -1}) {
            const int account = random.between(1, baseCount::accounts);
            const bool counted = random.chance(15);
            const auto many = counted ? std::optional(quantity(random, false)) : std::nullopt;
            const auto unit = counted ? std::optional(random.between(1, baseCount::units)) : std::nullopt;
            entries.add({id, direction == 1 ? 1 : 2, account, remark(random), direction, total, many, unit});
        }
    }
}

} // namespace orv::erp
