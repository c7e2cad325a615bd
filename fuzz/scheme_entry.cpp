// Scheme entry records as a host may hand them back: any text under any key. Laying one on the grids and writing it out
// again settles at once, and the control stays whole.
#include "ControlChecks.h"
#include "Input.h"
#include "automation/Coercion.h"
#include "faults/Invariants.h"

using namespace orv;
using automation::Dictionary;
using automation::Value;

namespace {

constexpr const char16_t* keys[] = {u"OrderBy", u"Relation", u"RelationExt", u"ColWidth", u"ColHide",      u"ColIndex",
                                    u"SelPage", u"cboTime",  u"cboCheck",    u"cboPost",  u"IsShowAllHead"};

Value valueOf(fuzz::Input& input) {
    switch (input.below(8)) {
    case 1:
        input.line();
        return automation::Null{};
    case 2:
        return Value(input.number());
    case 3:
        input.line();
        return Value();
    case 4:
        input.line();
        return true;
    case 5:
        input.line();
        return automation::ObjectRef();
    default:
        return input.line();
    }
}

std::u16string written(const Dictionary& entry) {
    std::u16string all;
    for (const char16_t* key : keys)
        all += std::u16string(key) + u"=" + automation::toText(entry.get(key)) + u"\n";
    return all;
}

/// Whether the lines with a field stand together at the top.
bool hasNoGap(const ui::Spread& grid) {
    bool ended = false;
    for (int row = 1; row <= grid.maxRows(); ++row) {
        const bool used = !grid.text(2, row).empty();
        if (used && ended)
            return false;
        ended = !used;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    fuzz::SmallHost host;
    {
        control::Filter filter(host, host);
        filter.put_DataSrv(host.dataService(1000201));
        fuzz::require(filter.Initialize(), "the control starts");
        Dictionary entry = automation::makeDictionary();
        for (const char16_t* key : keys)
            if (Value value = valueOf(input); !value.isEmpty())
                entry.set(key, std::move(value));

        const bool laid = filter.RefreshProfile(entry);
        fuzz::checkInvariants(filter);
        fuzz::checkResults(filter);
        const Dictionary first = filter.get_dctProFileEntry();
        if (laid) {
            const bool isClosedUp = hasNoGap(filter.controls().vsFilter);
            const std::u16string filterText = faults::filterText(filter);
            fuzz::require(filter.RefreshProfile(first), "what was written can be laid on the grids");
            fuzz::requireSame(written(filter.get_dctProFileEntry()), written(first), "a written entry stays the same");
            // A condition whose field is gone leaves its line empty (the first one the whole filter); such a line is
            // not written, so that messages number those below it anew.
            if (isClosedUp)
                fuzz::requireSame(faults::filterText(filter), filterText, "a written entry stands for the same filter");
            fuzz::checkInvariants(filter);
        }
        fuzz::checkUsable(filter, host);
    }
    fuzz::require(fuzz::SmallHost::liveObjects() == 0, "every object of the host is let go");
    return 0;
}
