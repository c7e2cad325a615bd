#include "erp/db/SampleParts.h"
#include "erp/db/Schema.h"

// System tables and base data.
namespace orv::erp {

namespace {

struct Named {
    const char* number;
    const char* name;
};

void fillPeriods(sqlite3* connection) {
    Rows rows(connection, "t_Period", 6);
    for (const int kind : {0, 1}) {
        for (int month = 0; month < 24; ++month) {
            const int year = 2023 + month / 12;
            const auto period = static_cast<unsigned>(month % 12 + 1);
            const Moment start = *makeMoment(year, period, 1);
            const Moment next = period == 12 ? *makeMoment(year + 1, 1, 1) : *makeMoment(year, period + 1, 1);
            // The business modules are in February 2024; the general ledger still has January open.
            const bool current = year == 2024 && period == (kind == 0 ? 2 : 1);
            rows.add({kind, year, static_cast<int>(period), start, addDays(next, -1), current});
        }
    }
}

/// Number 1 up in the order of the list; `numbers` start with `prefix`.
template <std::size_t size>
void fillNamed(sqlite3* connection, std::string_view table, const std::array<Named, size>& items) {
    Rows rows(connection, table, 3);
    int id = 0;
    for (const Named& item : items)
        rows.add({++id, item.number, item.name});
}

void fillUnits(sqlite3* connection) {
    constexpr std::array<Named, baseCount::unitGroups> groups = {
        {{"01", "数量组"}, {"02", "重量组"}, {"03", "长度组"}}};
    fillNamed(connection, "t_UnitGroup", groups);
    Rows rows(connection, "t_Unit", 5);
    rows.add({1, "0101", "个", 1, Fixed{10000, 4}});
    rows.add({2, "0102", "箱", 1, Fixed{240000, 4}});
    rows.add({3, "0103", "打", 1, Fixed{120000, 4}});
    rows.add({4, "0201", "公斤", 2, Fixed{10000, 4}});
    rows.add({5, "0202", "克", 2, Fixed{10, 4}});
    rows.add({6, "0203", "吨", 2, Fixed{10000000, 4}});
    rows.add({7, "0301", "米", 3, Fixed{10000, 4}});
    rows.add({8, "0302", "厘米", 3, Fixed{100, 4}});
}

void fillAuxData(sqlite3* connection) {
    constexpr std::array<const char*, baseCount::regions> regions = {"华东", "华南", "华北", "西南", "东北", "海外"};
    constexpr std::array<const char*, baseCount::transports> transports = {"公路", "铁路", "空运", "自提"};
    constexpr std::array<const char*, baseCount::brands> brands = {"明辉", "Orion", "orion Plus",
                                                                   "北斗", "K&K",   "无品牌"};
    constexpr std::array<const char*, baseCount::wageReasons> reasons = {"正常", "加班", "停工待料", "返修", "培训"};
    Rows types(connection, "t_AuxType", 2);
    Rows rows(connection, "t_AuxData", 4);
    int id = 0;
    const auto fill = [&](int type, const char* name, const auto& items) {
        types.add({type, name});
        int number = 0;
        for (const char* item : items)
            rows.add({++id, type, billNumber("", ++number).substr(4), item});
    };
    fill(20, "区域", regions);
    fill(21, "运输方式", transports);
    fill(22, "品牌", brands);
    fill(131, "工时原因", reasons);
}

void fillPeople(sqlite3* connection, Random& random) {
    constexpr std::array<const char*, baseCount::departments> departments = {"总经办", "财务部", "销售一部", "销售二部",
                                                                             "采购部", "仓储部", "生产车间", "R&D"};
    Rows departmentRows(connection, "t_Department", 4);
    int id = 0;
    for (const char* name : departments) {
        ++id;
        departmentRows.add({id, billNumber("D", id), name,
                            random.chance(80) ? std::optional(random.between(1, baseCount::employees)) : std::nullopt});
    }
    constexpr std::array<const char*, 10> family = {"张", "王", "李", "赵", "陈", "刘", "杨", "黄", "周", "吴"};
    constexpr std::array<const char*, 8> given = {"伟", "芳", "敏", "静", "强", "磊", "洋", "艳"};
    Rows rows(connection, "t_Employee", 6);
    for (int i = 1; i <= baseCount::employees; ++i) {
        std::string name = random.pick(family);
        name += random.pick(given);
        if (i == 7)
            name = "Sean O'Brien";
        const auto hired =
            random.chance(90) ? std::optional(addDays(sampleToday(), -random.between(10, 4000))) : std::nullopt;
        rows.add({i, billNumber("E", i), name, random.between(1, baseCount::departments), hired,
                  random.chance(85) ? std::optional(Fixed{random.between(1500, 6000), 2}) : std::nullopt});
    }
}

void fillPartners(sqlite3* connection, Random& random) {
    // Names that a filter can stumble over: quotes, wildcards, letter case, blanks at the end, hyphens, wide letters.
    constexpr std::array<Named, 12> special = {{{"O'Brien 贸易", "O'Brien"},
                                                {"Orion Trading", "ORION"},
                                                {"ORION trading  ", "orion"},
                                                {"Ｏｒｉｏｎ Trading", "Ｏrion"},
                                                {"100% 棉业", "100%"},
                                                {"A_B 五金", "A_B"},
                                                {"AXB 五金", "AXB"},
                                                {"[北方] 机电", "[北方]"},
                                                {"co-op 合作社", "co-op"},
                                                {"coop 合作社", "coop"},
                                                {"Åse Møbler", "åse"},
                                                {"上海 \"双引号\" 公司", ""}}};
    constexpr std::array<const char*, 6> towns = {"上海", "广州", "北京", "成都", "沈阳", "深圳"};
    constexpr std::array<const char*, 5> trades = {"电子", "机械", "化工", "纺织", "食品"};
    Rows customers(connection, "t_Customer", 9);
    for (int i = 1; i <= baseCount::customers; ++i) {
        const bool isSpecial = i <= static_cast<int>(special.size());
        const Named names = isSpecial ? special[static_cast<std::size_t>(i - 1)] : Named{};
        const std::string town = random.pick(towns);
        const std::string trade = random.pick(trades);
        const std::string name = isSpecial ? names.number : town + trade + "有限公司" + std::to_string(i);
        const auto shortName = isSpecial           ? std::optional<std::string>(names.name)
                               : random.chance(70) ? std::optional(town + std::to_string(i))
                                                   : std::nullopt;
        customers.add(
            {i, billNumber("C", i), name, shortName,
             random.chance(90) ? std::optional(auxStart::regions + random.below(baseCount::regions)) : std::nullopt,
             random.chance(80) ? std::optional(random.between(3, 4)) : std::nullopt,
             random.chance(80) ? std::optional(random.between(1, baseCount::employees)) : std::nullopt,
             random.chance(60) ? std::optional(Fixed{random.between(0, 500) * 100000, 2}) : std::nullopt,
             random.chance(50) ? std::optional("021-" + std::to_string(random.between(50000000, 69999999)))
                               : std::nullopt});
    }
    Rows suppliers(connection, "t_Supplier", 5);
    for (int i = 1; i <= baseCount::suppliers; ++i) {
        std::string name = random.pick(towns);
        name += random.pick(trades);
        name += (i % 7 == 0 ? "厂" : "供应商") + std::to_string(i);
        suppliers.add(
            {i, billNumber("S", i), name,
             random.chance(90) ? std::optional(auxStart::regions + random.below(baseCount::regions)) : std::nullopt,
             random.chance(50) ? std::optional("010-" + std::to_string(random.between(60000000, 89999999)))
                               : std::nullopt});
    }
}

void fillAccounts(sqlite3* connection) {
    struct Account {
        const char* number;
        const char* name;
        int group;
        bool detail;
        int direction;
    };
    constexpr std::array<Account, baseCount::accounts> accounts = {{
        {"1001", "库存现金", 101, true, 1},      {"1002", "银行存款", 101, false, 1},
        {"1002.01", "工商银行", 101, true, 1},   {"1002.02", "建设银行", 101, true, 1},
        {"1012", "其他货币资金", 101, true, 1},  {"1122", "应收账款", 101, true, 1},
        {"1123", "预付账款", 101, true, 1},      {"1221", "其他应收款", 101, true, 1},
        {"1403", "原材料", 101, true, 1},        {"1405", "库存商品", 101, true, 1},
        {"1601", "固定资产", 102, true, 1},      {"2202", "应付账款", 201, true, -1},
        {"2203", "预收账款", 201, true, -1},     {"2211", "应付职工薪酬", 201, true, -1},
        {"2221", "应交税费", 201, false, -1},    {"2221.01", "应交增值税", 201, true, -1},
        {"4001", "实收资本", 301, true, -1},     {"5001", "生产成本", 401, true, 1},
        {"6001", "主营业务收入", 501, true, -1}, {"6401", "主营业务成本", 502, true, 1},
        {"6601", "销售费用", 502, true, 1},      {"6602", "管理费用", 502, true, 1},
        {"9001", "代管物资", 700, true, 1},      {"9002", "担保", 701, true, 1},
    }};
    Rows rows(connection, "t_Account", 6);
    int id = 0;
    for (const Account& account : accounts)
        rows.add({++id, account.number, account.name, account.group, account.detail, account.direction});
}

void fillGoods(sqlite3* connection, Random& random) {
    constexpr std::array<const char*, 6> kinds = {"轴承", "电机", "水泵", "阀门", "电缆", "Sensor"};
    constexpr std::array<const char*, 8> models = {"DN50", "dn50", "M8_20", "M8x20", "95%", "[T]100", "Φ12", "A-12'"};
    constexpr std::array<const char*, 4> notes = {"", "易碎", "Keep dry ", "客户's 定制"};
    constexpr std::array<int, 4> shelfLives = {30, 90, 365, 730};
    Rows rows(connection, "t_Goods", 18);
    for (int i = 1; i <= baseCount::goods; ++i) {
        const int unit = random.between(1, baseCount::units);
        const int group = unit <= 3 ? 1 : unit <= 6 ? 2 : 3;
        const Moment created = addDays(sampleToday(), -random.between(1, 700));
        const auto modified =
            random.chance(70) ? std::optional(addSeconds(created, random.between(1, 60 * 86400))) : std::nullopt;
        rows.add({i, billNumber("G", i), std::string(random.pick(kinds)) + " " + std::to_string(i),
                  random.chance(85) ? std::optional(random.pick(models)) : std::nullopt, group, unit,
                  random.chance(80) ? std::optional(auxStart::brands + random.below(baseCount::brands)) : std::nullopt,
                  random.chance(85) ? std::optional(random.between(1, baseCount::suppliers)) : std::nullopt,
                  random.chance(90) ? std::optional(Fixed{random.between(100, 50000000), 4}) : std::nullopt,
                  Fixed{random.chance(80)   ? 130000
                        : random.chance(50) ? 90000
                                            : 0,
                        4},
                  random.chance(75) ? std::optional(Fixed{random.between(1, 90000000), 6}) : std::nullopt,
                  random.chance(40) ? std::optional(random.pick(shelfLives)) : std::nullopt,
                  random.chance(60) ? std::optional("690" + std::to_string(1000000000 + random.below(999999999)))
                                    : std::nullopt,
                  random.chance(30), created, modified, random.chance(5),
                  random.chance(60) ? std::optional(random.pick(notes)) : std::nullopt});
    }
}

void fillBaseDataFields(sqlite3* connection) {
    Rows rows(connection, "t_BaseDataField", 9);
    // Class 1 customer, 2 goods, 3 employee, 4 department: those of their fields that point to further base data.
    rows.add({1, "FDepartmentID", "t_Customer", "t_Department", "FItemID", "FName", "FItemID", 1, 4});
    rows.add({1, "FEmployeeID", "t_Customer", "t_Employee", "FItemID", "FName", "FItemID", 1, 3});
    rows.add({1, "FRegionID", "t_Customer", "t_AuxData", "FItemID", "FName", "FItemID", 2, 20});
    rows.add({2, "FUnitID", "t_Goods", "t_Unit", "FItemID", "FName", "FItemID", 1, 7});
    rows.add({2, "FSupplierID", "t_Goods", "t_Supplier", "FItemID", "FName", "FItemID", 1, 8});
    rows.add({3, "FDepartmentID", "t_Employee", "t_Department", "FItemID", "FName", "FItemID", 1, 4});
    rows.add({4, "FManager", "t_Department", "t_Employee", "FItemID", "FName", "FItemID", 1, 3});
}

} // namespace

void fillSystemTables(sqlite3* connection) {
    Rows types(connection, "t_ClassType", 3);
    types.add({classType::goods, "商品档案", "t_Goods"});
    types.add({classType::receipt, "收款单据", "t_RP_RBill"});
    types.add({classType::payment, "付款单据", "t_RP_PBill"});
    types.add({classType::delivery, "销售出库单", "t_SO_Delivery"});
    types.add({classType::voucher, "凭证", "t_GL_Voucher"});
    types.add({classType::hourlyWage, "计时工资单", "ICHourlywage"});
    types.add({classType::pieceWage, "计件工资单", "ICPiecewage"});

    Rows users(connection, "t_user", 3);
    users.add({1, "Admin", false});
    users.add({2, "张敏", false});
    users.add({3, "李强", false});
    users.add({4, "O'Brien", true});

    fillPeriods(connection);
    fillBaseDataFields(connection);
}

void fillBaseData(sqlite3* connection, Random& random) {
    constexpr std::array<Named, baseCount::settleTypes> settleTypes = {
        {{"JF01", "现金"}, {"JF02", "电汇"}, {"JF03", "信汇"}, {"JF04", "商业汇票"}, {"JF05", "支票"}}};
    constexpr std::array<Named, baseCount::warehouses> warehouses = {
        {{"01", "成品仓"}, {"02", "原料仓"}, {"03", "退货仓"}, {"04", "Bonded"}}};
    fillUnits(connection);
    Rows currencies(connection, "t_Currency", 5);
    currencies.add({1, "RMB", "人民币", Fixed{1000000, 6}, 2});
    currencies.add({2, "USD", "美元", Fixed{7103600, 6}, 2});
    currencies.add({3, "HKD", "港币", Fixed{907500, 6}, 2});
    fillNamed(connection, "t_SettleType", settleTypes);
    fillPeople(connection, random);
    fillNamed(connection, "t_Warehouse", warehouses);
    fillAuxData(connection);
    fillPartners(connection, random);
    fillAccounts(connection);
    fillGoods(connection, random);
}

} // namespace orv::erp
