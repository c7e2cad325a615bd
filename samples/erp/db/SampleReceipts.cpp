#include "erp/db/SampleBillParts.h"

namespace orv::erp {

namespace {

constexpr int receipts = 5000;
constexpr int payments = 4000;
constexpr int refund = 2;

/// What receipts and payments share, drawn in one fixed order.
struct Money {
    int kind = 0;
    int currency = 1;
    Fixed rate{1000000, 6};
    std::optional<Fixed> foreign, book;
};

Money drawMoney(Random& random) {
    constexpr std::array<Fixed, baseCount::currencies> rates = {Fixed{1000000, 6}, Fixed{7103600, 6}, Fixed{907500, 6}};
    Money money;
    money.kind = random.chance(80) ? 0 : random.between(1, refund);
    money.currency = random.chance(75) ? 1 : random.between(2, baseCount::currencies);
    money.rate = rates[static_cast<std::size_t>(money.currency - 1)];
    if (!random.chance(2)) {
        money.foreign = amount(random, money.kind == refund);
        money.book = multiplied(*money.foreign, money.rate, 2);
    }
    return money;
}

std::optional<std::string> settleNumber(Random& random) {
    if (random.chance(40))
        return std::nullopt;
    return "P" + std::to_string(random.between(100000, 999999));
}

void fillReceipts(sqlite3* connection, Random& random) {
    Rows headers(connection, "t_RP_RBill", 28);
    Rows details(connection, "t_RP_RBillEntry", 8);
    Rows settled(connection, "t_RP_RBillSettle", 7);
    for (int id = 1; id <= receipts; ++id) {
        const auto date = billDate(random, id);
        const Moment known = date.value_or(sampleToday());
        const Money money = drawMoney(random);
        const Progress stand = progress(random);
        const auto checked = stand.checker ? std::optional(addDays(*dayOf(known), random.below(5))) : std::nullopt;
        const auto discount = random.chance(30) ? std::optional(Fixed{random.between(0, 300000), 4}) : std::nullopt;
        const auto contract =
            random.chance(50) ? std::optional("HT-" + std::to_string(random.between(1000, 1999))) : std::nullopt;
        const auto attachments = random.chance(70) ? std::optional(random.below(6)) : std::nullopt;
        const auto customer = reference(random, baseCount::customers);
        const auto department = reference(random, baseCount::departments);
        const auto employee = reference(random, baseCount::employees, 10);
        const auto settleType = reference(random, baseCount::settleTypes);
        const auto number = settleNumber(random);
        const auto account = reference(random, 5);
        const auto text = remark(random);
        const Moment made = addSeconds(*dayOf(known), random.between(8 * 3600, 18 * 3600));
        headers.add({id,
                     billNumber("SK", id),
                     date,
                     dayOf(date),
                     yearOf(known),
                     monthOf(known),
                     money.kind,
                     customer,
                     department,
                     employee,
                     money.currency,
                     money.rate,
                     money.foreign,
                     money.book,
                     discount,
                     settleType,
                     number,
                     account,
                     contract,
                     text,
                     attachments,
                     money.kind == 1,
                     stand.preparer,
                     stand.checker,
                     checked,
                     made,
                     stand.status,
                     stand.voucher});
        for (int entry = 1, count = random.between(1, 2); entry <= count; ++entry) {
            const Fixed part = amount(random, money.kind == refund);
            const auto entryAccount = reference(random, 5);
            const auto fee = random.chance(30) ? std::optional(Fixed{random.between(100, 5000), 2}) : std::nullopt;
            const auto banked =
                random.chance(80) ? std::optional(addDays(*dayOf(known), random.below(3))) : std::nullopt;
            details.add({id, entry, entryAccount, part, multiplied(part, money.rate, 2), fee, banked, remark(random)});
        }
        for (int entry = 1, count = random.below(2); entry <= count; ++entry) {
            const Fixed due = amount(random);
            const int source = random.between(1, 5000);
            const int days = random.between(0, 90);
            settled.add({id, entry, billNumber("XS", source), addDays(*dayOf(known), -days), due,
                         Fixed{due.units / random.between(1, 4), 2},
                         random.chance(90) ? std::optional(days) : std::nullopt});
        }
    }
}

void fillPayments(sqlite3* connection, Random& random) {
    Rows headers(connection, "t_RP_PBill", 24);
    Rows details(connection, "t_RP_PBillEntry", 7);
    for (int id = 1; id <= payments; ++id) {
        const auto date = billDate(random, id);
        const Moment known = date.value_or(sampleToday());
        const Money money = drawMoney(random);
        const Progress stand = progress(random);
        const auto checked = stand.checker ? std::optional(addDays(*dayOf(known), random.below(5))) : std::nullopt;
        const auto supplier = reference(random, baseCount::suppliers);
        const auto department = reference(random, baseCount::departments);
        const auto employee = reference(random, baseCount::employees, 10);
        const auto settleType = reference(random, baseCount::settleTypes);
        const auto number = settleNumber(random);
        const auto account = reference(random, 5);
        const auto text = remark(random);
        const Moment made = addSeconds(*dayOf(known), random.between(8 * 3600, 18 * 3600));
        headers.add({id,
                     billNumber("FK", id),
                     date,
                     dayOf(date),
                     yearOf(known),
                     monthOf(known),
                     money.kind,
                     supplier,
                     department,
                     employee,
                     money.currency,
                     money.rate,
                     money.foreign,
                     money.book,
                     settleType,
                     number,
                     account,
                     text,
                     stand.preparer,
                     stand.checker,
                     checked,
                     made,
                     stand.status,
                     stand.voucher});
        const Fixed part = amount(random, money.kind == refund);
        const auto entryAccount = reference(random, 5);
        const auto source = random.chance(60) ? std::optional(billNumber("CG", random.between(1, 3000))) : std::nullopt;
        details.add({id, 1, entryAccount, source, part, multiplied(part, money.rate, 2), remark(random)});
    }
}

} // namespace

void fillReceiptsAndPayments(sqlite3* connection, Random& random) {
    fillReceipts(connection, random);
    fillPayments(connection, random);
}

} // namespace orv::erp
