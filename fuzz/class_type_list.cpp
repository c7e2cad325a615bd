// The list of class types that a host passes to Initialize, and the list that it gets: any text, any names, any ids.
#include "ControlChecks.h"
#include "Input.h"
#include "Models.h"
#include "automation/Coercion.h"
#include "metadata/PageSelection.h"

using namespace orv;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::u16string classTypeIds = input.line();
    const std::u16string pages = input.line();
    const auto currentId = static_cast<std::int32_t>(input.below(10));
    input.line();
    fuzz::SmallHost host;
    host.classTypes.clear();
    while (!input.atEnd() && host.classTypes.size() < 40) {
        const auto id = static_cast<std::int32_t>(input.below(10));
        host.classTypes.push_back({id, input.line()});
    }

    std::u16string wanted = pages;
    std::erase(wanted, u'*');
    for (const char16_t* page : {u"1", u"2", u"", u"12"})
        fuzz::require(metadata::PageSelection(pages).contains(page) ==
                          (wanted.find(std::u16string(u",") + page + u",") != std::u16string::npos),
                      "a page is selected when it stands between commas");

    {
        control::Filter filter(host, host);
        filter.put_SetSelectPageList(pages);
        filter.put_DataSrv(host.dataService(currentId));
        const bool started = filter.Initialize(classTypeIds);
        const ui::ComboBox& box = filter.controls().cboClassType;
        if (classTypeIds.empty()) {
            fuzz::require(started && box.count() == 1 && box.tag() == u"0", "one class type only");
        } else {
            fuzz::requireSame(host.classTypeFilter, u"FID in (" + classTypeIds + u")", "the list is passed unchanged");
            fuzz::require(started == !host.classTypes.empty(), "a list without class types cannot be loaded");
            fuzz::require(box.count() == static_cast<int>(host.classTypes.size()), "a line for each class type");
            int line = 0;
            for (std::size_t i = 0; i < host.classTypes.size(); ++i) {
                fuzz::requireSame(box.items()[i], host.classTypes[i].name, "a line is the class type's name");
                if (host.classTypes[i].id == currentId)
                    line = static_cast<int>(i);
            }
            if (started) {
                fuzz::require(box.listIndex() == line, "the last line of the current class type is selected");
                fuzz::requireSame(box.tag(), automation::numberToText(line), "the selected line is loaded");
            }
        }
        fuzz::checkInvariants(filter);
        if (started)
            fuzz::checkResults(filter);
        host.classTypes.assign({{34, u"其他"}});
        fuzz::checkUsable(filter, host);
        filter.ClearMem();
    }
    fuzz::require(fuzz::SmallHost::liveObjects() == 0, "every object of the host is let go");
    return 0;
}
