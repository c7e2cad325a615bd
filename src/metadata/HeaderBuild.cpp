#include "metadata/HeaderBuild.h"

#include "automation/AutomationError.h"
#include "metadata/HeaderCaption.h"
#include "metadata/ValueListField.h"
#include "support/Letters.h"

#include <unordered_map>

namespace orv::metadata {

using automation::Collection;
using automation::Dictionary;
using automation::Value;

namespace {

/// Mark of a must-get field in the all-keys map.
constexpr std::int32_t mustGetKeyMark = 3;

/// Two class types name the column by which their list tells rows apart.
std::u16string_view xorColumn(std::int32_t classTypeId) {
    switch (classTypeId) {
    case 1000201:
        return u"t_RP_RBill.FReceiveTypeID";
    case 1000202:
        return u"t_RP_PBill.FPayTypeID";
    default:
        return {};
    }
}

class HeaderBuilder {
  public:
    HeaderBuilder(const HeaderBuildInput& input, const Collection& header) : input_(input), header_(header) {}

    void run() {
        if (input_.columns.empty())
            return;
        try {
            addMustGetColumns();
            addShownColumns();
        } catch (...) {
            try {
                writeMarks();
            } catch (const automation::AutomationError&) {
                // The build's own failure is what the host must learn.
            }
            throw;
        }
        writeMarks();
    }

  private:
    void addMustGetColumns() {
        const std::int32_t count = input_.catalogue.count();
        for (std::int32_t position = 1; position <= count; ++position) {
            SelectItem& item = input_.catalogue.item(position);
            const FieldRef field = input_.catalogue.field(position);
            if (input_.pages.contains(field->text(fieldKey::page)) && (item.mustGet() || item.isDecimal())) {
                input_.allKeys.set(field->text(fieldKey::key), mustGetKeyMark);
                const Dictionary column = addColumn(*field, Shown::no, 0.0);
                column.set(u"Decimal", item.decimalMark());
            }
            item.setHaveSel(false);
            reset_ = position;
        }
    }

    /// Writes the mark of every item that this build has reset, once, with what it has become.
    void writeMarks() {
        while (marked_ < reset_)
            input_.catalogue.item(++marked_).writeHaveSel();
    }

    void addShownColumns() {
        // The positions of each key: the first one, and from each position the next one; 0 ends them.
        struct Positions {
            std::int32_t first = 0;
            std::int32_t last = 0;
        };
        std::unordered_map<std::u16string, Positions> positionsByKey;
        std::vector<std::int32_t> next(1, 0);
        for (std::int32_t position = 1; position <= input_.catalogue.count(); ++position) {
            const FieldRef field = input_.catalogue.field(position);
            Positions& positions = positionsByKey[support::toUpper(field->text(fieldKey::key))];
            next.push_back(0);
            (positions.first == 0 ? positions.first : next[static_cast<std::size_t>(positions.last)]) = position;
            positions.last = position;
        }
        for (const ColumnSetting& column : input_.columns) {
            if (!column.shown)
                continue;
            const auto found = positionsByKey.find(support::toUpper(column.key));
            if (found == positionsByKey.end())
                continue;
            for (std::int32_t position = found->second.first; position != 0;
                 position = next[static_cast<std::size_t>(position)]) {
                SelectItem& item = input_.catalogue.item(position);
                const FieldRef field = input_.catalogue.field(position);
                if (!field->text(fieldKey::parentKey).empty() || !item.visible() || item.haveSel())
                    continue;
                addColumn(*field, Shown::yes, column.width);
                item.setHaveSel(true);
                break;
            }
        }
    }

    enum class Shown : bool { no, yes };

    Dictionary addColumn(const FieldRecord& field, Shown shown, double width) {
        const std::u16string key = field.text(fieldKey::key);
        const HeaderCaption caption = captions_.place(field.text(fieldKey::caption), shown == Shown::yes);
        const Dictionary column = automation::newRecord(input_.factory);
        column.set(u"FColCaption", caption.first);
        column.set(u"FHeadSecond", caption.second);
        column.set(u"FColType", field.value(fieldKey::colType));
        column.set(u"FColName", field.value(fieldKey::fieldName));
        column.set(u"FFieldNameExt", field.value(fieldKey::fieldNameExt));
        column.set(u"FVisible", shown == Shown::yes);
        column.set(u"FMergerType", std::int32_t{0});
        column.set(u"FKey", key);
        column.set(u"FPage", field.value(fieldKey::page));
        column.set(u"FWidth", width);
        column.set(u"FNeedAs", field.value(fieldKey::needAs));
        if (const auto name = xorColumn(input_.classTypeId); !name.empty())
            column.set(u"FXOR", name);
        if (field.text(fieldKey::keyWord) == u"AMOUNT")
            if (const std::u16string stem = field.text(fieldKey::property); !stem.empty())
                column.set(u"DecimalKey", stem + u"_Decimal");
        const Value& sum = field.value(fieldKey::sum);
        column.set(u"FNeedCount", sum.isEmpty() ? Value(std::int32_t{0}) : sum);
        if (const auto list = LookUpDescription::parse(field.text(fieldKey::lookUpList)); list.isValueList()) {
            provideValueList(field, list.body, input_.factory);
            column.set(u"VALUELIST", makeTwoWayValueList(list.body, input_.factory).object());
        }
        if (caption.continues)
            records_[*caption.continues].set(u"FColCaption", captions_.leaderCaption());
        header_.add(column.object());
        records_.push_back(column);
        return column;
    }

    const HeaderBuildInput& input_;
    const Collection& header_;
    HeaderCaptions captions_;
    std::vector<Dictionary> records_;
    std::int32_t reset_ = 0;  ///< items up to this one have had their mark reset by this build
    std::int32_t marked_ = 0; ///< items up to this one have had it written
};

} // namespace

void buildHeader(const HeaderBuildInput& input, const Collection& header) {
    HeaderBuilder(input, header).run();
}

} // namespace orv::metadata
